#include "export/EventStep.h"

#include "export/ExportText.h"
#include "profile/ValueDecoder.h"

#include <cmath>
#include <limits>

namespace KOLT {

namespace {

/// The value with which the event happened; none if its sample is not found.
std::optional<double> numberOf(const DataSet& dataSet, const Event& event)
{
    const MessageSeries& series = seriesOf(dataSet.messages, *event.parameter);
    for (const StoredSample& sample : series.around(event.seconds, event.seconds)) {
        if (sample.seconds() != event.seconds)
            continue;
        const double number = decodeNumber(sample.data, *event.parameter);
        if (gradeOf(*event.parameter, number).state == event.grade.state)
            return number;
    }
    return std::nullopt;
}

/// Upwards the last step up to the number at which the state begins, downwards the first beyond it
/// at which it ends.
std::optional<double> crossedStep(const Threshold& threshold, const Event& event, double number)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    std::optional<double> crossed;
    for (const ThresholdStep& step : threshold.steps) {
        const ThresholdState above = threshold.grade(step.value).state;
        const ThresholdState below = threshold.grade(std::nextafter(step.value, -infinity)).state;
        const ThresholdState state = event.grade.state;
        if (event.isRising && step.value <= number && above >= state && below < state)
            crossed = step.value;
        if (!event.isRising && !crossed && step.value > number && below >= state && above < state)
            crossed = step.value;
    }
    return crossed;
}

} // namespace

QString stateAndStep(const Profile& profile, const DataSet& dataSet, const Event& event)
{
    const QString state = event.grade.state == ThresholdState::Limit ? QStringLiteral("LIMIT")
                                                                     : QStringLiteral("WARNING");
    const ProfileParameter& parameter = *event.parameter;
    const std::optional<double> number = numberOf(dataSet, event);
    if (!number || parameter.threshold == nullptr || parameter.rule == DecodingRule::BitField)
        return state;
    const std::optional<double> step = crossedStep(*parameter.threshold, event, *number);
    if (!step)
        return state;
    const QString text = numberText(profile, parameter, *step);
    return event.isRising ? ExportText::tr("%1 from %2").arg(state, text)
                          : ExportText::tr("%1 below %2").arg(state, text);
}

} // namespace KOLT
