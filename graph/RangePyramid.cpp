#include "graph/RangePyramid.h"

#include <cmath>

namespace KOLT {

namespace {

void addTo(RangePyramid::Sum& total, double value)
{
    if (std::isnan(value))
        return;
    total.sum += value;
    ++total.count;
}

} // namespace

void RangePyramid::clear()
{
    m_levels.clear();
    m_sums.clear();
}

template <typename Source>
void RangePyramid::summarise(std::span<const Source> source, std::vector<Entry>& level)
{
    level.reserve(source.size() / fanOut);
    while ((level.size() + 1) * fanOut <= source.size()) {
        const Source* const first = source.data() + level.size() * fanOut;
        Extremes extremes;
        extremes.addAll(first, first + fanOut);
        const Range range = extremes.range();
        level.push_back({range.lowest, -range.highest});
    }
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
            summarise(std::span<const Entry>(m_levels[i - 1]), m_levels[i]);
        below = m_levels[i].size();
    }
    while ((m_sums.size() + 1) * sumBlock <= values.size()) {
        const std::size_t first = m_sums.size() * sumBlock;
        Sum& block = m_sums.emplace_back();
        for (std::size_t i = first; i < first + sumBlock; ++i)
            addTo(block, values[i]);
    }
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
