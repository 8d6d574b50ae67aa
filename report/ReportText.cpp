#include "report/ReportText.h"

#include "analysis/DaySheet.h"
#include "analysis/MomentText.h"
#include "base/Version.h"
#include "report/HtmlTable.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::EngineReport)
};

QString listed(const QStringList& texts)
{
    return texts.isEmpty() ? Text::tr("not recorded") : texts.join(QStringLiteral(", "));
}

QString counterLine(const std::optional<ReportCounter>& counter)
{
    if (!counter)
        return Text::tr("not recorded");
    return counter->firstText == counter->lastText
               ? counter->lastText
               : Text::tr("%1 (at the begin %2)").arg(counter->lastText, counter->firstText);
}

QString headHtml(const EngineReport& report)
{
    const ReportIdentity& identity = report.identity;
    const ReportProfile& profile = report.profile;
    HtmlTable table("Ll");
    table.add({Text::tr("Engine serial number"), listed(identity.engineSerials)});
    table.add({Text::tr("Engine type"), listed(identity.engineTypes)});
    table.add({Text::tr("Unit serial number"), listed(identity.unitSerials)});
    table.add({Text::tr("Unit type"), listed(identity.unitTypes)});
    table.add({Text::tr("Software of lane A"), listed(identity.softwareA)});
    table.add({Text::tr("Software of lane B"), listed(identity.softwareB)});
    table.add({Text::tr("Software of the display"), listed(identity.displaySoftware)});
    table.add({Text::tr("Engine hours"), counterLine(identity.hours)});
    table.add({Text::tr("Engine starts"), counterLine(identity.starts)});
    table.add({Text::tr("Profile"), profile.line.section(QLatin1String(": "), 1)});
    table.add({Text::tr("Units"), profile.isImperial
                                      ? Text::tr("imperial; the figures of flights are metric")
                                      : Text::tr("metric")});
    table.add({Text::tr("Recording"), report.folder});
    table.add({Text::tr("Clock"), report.clock});
    table.add({Text::tr("Made on"), Text::tr("%1 with %2")
                                        .arg(report.date.toString(QStringLiteral("dd.MM.yyyy")),
                                             QLatin1String(versionText))});
    return htmlParagraph(Text::tr("Engine Report"), "h1") + table.html();
}

QString severityText(TrustSeverity severity)
{
    switch (severity) {
    case TrustSeverity::Wrong:
        return Text::tr("wrong");
    case TrustSeverity::Doubtful:
        return Text::tr("doubtful");
    case TrustSeverity::Note:
        break;
    }
    return Text::tr("note");
}

QString trustHtml(const EngineReport& report)
{
    HtmlTable table("lLLl", {Text::tr("Cycle"), Text::tr("Figures"), Text::tr("From, to"),
                             Text::tr("Finding")});
    for (const ReportCycle& cycle : report.cycles) {
        for (const TrustFinding& finding : cycle.sheet.findings) {
            const auto time = [&](const std::optional<double>& seconds) {
                return seconds ? counterText(*seconds) : QStringLiteral("?");
            };
            const bool hasTimes = finding.from || finding.to;
            const QStringList files(finding.files.begin(), finding.files.end());
            table.add({QString::number(cycle.sheet.number.value_or(0)),
                       severityText(trustSeverity(finding.kind)),
                       hasTimes
                           ? QStringLiteral("%1 - %2").arg(time(finding.from), time(finding.to))
                           : QString(),
                       QStringLiteral("%1: %2 %3")
                           .arg(trustKindTitle(finding.kind), finding.text,
                                files.join(QStringLiteral(", ")))});
        }
    }
    QString html = htmlParagraph(Text::tr("How far to trust the recording"), "h2");
    if (!report.unreadFiles.isEmpty())
        html += htmlParagraph(Text::tr("Incomplete: these files could not be read: %1")
                                  .arg(report.unreadFiles.join(QStringLiteral(", "))),
                              "h4");
    return html + (table.html().isEmpty()
                       ? htmlParagraph(Text::tr("Nothing is doubtful in the recording."))
                       : table.html());
}

/// Of the day sheet's columns, those that the statistics do not have, and the most telling ones.
std::vector<DaySheet::Column> flightColumns(const DaySheet& sheet)
{
    std::vector<DaySheet::Column> columns = sheet.columns();
    std::erase_if(columns, [](DaySheet::Column column) {
        return column == DaySheet::Gain || column == DaySheet::Climb ||
               column == DaySheet::TakeOffDistance;
    });
    return columns;
}

/// What a finding touches has a "*".
QString flightsHtml(const EngineReport& report)
{
    std::vector<SheetCycle> cycles;
    for (const ReportCycle& cycle : report.cycles)
        cycles.push_back(cycle.sheet);
    const DaySheet sheet(std::move(cycles));
    const std::vector<DaySheet::Column> columns = flightColumns(sheet);
    QStringList headings;
    for (const DaySheet::Column column : columns)
        headings << DaySheet::heading(column);
    const bool hasCycles = std::ranges::find(columns, DaySheet::Cycle) != columns.end();
    HtmlTable table(hasCycles ? "RRRRRRRRRRR" : "RRRRRRRRRR", headings, true);
    for (const DaySheet::Row& row : sheet.rows()) {
        QStringList cells;
        int covered = 0;
        for (const DaySheet::Column column : columns) {
            if (covered > 0) {
                cells << QString(); // of the cell before
                --covered;
                continue;
            }
            covered = row.span(column, columns) - 1;
            DaySheet::Row plain = row;
            plain.notes[column].clear();
            cells << QStringLiteral("%1%2").arg(
                plain.text(column), row.notes[column].empty() ? QString() : QStringLiteral("*"));
        }
        table.add(cells, row.kind == DaySheet::Kind::Sum);
    }
    return htmlParagraph(Text::tr("Flights"), "h2") + table.html() +
           htmlParagraph(DaySheet::explanation() + QLatin1Char(' ') +
                         Text::tr("*: doubtful, see the findings above."));
}

struct Statistic
{
    const char* label;
    double Flight::*figure;
    int decimals;
    Figures mark;
};

constexpr std::array statistics{
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Fuel lane A [l]"), &Flight::fuelA, 2,
              Figure::FuelA},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Fuel lane B [l]"), &Flight::fuelB, 2,
              Figure::FuelB},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Fuel [l]"), &Flight::fuel, 2, Figure::Fuel},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Minimum altitude [m]"), &Flight::minAltitude,
              0, Figure::MinAltitude},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Maximum altitude [m]"), &Flight::maxAltitude,
              0, Figure::MaxAltitude},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Altitude gain [m]"), &Flight::altitudeGain,
              0, Figure::AltitudeGain},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Climb rate [m/s]"), &Flight::climbRate, 2,
              Figure::ClimbRate},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Descent rate [m/s]"), &Flight::descentRate,
              2, Figure::DescentRate},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Maximum ground speed [km/h]"),
              &Flight::maxGroundSpeed, 1, Figure::MaxGroundSpeed},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Time per 100 m [s]"), &Flight::timePer100m,
              1, Figure::TimePer100m},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Fuel per 100 m [l]"), &Flight::fuelPer100m,
              2, Figure::FuelPer100m},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Take-off distance [m]"),
              &Flight::takeOffDistance, 0, Figure::TakeOffDistance},
    Statistic{QT_TRANSLATE_NOOP("KOLT::EngineReport", "Take-off distance over 15 m [m]"),
              &Flight::takeOffDistance15m, 0, Figure::TakeOffDistance15m}};

struct FlightColumn
{
    QString name;
    const Flight* flight = nullptr;
    Figures marked = 0; ///< what findings touch
};

/// Some flights side by side; figures that a finding touches have a "*".
QString statisticsTable(const std::vector<FlightColumn>& flights)
{
    QStringList headings{QStringLiteral(" ")};
    for (const FlightColumn& column : flights)
        headings << column.name;
    HtmlTable table("Lrrrrrr", headings);
    for (const Statistic& statistic : statistics) {
        QStringList cells{Text::tr(statistic.label)};
        for (const FlightColumn& column : flights)
            cells << figureText(column.flight->*statistic.figure, statistic.decimals, {}) +
                         ((column.marked & statistic.mark) != 0 ? QStringLiteral("*") : QString());
        table.add(cells);
    }
    return table.html() + htmlParagraph(QStringLiteral(" "));
}

QString statisticsHtml(const EngineReport& report)
{
    constexpr std::size_t beside = 6;
    std::vector<FlightColumn> flights;
    QString html;
    for (const ReportCycle& cycle : report.cycles) {
        std::vector<Figures> marked(cycle.flights.size());
        for (const TrustFinding& finding : cycle.sheet.findings) {
            for (const FlightMark& mark : finding.marks)
                marked[mark.flight] |= mark.figures;
        }
        for (std::size_t i = 0; i < cycle.flights.size(); ++i) {
            flights.push_back(
                {Text::tr("Cycle %1, flight %2").arg(cycle.sheet.number.value_or(0)).arg(i + 1),
                 &cycle.flights[i], marked[i]});
            if (flights.size() == beside) {
                html += statisticsTable(flights);
                flights.clear();
            }
        }
    }
    if (!flights.empty())
        html += statisticsTable(flights);
    return htmlParagraph(Text::tr("Statistics of the flights"), "h2") +
           (html.isEmpty() ? htmlParagraph(Text::tr("No flight was found.")) : html);
}

QString filesHtml(const EngineReport& report)
{
    HtmlTable table("LRc", {Text::tr("File"), Text::tr("Bytes"), Text::tr("SHA-256")});
    for (const ReportFile& file : report.files)
        table.add({file.name, QString::number(file.bytes),
                   file.sha256.isEmpty() ? Text::tr("could not be read")
                                         : QString::fromLatin1(file.sha256)});
    return htmlParagraph(Text::tr("Files"), "h2") + table.html();
}

} // namespace

QString reportTitle(const EngineReport& report)
{
    return Text::tr("Engine report, engine %1").arg(listed(report.identity.engineSerials));
}

QString reportHtml(const EngineReport& report)
{
    return headHtml(report) + trustHtml(report) + flightsHtml(report) + episodesHtml(report) +
           statisticsHtml(report) + report.ledger + filesHtml(report);
}

} // namespace KOLT
