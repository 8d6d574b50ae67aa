#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "libs/tessamap/globe/TileId.h"

#include <vector>

namespace Tessa {

/// A tile in the view.
struct SelectedTile
{
    TileId id;
    double distance = 0.0; ///< pixels from the centre of the window to the tile's
};

/// The deepest zoom that is selected.
inline constexpr int deepestZoom = 19;

/// Edges of a tile in degrees.
struct TileEdges
{
    double north = 0.0;
    double south = 0.0;
    double west = 0.0;
    double east = 0.0;
};

TileEdges edgesOf(const TileId& tile);

/// The place in space at a position in the tile's picture: u eastwards and v southwards, 0 to 1.
Globe::Vector placeInTile(const TileId& tile, double u, double v);

/// The tiles that cover the window without overlaps, nearest to its centre first. A tile is refined
/// while any of its pixels would be larger than sqrt(2) pixels of the window. Tiles behind the limb
/// or outside of the window are left out; a few just outside may be included.
std::vector<SelectedTile> selectTiles(const Globe& globe);

} // namespace Tessa
