#include "analysis/GraphTarget.h"

#include "analysis/EventDetails.h"

#include <algorithm>

namespace KOLT {

GraphTarget targetOf(const Profile& profile, const DataSet& dataSet, const Event& event)
{
    const std::optional<double> duration = detailsOf(profile, dataSet, event).duration;
    const double end = duration ? event.seconds + *duration : dataSet.stopSeconds;
    return {event.parameter->fullName, event.seconds, std::max(end, event.seconds)};
}

} // namespace KOLT
