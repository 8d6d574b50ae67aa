#pragma once

#include "record/TimeOrdered.h"

#include <limits>

namespace KOLT {

/// Steps through a series in time order and holds the latest sample up to the current time.
///
/// The series must outlive the walker and not change. All steps together take O(samples).
class SampleWalker
{
public:
    /// A sample this much later than the current time still counts: a time in milliseconds and the
    /// same time in ticks may differ in their last bits.
    static constexpr double tolerance = 1e-6; // seconds

    explicit SampleWalker(const MessageSeries& series);

    /// Moves to a time, which must not be before the previous one. True if the sample changed.
    bool advanceTo(double seconds)
    {
        return seconds + tolerance >= m_nextSeconds && walk(seconds + tolerance);
    }

    /// The latest sample up to the current time; null before the first one.
    const StoredSample* sample() const { return m_sample; }

private:
    bool walk(double limit);
    void lookAhead();

    TimeOrdered m_samples;
    std::size_t m_next = 0;
    double m_nextSeconds = std::numeric_limits<double>::infinity();
    const StoredSample* m_sample = nullptr;
};

} // namespace KOLT
