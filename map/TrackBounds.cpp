#include "map/TrackBounds.h"

#include "libs/tessamap/globe/Globe.h"

#include <algorithm>

namespace KOLT {

TrackBounds TrackBounds::of(std::span<const TrackPoint> track)
{
    TrackBounds bounds;
    if (track.empty())
        return bounds;
    const TrackPoint& first = track.front();
    bounds = {first.latitude,  first.latitude,  first.longitude,
              first.longitude, first.longitude, first.longitude};
    double longitude = first.longitude;
    for (const TrackPoint& point : track) {
        bounds.minLatitude = std::min(bounds.minLatitude, point.latitude);
        bounds.maxLatitude = std::max(bounds.maxLatitude, point.latitude);
        bounds.minLongitude = std::min(bounds.minLongitude, point.longitude);
        bounds.maxLongitude = std::max(bounds.maxLongitude, point.longitude);
        longitude += Tessa::wrappedLongitude(point.longitude - longitude);
        bounds.west = std::min(bounds.west, longitude);
        bounds.east = std::max(bounds.east, longitude);
    }
    return bounds;
}

} // namespace KOLT
