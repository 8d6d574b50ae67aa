#include "libs/tusk/math/Geodetic.h"

#include <algorithm>
#include <cmath>

namespace TUSK::Geodetic {

double distance(double latitude1, double longitude1, double latitude2, double longitude2)
{
    // Rounding can leave the cosine of equal places below 1, which would make them 9 cm apart.
    if (latitude1 == latitude2 && longitude1 == longitude2)
        return 0.0;
    const double phi1 = latitude1 * radiansPerDegree;
    const double phi2 = latitude2 * radiansPerDegree;
    const double deltaLambda = (longitude2 - longitude1) * radiansPerDegree;
    const double cosine =
        std::sin(phi1) * std::sin(phi2) + std::cos(phi1) * std::cos(phi2) * std::cos(deltaLambda);
    // Rounding can carry the cosine past 1 for neighbouring places.
    return std::acos(std::clamp(cosine, -1.0, 1.0)) * radius;
}

Vector latLong2Cartesian(double latitude, double longitude)
{
    const double phi = latitude * radiansPerDegree;
    const double lambda = longitude * radiansPerDegree;
    return {radius * std::cos(phi) * std::sin(lambda), radius * std::sin(phi),
            radius * std::cos(phi) * std::cos(lambda)};
}

} // namespace TUSK::Geodetic
