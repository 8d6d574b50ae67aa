#pragma once

#include "analysis/Episode.h"
#include "record/DataSet.h"

#include <QString>

#include <vector>

namespace KOLT {

/// What changed around the moment at which a fault was set.
struct FaultSnapshot
{
    static constexpr double seconds = 30.0; ///< before and after

    /// A state or another fault that switched.
    struct Switch
    {
        double seconds = 0.0;
        const ProfileParameter* parameter = nullptr;
        QString from; ///< with the unit, as all texts, in the profile's unit system
        QString to;
    };

    /// A measured value that left what it was like before.
    struct Change
    {
        const ProfileParameter* parameter = nullptr;
        QString before;   ///< mean of the 30 s before
        QString at;       ///< at the moment
        QString farthest; ///< from that mean in the 30 s after
        double farthestSeconds = 0.0;
        QString after; ///< at the end of the 30 s
    };

    FaultOccurrence occurrence;
    std::vector<Switch> switches; ///< by time
    std::vector<Change> changes;  ///< the strongest first
};

/// Costs a look at the samples of all parameters within the time.
FaultSnapshot faultSnapshot(const Profile& profile, const DataSet& dataSet,
                            const FaultOccurrence& occurrence);

/// The snapshot as a page, for printing (HTML) and copying (text).
QString snapshotHtml(const FaultSnapshot& snapshot, const DataSet& dataSet);
QString snapshotText(const FaultSnapshot& snapshot, const DataSet& dataSet);

} // namespace KOLT
