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

/// Keeps the maxEvents earliest crossings, and of the others only the times. Holds at most twice as
/// many crossings meanwhile.
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

    void finish()
    {
        if (m_crossings.size() > maxEvents)
            cut();
        std::ranges::sort(m_crossings, isEarlier);
        std::ranges::sort(m_leftOut);
    }

    /// By ascending time, after finish().
    const std::vector<Crossing>& kept() const { return m_crossings; }

    const std::vector<double>& leftOut() const { return m_leftOut; }

private:
    void cut()
    {
        const auto end = m_crossings.begin() + maxEvents;
        std::ranges::nth_element(m_crossings, end, isEarlier);
        std::transform(end, m_crossings.end(), std::back_inserter(m_leftOut),
                       [](const Crossing& crossing) { return crossing.seconds; });
        m_crossings.resize(maxEvents);
    }

    std::vector<Crossing> m_crossings;
    std::vector<double> m_leftOut;
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
                              std::vector<double>* leftOut)
{
    EarliestCrossings crossings;
    forEachCrossing(profile, dataSet, scope,
                    [&](const Crossing& crossing) { crossings.add(crossing); });
    crossings.finish();
    std::vector<Event> events;
    for (const Crossing& crossing : crossings.kept())
        events.push_back(eventOf(profile, crossing));
    const std::size_t rest = crossings.leftOut().size();
    if (rest > 0)
        Diagnostics::print("findEvents: %zu of %zu exceedances are left out, the last ones\n", rest,
                           rest + events.size());
    if (leftOut != nullptr)
        *leftOut = crossings.leftOut();
    return events;
}

std::vector<ThresholdCrossing> findCrossings(const Profile& profile, const DataSet& dataSet)
{
    std::vector<ThresholdCrossing> crossings;
    forEachCrossing(profile, dataSet, EventScope::AllParameters, [&](const Crossing& crossing) {
        crossings.push_back({crossing.seconds, crossing.parameter,
                             gradeOf(*crossing.parameter, crossing.number).state});
    });
    std::ranges::stable_sort(crossings, {}, &ThresholdCrossing::seconds);
    return crossings;
}

} // namespace KOLT
