#pragma once

#include "analysis/EventDetails.h"
#include "analysis/ListSettings.h"

namespace KOLT {

/// Peak, duration and engine speed, a line each.
QString descriptionOf(const EventDetails& details);

/// The events as CSV, with a line of headings. They must have been found in this data set with this
/// profile.
QString csvOf(const std::vector<const Event*>& events, const Profile& profile,
              const DataSet& dataSet, const ListSettings& settings);

} // namespace KOLT
