#pragma once

#include "profile/Profile.h"
#include "record/MessageMap.h"

#include <cmath>
#include <vector>

namespace KOLT {

/// Whether a decoded latitude or longitude is a position: without a fix the unit sends zeros.
inline bool isFix(double degrees)
{
    constexpr double noFixDegrees = 1e-5;
    return std::isfinite(degrees) && std::abs(degrees) > noFixDegrees;
}

constexpr double longestTrackGap = 10.0; ///< seconds; longer spans without positions are gaps

/// A span without positions, in seconds.
struct TrackGap
{
    double from = 0.0;
    double to = 0.0; ///< infinite if no position follows

    /// Whether a time lies inside the gap.
    bool holds(double seconds) const
    {
        constexpr double rounding = 1e-6; // seconds
        return seconds > from + rounding && seconds < to - rounding;
    }
};

/// The spans of more than 10 s without a usable position: nothing was sent, or zeros, or positions
/// that the filter replaces. The track's points in there are interpolated. Ascending, not
/// overlapping.
std::vector<TrackGap> trackGaps(const Profile& profile, const MessageMap& messages);

} // namespace KOLT
