#pragma once

#include "profile/Profile.h"
#include "record/MessageMap.h"

#include <vector>

namespace KOLT {

constexpr double longestTrackGap = 10.0; ///< seconds that a line is drawn over

/// A span without positions, in seconds.
struct TrackGap
{
    double from = 0.0;
    double to = 0.0;
};

/// The spans of more than 10 s between two position samples with a fix, ascending: the track's
/// points in there are made up by interpolation.
std::vector<TrackGap> trackGaps(const Profile& profile, const MessageMap& messages);

} // namespace KOLT
