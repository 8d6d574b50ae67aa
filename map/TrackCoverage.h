#pragma once

#include "libs/tusk/math/Geodetic.h"

#include <cstdint>
#include <vector>

namespace KOLT {

/// Remembers where lines have been drawn, in cells of the earth's surface. Who flies the same
/// circuit all day draws the same pixels over and over; such lines can be left out.
class TrackCoverage
{
public:
    using Vector = TUSK::Geodetic::Vector;

    static constexpr double longestLine = 16.0; ///< cells

    /// Of cells so many metres wide, up to 1.8 times as long.
    explicit TrackCoverage(double cell);

    /// Notes the line between two places on the earth. True when lines have been in all of its
    /// cells before. A line above the longest is neither noted nor covered, so that every line
    /// costs little.
    bool cover(const Vector& from, const Vector& to);

private:
    /// 8 x 8 cells.
    struct Block
    {
        std::uint64_t key = 0; ///< 0: free
        std::uint64_t cells = 0;
    };

    bool add(const Vector& place);
    Block& blockOf(std::uint64_t key);
    void grow();

    double m_cell;
    std::vector<Block> m_blocks; ///< a hash table; its size is a power of two
    std::size_t m_used = 0;
};

} // namespace KOLT
