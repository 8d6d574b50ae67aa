#pragma once

#include "libs/tessamap/basemap/BaseMapData.h"
#include "libs/tessamap/globe/TileId.h"

#include <QColor>
#include <QImage>

#include <optional>

namespace Tessa {

/// The world map that comes with the program, for when there is no other: land, water, borders and
/// a faint graticule, painted into tiles on demand. Detailed enough up to zoom 7; deeper tiles are
/// stretched parts of those.
class BaseMap
{
public:
    static constexpr int maxZoom = 7;
    static constexpr int tileSize = 256;

    /// For what lies beyond the tiles: around the north and the south pole.
    static QColor waterColor();
    static QColor iceColor();

    /// The tile whose picture covers `tile`: itself up to maxZoom, else its ancestor there.
    static TileId covering(const TileId& tile);

    /// tileSize pixels square, Format_RGBA8888. The first call reads the map (see docs/map.md for
    /// the times). Plain water for an invalid tile or one deeper than maxZoom.
    QImage paint(const TileId& tile);

private:
    std::optional<BaseMapData> m_data;
};

} // namespace Tessa
