#pragma once

#include "analysis/EventFinder.h"
#include "analysis/FaultFinder.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace KOLT {

/// What was found in a data set, for all who show it: lists, map, graph, sheets and exports. It is
/// searched for once, at the first use, and kept beside the data set. Another profile or variant,
/// other samples, and for the texts of exceedances another unit system have it searched for anew;
/// the selection of parameters does not count. Whoever keeps a list keeps it alive, but its
/// pointers into the profile hold no longer than the profile's.
using EventList = std::shared_ptr<const std::vector<Event>>;
using FaultList = std::shared_ptr<const std::vector<FaultMatrix>>;

/// As findEvents().
EventList eventsOf(const Profile& profile, const DataSet& dataSet,
                   EventScope scope = EventScope::AllParameters);

/// How many exceedances that list leaves out at its end.
std::size_t eventsLeftOut(const Profile& profile, const DataSet& dataSet,
                          EventScope scope = EventScope::AllParameters);

/// As findFaults().
FaultList faultsOf(const Profile& profile, const DataSet& dataSet);

/// The names of the warning lamps that were on at their first sample, with their devices'. They
/// give no event until they have been off. O(lamps).
QStringList lampsOnFromTheStart(const Profile& profile, const DataSet& dataSet);

} // namespace KOLT
