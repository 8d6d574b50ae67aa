#pragma once

#include <cmath>
#include <numbers>

/// The web map's projection: the world between about 85.05 degrees south and north as a square, x
/// from 0 (180 degrees west) to 1, y from 0 (north) to 1. Angles in degrees.
namespace Tessa::Mercator {

/// Around the equator, in metres: 60 arc minutes of 1852 m to a degree.
inline constexpr double circumference = 360.0 * 60.0 * 1852.0;

inline double x(double longitude)
{
    return longitude / 360.0 + 0.5;
}

/// Infinite at the poles.
inline double y(double latitude)
{
    const double sine = std::sin(latitude * std::numbers::pi / 180.0);
    return 0.5 - std::atanh(sine) / (2.0 * std::numbers::pi);
}

inline double longitude(double x)
{
    return (x - 0.5) * 360.0;
}

inline double latitude(double y)
{
    return std::atan(std::sinh((0.5 - y) * 2.0 * std::numbers::pi)) * 180.0 / std::numbers::pi;
}

/// Ground metres along a distance of 1 in x or y at this latitude.
inline double metres(double latitude)
{
    return circumference * std::cos(latitude * std::numbers::pi / 180.0);
}

} // namespace Tessa::Mercator
