#include "analysis/EventDetails.h"

#include "profile/ValueDecoder.h"

namespace KOLT {

namespace {

constexpr double endOfTime = 1e300;

/// The value of the last sample, in stored order, in the ten seconds up to the time.
std::optional<double> valueUpTo(const DataSet& dataSet, const ProfileParameter* parameter,
                                double seconds)
{
    if (parameter == nullptr)
        return std::nullopt;
    const MessageSeries& series = seriesOf(dataSet.messages, *parameter);
    // Engine speed is sent many times a second; an older value says nothing about the moment.
    constexpr double oldest = 10.0;
    std::optional<double> value;
    for (const StoredSample& sample : series.around(seconds - oldest, seconds)) {
        if (sample.seconds() >= seconds - oldest && sample.seconds() <= seconds)
            value = decodeNumber(sample.data, *parameter);
    }
    return value;
}

} // namespace

EventDetails detailsOf(const Profile& profile, const DataSet& dataSet, const Event& event)
{
    EventDetails details;
    const ProfileParameter& parameter = *event.parameter;
    const StoredSample* peak = nullptr;
    const MessageSeries& series = seriesOf(dataSet.messages, parameter);
    for (const StoredSample& sample : series.around(event.seconds, endOfTime)) {
        if (peak == nullptr && sample.seconds() != event.seconds)
            continue;
        const double number = decodeNumber(sample.data, parameter);
        const ThresholdState state = gradeOf(parameter, number).state;
        if (peak == nullptr && state != event.grade.state)
            continue; // another sample of the same moment
        if (state == ThresholdState::Ok) {
            details.duration = sample.seconds() - event.seconds;
            break;
        }
        if (peak == nullptr || (event.isRising ? number > details.peak : number < details.peak)) {
            peak = &sample;
            details.peak = number;
        }
    }
    if (peak != nullptr) {
        details.peakText = textOf(profile, parameter, peak->data, details.peak);
        details.unit = profile.unitLabel(parameter);
    }
    details.engineSpeed =
        valueUpTo(dataSet, profile.parameterByRole(Role::EngineSpeed), event.seconds);
    return details;
}

} // namespace KOLT
