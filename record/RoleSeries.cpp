#include "record/RoleSeries.h"

#include <limits>

namespace KOLT {

RoleSeries::RoleSeries(const Profile& profile, const MessageMap& messages, Role role)
    : m_parameter(profile.parameterByRole(role))
{
    static const MessageSeries none;
    m_samples = m_parameter != nullptr ? &seriesOf(messages, *m_parameter) : &none;
}

double RoleSeries::valueAt(double seconds) const
{
    constexpr int mostSkipped = 100;
    constexpr double later = std::numeric_limits<double>::infinity();
    for (int i = 0; i < mostSkipped; ++i) {
        const StoredSample* const sample = m_samples->firstAtOrAfter(seconds);
        if (sample == nullptr)
            break;
        const double number = value(*sample);
        if (std::isfinite(number))
            return number;
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
    const RoleSeries latitude(profile, messages, Role::Latitude);
    for (const StoredSample& sample : latitude.samples())
        latitude.value(sample, &filter);
    return filter;
}

} // namespace KOLT
