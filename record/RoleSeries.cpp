#include "record/RoleSeries.h"

#include <limits>

namespace KOLT {

double RoleSeries::valueAt(double seconds) const
{
    constexpr int mostSkipped = 100;
    constexpr double later = std::numeric_limits<double>::infinity();
    for (int i = 0; m_series != nullptr && i < mostSkipped; ++i) {
        const StoredSample* const sample = m_series->firstAtOrAfter(seconds);
        if (sample == nullptr)
            break;
        const double value = decodeNumber(sample->data, *m_parameter);
        if (std::isfinite(value))
            return value;
        seconds = std::nextafter(sample->seconds(), later);
    }
    return 0.0;
}

PositionFilter positionFilterFor(const Profile& profile, const MessageMap& messages,
                                 const ProfileParameter& parameter)
{
    PositionFilter filter;
    if (parameter.role != Role::Longitude)
        return filter;
    RoleSeries(profile, messages, Role::Latitude)
        .forEach([&](double, const MessageData& data, const ProfileParameter& latitude) {
            decodeFiltered(data, latitude, &filter);
        });
    return filter;
}

} // namespace KOLT
