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
    double to = 0.0; ///< infinite where no position followed

    /// Whether a time lies between the two positions.
    bool holds(double seconds) const
    {
        constexpr double rounding = 1e-6; // seconds
        return seconds > from + rounding && seconds < to - rounding;
    }
};

/// The spans of more than 10 s without a position, ascending and apart from each other: the track's
/// points in there are made up by interpolation. It does not matter whether the unit sends nothing
/// there or zeros, or something that the position filter replaces.
std::vector<TrackGap> trackGaps(const Profile& profile, const MessageMap& messages);

} // namespace KOLT
