#pragma once

#include "analysis/EventFinder.h"

#include <QString>

namespace KOLT {

/// What the graph is to show of a finding: its parameter, and when it began and ended.
struct GraphTarget
{
    QString parameter;  ///< full name
    double begin = 0.0; ///< seconds on the unit's counter
    double end = 0.0;
};

/// From the crossing to the return to normal, or to the end of the data. The event must have been
/// found in this data set with this profile.
GraphTarget targetOf(const Profile& profile, const DataSet& dataSet, const Event& event);

} // namespace KOLT
