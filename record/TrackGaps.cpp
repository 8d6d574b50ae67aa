#include "record/TrackGaps.h"

#include "record/RoleSeries.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double noFix = 1e-5; // degrees

void findGaps(const Profile& profile, const MessageMap& messages, const char* role,
              std::vector<TrackGap>& gaps)
{
    std::vector<double> times;
    const RoleSeries series(profile, messages, role);
    series.forEach([&](double seconds, const MessageData& data, const ProfileParameter& parameter) {
        const double value = decodeNumber(data, parameter);
        if (std::isfinite(value) && std::abs(value) > noFix)
            times.push_back(seconds);
    });
    if (!std::ranges::is_sorted(times))
        std::ranges::sort(times);
    for (std::size_t i = 1; i < times.size(); ++i) {
        if (times[i] - times[i - 1] > longestTrackGap)
            gaps.push_back({times[i - 1], times[i]});
    }
}

} // namespace

std::vector<TrackGap> trackGaps(const Profile& profile, const MessageMap& messages)
{
    std::vector<TrackGap> gaps;
    findGaps(profile, messages, "Latitude", gaps);
    findGaps(profile, messages, "Longitude", gaps);
    std::ranges::sort(gaps, {}, &TrackGap::from);
    std::vector<TrackGap> joined;
    for (const TrackGap& gap : gaps) {
        if (!joined.empty() && gap.from <= joined.back().to)
            joined.back().to = std::max(joined.back().to, gap.to);
        else
            joined.push_back(gap);
    }
    return joined;
}

} // namespace KOLT
