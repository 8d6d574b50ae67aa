#include "graph/RangePyramid.h"

#include "base/Processor.h"

#include <cmath>

namespace KOLT {

namespace {

using Range = RangePyramid::Range;

constexpr std::size_t fanOut = 32;

void addTo(RangePyramid::Sum& total, double value)
{
    if (std::isnan(value))
        return;
    total.sum += value;
    ++total.count;
}

template <typename Entry>
void addAll(Range& range, std::span<const Entry> entries, std::size_t from, std::size_t to)
{
    for (const Entry& entry : entries.subspan(from, to - from))
        range.add(entry);
}

template <typename Entry>
void summarise(std::span<const Entry> entries, std::vector<Range>& level)
{
    level.reserve(entries.size() / fanOut);
    for (std::size_t i = level.size(); (i + 1) * fanOut <= entries.size(); ++i)
        addAll(level.emplace_back(), entries, i * fanOut, (i + 1) * fanOut);
}

/// Adds the entries of [from, to) that are beside whole groups, and makes it the range of these
/// groups. False if there are none.
template <typename Entry>
bool takeEnds(Range& range, std::span<const Entry> entries, std::size_t& from, std::size_t& to)
{
    const std::size_t firstGroup = (from + fanOut - 1) / fanOut;
    const std::size_t lastGroup = to / fanOut;
    if (firstGroup >= lastGroup) {
        addAll(range, entries, from, to);
        return false;
    }
    addAll(range, entries, from, firstGroup * fanOut);
    addAll(range, entries, lastGroup * fanOut, to);
    from = firstGroup;
    to = lastGroup;
    return true;
}

} // namespace

void RangePyramid::clear()
{
    m_levels.clear();
    m_sums.clear();
}

void RangePyramid::extend(std::span<const double> values)
{
    std::size_t below = values.size();
    for (std::size_t i = 0; below >= fanOut; ++i) {
        if (i == m_levels.size())
            m_levels.emplace_back();
        if (i == 0)
            summarise(values, m_levels[0]);
        else
            summarise(std::span<const Range>(m_levels[i - 1]), m_levels[i]);
        below = m_levels[i].size();
    }
    while ((m_sums.size() + 1) * sumBlock <= values.size()) {
        const std::size_t first = m_sums.size() * sumBlock;
        Sum& block = m_sums.emplace_back();
        for (std::size_t i = first; i < first + sumBlock; ++i)
            addTo(block, values[i]);
    }
}

RangePyramid::Range RangePyramid::range(std::span<const double> values, std::size_t from,
                                        std::size_t to) const
{
    Range result;
    if (!takeEnds(result, values, from, to))
        return result;
    for (const std::vector<Range>& level : m_levels) {
        if (!takeEnds(result, std::span<const Range>(level), from, to))
            break;
    }
    return result;
}

void RangePyramid::prefetch(std::span<const double> values, std::size_t position)
{
    constexpr std::size_t lineValues = 8;
    const std::size_t first = position / fanOut * fanOut;
    for (std::size_t i = 0; i < fanOut; i += lineValues)
        KOLT::prefetch(values.data() + first + i);
}

RangePyramid::Sum RangePyramid::sum(std::span<const double> values, std::size_t from,
                                    std::size_t to) const
{
    Sum total;
    while (from < to && from % sumBlock != 0)
        addTo(total, values[from++]);
    while (from + sumBlock <= to && from / sumBlock < m_sums.size()) {
        const Sum& block = m_sums[from / sumBlock];
        total.sum += block.sum;
        total.count += block.count;
        from += sumBlock;
    }
    while (from < to)
        addTo(total, values[from++]);
    return total;
}

} // namespace KOLT
