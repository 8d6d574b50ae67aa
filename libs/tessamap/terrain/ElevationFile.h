#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Tessa {

/// Heights in metres over a square, in rows from north to south. The outermost samples lie on the
/// edges of the square.
struct HeightGrid
{
    static constexpr std::int16_t missing = -32768;

    int side = 0; ///< samples along each edge, at least 2
    std::vector<std::int16_t> heights;

    std::int16_t at(int row, int column) const
    {
        return heights[static_cast<std::size_t>(row) * static_cast<std::size_t>(side) +
                       static_cast<std::size_t>(column)];
    }

    std::size_t bytes() const { return heights.size() * sizeof(std::int16_t); }
};

/// Every `step`-th sample, each the mean of the samples in a box around it, a step wide. On an edge
/// the mean is taken along the edge only, whose samples the neighbouring square shares, so that
/// both get the same heights there. Missing samples are ignored. side - 1 must be a multiple of
/// step.
HeightGrid averaged(const HeightGrid& grid, int step);

/// A cell of one degree by one degree, named by its south-west corner.
struct ElevationCell
{
    int latitude = 0;  ///< -90 to 89
    int longitude = 0; ///< -180 to 179

    friend bool operator==(const ElevationCell&, const ElevationCell&) = default;

    /// From a file name such as "N47E011.hgt", "s01w072.HGT.GZ" or "N47E011.SRTMGL1.hgt".
    static std::optional<ElevationCell> ofFile(const QString& name);
};

/// Samples along an edge of a file, from its length: 1201 (every 3 seconds of arc) or 3601 (every
/// second). For a ".gz" file from the uncompressed length it notes. std::nullopt for other files.
std::optional<int> elevationSide(const QString& path);

/// Reads a file of big-endian 16-bit heights, compressed when its name ends with ".gz". Takes 2 to
/// 200 ms. std::nullopt for unreadable, damaged or truncated files.
std::optional<HeightGrid> readElevation(const QString& path);

/// The heights of a file and coarser versions of them: every sample, every 4th and every 16th.
struct ElevationLevels
{
    static constexpr int count = 3;
    static constexpr std::array<int, count> steps{1, 4, 16};

    std::array<std::shared_ptr<const HeightGrid>, count> grids;

    static std::optional<ElevationLevels> read(const QString& path);
};

} // namespace Tessa

template <>
struct std::hash<Tessa::ElevationCell>
{
    std::size_t operator()(const Tessa::ElevationCell& cell) const noexcept
    {
        return static_cast<std::size_t>((cell.latitude + 90) * 360 + cell.longitude + 180);
    }
};
