#pragma once

#include <cmath>
#include <cstdint>

namespace KOLT {

/// A range of values, divided into 16 equal steps.
struct ValueScale
{
    static constexpr int steps = 16;

    double low = 0.0;
    double high = 0.0;

    /// 0 to 15. Values outside the range get the nearest step; an empty range gives 0. The value
    /// must not be NaN.
    std::uint8_t stepOf(double value) const
    {
        if (!(value > low) || !(high > low))
            return 0;
        if (value >= high)
            return steps - 1;
        return static_cast<std::uint8_t>((value - low) / (high - low) * steps);
    }
};

} // namespace KOLT
