#pragma once

#include <cmath>
#include <numbers>

/// The projection of web maps: the world between about 85.05 degrees south and north as a unit
/// square, x eastwards from 180 degrees west, y southwards. Angles in degrees.
namespace Tessa::Mercator {

/// Of the equator, in metres: a degree has 60 minutes of arc of 1852 m.
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

/// Metres on the ground per unit of x or y at this latitude.
inline double metres(double latitude)
{
    return circumference * std::cos(latitude * std::numbers::pi / 180.0);
}

} // namespace Tessa::Mercator
