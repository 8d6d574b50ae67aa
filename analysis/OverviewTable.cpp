#include "analysis/OverviewTable.h"

#include <QCoreApplication>

namespace KOLT {

namespace {

using Row = OverviewTable::Row;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::OverviewTable)
};

QString count(std::size_t number)
{
    return QString::number(number);
}

QString litres(double fuel)
{
    return figureText(fuel, 2, {});
}

Row emptyRow(OverviewTable::Kind kind, int cycle)
{
    Row row;
    row.kind = kind;
    row.cycle = cycle;
    row.cells.resize(OverviewTable::columnCount);
    return row;
}

QString lampTip(const CycleOverview& cycle)
{
    QStringList lines;
    for (const auto& [name, times] : cycle.lampNames)
        lines << Text::tr("%1: came on %n time(s)", nullptr, static_cast<int>(times)).arg(name);
    for (const QString& name : cycle.lampsFromTheStart)
        lines << Text::tr("%1: on from the start, not counted").arg(name);
    return lines.join(QLatin1Char('\n'));
}

QString worstText(const Profile& profile, const std::optional<Exceedance>& worst)
{
    if (!worst)
        return {};
    const ProfileParameter& parameter = *worst->parameter;
    return QStringLiteral("%1 %2").arg(parameter.name, worst->peakText(profile));
}

/// With the device, and the time on the counter.
QString worstTip(const Profile& profile, const std::optional<Exceedance>& worst)
{
    if (!worst)
        return {};
    const QString state =
        worst->state == ThresholdState::Limit ? Text::tr("Limit") : Text::tr("Warning");
    return Text::tr("%1: %2 %3 at %4 since the unit was switched on")
        .arg(state, worst->parameter->fullName, worst->peakText(profile),
             durationText(worst->seconds));
}

QString severityText(const std::optional<TrustSeverity>& severity)
{
    if (!severity)
        return Text::tr("sound");
    switch (*severity) {
    case TrustSeverity::Note:
        return Text::tr("note");
    case TrustSeverity::Doubtful:
        return Text::tr("doubtful");
    case TrustSeverity::Wrong:
        break;
    }
    return Text::tr("wrong");
}

void addTrust(Row& row, const std::vector<TrustFinding>& findings)
{
    row.severity = worstSeverity(findings);
    row.cells[OverviewTable::Trust] = severityText(row.severity);
    QStringList lines;
    for (const TrustFinding& finding : findings)
        lines << trustKindTitle(finding.kind) + QStringLiteral(": ") + finding.text;
    row.trustTip = lines.join(QLatin1Char('\n'));
}

Row sumRow(const QString& name, const DayOverview& day)
{
    Row row = emptyRow(OverviewTable::Kind::Day, 0);
    row.isComplete = day.isComplete;
    row.cells[OverviewTable::Name] = name;
    row.cells[OverviewTable::Run] = durationText(day.runSeconds);
    if (!day.isComplete)
        return row;
    row.cells[OverviewTable::Flights] = count(static_cast<std::size_t>(day.totals.flights));
    row.cells[OverviewTable::Air] = durationText(day.totals.seconds);
    if (day.totals.flights > 0)
        row.cells[OverviewTable::Altitude] = figureText(day.maxAltitude, 0, {});
    row.cells[OverviewTable::Fuel] = litres(day.fuel);
    row.cells[OverviewTable::FlightFuel] = litres(day.totals.fuel);
    row.cells[OverviewTable::Exceeded] =
        episodeCellText(day.totals.episodes, day.totals.exceedances);
    row.cells[OverviewTable::Lamps] = count(day.lamps);
    return row;
}

Row cycleRow(const Profile& profile, const CycleOverview& cycle)
{
    Row row = emptyRow(OverviewTable::Kind::Cycle, cycle.number);
    row.isComplete = cycle.isComplete;
    row.worst = cycle.worst;
    row.cells[OverviewTable::Name] = cycle.name;
    row.cells[OverviewTable::Time] = timeOfDayText(cycle.dateTime, cycle.startSeconds);
    row.cells[OverviewTable::Run] = durationText(cycle.runSeconds);
    if (!cycle.isComplete)
        return row;
    row.cells[OverviewTable::Flights] = count(cycle.flights.size());
    row.cells[OverviewTable::Air] = durationText(cycle.totals.seconds);
    if (!cycle.flights.empty())
        row.cells[OverviewTable::Altitude] = figureText(cycle.maxAltitude, 0, {});
    row.cells[OverviewTable::Fuel] = litres(cycle.fuel);
    row.cells[OverviewTable::FlightFuel] = litres(cycle.totals.fuel);
    row.cells[OverviewTable::Exceeded] = episodeCellText(cycle.episodes, cycle.crossings);
    row.cells[OverviewTable::Lamps] = count(cycle.lamps);
    row.cells[OverviewTable::Worst] = worstText(profile, cycle.worst);
    row.worstTip = worstTip(profile, cycle.worst);
    if (cycle.trust)
        addTrust(row, cycle.trust->findings);
    row.tip = lampTip(cycle);
    if (!cycle.unreadFiles.empty())
        row.tip.prepend(Text::tr("Incomplete: these files could not be read: %1")
                            .arg(QStringList(cycle.unreadFiles.begin(), cycle.unreadFiles.end())
                                     .join(QStringLiteral(", "))) +
                        QLatin1Char('\n'));
    return row;
}

Row flightRow(const Profile& profile, const CycleOverview& cycle, std::size_t index)
{
    const FlightOverview& flight = cycle.flights[index];
    Row row = emptyRow(OverviewTable::Kind::Flight, cycle.number);
    row.flight = index;
    row.isComplete = true;
    row.worst = flight.worst;
    row.cells[OverviewTable::Name] = Text::tr("Flight %1").arg(index + 1);
    row.cells[OverviewTable::Time] = timeOfDayText(flight.line.takeOff, flight.line.takeOffSeconds);
    row.cells[OverviewTable::Air] = durationText(flight.line.flightSeconds());
    row.cells[OverviewTable::Altitude] = figureText(flight.line.maxAltitude, 0, {});
    row.cells[OverviewTable::Fuel] = litres(flight.line.fuel);
    row.cells[OverviewTable::FlightFuel] = row.cells[OverviewTable::Fuel];
    row.cells[OverviewTable::Exceeded] =
        episodeCellText(flight.line.episodes, flight.line.exceedances);
    row.cells[OverviewTable::Lamps] = count(flight.lamps);
    row.cells[OverviewTable::Worst] = worstText(profile, flight.worst);
    row.worstTip = worstTip(profile, flight.worst);
    if (cycle.trust) {
        std::vector<TrustFinding> findings;
        for (const std::size_t place : cycle.trust->findingsOf(index))
            findings.push_back(cycle.trust->findings[place]);
        addTrust(row, findings);
    }
    return row;
}

Row outsideRow(const CycleOverview& cycle)
{
    Row row = emptyRow(OverviewTable::Kind::Outside, cycle.number);
    row.isComplete = true;
    row.cells[OverviewTable::Name] = Text::tr("Outside flights");
    row.cells[OverviewTable::Fuel] = litres(cycle.outsideFuel());
    row.cells[OverviewTable::Exceeded] =
        episodeCellText(cycle.outsideEpisodes, cycle.outsideCrossings);
    row.tip = Text::tr("On the ground, and take-offs that were aborted or have no landing");
    return row;
}

} // namespace

QStringList OverviewTable::headings()
{
    return {Text::tr("Cycle"),    Text::tr("Time"),           Text::tr("Engine run"),
            Text::tr("Flights"),  Text::tr("In the air"),     Text::tr("Max. alt. [m]"),
            Text::tr("Fuel [l]"), Text::tr("In flights [l]"), Text::tr("Exceeded"),
            Text::tr("Lamps"),    Text::tr("Recording"),      Text::tr("Worst")};
}

QStringList OverviewTable::explanations()
{
    return {
        Text::tr("The cycles of the open folder, newest day first"),
        Text::tr("Start of the engine cycle, take-off of a flight"),
        Text::tr("From the start of the cycle's first file to the stop of its last"),
        Text::tr("Number of flights; a take-off without a landing is none"),
        Text::tr("From take-off to landing"),
        Text::tr("Highest altitude in a flight"),
        Text::tr("Fuel of the whole engine run: in flights and outside of them"),
        Text::tr("Fuel in flights, from 30 s before take-off to 30 s after landing"),
        Text::tr(
            "Episodes in which a warning or limit was exceeded, and how often it was crossed in "
            "them, warning lamps included"),
        Text::tr("How often a warning lamp came on"),
        Text::tr("How far the recording can be believed"),
        Text::tr("The worst exceedance with the value farthest from normal: limits before "
                 "warnings, then by how far the threshold was exceeded")};
}

OverviewTable::OverviewTable(const Profile& profile, const CardOverview& overview)
    : m_total(totalRow(overview))
{
    for (const DayOverview& day : overview.days()) {
        m_rows.push_back(dayRow(day));
        for (const std::size_t index : day.cycles) {
            const std::vector<Row> rows = cycleRows(profile, overview.cycles()[index]);
            m_rows.insert(m_rows.end(), rows.begin(), rows.end());
        }
    }
}

OverviewTable::Row OverviewTable::dayRow(const DayOverview& day)
{
    return sumRow(day.date.isValid() ? day.date.toString(QStringLiteral("dd.MM.yyyy"))
                                     : Text::tr("Unknown Date"),
                  day);
}

std::vector<OverviewTable::Row> OverviewTable::cycleRows(const Profile& profile,
                                                         const CycleOverview& cycle)
{
    std::vector<Row> rows{cycleRow(profile, cycle)};
    for (std::size_t i = 0; i < cycle.flights.size(); ++i)
        rows.push_back(flightRow(profile, cycle, i));
    if (cycle.isComplete)
        rows.push_back(outsideRow(cycle));
    return rows;
}

OverviewTable::Row OverviewTable::totalRow(const CardOverview& overview)
{
    return sumRow(Text::tr("Total"), overview.totals());
}

} // namespace KOLT
