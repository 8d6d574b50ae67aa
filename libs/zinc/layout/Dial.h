#pragma once

#include <limits>
#include <optional>
#include <utility>
#include <vector>

/// Where the values of an instrument lie on its scale. Pure arithmetic.
namespace Zinc2D {

/// A scale from `min` to `max`, drawn from `start` over `length`: degrees of a dial or units of a
/// bar. `max` may lie below `min`, and `length` below 0.
struct Dial
{
    /// An end that is not known: the scale has no places then.
    static constexpr double unset = std::numeric_limits<double>::quiet_NaN();

    double min = 0.0;
    double max = 1.0;
    double start = 0.0;
    double length = 1.0;

    /// Whether values have places at all.
    bool isUsable() const;

    /// The place of a value; values beyond an end lie at that end.
    double place(double value) const;

    /// First place and extent of a range of values, cut at the ends; nothing where it lies wholly
    /// beyond one of them or has no extent.
    std::optional<std::pair<double, double>> extent(double from, double to) const;

    /// The multiples of a step from min to max, at most 500 of them; none for a step that is not
    /// above 0.
    std::vector<double> ticks(double step) const;
};

} // namespace Zinc2D
