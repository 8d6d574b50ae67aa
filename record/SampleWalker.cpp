#include "record/SampleWalker.h"

#include <algorithm>
#include <numeric>

namespace KOLT {

namespace {

std::uint64_t ticksOf(const StoredSample& sample)
{
    return std::uint64_t{sample.timeHigh} << 32 | sample.timeLow;
}

} // namespace

SampleWalker::SampleWalker(const MessageSeries& series)
    : m_series(&series)
{
    if (!std::ranges::is_sorted(series.begin(), series.end(), {}, ticksOf)) {
        m_order.resize(series.size());
        std::iota(m_order.begin(), m_order.end(), 0U);
        std::ranges::stable_sort(m_order, {},
                                 [&](std::uint32_t index) { return ticksOf(series[index]); });
    }
    lookAhead();
}

bool SampleWalker::walk(double limit)
{
    while (m_nextSeconds <= limit) {
        m_sample = &at(m_next++);
        lookAhead();
    }
    return true;
}

void SampleWalker::lookAhead()
{
    m_nextSeconds =
        m_next < m_series->size() ? at(m_next).seconds() : std::numeric_limits<double>::infinity();
}

} // namespace KOLT
