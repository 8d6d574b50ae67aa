#include "map/TrackColors.h"

#include "base/NumberText.h"
#include "record/RoleSeries.h"
#include "record/TimeOrdered.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace KOLT {

namespace {

constexpr double longestHold = 10.0; // seconds that the last sample stays valid
constexpr int mostDecimals = 3;
constexpr float none = std::numeric_limits<float>::quiet_NaN();

struct TimedValue
{
    double seconds = 0.0;
    double value = 0.0;
};

std::vector<TimedValue> samplesOf(const Profile& profile, const ProfileParameter& parameter,
                                  const MessageMap& messages)
{
    const MessageSeries& series = seriesOf(messages, parameter);
    std::vector<TimedValue> samples;
    samples.reserve(series.size());
    PositionFilter filter = positionFilterFor(profile, messages, parameter);
    for (const StoredSample& sample : series)
        samples.push_back({sample.seconds(), decodeNumber(sample.data, parameter, &filter)});
    sortByTime(samples, &TimedValue::seconds);
    return samples;
}

std::vector<double> heldValues(const Profile& profile, const ProfileParameter& parameter,
                               const DataSet& dataSet)
{
    const std::vector<TimedValue> samples = samplesOf(profile, parameter, dataSet.messages);
    std::vector<double> values;
    values.reserve(dataSet.track.size());
    std::size_t next = 0;
    for (const TrackPoint& point : dataSet.track) {
        while (next < samples.size() && samples[next].seconds <= point.seconds())
            ++next;
        const bool isHeld = next > 0 && (next < samples.size() ||
                                         point.seconds() <= samples.back().seconds + longestHold);
        values.push_back(isHeld ? samples[next - 1].value : std::nan(""));
    }
    return values;
}

/// None where `isKnown` is false: before their first fix units send 0.
std::vector<double> trackValues(double TrackPoint::*quantity, bool TrackPoint::*isKnown,
                                const DataSet& dataSet)
{
    std::vector<double> values;
    values.reserve(dataSet.track.size());
    for (const TrackPoint& point : dataSet.track)
        values.push_back(point.*isKnown ? point.*quantity : std::nan(""));
    return values;
}

QString endText(const Profile& profile, const ProfileParameter& parameter, double value)
{
    const int decimals =
        parameter.rule == DecodingRule::Float ? std::min(parameter.precision, mostDecimals) : 0;
    const QString& unit = profile.unitLabel(parameter);
    const QString number = fixedText(value, decimals);
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

} // namespace

TrackColors trackColors(const TrackColorChoice& choice, const Profile& profile,
                        const DataSet& dataSet)
{
    const ProfileParameter* parameter = nullptr;
    std::vector<double> values;
    switch (choice.kind) {
    case TrackColorChoice::Kind::None:
        return {};
    case TrackColorChoice::Kind::Altitude:
        parameter = profile.parameterByRole(Role::Altitude);
        values = trackValues(&TrackPoint::altitude, &TrackPoint::hasAltitude, dataSet);
        break;
    case TrackColorChoice::Kind::GroundSpeed:
        parameter = profile.parameterByRole(Role::GroundSpeed);
        values = trackValues(&TrackPoint::groundSpeed, &TrackPoint::hasFix, dataSet);
        break;
    case TrackColorChoice::Kind::Parameter:
        parameter = profile.parameterByFullName(choice.parameter);
        if (parameter != nullptr)
            values = heldValues(profile, *parameter, dataSet);
        break;
    }
    if (parameter == nullptr)
        return {};

    TrackColors colors;
    colors.scale = {std::numeric_limits<double>::infinity(),
                    -std::numeric_limits<double>::infinity()};
    const bool isConverted = profile.isConverted(*parameter);
    for (const double metric : values) {
        const double value = isConverted ? profile.convertUnit(*parameter, metric) : metric;
        const bool isNumber = std::isfinite(static_cast<float>(value));
        colors.values.push_back(isNumber ? static_cast<float>(value) : none);
        if (isNumber) {
            colors.scale.low = std::min(colors.scale.low, value);
            colors.scale.high = std::max(colors.scale.high, value);
        }
    }
    if (!(colors.scale.low <= colors.scale.high))
        return {};
    colors.name = parameter->name;
    colors.lowText = endText(profile, *parameter, colors.scale.low);
    colors.highText = endText(profile, *parameter, colors.scale.high);
    return colors;
}

const std::array<QColor, ValueScale::steps>& trackColorRamp()
{
    static const auto ramp = [] {
        // Dark blue over purple to orange; yellow would be hard to see on a light map.
        constexpr std::array<QRgb, 8> anchors{0x0d0887, 0x41049d, 0x6a00a8, 0x8f0da4,
                                              0xb12a90, 0xcc4778, 0xe16462, 0xf2844b};
        std::array<QColor, ValueScale::steps> colors;
        for (std::size_t i = 0; i < colors.size(); ++i) {
            const double place =
                static_cast<double>(i * (anchors.size() - 1)) / (ValueScale::steps - 1);
            const auto from = std::min(static_cast<std::size_t>(place), anchors.size() - 2);
            const double part = place - static_cast<double>(from);
            const QColor a = QColor::fromRgb(anchors[from]);
            const QColor b = QColor::fromRgb(anchors[from + 1]);
            colors[i] =
                QColor::fromRgbF(static_cast<float>(std::lerp(a.redF(), b.redF(), part)),
                                 static_cast<float>(std::lerp(a.greenF(), b.greenF(), part)),
                                 static_cast<float>(std::lerp(a.blueF(), b.blueF(), part)));
        }
        return colors;
    }();
    return ramp;
}

} // namespace KOLT
