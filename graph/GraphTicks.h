#pragma once

#include <QString>

#include <vector>

namespace KOLT {

/// A line of the time axis.
struct GraphTick
{
    double value = 0.0;
    bool isMajor = true;

    bool operator==(const GraphTick&) const = default;
};

/// The lines of the time axis in ascending order: a major one about every 70 pixels at a multiple
/// of 1, 2, 5 or 10 times a power of ten, with minor ones between. Empty for a plot narrower than
/// 70 pixels.
std::vector<GraphTick> timeTicks(double start, double end, double plotWidth);

/// "h:mm:ss" of a time in seconds.
QString timeTickText(double seconds);

/// The times of the time axis that get a label.
struct TimeLabels
{
    std::vector<double> times;
    int decimals = 0; ///< of the fractions in a second line, if they are less than a second apart
};

/// The major ticks whose labels have room beside each other and within the width, or if these are
/// fewer than two, minor ones too. Labels begin at their tick.
TimeLabels timeLabelsOf(const std::vector<GraphTick>& ticks, double start, double pixelSeconds,
                        double width, double characterWidth);

/// ".25": the second line of a label.
QString fractionText(double seconds, int decimals);

/// The marks of a value axis: multiples of 1, 2, 5 or 10 times a power of ten, at least `spacing`
/// pixels apart.
std::vector<double> valueTicks(double lower, double upper, double height, double spacing);

} // namespace KOLT
