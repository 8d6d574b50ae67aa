#include "record/RoleSeries.h"

#include <cmath>

namespace KOLT {

PositionFilter positionFilterFor(const Profile& profile, const MessageMap& messages,
                                 const ProfileParameter& parameter)
{
    PositionFilter filter;
    if (!parameter.isPosition || parameter.isLatitude)
        return filter;
    RoleSeries(profile, messages, "Latitude")
        .forEach([&](double, const MessageData& data, const ProfileParameter& latitude) {
            // What is no number must not reach the filter: it would never let go of it.
            if (std::isfinite(decodeNumber(data, latitude)))
                decodeNumber(data, latitude, &filter);
        });
    return filter;
}

} // namespace KOLT
