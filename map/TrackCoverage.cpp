#include "map/TrackCoverage.h"

#include <cmath>

namespace KOLT {

namespace {

/// More than the radius of the earth: no coordinate is below 0.
constexpr double shift = 6'400'000.0;
constexpr int blockBits = 3; // of each axis: eight cells

/// Never 0. That two blocks of a track share one is out of all likelihood.
std::uint64_t keyOf(std::uint64_t x, std::uint64_t y, std::uint64_t z)
{
    constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15U;
    std::uint64_t key = x * multiplier;
    key = ((key ^ (key >> 32)) + y) * multiplier;
    key = ((key ^ (key >> 32)) + z) * multiplier;
    key ^= key >> 32;
    return key != 0 ? key : 1;
}

} // namespace

TrackCoverage::TrackCoverage(double cell)
    : m_cell(cell)
    , m_blocks(1024)
{
}

bool TrackCoverage::cover(const Vector& from, const Vector& to)
{
    const Vector way{to.x - from.x, to.y - from.y, to.z - from.z};
    const double length = std::sqrt(way.x * way.x + way.y * way.y + way.z * way.z);
    if (length > longestLine * m_cell)
        return false;
    const double steps = std::floor(length / m_cell) + 1.0;
    bool isCovered = true;
    for (double i = 0.0; i <= steps; ++i) {
        const double part = i / steps;
        const bool wasSet =
            add({from.x + part * way.x, from.y + part * way.y, from.z + part * way.z});
        isCovered = isCovered && wasSet;
    }
    return isCovered;
}

bool TrackCoverage::add(const Vector& place)
{
    // Seen along the axis that is steepest there: cells of the surface, not of space, which the
    // surface would cut into slivers.
    const double x = std::abs(place.x);
    const double y = std::abs(place.y);
    const double z = std::abs(place.z);
    const int axis = x >= y && x >= z ? 0 : y >= z ? 1 : 2;
    const double across = axis == 0 ? place.y : place.x;
    const double along = axis == 2 ? place.y : place.z;
    const bool isFar = (axis == 0 ? place.x : axis == 1 ? place.y : place.z) < 0.0;
    const auto cellOf = [&](double coordinate) {
        return static_cast<std::uint64_t>((coordinate + shift) / m_cell);
    };
    const std::uint64_t column = cellOf(across);
    const std::uint64_t row = cellOf(along);
    constexpr std::uint64_t inBlock = (1U << blockBits) - 1;
    const std::uint64_t bit = (column & inBlock) << blockBits | (row & inBlock);
    const auto side = static_cast<std::uint64_t>(2 * axis + (isFar ? 1 : 0));
    Block& block = blockOf(keyOf(column >> blockBits, row >> blockBits, side));
    const bool wasSet = (block.cells >> bit & 1U) != 0;
    block.cells |= std::uint64_t{1} << bit;
    return wasSet;
}

TrackCoverage::Block& TrackCoverage::blockOf(std::uint64_t key)
{
    if (2 * m_used >= m_blocks.size())
        grow();
    const std::size_t mask = m_blocks.size() - 1;
    std::size_t place = key & mask;
    while (m_blocks[place].key != key && m_blocks[place].key != 0)
        place = (place + 1) & mask;
    if (m_blocks[place].key == 0) {
        m_blocks[place].key = key;
        ++m_used;
    }
    return m_blocks[place];
}

void TrackCoverage::grow()
{
    std::vector<Block> old(4 * m_blocks.size());
    old.swap(m_blocks);
    const std::size_t mask = m_blocks.size() - 1;
    for (const Block& block : old) {
        if (block.key == 0)
            continue;
        std::size_t place = block.key & mask;
        while (m_blocks[place].key != 0)
            place = (place + 1) & mask;
        m_blocks[place] = block;
    }
}

} // namespace KOLT
