#pragma once

#include "analysis/FaultFinder.h"

#include <algorithm>
#include <vector>

namespace KOLT {

/// Maps the time span of a data set to a horizontal strip of pixels. All moments of an empty span
/// are at the left edge.
struct TimeStrip
{
    double first = 0.0; ///< seconds at the left edge
    double last = 0.0;  ///< seconds at the right edge
    int width = 0;      ///< pixels

    double extent() const { return std::max(last - first, 0.0); }

    /// In [0, width - 1]; moments outside the span are at its ends.
    int xOf(double seconds) const
    {
        if (extent() <= 0.0 || width <= 1 || !(seconds > first))
            return 0;
        const double x = (std::min(seconds, last) - first) / extent() * (width - 1);
        return static_cast<int>(x + 0.5);
    }

    /// The moment of a pixel: xOf(timeAt(x)) is x.
    double timeAt(int x) const
    {
        if (width <= 1)
            return first;
        return first + extent() * std::clamp(x, 0, width - 1) / (width - 1);
    }
};

/// Adjoining pixels; both ends belong to the run.
struct PixelRun
{
    int left = 0;
    int right = 0;

    bool operator==(const PixelRun&) const = default;
};

/// The interval at a pixel, or the nearest one within `reach` pixels; null if there is none. The
/// intervals must ascend. O(log intervals).
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

/// The pixels that the intervals cover, at least one for each; adjoining runs are joined. The
/// intervals must ascend. O(min(intervals, pixels) * log intervals): a fault that flickers all day
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
        // Skip the intervals that also end within this run: they add no pixel.
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
