#include "graph/Contrast.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

double luminanceOf(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double ratioOf(double luminance, double other)
{
    constexpr double flare = 0.05; // light that a screen reflects
    return (std::max(luminance, other) + flare) / (std::min(luminance, other) + flare);
}

} // namespace

double contrastOf(const QColor& color, const QColor& other)
{
    return ratioOf(luminanceOf(color), luminanceOf(other));
}

QColor mixed(const QColor& color, const QColor& other, double part)
{
    const auto between = [part](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * part));
    };
    return {between(color.red(), other.red()), between(color.green(), other.green()),
            between(color.blue(), other.blue()), color.alpha()};
}

QColor oppositeOf(const QColor& ground)
{
    const double luminance = luminanceOf(ground);
    return ratioOf(luminance, 1.0) >= ratioOf(luminance, 0.0) ? Qt::white : Qt::black;
}

QColor contrasting(const QColor& color, const QColor& ground, double least)
{
    constexpr int steps = 10;
    const double luminance = luminanceOf(ground);
    QColor result = color;
    for (int i = 1; i <= steps && ratioOf(luminanceOf(result), luminance) < least; ++i)
        result = mixed(color, oppositeOf(ground), static_cast<double>(i) / steps);
    return result;
}

} // namespace KOLT
