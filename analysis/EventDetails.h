#pragma once

#include "analysis/EventFinder.h"

#include <optional>

namespace KOLT {

/// Details of one exceedance.
struct EventDetails
{
    double peak = 0.0;                 ///< metric; the value farthest from normal until the return
    QString peakText;                  ///< in the profile's unit system
    QString unit;                      ///< of peakText; may be empty
    std::optional<double> duration;    ///< seconds until the return to normal, if it did return
    std::optional<double> engineSpeed; ///< the last value in the 10 s up to the event
};

/// Reads the parameter's samples from the event to the return to normal. The event must have been
/// found in this data set with this profile.
EventDetails detailsOf(const Profile& profile, const DataSet& dataSet, const Event& event);

} // namespace KOLT
