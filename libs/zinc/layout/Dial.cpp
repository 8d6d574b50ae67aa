#include "libs/zinc/layout/Dial.h"

#include <algorithm>
#include <cmath>

namespace Zinc2D {

namespace {

constexpr double mostTicks = 500.0;

} // namespace

bool Dial::isUsable() const
{
    return std::isfinite(min) && std::isfinite(max) && std::isfinite(max - min) && max != min;
}

double Dial::place(double value) const
{
    if (!isUsable())
        return start;
    return start + std::clamp((value - min) / (max - min), 0.0, 1.0) * length;
}

std::optional<std::pair<double, double>> Dial::extent(double from, double to) const
{
    if (!isUsable() || !(from < to))
        return {};
    const double first = place(from);
    const double last = place(to);
    if (first == last)
        return {};
    const bool isAscending = (last > first) == (length > 0.0);
    return isAscending ? std::pair(first, last - first) : std::pair(last, first - last);
}

std::vector<double> Dial::ticks(double step) const
{
    if (!isUsable() || !(step > 0.0))
        return {};
    // Tolerance for rounding, so that 0.1 * 3 counts as 0.3.
    const double slack = step * 1e-6;
    const double first = std::ceil((std::min(min, max) - slack) / step);
    const double last = std::floor((std::max(min, max) + slack) / step);
    std::vector<double> values;
    if (!(last - first < mostTicks))
        return values;
    // Adding 1 may not change a large number, so the loop counts.
    const auto count = static_cast<int>(last - first) + 1;
    for (int i = 0; i < count; ++i)
        values.push_back((first + i) * step + 0.0); // + 0.0 turns -0 into 0
    return values;
}

} // namespace Zinc2D
