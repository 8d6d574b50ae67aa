#include "map/ScaleBar.h"

#include <cmath>

namespace KOLT {

namespace {

constexpr double metresPerFoot = 0.3048;
constexpr double metresPerNauticalMile = 1852.0;
constexpr double metresPerKilometre = 1000.0;

/// The largest 1, 2 or 5 times a power of ten not above the number.
double roundBelow(double number)
{
    // So that 0.99999... from rounding counts as 1.
    const double enough = number * (1.0 + 1e-9);
    const double power = std::pow(10.0, std::floor(std::log10(enough)));
    for (const double factor : {5.0, 2.0}) {
        if (factor * power <= enough)
            return factor * power;
    }
    return power;
}

} // namespace

ScaleBar ScaleBar::choose(double metresPerPixel, double mostPixels, UnitSystem system)
{
    const double most = metresPerPixel * mostPixels;
    if (!std::isfinite(most) || !(metresPerPixel > 0.0) || !(mostPixels > 0.0))
        return {};
    const bool isImperial = system == UnitSystem::Imperial;
    const double large = isImperial ? metresPerNauticalMile : metresPerKilometre;
    const double small = isImperial ? metresPerFoot : 1.0;
    const bool isLarge = most >= large;
    const double unit = isLarge ? large : small;
    const double length = roundBelow(most / unit);
    const QString name = isImperial ? (isLarge ? QStringLiteral("NM") : QStringLiteral("ft"))
                                    : (isLarge ? QStringLiteral("km") : QStringLiteral("m"));
    ScaleBar bar{length * unit, length * unit / metresPerPixel, {}, length, name};
    bar.text = bar.multiple(1);
    return bar;
}

} // namespace KOLT
