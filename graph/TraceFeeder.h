#pragma once

#include "graph/Graph.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

namespace KOLT {

/// Fills a trace of the graph with the samples of a parameter, in the profile's unit system.
///
/// A sample is marked as coming after a gap when it lies more than three times the usual spacing
/// of its series, and at least 1 s, behind the one before. The trace reads its times from the data
/// set, which must stay until the trace is cleared.
void feedTrace(Graph& graph, int index, const Profile& profile, const ProfileParameter& parameter,
               const DataSet& dataSet);

} // namespace KOLT
