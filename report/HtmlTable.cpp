#include "report/HtmlTable.h"

namespace KOLT {

QString htmlParagraph(const QString& text, const char* tag, const char* style)
{
    return text.isEmpty()
               ? QString()
               : QStringLiteral("<%1 style=\"margin:3px 0px 3px;%2\">%3</%1>")
                     .arg(QLatin1String(tag), QLatin1String(style), text.toHtmlEscaped());
}

HtmlTable::HtmlTable(const char* columns, const QStringList& headings, bool isDense)
    : m_columns(columns)
    , m_isDense(isDense)
{
    if (!headings.isEmpty())
        m_head = QStringLiteral("<thead>%1</thead>").arg(row(headings, true, "#e3e9ee"));
}

void HtmlTable::add(const QStringList& cells, bool isBold)
{
    m_rows += row(cells, isBold, isBold || m_count % 2 == 1 ? "#f4f5f6" : "#ffffff");
    ++m_count;
}

QString HtmlTable::html() const
{
    return m_rows.isEmpty()
               ? QString()
               : QStringLiteral("<table width=\"100%\" cellspacing=\"0\" border=\"0\">%1%2</table>")
                     .arg(m_head, m_rows);
}

QString HtmlTable::row(const QStringList& cells, bool isHead, const char* color) const
{
    QString html;
    for (qsizetype i = 0, next = 0; i < cells.size(); i = next) {
        for (next = i + 1; next < cells.size() && cells[next].isNull();)
            ++next;
        const char column = m_columns[i];
        const bool isRight = column == 'r' || column == 'R';
        const bool isWhole = !isHead && (column == 'L' || column == 'R');
        const bool isSmall = m_isDense || (column == 'c' && !isHead);
        html += QStringLiteral("<%1 align=\"%2\" colspan=\"%3\" style=\"padding:2px 3px;%4%5\">%6"
                               "</%1>")
                    .arg(isHead ? QStringLiteral("th") : QStringLiteral("td"),
                         isRight ? QStringLiteral("right") : QStringLiteral("left"))
                    .arg(next - i)
                    .arg(isWhole ? QStringLiteral("white-space:nowrap;") : QString(),
                         isSmall ? QStringLiteral("font-size:6.5pt;") : QString(),
                         cells[i].toHtmlEscaped());
    }
    return QStringLiteral("<tr style=\"background-color:%1\">%2</tr>")
        .arg(QLatin1String(color), html);
}

} // namespace KOLT
