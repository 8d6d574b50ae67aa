#pragma once

#include <cstddef>
#include <functional>

namespace Tessa {

/// A tile of the web map's quadtree: 2^zoom by 2^zoom square tiles cover the Mercator world; x
/// counts eastwards from 180 degrees west, y southwards from about 85.05 degrees north.
struct TileId
{
    int zoom = 0;
    int x = 0;
    int y = 0;

    static constexpr int maxZoom = 24;

    /// Tiles along a side of the world.
    static constexpr int count(int zoom) { return 1 << zoom; }

    constexpr bool isValid() const
    {
        return zoom >= 0 && zoom <= maxZoom && x >= 0 && x < count(zoom) && y >= 0 &&
               y < count(zoom);
    }

    /// With x wrapped around the world at 180 degrees.
    constexpr TileId wrapped() const
    {
        const int side = count(zoom);
        return {zoom, ((x % side) + side) % side, y};
    }

    /// The tile one zoom level above that contains this one; the world is its own parent.
    constexpr TileId parent() const { return ancestor(1); }

    /// The tile `levels` zoom levels above that contains this one, at most the world.
    constexpr TileId ancestor(int levels) const
    {
        const int up = levels < zoom ? levels : zoom;
        return {zoom - up, x >> up, y >> up};
    }

    friend constexpr bool operator==(const TileId&, const TileId&) = default;
};

} // namespace Tessa

template <>
struct std::hash<Tessa::TileId>
{
    std::size_t operator()(const Tessa::TileId& tile) const noexcept
    {
        // The three fit into 5 + 2 * 24 bits; the multiplication mixes them.
        const std::size_t packed = (static_cast<std::size_t>(tile.zoom) << 48) ^
                                   (static_cast<std::size_t>(tile.x) << 24) ^
                                   static_cast<std::size_t>(tile.y);
        const std::size_t mixed = packed * 0x9E3779B97F4A7C15u;
        return mixed ^ (mixed >> 32);
    }
};
