#pragma once

#include "record/Track.h"

#include <span>

namespace KOLT {

/// The area that a track covers, in degrees.
struct TrackBounds
{
    double minLatitude = 0.0;
    double maxLatitude = 0.0;
    double minLongitude = 0.0; ///< of the plain numbers
    double maxLongitude = 0.0;
    double west = 0.0; ///< unwrapped along the track, so that west <= east across 180 degrees
    double east = 0.0;

    /// All zeros without points.
    static TrackBounds of(std::span<const TrackPoint> track);
};

} // namespace KOLT
