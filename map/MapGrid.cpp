#include "map/MapGrid.h"

#include <cmath>

namespace KOLT {

namespace {

constexpr double mostCellPixels = 160.0;
constexpr double farthestOrigin = 1e5; ///< pixels from the window; beyond, distances say little

std::vector<MapGrid::Line> linesOf(double origin, double length, const ScaleBar& cell)
{
    std::vector<MapGrid::Line> lines;
    const auto first = static_cast<int>(std::ceil(-origin / cell.pixels));
    const auto last = static_cast<int>(std::floor((length - origin) / cell.pixels));
    for (int i = first; i <= last; ++i)
        lines.push_back(
            {origin + i * cell.pixels, i == 0 ? QString() : cell.multiple(std::abs(i))});
    return lines;
}

} // namespace

MapGrid MapGrid::around(Tessa::WindowPoint origin, double metresPerPixel, double width,
                        double height, UnitSystem system)
{
    const ScaleBar cell = ScaleBar::choose(metresPerPixel, mostCellPixels, system);
    if (!(cell.pixels > 0.0) || !(std::abs(origin.x) < farthestOrigin) ||
        !(std::abs(origin.y) < farthestOrigin))
        return {};
    return {origin, linesOf(origin.x, width, cell), linesOf(origin.y, height, cell)};
}

} // namespace KOLT
