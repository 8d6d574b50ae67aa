#include "graph/GraphTicks.h"

#include "base/NumberText.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double wantedSpacing = 70.0; ///< pixels between major lines
constexpr std::size_t mostTicks = 10'000;
constexpr double labelGap = 3.0; ///< pixels between a tick and its label

struct Step
{
    double size = 1.0;
    int divisions = 5;
};

Step timeStep(double rawStep)
{
    const double e = std::log10(std::abs(rawStep));
    double power = 1.0;
    if (e > 1.0)
        power = std::pow(10.0, std::trunc(e));
    else if (e < 0.0)
        power = std::pow(10.0, std::trunc(e - 1.0));
    const double scaled = rawStep / power;
    if (scaled < 1.0)
        return {power, 5};
    if (scaled < 2.0)
        return {2.0 * power, 4};
    if (scaled < 5.0)
        return {5.0 * power, 5};
    return {10.0 * power, 5};
}

} // namespace

std::vector<GraphTick> timeTicks(double start, double end, double plotWidth)
{
    std::vector<GraphTick> ticks;
    const double span = end - start;
    if (plotWidth < wantedSpacing || !(span > 0.0))
        return ticks;
    const Step step = timeStep(span / (plotWidth / wantedSpacing));
    const double minor = step.size / step.divisions;
    const auto first = static_cast<long long>(std::floor(start / step.size)) * step.divisions;
    const auto last =
        static_cast<long long>(std::floor((end + step.size) / step.size)) * step.divisions;
    for (long long i = first; i <= last && ticks.size() < mostTicks; ++i) {
        const double value = static_cast<double>(i) * minor;
        if (value >= start && value <= end)
            ticks.push_back({value, i % step.divisions == 0});
    }
    return ticks;
}

QString timeTickText(double seconds)
{
    const auto whole = static_cast<long long>(seconds);
    const long long absolute = std::abs(whole);
    return QString::asprintf("%s%lld:%02lld:%02lld", whole < 0 ? "-" : "", absolute / 3600,
                             absolute / 60 % 60, absolute % 60);
}

TimeLabels timeLabelsOf(const std::vector<GraphTick>& ticks, double start, double pixelSeconds,
                        double width, double characterWidth)
{
    TimeLabels labels;
    for (const bool isMajor : {true, false}) {
        labels.times.clear();
        double taken = 0.0; // right end of the label before
        for (const GraphTick& tick : ticks) {
            const double left = (tick.value - start) / pixelSeconds + labelGap;
            const auto characters = static_cast<double>(timeTickText(tick.value).size());
            const double right = left + characterWidth * characters;
            if ((isMajor && !tick.isMajor) || left < taken || right > width)
                continue;
            labels.times.push_back(tick.value);
            taken = right + labelGap;
        }
        if (labels.times.size() >= 2)
            break;
    }
    if (labels.times.size() >= 2) {
        const double step = labels.times[1] - labels.times[0];
        labels.decimals = std::max(static_cast<int>(std::ceil(-std::log10(step) - 1e-6)), 0);
    }
    return labels;
}

QString fractionText(double seconds, int decimals)
{
    const QString text = fixedText(std::abs(seconds), decimals);
    const QString sign = seconds < 0.0 && std::abs(seconds) < 1.0 ? QStringLiteral("-") : QString();
    return sign + text.mid(text.indexOf(QLatin1Char('.')));
}

std::vector<double> valueTicks(double lower, double upper, double height, double spacing)
{
    std::vector<double> ticks;
    const double extent = upper - lower;
    if (!(extent > 0.0) || !std::isfinite(extent) || height < spacing)
        return ticks;
    const double rawStep = extent / (height / spacing);
    const double power = std::pow(10.0, std::floor(std::log10(rawStep)));
    const double scaled = rawStep / power;
    const double step = (scaled <= 1.0   ? 1.0
                         : scaled <= 2.0 ? 2.0
                         : scaled <= 5.0 ? 5.0
                                         : 10.0) *
                        power;
    const double first = std::ceil(lower / step);
    const double last = std::floor(upper / step);
    for (double i = first; i <= last && ticks.size() < mostTicks; i += 1.0) {
        if (i + 1.0 == i) // the step is below the resolution of doubles
            break;
        ticks.push_back(i * step + 0.0); // not -0
    }
    return ticks;
}

} // namespace KOLT
