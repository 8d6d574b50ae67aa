#pragma once

#include "libs/tessamap/basemap/BaseMapData.h"
#include "libs/tessamap/globe/TileId.h"

#include <QColor>
#include <QImage>

#include <optional>

namespace Tessa {

/// The world map that is part of the program: land, water, borders and a faint graticule, painted
/// into tiles on demand. Tiles deeper than zoom 7 are magnified parts of those.
class BaseMap
{
public:
    static constexpr int maxZoom = 7;
    static constexpr int tileSize = 256;

    /// Also the colours of the caps around the north and the south pole.
    static QColor waterColor();
    static QColor iceColor();

    /// The tile whose picture covers `tile`: itself up to maxZoom, else its ancestor at maxZoom.
    static TileId covering(const TileId& tile);

    /// tileSize pixels square, Format_RGBA8888. The first call reads the map (times: docs/map.md).
    /// Plain water for invalid tiles and tiles deeper than maxZoom.
    QImage paint(const TileId& tile);

private:
    std::optional<BaseMapData> m_data;
};

} // namespace Tessa
