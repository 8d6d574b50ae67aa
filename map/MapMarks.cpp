#include "map/MapMarks.h"

#include "analysis/Findings.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr QRgb takeOffColor = 0xff1b7837;
constexpr QRgb landingColor = 0xff2166ac;
constexpr QRgb noteColor = 0xff9150c8;
constexpr double largestMark = 20.0; ///< radius, pixels
constexpr double markReach = 8.0;    ///< pixels

/// The middle of a mark's shape: a note's flag is above its place.
Tessa::WindowPoint middleOf(const MapMark& mark, Tessa::WindowPoint place)
{
    constexpr double flagHeight = 8.0;
    return mark.kind == MapMark::Kind::Note ? Tessa::WindowPoint{place.x, place.y + flagHeight}
                                            : place;
}

void append(std::vector<MapMark>& marks, const DataSet& dataSet, MapMark mark)
{
    const std::optional<std::size_t> index = trackPointAt(dataSet.track, mark.seconds);
    if (!index)
        return;
    const TrackPoint& point = dataSet.track[*index];
    mark.place = {point.latitude, point.longitude};
    marks.push_back(std::move(mark));
}

} // namespace

std::optional<std::size_t> trackPointAt(const std::vector<TrackPoint>& track, double seconds)
{
    const auto after = std::ranges::upper_bound(track, seconds, {}, &TrackPoint::seconds);
    if (after == track.begin())
        return std::nullopt;
    return static_cast<std::size_t>(after - track.begin()) - 1;
}

std::vector<MapMark> flightMarks(const DataSet& dataSet)
{
    std::vector<MapMark> marks;
    for (std::size_t i = 0; i < dataSet.flights.size(); ++i) {
        const Flight& flight = dataSet.flights[i];
        const auto mark = [&](MapMark::Kind kind, double seconds, QRgb color, const char* text) {
            if (seconds < dataSet.startSeconds || seconds > dataSet.stopSeconds)
                return;
            append(marks, dataSet,
                   {kind,
                    seconds,
                    {},
                    QColor(color),
                    QCoreApplication::translate("KOLT::MapMarks", text).arg(i + 1)});
        };
        mark(MapMark::Kind::TakeOff, flight.takeOffSeconds, takeOffColor,
             QT_TRANSLATE_NOOP("KOLT::MapMarks", "Take-off of flight %1"));
        mark(MapMark::Kind::Landing, flight.landingSeconds, landingColor,
             QT_TRANSLATE_NOOP("KOLT::MapMarks", "Landing of flight %1"));
    }
    std::ranges::stable_sort(marks, {}, &MapMark::seconds);
    return marks;
}

std::vector<MapMark> exceedanceMarks(const Profile& profile, const DataSet& dataSet)
{
    const EpisodeList found = episodesOf(profile, dataSet);
    std::vector<const Episode*> episodes;
    episodes.reserve(found->episodes.size());
    for (const Episode& episode : found->episodes)
        episodes.push_back(&episode);
    std::ranges::stable_sort(episodes, {}, &Episode::state);
    std::vector<MapMark> marks;
    for (const Episode* const episode : episodes) {
        append(marks, dataSet,
               {MapMark::Kind::Exceedance,
                episode->begin,
                {},
                QColor(episodeColor(*episode)),
                episodeLine(profile, *episode)});
    }
    return marks;
}

std::vector<MapMark> noteMarks(const DataSet& dataSet, const std::vector<NoteMark>& notes)
{
    std::vector<MapMark> marks;
    for (const NoteMark& note : notes) {
        if (note.seconds >= dataSet.startSeconds && note.seconds <= dataSet.stopSeconds)
            append(marks, dataSet,
                   {MapMark::Kind::Note, note.seconds, {}, QColor(noteColor), note.text});
    }
    std::ranges::stable_sort(marks, {}, &MapMark::seconds);
    return marks;
}

std::vector<PlacedMark> marksInWindow(const std::vector<MapMark>& marks, const Tessa::Globe& globe)
{
    const double columns = std::ceil(globe.width() + 2.0 * largestMark);
    const double rows = std::ceil(globe.height() + 2.0 * largestMark);
    // For each pixel a bit per kind of mark.
    std::vector<quint8> taken(static_cast<std::size_t>(columns * rows));
    std::vector<PlacedMark> placed;
    for (auto next = marks.rbegin(); next != marks.rend(); ++next) {
        const MapMark& mark = *next;
        const auto place = globe.latLong2Window(mark.place);
        if (!place)
            continue;
        const double column = std::floor(place->x + largestMark);
        const double row = std::floor(place->y + largestMark);
        if (!(column >= 0.0 && row >= 0.0 && column < columns && row < rows))
            continue;
        quint8& pixel = taken[static_cast<std::size_t>(row * columns + column)];
        const auto bit = static_cast<quint8>(1U << static_cast<unsigned>(mark.kind));
        if ((pixel & bit) == 0)
            placed.push_back({&mark, *place});
        pixel |= bit;
    }
    std::ranges::reverse(placed);
    return placed;
}

const MapMark* markAt(const std::vector<MapMark>& marks, const Tessa::Globe& globe,
                      Tessa::WindowPoint point)
{
    const MapMark* nearest = nullptr;
    double least = markReach;
    for (const MapMark& mark : marks) {
        const auto place = globe.latLong2Window(mark.place);
        const double away = place ? length(middleOf(mark, *place) - point) : HUGE_VAL;
        if (away <= least) {
            nearest = &mark;
            least = away;
        }
    }
    return nearest;
}

} // namespace KOLT
