#pragma once

#include "analysis/FaultFinder.h"

#include <algorithm>
#include <vector>

namespace KOLT {

/// Where the moments of a data set lie on a horizontal strip of pixels. A data set without extent
/// lies at its left edge.
struct TimeStrip
{
    double first = 0.0; ///< seconds at the left edge
    double last = 0.0;  ///< seconds at the right edge
    int width = 0;      ///< pixels

    double extent() const { return std::max(last - first, 0.0); }

    /// Within [0, width - 1] for moments of the data set and beyond.
    int xOf(double seconds) const
    {
        if (extent() <= 0.0 || width <= 1 || !(seconds > first))
            return 0;
        const double x = (std::min(seconds, last) - first) / extent() * (width - 1);
        return static_cast<int>(x + 0.5);
    }

    /// The moment in the middle of the pixel; xOf(timeAt(x)) is x.
    double timeAt(int x) const
    {
        if (width <= 1)
            return first;
        return first + extent() * std::clamp(x, 0, width - 1) / (width - 1);
    }
};

/// A run of pixels, both ends included.
struct PixelRun
{
    int left = 0;
    int right = 0;

    bool operator==(const PixelRun&) const = default;
};

/// The interval that the user means by a pixel: one that lies there, or the nearest of those within
/// `reach` pixels; null when there is none. The intervals must ascend. O(log intervals).
inline const FaultInterval*
intervalAt(const TimeStrip& strip, const std::vector<FaultInterval>& intervals, int x, int reach)
{
    const auto behind =
        std::ranges::upper_bound(intervals, strip.timeAt(x), {}, &FaultInterval::start);
    const FaultInterval* nearest = nullptr;
    int distance = reach + 1;
    if (behind != intervals.begin()) {
        nearest = &*std::prev(behind);
        distance = std::max(0, x - strip.xOf(nearest->end));
    }
    if (behind != intervals.end() && strip.xOf(behind->start) - x < distance) {
        nearest = &*behind;
        distance = strip.xOf(behind->start) - x;
    }
    return distance <= reach ? nearest : nullptr;
}

/// The pixels that show the intervals, at least one for each, neighbours joined. The intervals
/// must ascend. O(min(intervals, pixels) * log intervals), so that a fault that flickers all day
/// costs no more than the strip is wide.
inline std::vector<PixelRun> pixelRuns(const TimeStrip& strip,
                                       const std::vector<FaultInterval>& intervals)
{
    std::vector<PixelRun> runs;
    auto next = intervals.begin();
    while (next != intervals.end()) {
        PixelRun run{strip.xOf(next->start), strip.xOf(next->end)};
        run.right = std::max(run.left, run.right);
        if (!runs.empty() && run.left <= runs.back().right + 1)
            runs.back().right = std::max(runs.back().right, run.right);
        else
            runs.push_back(run);
        // What begins within the pixels that are filled already changes nothing but its end.
        ++next;
        if (next != intervals.end() && strip.xOf(next->start) <= run.right) {
            const double filled = strip.timeAt(run.right);
            const auto behind =
                std::partition_point(next, intervals.end(), [&](const FaultInterval& interval) {
                    return interval.end <= filled;
                });
            next = std::max(next, behind);
        }
    }
    return runs;
}

} // namespace KOLT
