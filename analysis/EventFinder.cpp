#include "analysis/EventFinder.h"

#include "base/Diagnostics.h"
#include "record/RoleSeries.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

bool isWorse(ThresholdState previous, ThresholdState state)
{
    return (previous == ThresholdState::Ok && state != ThresholdState::Ok) ||
           (previous == ThresholdState::Warning && state == ThresholdState::Limit);
}

/// A crossing without its text, of which there may be millions.
struct Crossing
{
    double seconds;
    std::size_t order; ///< in which they are found: equal times keep the profile's
    const Device* group;
    const ProfileParameter* parameter;
    const StoredSample* sample;
    double number;
    bool isRising;
};

bool isEarlier(const Crossing& a, const Crossing& b)
{
    return a.seconds != b.seconds ? a.seconds < b.seconds : a.order < b.order;
}

/// Keeps the earliest crossings, in twice their memory at most.
class EarliestCrossings
{
public:
    void add(Crossing crossing)
    {
        crossing.order = m_count++;
        m_crossings.push_back(crossing);
        if (m_crossings.size() == 2 * maxEvents)
            cut();
    }

    /// By ascending time.
    const std::vector<Crossing>& finish()
    {
        if (m_crossings.size() > maxEvents)
            cut();
        std::ranges::sort(m_crossings, isEarlier);
        return m_crossings;
    }

    std::size_t leftOut() const { return m_count - m_crossings.size(); }

private:
    void cut()
    {
        std::ranges::nth_element(m_crossings, m_crossings.begin() + maxEvents, isEarlier);
        m_crossings.resize(maxEvents);
    }

    std::vector<Crossing> m_crossings;
    std::size_t m_count = 0;
};

template <typename Function>
void forEachCrossing(const Profile& profile, const Device& group, const ProfileParameter& parameter,
                     const DataSet& dataSet, Function&& function)
{
    PositionFilter filter = positionFilterFor(profile, dataSet.messages, parameter);
    ThresholdState previous = ThresholdState::Limit;
    double previousNumber = 0.0;
    for (const StoredSample& sample : seriesOf(dataSet.messages, parameter)) {
        const double number = decodeFiltered(sample.data, parameter, &filter);
        const ThresholdState state = gradeOf(parameter, number).state;
        if (isWorse(previous, state) &&
            (std::isfinite(number) ||
             textOf(profile, parameter, sample.data, number) != QLatin1String("nan")))
            function(Crossing{sample.seconds(), 0, &group, &parameter, &sample, number,
                              number >= previousNumber});
        previous = state;
        previousNumber = number;
    }
}

/// Calls function(crossing) in profile order, by time within a parameter as stored.
template <typename Function>
void forEachCrossing(const Profile& profile, const DataSet& dataSet, EventScope scope,
                     Function&& function)
{
    for (const Device& group : profile.devices()) {
        for (const ProfileParameter* parameter : group.parameters) {
            const bool isAsked =
                scope == EventScope::AllParameters || parameter->role == Role::WarningLamp;
            // Without a threshold every state is Ok.
            if (isAsked && parameter->threshold != nullptr)
                forEachCrossing(profile, group, *parameter, dataSet, function);
        }
    }
}

Event eventOf(const Profile& profile, const Crossing& crossing)
{
    const ProfileParameter& parameter = *crossing.parameter;
    const QString& group = crossing.group->name;
    return {crossing.seconds,
            &parameter,
            group,
            QStringLiteral("%1 %2 %3 %4")
                .arg(group, parameter.name,
                     textOf(profile, parameter, crossing.sample->data, crossing.number),
                     profile.unitLabel(parameter)),
            gradeOf(parameter, crossing.number),
            crossing.isRising};
}

} // namespace

std::vector<Event> findEvents(const Profile& profile, const DataSet& dataSet, EventScope scope,
                              std::size_t* leftOut)
{
    EarliestCrossings crossings;
    forEachCrossing(profile, dataSet, scope,
                    [&](const Crossing& crossing) { crossings.add(crossing); });
    std::vector<Event> events;
    for (const Crossing& crossing : crossings.finish())
        events.push_back(eventOf(profile, crossing));
    if (leftOut != nullptr)
        *leftOut = crossings.leftOut();
    if (crossings.leftOut() > 0)
        Diagnostics::print("findEvents: %zu of %zu exceedances are left out, the last ones\n",
                           crossings.leftOut(), crossings.leftOut() + events.size());
    return events;
}

std::vector<double> eventTimes(const Profile& profile, const DataSet& dataSet, EventScope scope)
{
    std::vector<double> times;
    forEachCrossing(profile, dataSet, scope,
                    [&](const Crossing& crossing) { times.push_back(crossing.seconds); });
    std::ranges::sort(times);
    return times;
}

} // namespace KOLT
