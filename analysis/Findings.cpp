#include "analysis/Findings.h"

#include "profile/ValueDecoder.h"
#include "record/RoleSeries.h"

#include <array>

namespace KOLT {

namespace {

/// What the findings depend on, except for the unit system.
struct Key
{
    const Profile* profile = nullptr;
    std::uint64_t revision = 0;
    std::size_t samples = 0;
    double stopSeconds = 0.0;

    bool operator==(const Key&) const = default;
};

struct Findings
{
    Key key;
    UnitSystem units = UnitSystem::Metric;
    std::array<EventList, 2> events; ///< by scope
    std::array<std::vector<double>, 2> leftOut;
    EpisodeList episodes;
    FaultList faults;
    TrustList trust;
};

std::size_t indexOf(EventScope scope)
{
    return scope == EventScope::AllParameters ? 0 : 1;
}

Findings& findingsOf(const Profile& profile, const DataSet& dataSet)
{
    const Key key{&profile, profile.revision(), dataSet.messages.sampleCount(),
                  dataSet.stopSeconds};
    auto found = std::static_pointer_cast<Findings>(dataSet.findings);
    if (found == nullptr || found->key != key) {
        found = std::make_shared<Findings>();
        found->key = key;
        dataSet.findings = found;
    }
    if (found->units != profile.unitSystem()) {
        found->events = {};
        found->units = profile.unitSystem();
    }
    return *found;
}

} // namespace

EventList eventsOf(const Profile& profile, const DataSet& dataSet, EventScope scope)
{
    const std::size_t index = indexOf(scope);
    Findings& findings = findingsOf(profile, dataSet);
    EventList& events = findings.events[index];
    if (events == nullptr)
        events = std::make_shared<const std::vector<Event>>(
            findEvents(profile, dataSet, scope, &findings.leftOut[index]));
    return events;
}

const std::vector<double>& eventsLeftOut(const Profile& profile, const DataSet& dataSet,
                                         EventScope scope)
{
    eventsOf(profile, dataSet, scope);
    return findingsOf(profile, dataSet).leftOut[indexOf(scope)];
}

EpisodeList episodesOf(const Profile& profile, const DataSet& dataSet)
{
    EpisodeList& episodes = findingsOf(profile, dataSet).episodes;
    if (episodes == nullptr)
        episodes = std::make_shared<const EpisodeFindings>(findEpisodes(profile, dataSet));
    return episodes;
}

FaultList faultsOf(const Profile& profile, const DataSet& dataSet)
{
    FaultList& faults = findingsOf(profile, dataSet).faults;
    if (faults == nullptr)
        faults = std::make_shared<const std::vector<FaultMatrix>>(findFaults(profile, dataSet));
    return faults;
}

TrustList trustOf(const Profile& profile, const CardFiles& card, const DataSet& dataSet,
                  const TrustOptions& options)
{
    TrustList& trust = findingsOf(profile, dataSet).trust;
    if (trust == nullptr)
        trust =
            std::make_shared<const RecordingTrust>(recordingTrust(profile, card, dataSet, options));
    return trust;
}

QStringList lampsOnFromTheStart(const Profile& profile, const DataSet& dataSet)
{
    QStringList names;
    for (const Device& group : profile.devices()) {
        for (const ProfileParameter* parameter : group.parameters) {
            if (parameter->role != Role::WarningLamp)
                continue;
            const MessageSeries& series = seriesOf(dataSet.messages, *parameter);
            if (!series.empty() &&
                gradeOf(*parameter, decodeNumber(series[0].data, *parameter)).state !=
                    ThresholdState::Ok)
                names << QStringLiteral("%1 %2").arg(group.name, parameter->name);
        }
    }
    return names;
}

} // namespace KOLT
