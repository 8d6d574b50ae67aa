#pragma once

#include "analysis/Episode.h"
#include "analysis/EventFinder.h"
#include "record/DataSet.h"

#include <vector>

namespace KOLT {

/// The first maxEvents episodes of a data set and what was found with them.
struct EpisodeFindings
{
    std::vector<Episode> episodes;     ///< by begin, at the same time in profile order
    std::vector<StateAtStart> atStart; ///< in profile order
    std::size_t leftOut = 0;           ///< episodes beyond the end of the list

    /// The episode that an event belongs to; null for one of those left out.
    const Episode* episodeOf(const ProfileParameter& parameter, double seconds) const;
};

/// Joins the events of a data set to episodes: each belongs to exactly one. Samples of graded
/// parameters are decoded once, those of episodes twice.
EpisodeFindings findEpisodes(const Profile& profile, const DataSet& dataSet);

/// When faults of the matrices were set, by begin, at the same time in profile order.
std::vector<FaultOccurrence> findFaultOccurrences(const Profile& profile, const DataSet& dataSet);

} // namespace KOLT
