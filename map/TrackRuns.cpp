#include "map/TrackRuns.h"

namespace KOLT {

namespace {

constexpr double rounding = 1e-6; // seconds: error of the samples' times

} // namespace

std::vector<TrackRun> runsOf(std::span<const TrackPoint> track, std::span<const TrackGap> gaps)
{
    std::vector<TrackRun> runs;
    auto gap = gaps.begin();
    std::size_t first = 0;
    const auto endRun = [&](std::size_t last) {
        if (last > first)
            runs.push_back({first, last});
        first = last + 1;
    };
    for (std::size_t i = 1; i < track.size(); ++i) {
        const double before = track[i - 1].seconds();
        const double now = track[i].seconds();
        while (gap != gaps.end() && gap->to <= before + rounding)
            ++gap;
        if (now - before > longestTrackGap || (gap != gaps.end() && gap->from < now - rounding))
            endRun(i - 1);
    }
    if (!track.empty())
        endRun(track.size() - 1);
    return runs;
}

} // namespace KOLT
