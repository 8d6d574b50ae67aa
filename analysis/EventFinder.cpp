#include "analysis/EventFinder.h"

#include "record/RoleSeries.h"

#include <algorithm>

namespace KOLT {

namespace {

bool isWorse(ThresholdState previous, ThresholdState state)
{
    return (previous == ThresholdState::Ok && state != ThresholdState::Ok) ||
           (previous == ThresholdState::Warning && state == ThresholdState::Limit);
}

void findEventsOf(const Profile& profile, const Device& group, const ProfileParameter& parameter,
                  const DataSet& dataSet, std::vector<Event>& events)
{
    PositionFilter filter = positionFilterFor(profile, dataSet.messages, parameter);
    ThresholdState previous = ThresholdState::Limit;
    double previousNumber = 0.0;
    for (const StoredSample& sample : seriesOf(dataSet.messages, parameter)) {
        const double number = decodeFiltered(sample.data, parameter, &filter);
        const Grade grade = gradeOf(parameter, number);
        if (isWorse(previous, grade.state)) {
            const QString value = textOf(profile, parameter, sample.data, number);
            if (value != QLatin1String("nan"))
                events.push_back(
                    {sample.seconds(), &parameter, group.name,
                     QStringLiteral("%1 %2 %3 %4")
                         .arg(group.name, parameter.name, value, profile.unitLabel(parameter)),
                     grade, number >= previousNumber});
        }
        previous = grade.state;
        previousNumber = number;
    }
}

} // namespace

std::vector<Event> findEvents(const Profile& profile, const DataSet& dataSet, EventScope scope)
{
    std::vector<Event> events;
    for (const Device& group : profile.devices()) {
        for (const ProfileParameter* parameter : group.parameters) {
            const bool isAsked = scope == EventScope::AllParameters ||
                                 parameter->koltDataType == QLatin1String("WarningLamp");
            // Without a threshold every state is Ok.
            if (isAsked && parameter->threshold != nullptr)
                findEventsOf(profile, group, *parameter, dataSet, events);
        }
    }
    std::ranges::stable_sort(events, {}, &Event::seconds);
    return events;
}

} // namespace KOLT
