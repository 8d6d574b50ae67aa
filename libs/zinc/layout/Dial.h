#pragma once

#include <limits>
#include <optional>
#include <utility>
#include <vector>

/// Positions of values on the scale of an instrument.
namespace Zinc2D {

/// A scale from `min` to `max`, drawn from `start` over `length`: degrees of a dial or units of a
/// bar. `max` may lie below `min`, and `length` below 0.
struct Dial
{
    /// Value of an end that is not known, which makes the scale unusable.
    static constexpr double unset = std::numeric_limits<double>::quiet_NaN();

    double min = 0.0;
    double max = 1.0;
    double start = 0.0;
    double length = 1.0;

    /// Whether both ends are known and different.
    bool isUsable() const;

    /// Position of a value, clamped to the ends; `start` on an unusable scale.
    double place(double value) const;

    /// Position and length of a range of values, clipped to the scale; empty if nothing of it is
    /// on the scale or it has no length.
    std::optional<std::pair<double, double>> extent(double from, double to) const;

    /// The multiples of a step from min to max; empty if there are more than 500 or the step is not
    /// above 0.
    std::vector<double> ticks(double step) const;
};

} // namespace Zinc2D
