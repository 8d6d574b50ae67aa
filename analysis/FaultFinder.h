#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <vector>

namespace KOLT {

/// A time during which a fault was set: from the sample that set it to the sample that cleared it,
/// or to the end of the data set. Seconds on the unit's counter.
struct FaultInterval
{
    double start = 0.0;
    double end = 0.0;
    bool isOpen = false; ///< it was never cleared
};

/// One member of an error matrix over a data set.
struct FaultHistory
{
    enum class State { Unknown, Clear, Set };

    const ProfileParameter* parameter = nullptr;
    double firstSeconds = 0.0; ///< of the first sample; before it the state is not known
    bool hasSamples = false;
    std::vector<FaultInterval> intervals; ///< ascending, apart from each other

    /// How often the fault was set.
    std::size_t count() const { return intervals.size(); }

    /// O(log intervals).
    State stateAt(double seconds) const;

    /// The first interval that begins after the time, or the last that begins before it; null when
    /// there is none.
    const FaultInterval* intervalAfter(double seconds) const;
    const FaultInterval* intervalBefore(double seconds) const;
};

struct FaultMatrix
{
    const ErrorMatrix* matrix = nullptr;
    std::vector<FaultHistory> members; ///< by message and bit
};

/// The fault matrices of the profile with the history of their members, which are set where their
/// decoded value is not 0 (NaN counts as set). One pass over each message that carries members,
/// with one numeric decoding per member and sample. A stray time stamp that steps back ends an
/// interval where it began.
std::vector<FaultMatrix> findFaults(const Profile& profile, const DataSet& dataSet);

} // namespace KOLT
