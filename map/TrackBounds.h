#pragma once

#include "record/Track.h"

#include <span>

namespace KOLT {

/// Where a track lies, in degrees.
struct TrackBounds
{
    double minLatitude = 0.0;
    double maxLatitude = 0.0;
    double minLongitude = 0.0; ///< over the numbers as they are
    double maxLongitude = 0.0;
    double west = 0.0; ///< followed along the track, over 180 degrees: east >= west
    double east = 0.0;

    /// All zeros without points.
    static TrackBounds of(std::span<const TrackPoint> track);
};

} // namespace KOLT
