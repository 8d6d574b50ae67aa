#include "libs/tusk/Geodetic.h"

#include <algorithm>
#include <cmath>

namespace TUSK::Geodetic {

namespace {

constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double degreesPerRadian = 57.29577951308232;
constexpr double metresPerDegree = 60.0 * 1852.0;

} // namespace

double distance(double latitude1, double longitude1, double latitude2, double longitude2)
{
    // The cosine of equal places can fall short of 1 by rounding: 9 cm.
    if (latitude1 == latitude2 && longitude1 == longitude2)
        return 0.0;
    const double phi1 = latitude1 * radiansPerDegree;
    const double phi2 = latitude2 * radiansPerDegree;
    const double deltaLambda = (longitude2 - longitude1) * radiansPerDegree;
    const double cosine =
        std::sin(phi1) * std::sin(phi2) + std::cos(phi1) * std::cos(phi2) * std::cos(deltaLambda);
    // Rounding carries the cosine past 1 for places next to each other.
    return std::acos(std::clamp(cosine, -1.0, 1.0)) * degreesPerRadian * metresPerDegree;
}

} // namespace TUSK::Geodetic
