#pragma once

#include "app/settings/SettingsStore.h"
#include "map/WidgetMap.h"
#include "resources/Resources.h"
#include "tests/support/MapProbes.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace KOLT::Test {

constexpr Place home{48.0, 11.3};

/// What a map should show.
inline View viewOf(const MapViewState& state, const WidgetMap& map)
{
    return {{state.latitude, state.longitude}, state.width / map.width(), map.size()};
}

/// A map in a window of its own, that leaves network and disk alone.
class MapWindow
{
public:
    static constexpr QSize size{500, 400};

    /// Once for a program.
    static void prepare(const QTemporaryDir& directory)
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(directory.path()));
        initKoltResources();
        WidgetMap::setNetworkEnabled(false);
        SettingsStore::instance().setFileName(QFile::encodeName(directory.filePath("KOLT.ini")));
    }

    MapWindow()
    {
        state.follow = 0;
        map.map().setTileDirectory({});
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

    /// The picture once all is loaded; null when that never comes.
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
    WidgetMap map{state};
};

inline std::vector<TrackPoint> trackThrough(const std::vector<Place>& places)
{
    std::vector<TrackPoint> track;
    for (const Place& place : places)
        track.push_back({static_cast<int>(track.size()) * 2 + 20, place.latitude, place.longitude});
    return track;
}

/// Along a parallel, in steps of less than 4 pixels when 100 km are shown.
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
