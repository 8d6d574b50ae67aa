#pragma once

#include "record/IndexIterator.h"
#include "record/MessageSeries.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace KOLT {

/// The samples of a series in order of time; at equal times in stored order.
///
/// If times do not ascend, the constructor sorts an index of 4 bytes per sample. The series must
/// outlive this view and not change.
class TimeOrdered
{
public:
    using Iterator = IndexIterator<TimeOrdered, const StoredSample&>;

    explicit TimeOrdered(const MessageSeries& series);

    std::size_t size() const { return m_series->size(); }

    const StoredSample& operator[](std::size_t index) const
    {
        return (*m_series)[storedIndex(index)];
    }

    Iterator begin() const { return {*this, 0}; }

    Iterator end() const { return {*this, size()}; }

    /// The index in the series of a sample of this view.
    std::size_t storedIndex(std::size_t index) const
    {
        return m_order.empty() ? index : m_order[index];
    }

    /// The number of samples for which the predicate is true; it must be true for the earlier
    /// samples and false for the later ones. O(log samples).
    template <typename Predicate>
    std::size_t countWhile(Predicate&& predicate) const
    {
        return std::ranges::partition_point(begin(), end(), predicate).index();
    }

private:
    const MessageSeries* m_series;
    std::vector<std::uint32_t> m_order; ///< empty if times ascend
};

/// Sorts values by time, at equal times in their former order. Fast if times ascend already.
template <typename Values, typename Time>
void sortByTime(Values& values, Time time)
{
    if (!std::ranges::is_sorted(values, {}, time))
        std::ranges::stable_sort(values, {}, time);
}

} // namespace KOLT
