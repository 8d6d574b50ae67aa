#include "analysis/EpisodeFinder.h"

#include "analysis/CrossingDetector.h"
#include "analysis/EpisodeMeter.h"
#include "analysis/ValuesUpTo.h"
#include "base/Diagnostics.h"

#include <algorithm>
#include <optional>

namespace KOLT {

namespace {

/// Goes through the samples of one parameter.
ExcursionTracker excursionsOf(const Profile& profile, const DataSet& dataSet,
                              const ProfileParameter& parameter, bool keepsBands,
                              std::vector<StateAtStart>& atStart)
{
    ExcursionTracker tracker(parameter, keepsBands);
    const MessageSeries& series = seriesOf(dataSet.messages, parameter);
    if (series.empty())
        return tracker;
    CrossingDetector detector(parameter, positionFilterFor(profile, dataSet.messages, parameter));
    const double first = series[0].seconds();
    std::size_t index = 0;
    for (const StoredSample& sample : series) {
        const bool isCrossing = detector.step(sample.data);
        if (!tracker.isIdle(detector.number())) {
            const double before = index > 0 ? series[index - 1].seconds() : first;
            tracker.step(detector.number(), detector.state(),
                         isCrossing &&
                             !isTextNan(profile, parameter, sample.data, detector.number()),
                         {sample.seconds(), before, first, index});
        }
        if (index == 0 && detector.state() != ThresholdState::Ok)
            atStart.push_back({&parameter, detector.state()});
        ++index;
    }
    tracker.finish(series.last().seconds(), series.size());
    return tracker;
}

bool isEarlierInProfile(const ProfileParameter& a, const ProfileParameter& b)
{
    return a.device != b.device ? a.device < b.device : a.name.toUtf8() < b.name.toUtf8();
}

bool isEarlier(const Episode& a, const Episode& b)
{
    if (a.begin != b.begin)
        return a.begin < b.begin;
    return isEarlierInProfile(*a.parameters.front(), *b.parameters.front());
}

Episode episodeFrom(const DataSet& dataSet, const Quantity& quantity,
                    const std::vector<ExcursionList>& lists, const EpisodeSpan& span)
{
    Episode episode;
    for (std::size_t i = 0; i < span.parts.size(); ++i) {
        if (span.parts[i].hasCrossed)
            episode.parameters.push_back(quantity.members[i]);
    }
    episode.quantity = span.isLampOnly ? episode.parameters.front()->name : quantity.name;
    episode.state = span.isLampOnly ? ThresholdState::Limit : span.state;
    episode.isLampOnly = span.isLampOnly;
    episode.isHigh = span.isHigh;
    episode.begin = span.begin;
    episode.end = span.end;
    episode.isCut = span.isCut;
    episode.crossings = span.crossings;
    EpisodeMeter(dataSet, quantity, lists, span).measure(episode);
    return episode;
}

/// Adds what is told of the moment of the peak.
class MomentTeller
{
public:
    MomentTeller(const Profile& profile, const DataSet& dataSet)
        : m_profile(profile)
        , m_phases(profile, dataSet)
        , m_values(dataSet)
    {
    }

    void tell(Episode& episode)
    {
        const double seconds = episode.moment();
        const auto valueOf = [&](Role role) {
            return m_values.at(m_profile.parameterByRole(role), seconds);
        };
        episode.phase = m_phases.at(seconds);
        episode.engineSpeed = valueOf(Role::EngineSpeed);
        episode.throttle = valueOf(Role::ThrottleA);
        episode.altitude = valueOf(Role::Altitude);
        episode.groundSpeed = valueOf(Role::GroundSpeed);
        if (!episode.peak)
            return;
        const ProfileParameter* const own = episode.peak->parameter;
        for (const Device& device : m_profile.devices()) {
            for (const ProfileParameter* other : device.parameters) {
                if (other == own || other->threshold != own->threshold)
                    continue;
                if (const auto value = m_values.at(other, seconds))
                    episode.group.push_back({other, *value});
            }
        }
    }

private:
    const Profile& m_profile;
    FlightPhases m_phases;
    ValuesUpTo m_values;
};

} // namespace

EpisodeFindings findEpisodes(const Profile& profile, const DataSet& dataSet)
{
    EpisodeFindings found;
    const auto cut = [&] {
        const auto end = found.episodes.begin() + maxEvents;
        std::ranges::nth_element(found.episodes, end, isEarlier);
        found.leftOut += static_cast<std::size_t>(found.episodes.end() - end);
        found.episodes.erase(end, found.episodes.end());
    };
    for (const Quantity& quantity : quantitiesOf(profile)) {
        std::vector<ExcursionTracker> trackers;
        std::vector<ExcursionList> lists;
        trackers.reserve(quantity.members.size());
        for (const ProfileParameter* member : quantity.members) {
            trackers.push_back(
                excursionsOf(profile, dataSet, *member, quantity.hasSeveral(), found.atStart));
            lists.emplace_back(trackers.back().excursions());
        }
        for (const EpisodeSpan& span : joinExcursions(quantity, lists)) {
            found.episodes.push_back(episodeFrom(dataSet, quantity, lists, span));
            if (found.episodes.size() == 2 * maxEvents)
                cut();
        }
    }
    if (found.episodes.size() > maxEvents)
        cut();
    std::ranges::stable_sort(found.episodes, isEarlier);
    std::ranges::stable_sort(found.atStart, [](const StateAtStart& a, const StateAtStart& b) {
        return isEarlierInProfile(*a.parameter, *b.parameter);
    });
    if (found.leftOut > 0)
        Diagnostics::print("findEpisodes: %zu of %zu episodes are left out, the last ones\n",
                           found.leftOut, found.leftOut + found.episodes.size());
    if (!found.episodes.empty()) {
        MomentTeller teller(profile, dataSet);
        for (Episode& episode : found.episodes)
            teller.tell(episode);
    }
    return found;
}

const Episode* EpisodeFindings::episodeOf(const ProfileParameter& parameter, double seconds) const
{
    // Episodes of one quantity do not overlap, but those of others lie in between.
    auto behind = std::ranges::upper_bound(episodes, seconds, {}, &Episode::begin);
    while (behind != episodes.begin()) {
        const Episode& episode = *--behind;
        if (episode.end >= seconds &&
            std::ranges::find(episode.parameters, &parameter) != episode.parameters.end())
            return &episode;
    }
    return nullptr;
}

} // namespace KOLT
