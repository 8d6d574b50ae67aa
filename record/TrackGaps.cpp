#include "record/TrackGaps.h"

#include "record/RoleSeries.h"
#include "record/TimeOrdered.h"
#include "record/TimeSlots.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace KOLT {

namespace {

constexpr double never = std::numeric_limits<double>::infinity();

void findGaps(const Profile& profile, const MessageMap& messages, Role role, PositionFilter& filter,
              std::vector<TrackGap>& gaps)
{
    std::vector<double> times;
    double last = 0.0; // time of the latest sample, with or without a fix
    const RoleSeries series(profile, messages, role);
    for (const StoredSample& sample : series.samples()) {
        const double seconds = sample.seconds();
        if (seconds >= maxGridSeconds)
            continue;
        last = std::max(last, seconds);
        const double sent = series.value(sample);
        if (isFix(sent) && series.value(sample, &filter) == sent)
            times.push_back(seconds);
    }
    sortByTime(times, std::identity());
    for (std::size_t i = 1; i < times.size(); ++i) {
        if (times[i] - times[i - 1] > longestTrackGap)
            gaps.push_back({times[i - 1], times[i]});
    }
    if (!times.empty() && last - times.back() > longestTrackGap)
        gaps.push_back({times.back(), never});
}

} // namespace

std::vector<TrackGap> trackGaps(const Profile& profile, const MessageMap& messages)
{
    std::vector<TrackGap> gaps;
    PositionFilter filter; // latitude first, as in buildTrack()
    findGaps(profile, messages, Role::Latitude, filter, gaps);
    findGaps(profile, messages, Role::Longitude, filter, gaps);
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
