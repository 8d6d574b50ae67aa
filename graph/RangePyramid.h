#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace KOLT {

/// Minimum, maximum and sum over runs of a growing list of values in logarithmic time: each level
/// sums up 32 entries of the one below. NaN takes no part.
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
    void extend(std::span<const double> values);

    /// Of values[from, to), all of which must have been taken.
    Range range(std::span<const double> values, std::size_t from, std::size_t to) const
    {
        Range result;
        const std::size_t firstFull = (from + fanOut - 1) / fanOut * fanOut;
        const std::size_t lastFull = to / fanOut * fanOut;
        if (firstFull >= lastFull) {
            addAll(result, values.data() + from, values.data() + to);
            return result;
        }
        addAll(result, values.data() + from, values.data() + firstFull);
        addAll(result, values.data() + lastFull, values.data() + to);
        from = firstFull / fanOut;
        to = lastFull / fanOut;
        for (const std::vector<Range>* level = m_levels.data();; ++level) {
            const Range* const ranges = level->data();
            const std::size_t first = (from + fanOut - 1) / fanOut * fanOut;
            const std::size_t last = to / fanOut * fanOut;
            if (first >= last) {
                addAll(result, ranges + from, ranges + to);
                return result;
            }
            addAll(result, ranges + from, ranges + first);
            addAll(result, ranges + last, ranges + to);
            from = first / fanOut;
            to = last / fanOut;
        }
    }

    /// Asks for the values that range() reads around an end of a run at `position`, some time
    /// before it does; the levels above are read in a row, which the processor foresees.
    static void prefetch(std::span<const double> values, std::size_t position)
    {
        constexpr std::size_t lineValues = 8;
        const std::size_t first = position / fanOut * fanOut;
        for (std::size_t i = 0; i < fanOut; i += lineValues)
            __builtin_prefetch(values.data() + first + i);
    }

    /// O(run / sumBlock + sumBlock).
    Sum sum(std::span<const double> values, std::size_t from, std::size_t to) const;

private:
    static constexpr std::size_t fanOut = 32;
    static constexpr std::size_t sumBlock = 4096;

    /// Four ranges side by side, as each comparison would otherwise wait for the one before.
    template <typename Source>
    static void addAll(Range& result, const Source* first, const Source* last)
    {
        std::array<Range, 4> parts;
        for (; last - first >= 4; first += 4) {
            parts[0].add(first[0]);
            parts[1].add(first[1]);
            parts[2].add(first[2]);
            parts[3].add(first[3]);
        }
        for (; first != last; ++first)
            parts[0].add(*first);
        for (const Range& part : parts)
            result.add(part);
    }

    template <typename Source>
    static void summarise(std::span<const Source> source, std::vector<Range>& level);

    std::vector<std::vector<Range>> m_levels; ///< full groups only
    std::vector<Sum> m_sums;                  ///< full blocks only
};

} // namespace KOLT
