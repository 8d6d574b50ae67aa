#include "analysis/EventFinder.h"

#include "analysis/CrossingDetector.h"
#include "base/Diagnostics.h"

#include <algorithm>

namespace KOLT {

namespace {

/// A crossing without its text, of which there may be millions.
struct Crossing
{
    double seconds;
    std::size_t order; ///< of finding, which is profile order; decides between equal times
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

/// Keeps the maxEvents earliest crossings; holds at most twice as many meanwhile.
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

    /// Those kept, by ascending time.
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
    CrossingDetector detector(parameter, positionFilterFor(profile, dataSet.messages, parameter));
    for (const StoredSample& sample : seriesOf(dataSet.messages, parameter)) {
        if (detector.step(sample.data) &&
            !isTextNan(profile, parameter, sample.data, detector.number()))
            function(Crossing{sample.seconds(), 0, &group, &parameter, &sample, detector.number(),
                              detector.isRising()});
    }
}

/// Calls function(crossing) in profile order, and in stored order within a parameter.
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
