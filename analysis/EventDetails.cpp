#include "analysis/EventDetails.h"

#include "analysis/ValuesUpTo.h"
#include "profile/ValueDecoder.h"

namespace KOLT {

namespace {

constexpr double endOfTime = 1e300;

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
        ValuesUpTo(dataSet).at(profile.parameterByRole(Role::EngineSpeed), event.seconds);
    return details;
}

} // namespace KOLT
