#pragma once

#include "analysis/FaultFinder.h"

#include <algorithm>
#include <vector>

namespace KOLT {

/// Maps the time span of a data set to a horizontal strip of pixels, for drawing and for hit tests.
/// All moments of an empty span are at the left edge.
struct TimeStrip
{
    double first = 0.0; ///< seconds at the left edge
    double last = 0.0;  ///< seconds at the right edge
    int width = 0;      ///< pixels
    int left = 0;       ///< of the first pixel

    int right() const { return left + width - 1; }

    double extent() const { return std::max(last - first, 0.0); }

    /// In [left, right()]; moments outside the span are at its ends.
    int xOf(double seconds) const
    {
        if (extent() <= 0.0 || width <= 1 || !(seconds > first))
            return left;
        const double x = (std::min(seconds, last) - first) / extent() * (width - 1);
        return left + static_cast<int>(x + 0.5);
    }

    /// The moment of a pixel: xOf(timeAt(x)) is x.
    double timeAt(int x) const
    {
        if (width <= 1)
            return first;
        return first + extent() * std::clamp(x - left, 0, width - 1) / (width - 1);
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

/// The pixels that the intervals cover, adjoining runs joined, each run `least` pixels or more. The
/// intervals must ascend.
inline std::vector<PixelRun> pixelRuns(const TimeStrip& strip,
                                       const std::vector<FaultInterval>& intervals, int least = 1)
{
    std::vector<PixelRun> runs;
    for (const FaultInterval& interval : intervals) {
        const PixelRun run{strip.xOf(interval.start), strip.xOf(interval.end)};
        if (!runs.empty() && run.left <= runs.back().right + 1)
            runs.back().right = std::max(runs.back().right, run.right);
        else
            runs.push_back(run);
    }
    for (PixelRun& run : runs) {
        run.right = std::min(std::max(run.right, run.left + least - 1), strip.right());
        run.left = std::min(run.left, run.right - least + 1);
    }
    return runs;
}

} // namespace KOLT
