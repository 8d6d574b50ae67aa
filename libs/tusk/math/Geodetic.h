#pragma once

/// The earth as a sphere on which one minute of arc is a nautical mile of 1852 m. Degrees and
/// metres.
namespace TUSK::Geodetic {

inline constexpr double metresPerDegree = 60.0 * 1852.0;
inline constexpr double radiansPerDegree = 0.017453292519943295;
inline constexpr double radius = metresPerDegree / radiansPerDegree;

/// A place or direction in space, in metres from the centre of the earth.
struct Vector
{
    double x = 0.0; ///< towards 90 degrees east on the equator
    double y = 0.0; ///< towards the north pole
    double z = 0.0; ///< towards latitude 0, longitude 0

    friend bool operator==(const Vector&, const Vector&) = default;
};

/// Great-circle distance by the spherical law of cosines; equal places are 0 m apart.
double distance(double latitude1, double longitude1, double latitude2, double longitude2);

/// The place on the surface.
Vector latLong2Cartesian(double latitude, double longitude);

} // namespace TUSK::Geodetic
