#include "analysis/FlightLog.h"

#include "analysis/EventFinder.h"
#include "analysis/Findings.h"
#include "analysis/MomentText.h"
#include "record/FuelUse.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace KOLT {

namespace {

std::size_t countWithin(const std::vector<double>& times, const Flight& flight)
{
    const auto first = std::ranges::lower_bound(times, flight.startSeconds);
    const auto behind = std::ranges::upper_bound(times, flight.endSeconds);
    return first < behind ? static_cast<std::size_t>(behind - first) : 0;
}

} // namespace

double FlightLine::flightSeconds() const
{
    return takeOff.isValid() && landing.isValid()
               ? static_cast<double>(landing.toSecsSinceEpoch() - takeOff.toSecsSinceEpoch())
               : std::trunc(landingSeconds) - std::trunc(takeOffSeconds);
}

void FlightTotals::add(const FlightLine& line)
{
    add(FlightTotals{1, line.flightSeconds(), line.fuel, line.exceedances, line.episodes});
}

void FlightTotals::add(const FlightTotals& other)
{
    flights += other.flights;
    seconds += other.seconds;
    fuel += other.fuel;
    exceedances += other.exceedances;
    episodes += other.episodes;
}

FlightLine flightLine(const Flight& flight, int number, const QDateTime& dateTime,
                      const std::vector<double>& crossings, const std::vector<double>& begins)
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
    line.exceedances = countWithin(crossings, flight);
    line.episodes = countWithin(begins, flight);
    return line;
}

namespace {

void countEpisodes(const DataSet& dataSet, const std::vector<Episode>& episodes, FlightLog& log)
{
    // In the order of their starts: where times jump, flights may overlap.
    std::vector<std::size_t> order(dataSet.flights.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t i) { return dataSet.flights[i].startSeconds; });
    auto next = episodes.begin();
    for (const std::size_t i : order) {
        const Flight& flight = dataSet.flights[i];
        for (; next != episodes.end() && next->begin < flight.startSeconds; ++next)
            log.outside.add(*next);
        for (; next != episodes.end() && next->begin <= flight.endSeconds; ++next)
            log.lines[i].counts.add(*next);
    }
    for (; next != episodes.end(); ++next)
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
    std::vector<double> times;
    for (const ThresholdCrossing& crossing : findCrossings(profile, dataSet))
        times.push_back(crossing.seconds);
    const EpisodeList found = episodesOf(profile, dataSet);
    std::vector<double> begins;
    for (const Episode& episode : found->episodes)
        begins.push_back(episode.begin);
    FlightLog log;
    log.exceedances = times.size();
    for (const Role role : {Role::FuelA, Role::FuelB})
        log.fuel += fuelUsed(RoleSeries(profile, dataSet.messages, role));
    for (const Flight& flight : dataSet.flights)
        log.lines.push_back(flightLine(flight, static_cast<int>(log.lines.size()) + 1,
                                       dataSet.dateTime, times, begins));
    countEpisodes(dataSet, found->episodes, log);
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
