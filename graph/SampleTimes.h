#pragma once

#include "graph/SampleMemory.h"
#include "record/IndexIterator.h"
#include "record/MessageSeries.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace KOLT {

/// Whether a line may join a sample to the one before it.
enum class SampleMark : int {
    AfterGap = 0, ///< samples are missing before this one
    Joined = 1
};

/// The times of a trace's samples in seconds on the unit's counter, and the positions of gaps. All
/// traces of one message share one object, and with it the search for the samples of each pixel
/// column.
class SampleTimes
{
public:
    /// The samples of one pixel column, from `first` up to the next run's `first`.
    struct Run
    {
        std::uint32_t first = 0;
        SampleMark mark = SampleMark::Joined; ///< AfterGap if one of its samples is
        double time = 0.0;                    ///< of the first sample
    };

    SampleTimes() = default;

    /// Reads its times from a series, which must outlive it. `gaps`: positions of the samples that
    /// follow a gap, ascending.
    SampleTimes(const MessageSeries& series, std::vector<std::uint32_t> gaps, bool isAscending)
        : m_series(&series)
        , m_size(series.size())
        , m_gaps(std::move(gaps))
        , m_isAscending(isAscending)
    {
    }

    void reserve(std::size_t samples) { m_times.reserve(samples); }

    /// Not for times of a series.
    void append(double time, SampleMark mark);

    /// The series that the times are read from, null if they are stored here.
    const MessageSeries* series() const { return m_series; }

    std::size_t size() const { return m_size; }

    double at(std::size_t index) const
    {
        return m_series != nullptr ? (*m_series)[index].seconds() : m_times[index];
    }

    double operator[](std::size_t index) const { return at(index); }

    bool isAscending() const { return m_isAscending; }

    SampleMark markOf(std::size_t index) const
    {
        return std::ranges::binary_search(m_gaps, index) ? SampleMark::AfterGap
                                                         : SampleMark::Joined;
    }

    /// Position of the first sample at or after the time.
    std::size_t positionAt(double time) const;
    /// Position of the first sample after the time. The times must ascend.
    std::size_t positionBehind(double time) const;

    /// The pixel columns of the window [start, end], from the last sample before it to the first
    /// one at or after its end, and one more entry whose `first` ends the last column. The times
    /// must ascend. O(columns * log samples); O(1) for the same window again. Valid until the next
    /// call.
    std::span<const Run> runs(double start, double end, double pixelSeconds) const;

private:
    /// Everything that the runs depend on.
    struct Window
    {
        double start = 0.0;
        double end = 0.0;
        double pixelSeconds = 0.0;
        std::size_t size = 0;

        bool operator==(const Window&) const = default;
    };

    using Iterator = IndexIterator<SampleTimes, double>;

    Iterator begin() const { return {*this, 0}; }

    Iterator end() const { return {*this, m_size}; }

    std::size_t runEnd(std::size_t from, std::size_t limit, std::size_t step,
                       double pixelSeconds) const;
    void findRuns(const Window& window) const;
    void prefetch(std::size_t index) const;

    const MessageSeries* m_series = nullptr;
    std::size_t m_size = 0;
    SampleValues m_times;              ///< empty if the times are read from a series
    std::vector<std::uint32_t> m_gaps; ///< positions of samples after a gap, ascending
    bool m_isAscending = true;
    mutable Window m_window;
    mutable std::vector<Run> m_runs; ///< for m_window; empty before the first request
};

} // namespace KOLT
