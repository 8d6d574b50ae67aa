#pragma once

#include "map/ui/WidgetMap.h"
#include "resources/Resources.h"
#include "tests/support/MapProbes.h"

#include <QApplication>
#include <QTest>

namespace KOLT::Test {

constexpr Place home{48.0, 11.3};

/// The view that the map is expected to show.
inline View viewOf(const MapViewState& state, const WidgetMap& map)
{
    return {{state.latitude, state.longitude}, state.width / map.width(), map.size()};
}

/// Uses neither network nor disk.
inline MapSettings offlineSettings()
{
    MapSettings settings;
    settings.isNetworkEnabled = false;
    return settings;
}

/// A map in a window of its own that uses neither network nor disk.
class MapWindow
{
public:
    static constexpr QSize size{500, 400};

    MapWindow()
    {
        initKoltResources();
        state.follow = 0;
        map.resize(size);
    }

    bool show()
    {
        map.show();
        if (!QTest::qWaitForWindowExposed(&map))
            return false;
        QApplication::setActiveWindow(&map);
        map.setFocus();
        return QTest::qWaitFor([this] { return map.hasFocus(); });
    }

    void lookAt(Place place, double width)
    {
        state.latitude = place.latitude;
        state.longitude = place.longitude;
        state.width = width;
        state.needsRepaint = true;
    }

    /// The picture when everything is loaded; null when that takes too long.
    QImage settled()
    {
        QImage picture;
        const bool isDone = QTest::qWaitFor(
            [&] {
                picture = map.grabFramebuffer();
                return map.map().nrLoadingTiles() == 0;
            },
            60000);
        return isDone ? picture : QImage();
    }

    View view() const { return viewOf(state, map); }

    MapViewState state;
    WidgetMap map{state, offlineSettings()};
};

inline std::vector<TrackPoint> trackThrough(const std::vector<Place>& places)
{
    std::vector<TrackPoint> track;
    for (const Place& place : places)
        track.push_back({static_cast<int>(track.size()) * 2 + 20, place.latitude, place.longitude});
    return track;
}

/// A track along a parallel with steps below 4 pixels at a map width of 100 km.
inline std::vector<TrackPoint> straightTrack()
{
    std::vector<Place> places;
    for (int i = 0; i <= 60; ++i)
        places.push_back({home.latitude, home.longitude - 0.3 + 0.01 * i});
    return trackThrough(places);
}

inline Place placeOf(const TrackPoint& point)
{
    return {point.latitude, point.longitude};
}

inline bool isTrackColored(QRgb color)
{
    return qRed(color) - qGreen(color) > 100;
}

} // namespace KOLT::Test
