#pragma once

#include "record/RoleSeries.h"

#include <limits>
#include <optional>

namespace KOLT {

/// Integrates a flow in litres per hour over the samples within [start, end] seconds.
inline double fuelUsed(const RoleSeries& flow, double start = 0.0,
                       double end = std::numeric_limits<double>::infinity())
{
    constexpr double secondsPerHour = 3600.0;
    double used = 0.0;
    std::optional<double> previous;
    flow.forEach(start, end, [&](double t, double value) {
        if (previous)
            used += value * (t - *previous) / secondsPerHour;
        previous = t;
    });
    return used;
}

} // namespace KOLT
