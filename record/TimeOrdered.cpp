#include "record/TimeOrdered.h"

#include <numeric>

namespace KOLT {

TimeOrdered::TimeOrdered(const MessageSeries& series)
    : m_series(&series)
{
    if (std::ranges::is_sorted(series, {}, &StoredSample::ticks))
        return;
    m_order.resize(series.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    std::ranges::stable_sort(m_order, {},
                             [&](std::uint32_t index) { return series[index].ticks(); });
}

} // namespace KOLT
