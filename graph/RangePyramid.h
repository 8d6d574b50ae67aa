#pragma once

#include "base/Processor.h"

#include <array>
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

        void add(double value)
        {
            addLow(value);
            addHigh(value);
        }

        void addLow(double value) { lowest = value < lowest ? value : lowest; }

        void addHigh(double value) { highest = value > highest ? value : highest; }
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
    Range range(std::span<const double> values, std::size_t from, std::size_t to) const
    {
        Extremes result;
        const std::size_t firstGroup = from / fanOut;
        const std::size_t lastGroup = to / fanOut;
        if (lastGroup < firstGroup + 2) {
            result.addAll(values.data() + from, values.data() + to);
            return result.range();
        }
        result.addGroup(values.data() + firstGroup * fanOut, mask.data() + fanOut - from % fanOut);
        const double* const tail = values.data() + lastGroup * fanOut;
        if ((lastGroup + 1) * fanOut <= values.size())
            result.addGroup(tail, mask.data() + 2 * fanOut - to % fanOut);
        else
            result.addAll(tail, values.data() + to);
        from = firstGroup + 1;
        to = lastGroup;
        for (const std::vector<Entry>* level = m_levels.data();; ++level) {
            const Entry* const entries = level->data();
            const std::size_t first = (from + fanOut - 1) / fanOut * fanOut;
            const std::size_t last = to / fanOut * fanOut;
            if (first >= last) {
                result.addAll(entries + from, entries + to);
                return result.range();
            }
            result.addAll(entries + from, entries + first);
            result.addAll(entries + last, entries + to);
            from = first / fanOut;
            to = last / fanOut;
        }
    }

    /// Loads the values around one end of a run at `position` into the cache, some time before
    /// range() reads them. The levels above are read in sequence, which needs no hint.
    static void prefetch(std::span<const double> values, std::size_t position)
    {
        constexpr std::size_t lineValues = 8;
        const std::size_t first = position / fanOut * fanOut;
        for (std::size_t i = 0; i < fanOut; i += lineValues)
            KOLT::prefetch(values.data() + first + i);
    }

    /// O(run / sumBlock + sumBlock).
    Sum sum(std::span<const double> values, std::size_t from, std::size_t to) const;

private:
    static constexpr std::size_t fanOut = 32;
    static constexpr std::size_t sumBlock = 4096;

    /// A group's range. The highest value is negated, so that one minimum of a pair updates both.
    struct Entry
    {
        double lowest = std::numeric_limits<double>::infinity();
        double negatedHighest = std::numeric_limits<double>::infinity();
    };

    /// Added to a whole group: 0 for the values inside a run, infinity for those outside, which
    /// then change no minimum. Runs rarely end at a group's border, and a loop up to the end costs
    /// more in mispredicted branches than the whole group.
    static constexpr auto mask = [] {
        std::array<double, 3 * fanOut> made{};
        for (std::size_t i = 0; i < fanOut; ++i)
            made[i] = made[2 * fanOut + i] = std::numeric_limits<double>::infinity();
        return made;
    }();

    /// Accumulates a range in several independent accumulators, so that a comparison need not wait
    /// for the one before it.
    class Extremes
    {
    public:
        void addAll(const double* first, const double* last)
        {
            for (; last - first >= 4; first += 4) {
                const std::array pairs{NumberPair::load(first), NumberPair::load(first + 2)};
                addPairs(pairs, pairs);
            }
            for (; first != last; ++first) {
                m_lows[0].lower(NumberPair::both(*first));
                m_highs[0].raise(NumberPair::both(*first));
            }
        }

        void addGroup(const double* group, const double* groupMask)
        {
            for (std::size_t i = 0; i < fanOut; i += 4) {
                const std::array values{NumberPair::load(group + i),
                                        NumberPair::load(group + i + 2)};
                const std::array masks{NumberPair::load(groupMask + i),
                                       NumberPair::load(groupMask + i + 2)};
                addPairs({values[0] + masks[0], values[1] + masks[1]},
                         {values[0] - masks[0], values[1] - masks[1]});
            }
        }

        void addAll(const Entry* first, const Entry* last)
        {
            for (; last - first >= 2; first += 2) {
                m_entries[0].lower(NumberPair::load(&first[0].lowest));
                m_entries[1].lower(NumberPair::load(&first[1].lowest));
            }
            if (first != last)
                m_entries[0].lower(NumberPair::load(&first->lowest));
        }

        Range range() const
        {
            Range result;
            for (std::size_t i = 0; i < 2; ++i) {
                std::array<double, 2> pair{};
                m_lows[i].store(pair.data());
                result.addLow(pair[0]);
                result.addLow(pair[1]);
                m_highs[i].store(pair.data());
                result.addHigh(pair[0]);
                result.addHigh(pair[1]);
                m_entries[i].store(pair.data());
                result.addLow(pair[0]);
                result.addHigh(-pair[1]);
            }
            return result;
        }

    private:
        using Pairs = std::array<NumberPair, 2>;

        void addPairs(const Pairs& lows, const Pairs& highs)
        {
            for (std::size_t i = 0; i < 2; ++i) {
                m_lows[i].lower(lows[i]);
                m_highs[i].raise(highs[i]);
            }
        }

        static Pairs all(double value)
        {
            return {NumberPair::both(value), NumberPair::both(value)};
        }

        Pairs m_lows = all(std::numeric_limits<double>::infinity());
        Pairs m_highs = all(-std::numeric_limits<double>::infinity());
        Pairs m_entries = all(std::numeric_limits<double>::infinity());
    };

    template <typename Source>
    static void summarise(std::span<const Source> source, std::vector<Entry>& level);

    std::vector<std::vector<Entry>> m_levels; ///< full groups only
    std::vector<Sum> m_sums;                  ///< full blocks only
};

} // namespace KOLT
