#pragma once

#include "record/MessageSeries.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace KOLT {

/// Walks a series along ascending times and holds its last sample, without ever searching. A series
/// whose times do not ascend is walked in the order of its times.
///
/// The series must outlive the walker and stay as it is. All steps together cost O(samples).
class SampleWalker
{
public:
    /// A sample this much later still counts: times on a millisecond and the unit's ticks differ
    /// in their last bits.
    static constexpr double tolerance = 1e-6; // seconds

    explicit SampleWalker(const MessageSeries& series);

    /// Goes on to a time, which must not be before the last one; true when another sample holds
    /// now.
    bool advanceTo(double seconds)
    {
        return seconds + tolerance >= m_nextSeconds && walk(seconds + tolerance);
    }

    /// The last sample up to the time; null before the first.
    const StoredSample* sample() const { return m_sample; }

private:
    const StoredSample& at(std::size_t index) const
    {
        return (*m_series)[m_order.empty() ? index : m_order[index]];
    }

    bool walk(double limit);
    void lookAhead();

    const MessageSeries* m_series;
    std::vector<std::uint32_t> m_order; ///< by time; empty: stored order
    std::size_t m_next = 0;
    double m_nextSeconds = std::numeric_limits<double>::infinity();
    const StoredSample* m_sample = nullptr;
};

} // namespace KOLT
