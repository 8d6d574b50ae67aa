#pragma once

namespace TUSK::Geodetic {

/// Great-circle distance in metres between two places in degrees, on a sphere on which one minute
/// of arc is a nautical mile of 1852 m. Spherical law of cosines; equal places are 0 m apart.
double distance(double latitude1, double longitude1, double latitude2, double longitude2);

} // namespace TUSK::Geodetic
