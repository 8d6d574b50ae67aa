#pragma once

#include "analysis/EventFinder.h"

#include <optional>

namespace KOLT {

/// What a list of exceedances tells about one of them. Numbers are metric.
struct EventDetails
{
    double peak = 0.0;                 ///< the value farthest from normal until it was over
    QString peakText;                  ///< in the profile's unit system
    QString unit;                      ///< of the peak's text; may be empty
    std::optional<double> duration;    ///< seconds until the return to normal; none if it never did
    std::optional<double> engineSpeed; ///< the last one up to the event; by role "EngineSpeed"
};

/// Walks the parameter's samples from the event to the return to normal. The event must come from
/// this data set and profile.
EventDetails detailsOf(const Profile& profile, const DataSet& dataSet, const Event& event);

} // namespace KOLT
