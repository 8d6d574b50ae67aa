#include "record/RoleSeries.h"

namespace KOLT {

PositionFilter positionFilterFor(const Profile& profile, const MessageMap& messages,
                                 const ProfileParameter& parameter)
{
    PositionFilter filter;
    if (!parameter.isPosition || parameter.isLatitude)
        return filter;
    RoleSeries(profile, messages, "Latitude")
        .forEach([&](double, const MessageData& data, const ProfileParameter& latitude) {
            decodeFiltered(data, latitude, &filter);
        });
    return filter;
}

} // namespace KOLT
