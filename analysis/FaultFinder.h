#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <vector>

namespace KOLT {

/// A time span in which a fault was set: from the sample that set it to the one that cleared it, or
/// to the end of the data set. Seconds on the counter.
struct FaultInterval
{
    double start = 0.0;
    double end = 0.0;
    bool isOpen = false; ///< it was never cleared
};

/// When one fault, a member of an error matrix, was set in a data set.
struct FaultHistory
{
    enum class State { Unknown, Clear, Set };

    const ProfileParameter* parameter = nullptr;
    double firstSeconds = 0.0; ///< of the first sample; the state is unknown before it
    bool hasSamples = false;
    std::vector<FaultInterval> intervals; ///< by ascending start

    /// How often the fault was set.
    std::size_t count() const { return intervals.size(); }

    /// O(log intervals).
    State stateAt(double seconds) const;

    /// The first interval that begins after the time, and the last that begins before it; null if
    /// there is none.
    const FaultInterval* intervalAfter(double seconds) const;
    const FaultInterval* intervalBefore(double seconds) const;
};

struct FaultMatrix
{
    const ErrorMatrix* matrix = nullptr;
    std::vector<FaultHistory> members; ///< in the order of message, byte and bit
};

/// The fault matrices of the profile with the histories of their members. A fault is set where its
/// decoded value is not 0; NaN counts as set. Where a stray time stamp would end an interval before
/// its start, the interval is empty. Costs a pass over each message that carries members, and one
/// numeric decoding per member and sample.
std::vector<FaultMatrix> findFaults(const Profile& profile, const DataSet& dataSet);

} // namespace KOLT
