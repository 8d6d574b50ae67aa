#pragma once

#include "profile/Profile.h"
#include "record/MessageMap.h"

#include <vector>

namespace KOLT {

/// A place on the flight path. Degrees, metres, km/h.
struct TrackPoint
{
    int halfSecond = 0; ///< place on the grid: seconds on the unit's counter times 2
    double latitude = 0.0;
    double longitude = 0.0;
    double altitude = 0.0;
    double groundSpeed = 0.0;
    double track = 0.0;
    bool hasFix = true;      ///< false before the first position: the place is that of the first
    bool hasAltitude = true; ///< false before the first altitude with a fix, and without any
    bool isInGap = false;    ///< no position was recorded around here: the place is made up

    double seconds() const { return halfSecond * 0.5; }
};

/// The flight path on a grid of half seconds from 0 s to the last position, each point interpolated
/// between the samples around it; only points with a position. Positions without a fix are dropped
/// first. Samples beyond maxGridSeconds do not count. By ascending `halfSecond`.
/// `fromSeconds` leaves out the points before it; `before` tells what was sent last before it. It
/// only says whether the altitude was known already: no point is made from it.
std::vector<TrackPoint> buildTrack(const Profile& profile, const MessageMap& messages,
                                   double fromSeconds = 0.0, const SamplesBefore& before = {});

} // namespace KOLT
