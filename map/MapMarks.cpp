#include "map/MapMarks.h"

#include "analysis/Findings.h"

#include <QCoreApplication>

#include <algorithm>

namespace KOLT {

namespace {

constexpr QRgb takeOffColor = 0xff1b7837;
constexpr QRgb landingColor = 0xff2166ac;

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
    std::vector<MapMark> marks;
    const EventList events = eventsOf(profile, dataSet, EventScope::AllParameters);
    for (const Event& event : *events) {
        append(
            marks, dataSet,
            {MapMark::Kind::Exceedance, event.seconds, {}, QColor(event.grade.color), event.text});
    }
    return marks;
}

} // namespace KOLT
