#include "libs/tessamap/terrain/TileSamples.h"

#include "libs/tessamap/globe/Mercator.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tessa {

namespace {

constexpr int tilePixels = TileSamples::side - 2;

/// Samples along one axis, grouped by the degree that they lie in.
struct Axis
{
    struct Run
    {
        int degree;
        TileSamples::Range samples;
    };

    std::vector<double> fractions; ///< from the lower edge of the degree
    std::vector<Run> runs;

    void add(double angle, int lowest, int highest)
    {
        const int degree = std::clamp(static_cast<int>(std::floor(angle)), lowest, highest);
        if (runs.empty() || runs.back().degree != degree)
            runs.push_back({degree, {fractions.size(), fractions.size()}});
        fractions.push_back(std::clamp(angle - degree, 0.0, 1.0));
        ++runs.back().samples.to;
    }
};

float interpolated(const HeightGrid& grid, double row, double column)
{
    const int last = grid.side - 2;
    const int top = std::min(static_cast<int>(row), last);
    const int left = std::min(static_cast<int>(column), last);
    const double down = row - top;
    const double along = column - left;
    const std::int16_t corners[2][2] = {{grid.at(top, left), grid.at(top, left + 1)},
                                        {grid.at(top + 1, left), grid.at(top + 1, left + 1)}};
    for (const auto& pair : corners) {
        for (const std::int16_t height : pair) {
            if (height != HeightGrid::missing)
                continue;
            // Next to a hole, take the nearest sample, which may be missing.
            const std::int16_t nearest = corners[down >= 0.5 ? 1 : 0][along >= 0.5 ? 1 : 0];
            return nearest == HeightGrid::missing ? std::numeric_limits<float>::quiet_NaN()
                                                  : static_cast<float>(nearest);
        }
    }
    const double north = corners[0][0] + (corners[0][1] - corners[0][0]) * along;
    const double south = corners[1][0] + (corners[1][1] - corners[1][0]) * along;
    return static_cast<float>(north + (south - north) * down);
}

} // namespace

TileSamples::TileSamples(const TileId& tile)
{
    const double world = double(tilePixels) * TileId::count(tile.zoom);
    Axis rows;
    Axis columns;
    for (int i = 0; i < side; ++i) {
        const double x = (double(tile.x) * tilePixels + i - 0.5) / world;
        const double y = (double(tile.y) * tilePixels + i - 0.5) / world;
        columns.add(Mercator::longitude(x - std::floor(x)), -180, 179);
        rows.add(Mercator::latitude(y), -90, 89);
    }
    for (const Axis::Run& row : rows.runs) {
        for (const Axis::Run& column : columns.runs)
            m_blocks.push_back({{row.degree, column.degree}, row.samples, column.samples});
    }
    m_south = std::move(rows.fractions);
    m_west = std::move(columns.fractions);
}

void TileSamples::fill(const Block& block, const HeightGrid& grid,
                       std::vector<float>& heights) const
{
    const double last = grid.side - 1;
    for (std::size_t i = block.rows.from; i < block.rows.to; ++i) {
        const double row = (1.0 - m_south[i]) * last;
        for (std::size_t j = block.columns.from; j < block.columns.to; ++j)
            heights[i * side + j] = interpolated(grid, row, m_west[j] * last);
    }
}

} // namespace Tessa
