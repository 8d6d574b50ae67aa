#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "libs/tessamap/globe/TileId.h"

#include <vector>

namespace Tessa {

/// A tile of the view.
struct SelectedTile
{
    TileId id;
    double distance = 0.0; ///< pixels from the centre of the window to the tile's
};

/// The deepest zoom that is ever asked for.
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

/// The place in space at fractions of a tile: u eastwards and v southwards, 0 to 1, even on the
/// tile's picture.
Globe::Vector placeInTile(const TileId& tile, double u, double v);

/// The tiles that cover the window, none of them twice and none within another, those nearest to
/// its centre first. A tile is refined while a pixel of it would be drawn larger than sqrt(2)
/// pixels somewhere. Tiles behind the limb or outside of the window are left out; a few that only
/// touch it may be among them.
std::vector<SelectedTile> selectTiles(const Globe& globe);

} // namespace Tessa
