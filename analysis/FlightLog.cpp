#include "analysis/FlightLog.h"

#include "analysis/MomentText.h"
#include "record/FuelUse.h"

#include <algorithm>
#include <cmath>
#include <numeric>

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
    line.startSeconds = flight.startSeconds;
    line.endSeconds = flight.endSeconds;
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

void countIncidents(const DataSet& dataSet, const std::vector<Incident>& incidents, FlightLog& log)
{
    // In the order of their starts: where times jump, flights may overlap.
    std::vector<std::size_t> order(dataSet.flights.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t i) { return dataSet.flights[i].startSeconds; });
    auto next = incidents.begin();
    for (const std::size_t i : order) {
        const Flight& flight = dataSet.flights[i];
        for (; next != incidents.end() && next->seconds < flight.startSeconds; ++next)
            log.outside.add(*next);
        for (; next != incidents.end() && next->seconds <= flight.endSeconds; ++next)
            log.lines[i].incidents.add(*next);
    }
    for (; next != incidents.end(); ++next)
        log.outside.add(*next);
}

} // namespace

double FlightLog::outsideFuel() const
{
    double rest = fuel;
    for (const FlightLine& line : lines)
        rest -= line.fuel;
    return rest;
}

FlightLog flightLog(const Profile& profile, const DataSet& dataSet)
{
    std::vector<ThresholdCrossing> crossings = findCrossings(profile, dataSet);
    std::vector<double> times;
    times.reserve(crossings.size());
    for (const ThresholdCrossing& crossing : crossings)
        times.push_back(crossing.seconds);
    FlightLog log;
    log.exceedances = crossings.size();
    for (const Role role : {Role::FuelA, Role::FuelB})
        log.fuel += fuelUsed(RoleSeries(profile, dataSet.messages, role));
    for (const Flight& flight : dataSet.flights)
        log.lines.push_back(
            flightLine(flight, static_cast<int>(log.lines.size()) + 1, dataSet.dateTime, times));
    countIncidents(dataSet, findIncidents(std::move(crossings)), log);
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
