#pragma once

#include "analysis/EventFinder.h"

namespace KOLT {

/// The state that an event reached, with the step that was crossed where a number was: "LIMIT from
/// 5800 rpm", "WARNING below 2.00 bar". The event must have been found in this data set with this
/// profile.
QString stateAndStep(const Profile& profile, const DataSet& dataSet, const Event& event);

} // namespace KOLT
