#include "analysis/DaySheet.h"
#include "base/Csv.h"

#include <QCoreApplication>

#include <algorithm>
#include <set>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::DaySheet)
};

/// "[1,4-6]"
QString markText(const std::vector<int>& notes)
{
    QStringList parts;
    for (std::size_t i = 0; i < notes.size();) {
        std::size_t last = i;
        while (last + 1 < notes.size() && notes[last + 1] == notes[last] + 1)
            ++last;
        parts << QString::number(notes[i]);
        if (last > i)
            parts.back() += (last == i + 1 ? QLatin1Char(',') : QLatin1Char('-')) +
                            QString::number(notes[last]);
        i = last + 1;
    }
    return QStringLiteral("[%1]").arg(parts.join(QLatin1Char(',')));
}

QString paragraph(const QString& text, const char* tag = "p")
{
    return text.isEmpty() ? QString()
                          : QStringLiteral("<%1 style=\"margin:2px 0px 4px\">%2</%1>")
                                .arg(QLatin1String(tag), text.toHtmlEscaped());
}

/// Only marks may be wrapped: a row of many would be wider than the page.
QString htmlCell(const QString& html, int span, bool isHead, bool isMarked = false)
{
    return QStringLiteral("<%1 align=\"right\" colspan=\"%2\" "
                          "style=\"padding:3px 2px;font-size:8.5pt;white-space:%3\">%4</%1>")
        .arg(isHead ? QStringLiteral("th") : QStringLiteral("td"))
        .arg(span)
        .arg(isMarked ? QStringLiteral("normal") : QStringLiteral("nowrap"), html);
}

QString htmlRow(const QString& cells, const char* color)
{
    return QStringLiteral("<tr style=\"background-color:%1\">%2</tr>")
        .arg(QLatin1String(color), cells);
}

} // namespace

QString DaySheet::Row::text(Column column) const
{
    QString text = cells[column];
    if (column >= Limits && crossings[column - Limits] > 0)
        text += QStringLiteral(" (%1)").arg(crossings[column - Limits]);
    const std::vector<int>& own = notes[column];
    return own.empty() ? text : text + QLatin1Char(' ') + markText(own);
}

int DaySheet::Row::span(Column column, const std::vector<Column>& columns) const
{
    if (kind == Kind::Flight || column >= FlightTime || cells[column].isEmpty())
        return 1;
    int count = 1;
    auto next = std::ranges::find(columns, column) + 1;
    for (; next != columns.end() && *next < FlightTime && cells[*next].isEmpty(); ++next)
        ++count;
    return count;
}

std::vector<DaySheet::Column> DaySheet::columns() const
{
    std::vector<Column> columns;
    for (int i = 0; i < columnCount; ++i) {
        if (i != Cycle || m_cycles.size() > 1)
            columns.push_back(static_cast<Column>(i));
    }
    return columns;
}

QString DaySheet::heading(Column column)
{
    switch (column) {
    case Date:
        return Text::tr("Date");
    case Cycle:
        return Text::tr("Cycle");
    case FlightNumber:
        return Text::tr("Flight");
    case TakeOff:
        return Text::tr("Take-off");
    case Landing:
        return Text::tr("Landing");
    case FlightTime:
        return Text::tr("Flight time");
    case MaxAltitude:
        return Text::tr("Max. alt. [m]");
    case Gain:
        return Text::tr("Gain [m]");
    case Climb:
        return Text::tr("Climb [m/s]");
    case Fuel:
        return Text::tr("Fuel [l]");
    case TakeOffDistance:
        return Text::tr("T/O distance [m]");
    case Limits:
        return Text::tr("Limits");
    case Warnings:
        return Text::tr("Warnings");
    case Lamps:
        return Text::tr("Lamps");
    case columnCount:
        break;
    }
    return {};
}

QString DaySheet::unitLine() const
{
    QStringList engines;
    QStringList units;
    for (const SheetCycle& cycle : m_cycles) {
        engines += cycle.engines;
        units += cycle.units;
    }
    engines.removeDuplicates();
    units.removeDuplicates();
    QStringList parts;
    if (!engines.isEmpty())
        parts << Text::tr("Engine serial number: %1").arg(engines.join(QStringLiteral(", ")));
    if (!units.isEmpty())
        parts << Text::tr("Unit serial number: %1").arg(units.join(QStringLiteral(", ")));
    return parts.join(QStringLiteral("; "));
}

QString DaySheet::explanation()
{
    return Text::tr("Flight time: from take-off to landing. Limits and warnings exceeded: "
                    "episodes, in brackets their crossings, together with their lamps; lamps: "
                    "those that came on alone.");
}

QString DaySheet::isoDates() const
{
    std::set<QDate> dates;
    for (const SheetCycle& cycle : m_cycles) {
        if (cycle.dateTime.isValid())
            dates.insert(cycle.dateTime.date());
    }
    if (dates.empty())
        return {};
    const QString first = dates.begin()->toString(Qt::ISODate);
    return dates.size() == 1 ? first
                             : first + QLatin1Char('_') + dates.rbegin()->toString(Qt::ISODate);
}

QString DaySheet::toHtml(const Head& head) const
{
    QString html = paragraph(head.title, "h2") + paragraph(unitLine()) + paragraph(head.profile) +
                   paragraph(head.clock + QLatin1Char(' ') + explanation()) +
                   paragraph(head.remark, "h4");
    const std::vector<Column> shown = columns();
    QString cells;
    for (const Column column : shown)
        cells += htmlCell(
            heading(column).toHtmlEscaped().replace(QLatin1String(" ["), QLatin1String("<br>[")), 1,
            true);
    // The printer repeats <thead> on each page.
    html += QStringLiteral("<table width=\"100%\" cellspacing=\"0\" border=\"0\"><thead>") +
            htmlRow(cells, "#e3e9ee") + QStringLiteral("</thead>");
    for (const Row& row : m_rows) {
        cells.clear();
        for (std::size_t i = 0; i < shown.size();) {
            const int span = row.span(shown[i], shown);
            cells += htmlCell(row.text(shown[i]).toHtmlEscaped(), span, row.kind == Kind::Sum,
                              !row.notes[shown[i]].empty());
            i += static_cast<std::size_t>(span);
        }
        html += htmlRow(cells, row.kind == Kind::Sum ? "#f4f5f6" : "#ffffff");
    }
    html += QStringLiteral("</table>");
    for (qsizetype i = 0; i < m_notes.size(); ++i)
        html += paragraph(QStringLiteral("[%1] %2").arg(i + 1).arg(m_notes[i]));
    return html;
}

QString DaySheet::csvNotes(const Row& row) const
{
    std::map<int, QStringList> headings;
    for (const Column column : columns()) {
        for (const int note : row.notes[column])
            headings[note] << heading(column);
    }
    QStringList texts;
    for (const auto& [note, names] : headings)
        texts << QStringLiteral("%1: %2").arg(names.join(QStringLiteral(", ")), m_notes[note - 1]);
    return texts.join(QStringLiteral(" | "));
}

QStringList DaySheet::csvFacts(const Row& row, const Head& head, const ListSettings& settings) const
{
    const SheetCycle& cycle = m_cycles[row.cycle];
    QStringList counters{QString(), QString()};
    if (row.flight) {
        const FlightLine& line = cycle.log.lines[*row.flight];
        counters = {settings.numberText(QString::number(line.takeOffSeconds, 'f', 1)),
                    settings.numberText(QString::number(line.landingSeconds, 'f', 1))};
    }
    return counters + QStringList{cycle.engines.join(QStringLiteral(", ")),
                                  cycle.units.join(QStringLiteral(", ")), head.profile, head.clock,
                                  csvNotes(row)};
}

QString DaySheet::toCsv(const Head& head, const ListSettings& settings) const
{
    const std::vector<Column> shown = columns();
    QStringList fields;
    for (const Column column : shown)
        fields << heading(column);
    fields << Text::tr("Take-off, counter [s]") << Text::tr("Landing, counter [s]")
           << Text::tr("Engine serial number") << Text::tr("Unit serial number")
           << Text::tr("Profile") << Text::tr("Clock") << Text::tr("Doubtful");
    QString text = csvLine(fields, settings.separator);
    for (const Row& row : m_rows) {
        if (row.kind == Kind::Sum)
            continue;
        fields.clear();
        for (const Column column : shown)
            fields << settings.numberText(row.cells[column]);
        text += csvLine(fields + csvFacts(row, head, settings), settings.separator);
    }
    return text;
}

} // namespace KOLT
