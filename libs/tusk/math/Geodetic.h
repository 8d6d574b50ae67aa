#pragma once

#include "libs/tusk/math/Vector.h"

/// The earth as a sphere on which a minute of arc is 1852 m. Angles are in degrees, lengths in
/// metres.
namespace TUSK::Geodetic {

inline constexpr double metresPerDegree = 60.0 * 1852.0;
inline constexpr double radiansPerDegree = 0.017453292519943295;
inline constexpr double radius = metresPerDegree / radiansPerDegree;

/// A position relative to the centre of the earth, or a direction: x points to 90 degrees east on
/// the equator, y to the north pole, z to latitude 0, longitude 0.
using Vector = Math::Vector3;

/// Great-circle distance by the spherical law of cosines; equal places are 0 m apart.
double distance(double latitude1, double longitude1, double latitude2, double longitude2);

/// A position on the surface.
Vector latLong2Cartesian(double latitude, double longitude);

} // namespace TUSK::Geodetic
