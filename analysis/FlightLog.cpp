#include "analysis/FlightLog.h"

#include "analysis/Findings.h"
#include "analysis/MomentText.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

double FlightLine::flightSeconds() const
{
    return takeOff.isValid() && landing.isValid()
               ? static_cast<double>(landing.toSecsSinceEpoch() - takeOff.toSecsSinceEpoch())
               : std::trunc(landingSeconds) - std::trunc(takeOffSeconds);
}

void FlightTotals::add(const FlightLine& line)
{
    add(FlightTotals{1, line.flightSeconds(), line.fuel, line.exceedances});
}

void FlightTotals::add(const FlightTotals& other)
{
    flights += other.flights;
    seconds += other.seconds;
    fuel += other.fuel;
    exceedances += other.exceedances;
}

FlightLine flightLine(const Flight& flight, int number, const QDateTime& dateTime,
                      const std::vector<double>& crossings)
{
    FlightLine line;
    line.number = number;
    line.takeOff = momentOf(dateTime, flight.takeOffSeconds);
    line.landing = momentOf(dateTime, flight.landingSeconds);
    line.takeOffSeconds = flight.takeOffSeconds;
    line.landingSeconds = flight.landingSeconds;
    line.maxAltitude = flight.maxAltitude;
    line.climb = flight.altitudeGain;
    line.climbRate = flight.climbRate;
    line.fuel = flight.fuel;
    line.takeOffDistance = flight.takeOffDistance;
    line.takeOffDistance15m = flight.takeOffDistance15m;
    const auto first = std::ranges::lower_bound(crossings, flight.startSeconds);
    const auto behind = std::ranges::upper_bound(crossings, flight.endSeconds);
    line.exceedances = first < behind ? static_cast<std::size_t>(behind - first) : 0;
    return line;
}

namespace {

/// The times of all exceedances, also of those beyond the end of the list.
std::vector<double> exceedanceTimes(const Profile& profile, const DataSet& dataSet)
{
    const EventList events = eventsOf(profile, dataSet);
    std::vector<double> times;
    for (const Event& event : *events)
        times.push_back(event.seconds);
    const std::vector<double>& leftOut = eventsLeftOut(profile, dataSet);
    times.insert(times.end(), leftOut.begin(), leftOut.end()); // all of them are later
    return times;
}

} // namespace

FlightLog flightLog(const Profile& profile, const DataSet& dataSet)
{
    const std::vector<double> events = exceedanceTimes(profile, dataSet);
    FlightLog log;
    log.exceedances = events.size();
    for (const Flight& flight : dataSet.flights)
        log.lines.push_back(
            flightLine(flight, static_cast<int>(log.lines.size()) + 1, dataSet.dateTime, events));
    return log;
}

QString figureText(double value, int decimals, const QString& unit)
{
    if (!std::isfinite(value))
        return QStringLiteral("-");
    const QString number = QString::number(value, 'f', decimals);
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

} // namespace KOLT
