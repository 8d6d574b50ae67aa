#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "map/ScaleBar.h"

#include <vector>

namespace KOLT {

/// A grid of square cells around a place, which gives a scale to a map without tiles. In logical
/// pixels from the lower left corner.
struct MapGrid
{
    struct Line
    {
        double place = 0.0; ///< x of an upright line, y of a level one
        QString text;       ///< distance from the origin; empty at the origin
    };

    Tessa::WindowPoint origin;
    std::vector<Line> upright;
    std::vector<Line> level;

    /// Cells have a round side of at most 160 pixels. Empty unless all numbers are usable.
    static MapGrid around(Tessa::WindowPoint origin, double metresPerPixel, double width,
                          double height, UnitSystem system);
};

} // namespace KOLT
