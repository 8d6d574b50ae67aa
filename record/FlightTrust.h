#pragma once

#include "record/MessageTrust.h"

namespace KOLT {

/// What a look at the ground speed tells of a recording's ends.
struct FlightEnds
{
    std::optional<double> openTakeOff; ///< a take-off that no landing follows
    /// The recording begins, or the position comes, when the aircraft is fast already.
    std::optional<double> startsInAir;
};

FlightEnds flightEnds(const Profile& profile, const DataSet& dataSet);

/// Finds flights that the recording does not hold whole, positions lost in flight, and values of
/// roles that are not numbers. The drafts explain some of it already.
void flightTrust(const Profile& profile, const DataSet& dataSet, const RecordedSpan& recorded,
                 const FlightEnds& ends, TrustDrafts& drafts);

} // namespace KOLT
