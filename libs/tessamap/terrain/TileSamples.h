#pragma once

#include "libs/tessamap/globe/TileId.h"
#include "libs/tessamap/terrain/ElevationFile.h"

#include <cstddef>
#include <vector>

namespace Tessa {

/// Where the height samples of a tile lie: at the centres of its pixels and of one more pixel at
/// each end, row by row from north to south; grouped by the elevation cells that hold them.
class TileSamples
{
public:
    /// Samples along a side.
    static constexpr int side = 258;

    /// Samples from .. to - 1 along an axis.
    struct Range
    {
        std::size_t from = 0;
        std::size_t to = 0;
    };

    /// The samples within one cell.
    struct Block
    {
        ElevationCell cell;
        Range rows;
        Range columns;
    };

    explicit TileSamples(const TileId& tile);

    const std::vector<Block>& blocks() const { return m_blocks; }

    /// Interpolates the heights of a block from the grid of its cell; NaN where they are missing.
    /// `heights`: of all samples of the tile.
    void fill(const Block& block, const HeightGrid& grid, std::vector<float>& heights) const;

private:
    std::vector<double> m_south; ///< of each row, degrees from the south edge of its cell
    std::vector<double> m_west;  ///< of each column, degrees from the west edge of its cell
    std::vector<Block> m_blocks;
};

} // namespace Tessa
