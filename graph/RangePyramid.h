#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace KOLT {

/// Minimum, maximum and sum over runs of a growing list of values in logarithmic time: each level
/// sums up eight entries of the one below. NaN takes no part.
class RangePyramid
{
public:
    struct Range
    {
        double lowest = std::numeric_limits<double>::infinity();
        double highest = -std::numeric_limits<double>::infinity();

        bool isEmpty() const { return lowest > highest; }

        void add(double value)
        {
            lowest = value < lowest ? value : lowest;
            highest = value > highest ? value : highest;
        }

        void add(const Range& other)
        {
            lowest = other.lowest < lowest ? other.lowest : lowest;
            highest = other.highest > highest ? other.highest : highest;
        }
    };

    struct Sum
    {
        double sum = 0.0;
        std::size_t count = 0; ///< of numbers
    };

    void clear();

    /// Takes the values that were added since the last call; the others must be unchanged.
    void extend(const std::vector<double>& values);

    /// Of values[from, to), all of which must have been taken.
    Range range(const std::vector<double>& values, std::size_t from, std::size_t to) const
    {
        Range result;
        while (from < to && from % fanOut != 0)
            result.add(values[from++]);
        while (from < to && to % fanOut != 0)
            result.add(values[--to]);
        from /= fanOut;
        to /= fanOut;
        for (const std::vector<Range>* level = m_levels.data(); from < to; ++level) {
            while (from < to && from % fanOut != 0)
                result.add((*level)[from++]);
            while (from < to && to % fanOut != 0)
                result.add((*level)[--to]);
            from /= fanOut;
            to /= fanOut;
        }
        return result;
    }

    /// Asks for the memory that range() reads around the ends of a run, some time before it does.
    void prefetch(std::size_t position) const
    {
        constexpr std::size_t levelsApart = 3; // higher levels stay in the cache
        std::size_t place = position;
        for (std::size_t i = 0; i < std::min(levelsApart, m_levels.size()); ++i) {
            place /= fanOut;
            if (place < m_levels[i].size())
                __builtin_prefetch(&m_levels[i][place]);
        }
    }

    /// O(run / sumBlock + sumBlock).
    Sum sum(const std::vector<double>& values, std::size_t from, std::size_t to) const;

private:
    static constexpr std::size_t fanOut = 8;
    static constexpr std::size_t sumBlock = 4096;

    template <typename Source>
    static void summarise(const std::vector<Source>& source, std::vector<Range>& level);

    std::vector<std::vector<Range>> m_levels; ///< full groups of eight only
    std::vector<Sum> m_sums;                  ///< full blocks only
};

} // namespace KOLT
