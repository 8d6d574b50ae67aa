#pragma once

#include "analysis/EpisodeFinder.h"
#include "analysis/EventFinder.h"
#include "analysis/FaultFinder.h"
#include "record/RecordingTrust.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace KOLT {

/// The exceedances, faults and trust of a data set, shared by all that show them. They
/// are searched for at the first use and kept with the data set. They are searched for again after
/// a change of profile, variant or samples, and exceedances, because of their texts, after a change
/// of the unit system; the selection of parameters does not matter. A list lives as long as its
/// pointer, but what it refers to in the profile only until the profile is loaded again.
using EventList = std::shared_ptr<const std::vector<Event>>;
using EpisodeList = std::shared_ptr<const EpisodeFindings>;
using FaultList = std::shared_ptr<const std::vector<FaultMatrix>>;
using TrustList = std::shared_ptr<const RecordingTrust>;

/// As findEvents().
EventList eventsOf(const Profile& profile, const DataSet& dataSet,
                   EventScope scope = EventScope::AllParameters);

/// The times of the exceedances beyond the end of that list, ascending. Valid until the findings
/// are searched for again.
const std::vector<double>& eventsLeftOut(const Profile& profile, const DataSet& dataSet,
                                         EventScope scope = EventScope::AllParameters);

/// As findEpisodes().
EpisodeList episodesOf(const Profile& profile, const DataSet& dataSet);

/// As findFaults().
FaultList faultsOf(const Profile& profile, const DataSet& dataSet);

/// As recordingTrust(), kept like the others. `card` and `options` count at the first use.
TrustList trustOf(const Profile& profile, const CardFiles& card, const DataSet& dataSet,
                  const TrustOptions& options = {});

/// "device parameter" of each warning lamp that was on at its first sample. Such a lamp gives no
/// event until it has been off. O(lamps).
QStringList lampsOnFromTheStart(const Profile& profile, const DataSet& dataSet);

} // namespace KOLT
