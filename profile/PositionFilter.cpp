#include "profile/PositionFilter.h"

#include <cmath>

namespace KOLT {

namespace {

/// 10 km at 111.12 km per degree.
constexpr double maxJumpDegrees = 0.08999280057595392;
constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double leastCountedDegrees = 0.001;
constexpr int warmUp = 5;

} // namespace

double PositionFilter::degrees(double value)
{
    // modf gives infinity a fraction of 0, so the result is infinite and the filter rejects it.
    double whole = 0.0;
    const double rest = std::modf(value / 100.0, &whole);
    // The unit's own software works with single-precision minutes.
    const auto fraction = static_cast<float>(rest);
    return whole + static_cast<double>(fraction) * 100.0 / 60.0;
}

double PositionFilter::latitude(double degrees)
{
    return accept(m_latitude, degrees, maxJumpDegrees);
}

double PositionFilter::longitude(double degrees)
{
    return accept(m_longitude, degrees,
                  maxJumpDegrees / std::cos(m_latitude.last * radiansPerDegree));
}

double PositionFilter::accept(Axis& axis, double degrees, double limit)
{
    if (axis.counter < warmUp) {
        axis.last = degrees;
        if (std::abs(degrees) > leastCountedDegrees)
            ++axis.counter;
        return degrees;
    }
    if (std::abs(degrees - axis.last) > limit)
        return axis.last;
    axis.last = degrees;
    return degrees;
}

} // namespace KOLT
