#include "record/FlightPath.h"

#include "record/TimeSlots.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT {

bool isRecorded(const TrackPoint& point)
{
    return !point.isInGap && std::abs(point.latitude) <= 90.0 && std::abs(point.longitude) <= 180.0;
}

namespace {

constexpr double endOfTime = std::numeric_limits<double>::infinity();

bool isJoined(const TrackPoint& from, const TrackPoint& to)
{
    return to.halfSecond - from.halfSecond == 1 && isRecorded(from) && isRecorded(to) &&
           std::abs(to.longitude - from.longitude) <= 180.0;
}

std::span<const TrackPoint> pointsWithin(std::span<const TrackPoint> track, double from, double to)
{
    const auto first = std::ranges::lower_bound(track, from, {}, &TrackPoint::seconds);
    const auto last = std::ranges::upper_bound(track, to, {}, &TrackPoint::seconds);
    return first < last ? std::span<const TrackPoint>(first, last) : std::span<const TrackPoint>();
}

/// Flights whose margins overlap share the time on the ground between them equally.
double endOf(const std::vector<Flight>& flights, std::size_t index)
{
    const Flight& flight = flights[index];
    if (index + 1 == flights.size() || flights[index + 1].startSeconds >= flight.endSeconds)
        return flight.endSeconds;
    return (flight.landingSeconds + flights[index + 1].takeOffSeconds) / 2.0;
}

} // namespace

std::span<const TrackPoint> recordedTrack(const DataSet& dataSet)
{
    return {std::ranges::find(dataSet.track, true, &TrackPoint::hasFix), dataSet.track.end()};
}

std::vector<PathSection> pathSections(const DataSet& dataSet)
{
    const std::span<const TrackPoint> track = recordedTrack(dataSet);
    const std::vector<Flight>& flights = dataSet.flights;
    using Kind = PathSection::Kind;
    if (dataSet.flightIndex)
        return {{Kind::Flight, *dataSet.flightIndex, -endOfTime, endOfTime,
                 pointsWithin(track, dataSet.startSeconds, dataSet.stopSeconds)}};
    if (flights.empty())
        return {{Kind::Whole, 0, -endOfTime, endOfTime, track}};
    std::vector<PathSection> sections;
    double done = -endOfTime;
    const auto add = [&](Kind kind, std::size_t flight, double to) {
        sections.push_back({kind, flight, done, to, pointsWithin(track, done, to)});
        done = to;
    };
    for (std::size_t i = 0; i < flights.size(); ++i) {
        if (flights[i].startSeconds > done)
            add(Kind::Ground, 0, flights[i].startSeconds);
        add(Kind::Flight, i, std::max(done, endOf(flights, i)));
    }
    add(Kind::Ground, 0, endOfTime);
    return sections;
}

std::size_t sectionAt(std::span<const PathSection> sections, double seconds)
{
    const auto behind = std::ranges::upper_bound(sections, seconds, {}, &PathSection::from);
    return behind == sections.begin() ? 0 : static_cast<std::size_t>(behind - sections.begin()) - 1;
}

std::vector<std::span<const TrackPoint>> pathPieces(std::span<const TrackPoint> points)
{
    std::vector<std::span<const TrackPoint>> pieces;
    std::size_t first = 0;
    for (std::size_t i = 1; i <= points.size(); ++i) {
        if (i < points.size() && isJoined(points[i - 1], points[i]))
            continue;
        if (isRecorded(points[first]))
            pieces.push_back(points.subspan(first, i - first));
        first = i;
    }
    return pieces;
}

std::optional<TrackPoint> placeAt(std::span<const TrackPoint> track, double seconds)
{
    const auto behind = std::ranges::lower_bound(track, seconds, {}, &TrackPoint::seconds);
    const TrackPoint* const to = behind == track.end() ? nullptr : &*behind;
    const TrackPoint* const from = behind == track.begin() ? nullptr : &*(behind - 1);
    if (from != nullptr && to != nullptr && isJoined(*from, *to)) {
        const double fraction = (seconds - from->seconds()) / gridSeconds;
        TrackPoint place = *from;
        for (double TrackPoint::*const value : {&TrackPoint::latitude, &TrackPoint::longitude,
                                                &TrackPoint::altitude, &TrackPoint::groundSpeed})
            place.*value = std::lerp(from->*value, to->*value, fraction);
        return place;
    }
    for (const TrackPoint* const point : {to, from}) {
        if (point != nullptr && isRecorded(*point) &&
            std::abs(point->seconds() - seconds) <= gridSeconds)
            return *point;
    }
    return std::nullopt;
}

bool hasPath(const DataSet& dataSet)
{
    return std::ranges::any_of(pathSections(dataSet), [](const PathSection& section) {
        return std::ranges::any_of(section.points, isRecorded);
    });
}

std::optional<double> firstAltitude(const DataSet& dataSet)
{
    const auto found = std::ranges::find(dataSet.track, true, &TrackPoint::hasAltitude);
    return found == dataSet.track.end() ? std::nullopt : std::optional(found->altitude);
}

} // namespace KOLT
