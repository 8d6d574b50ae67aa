#pragma once

#include "profile/Profile.h"
#include "record/MessageMap.h"

#include <vector>

namespace KOLT {

/// A point of the flight path. Degrees, metres, km/h.
struct TrackPoint
{
    int halfSecond = 0; ///< index on the grid: seconds on the unit's counter * 2
    double latitude = 0.0;
    double longitude = 0.0;
    double altitude = 0.0;
    double groundSpeed = 0.0;
    double heading = 0.0;    ///< over ground, 0..360
    bool hasFix = true;      ///< false before the first position, which is repeated there
    bool hasAltitude = true; ///< false before the first altitude with a fix, or if there is none
    bool isInGap = false;    ///< interpolated across a gap (TrackGaps.h)

    double seconds() const { return halfSecond * 0.5; }
};

/// The flight path on a grid of half seconds from `fromSeconds` to the last position, by ascending
/// `halfSecond`. Points are interpolated between samples; those without a position are left out.
/// Samples without a fix or beyond maxGridSeconds are ignored. `before` holds the last samples
/// before `fromSeconds`; it only tells whether the altitude was already known.
std::vector<TrackPoint> buildTrack(const Profile& profile, const MessageMap& messages,
                                   double fromSeconds = 0.0, const SamplesBefore& before = {});

} // namespace KOLT
