#pragma once

#include "profile/ValueDecoder.h"
#include "record/MessageMap.h"

#include <cmath>

namespace KOLT {

/// The first parameter with a role, and its samples; no samples if the profile has none.
class RoleSeries
{
public:
    RoleSeries(const Profile& profile, const MessageMap& messages, Role role)
        : m_parameter(profile.parameterByRole(role))
        , m_series(m_parameter != nullptr ? &seriesOf(messages, *m_parameter) : nullptr)
    {
    }

    /// The number of samples that forEach(start, end) visits.
    std::size_t samplesAround(double start, double end) const
    {
        return m_series != nullptr ? m_series->around(start, end).size() : 0;
    }

    /// Calls function(seconds, value) for the samples within [start, end] that have a finite value,
    /// in stored order.
    template <typename Function>
    void forEach(double start, double end, Function&& function) const
    {
        if (m_series == nullptr)
            return;
        for (const StoredSample& sample : m_series->around(start, end)) {
            const double seconds = sample.seconds();
            if (seconds < start || seconds > end)
                continue;
            const double value = decodeNumber(sample.data, *m_parameter);
            if (std::isfinite(value))
                function(seconds, value);
        }
    }

    /// Calls function(seconds, data, parameter) for every sample in stored order.
    template <typename Function>
    void forEach(Function&& function) const
    {
        if (m_series == nullptr)
            return;
        for (const StoredSample& sample : *m_series)
            function(sample.seconds(), sample.data, *m_parameter);
    }

    /// The first finite value at or after `seconds`, among at most 100 samples; otherwise 0.
    double valueAt(double seconds) const;

private:
    const ProfileParameter* m_parameter;
    const MessageSeries* m_series;
};

/// decodeNumber(), but keeps NaN and infinity from the filter, which would stick at NaN.
inline double decodeFiltered(const MessageData& data, const ProfileParameter& parameter,
                             PositionFilter* filter)
{
    const double number = decodeNumber(data, parameter);
    return parameter.isPosition() && std::isfinite(number) ? decodeNumber(data, parameter, filter)
                                                           : number;
}

/// A filter for a pass over the samples of one parameter. For a longitude, whose limit depends on
/// the latitude, all latitudes have been passed through it.
PositionFilter positionFilterFor(const Profile& profile, const MessageMap& messages,
                                 const ProfileParameter& parameter);

} // namespace KOLT
