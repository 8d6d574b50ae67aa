#include "analysis/DaySheet.h"

#include "base/Csv.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::DaySheet)
};

QString dateText(const QDate& date)
{
    return date.isValid() ? date.toString(QStringLiteral("dd.MM.yyyy")) : Text::tr("Unknown Date");
}

QStringList cellsOf(const FlightLine& line)
{
    return {dateText(line.takeOff.date()),
            timeOfDayText(line.takeOff, line.takeOffSeconds),
            timeOfDayText(line.landing, line.landingSeconds),
            durationText(line.flightSeconds()),
            figureText(line.maxAltitude, 0, {}),
            figureText(line.climb, 0, {}),
            figureText(line.fuel, 2, {}),
            figureText(line.takeOffDistance, 0, {}),
            QString::number(line.exceedances)};
}

QStringList countersOf(const FlightLine& line)
{
    return {QString::number(line.takeOffSeconds, 'f', 1),
            QString::number(line.landingSeconds, 'f', 1)};
}

QStringList sumOf(const QString& label, const FlightTotals& totals)
{
    return {label,
            Text::tr("%n flight(s)", nullptr, totals.flights),
            {},
            durationText(totals.seconds),
            {},
            {},
            figureText(totals.fuel, 2, {}),
            {},
            QString::number(totals.exceedances)};
}

QString htmlRow(const QStringList& cells, const char* tag, const char* style)
{
    QString row = QStringLiteral("<tr style=\"%1\">").arg(QLatin1String(style));
    for (const QString& cell : cells)
        row += QStringLiteral("<%1 align=\"right\" style=\"padding:3px 8px\">%2</%1>")
                   .arg(QLatin1String(tag), cell.toHtmlEscaped());
    return row + QStringLiteral("</tr>");
}

} // namespace

QStringList DaySheet::headings()
{
    return {Text::tr("Date"),        Text::tr("Take-off"),         Text::tr("Landing"),
            Text::tr("Flight time"), Text::tr("Max. alt. [m]"),    Text::tr("Climb [m]"),
            Text::tr("Fuel [l]"),    Text::tr("T/O distance [m]"), Text::tr("Exceedances")};
}

DaySheet::DaySheet(std::vector<FlightLine> lines)
{
    // An invalid date compares as less than any other, but belongs at the end.
    std::ranges::stable_sort(lines, [](const FlightLine& a, const FlightLine& b) {
        if (a.takeOff.isValid() != b.takeOff.isValid())
            return a.takeOff.isValid();
        return a.takeOff.isValid() && a.takeOff < b.takeOff;
    });
    FlightTotals all;
    FlightTotals day;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        m_rows.push_back({.cells = cellsOf(lines[i]), .counters = countersOf(lines[i])});
        day.add(lines[i]);
        all.add(lines[i]);
        const QDate date = lines[i].takeOff.date();
        if (i + 1 == lines.size() || lines[i + 1].takeOff.date() != date) {
            m_rows.push_back(
                {.isSum = true, .cells = sumOf(Text::tr("Sum %1").arg(dateText(date)), day)});
            day = {};
        }
    }
    if (!lines.empty() && all.flights != 0 && std::ranges::count(m_rows, true, &Row::isSum) > 1)
        m_rows.push_back({.isSum = true, .cells = sumOf(Text::tr("Total"), all)});
}

QString DaySheet::explanation()
{
    return Text::tr("Flight time: from take-off to landing.");
}

QString DaySheet::toHtml(const QString& title, const QString& remark) const
{
    QString html = QStringLiteral("<h2>%1</h2><p>%2</p>")
                       .arg(title.toHtmlEscaped(), explanation().toHtmlEscaped());
    if (!remark.isEmpty())
        html += QStringLiteral("<p><b>%1</b></p>").arg(remark.toHtmlEscaped());
    // The printer repeats <thead> on each page.
    html += QStringLiteral("<table width=\"100%\" cellspacing=\"0\" border=\"0\"><thead>") +
            htmlRow(headings(), "th", "background-color:#e3e9ee") + QStringLiteral("</thead>");
    for (const Row& row : m_rows)
        html += row.isSum ? htmlRow(row.cells, "th", "background-color:#f4f5f6")
                          : htmlRow(row.cells, "td", "");
    return html + QStringLiteral("</table>");
}

QString DaySheet::toCsv(const ListSettings& settings) const
{
    QString text = csvLine(headings() + QStringList{Text::tr("Take-off, counter [s]"),
                                                    Text::tr("Landing, counter [s]")},
                           settings.separator);
    for (const Row& row : m_rows) {
        if (row.isSum)
            continue;
        QStringList fields = row.cells + row.counters;
        for (QString& field : fields)
            field = settings.numberText(field);
        text += csvLine(fields, settings.separator);
    }
    return text;
}

} // namespace KOLT
