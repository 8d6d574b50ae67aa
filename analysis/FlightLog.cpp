#include "analysis/FlightLog.h"

#include "analysis/Findings.h"

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

QDateTime momentOf(const DataSet& dataSet, double seconds)
{
    return dataSet.dateTime.isValid()
               ? dataSet.dateTime.addMSecs(static_cast<qint64>(seconds * 1000.0))
               : QDateTime();
}

namespace {

/// The times of all exceedances, also of those beyond the end of the list.
std::vector<double> exceedanceTimes(const Profile& profile, const DataSet& dataSet)
{
    if (eventsLeftOut(profile, dataSet) > 0)
        return eventTimes(profile, dataSet, EventScope::AllParameters);
    const EventList events = eventsOf(profile, dataSet);
    std::vector<double> times;
    times.reserve(events->size());
    for (const Event& event : *events)
        times.push_back(event.seconds);
    return times;
}

} // namespace

FlightLog flightLog(const Profile& profile, const DataSet& dataSet)
{
    const std::vector<double> events = exceedanceTimes(profile, dataSet);
    FlightLog log;
    log.exceedances = events.size();
    for (const Flight& flight : dataSet.flights) {
        FlightLine& line = log.lines.emplace_back();
        line.number = static_cast<int>(log.lines.size());
        line.takeOff = momentOf(dataSet, flight.takeOffSeconds);
        line.landing = momentOf(dataSet, flight.landingSeconds);
        line.takeOffSeconds = flight.takeOffSeconds;
        line.landingSeconds = flight.landingSeconds;
        line.maxAltitude = flight.maxAltitude;
        line.climb = flight.altitudeGain;
        line.climbRate = flight.climbRate;
        line.fuel = flight.fuel;
        line.takeOffDistance = flight.takeOffDistance;
        line.takeOffDistance15m = flight.takeOffDistance15m;
        const auto first = std::ranges::lower_bound(events, flight.startSeconds);
        const auto behind = std::ranges::upper_bound(events, flight.endSeconds);
        line.exceedances = first < behind ? static_cast<std::size_t>(behind - first) : 0;
    }
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
