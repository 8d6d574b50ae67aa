#pragma once

#include "profile/ValueDecoder.h"
#include "record/MessageMap.h"

#include <cmath>

namespace KOLT {

/// decodeNumber(), but keeps NaN and infinity from the filter, which would stick at NaN.
inline double decodeFiltered(const MessageData& data, const ProfileParameter& parameter,
                             PositionFilter* filter)
{
    const double number = decodeNumber(data, parameter);
    return parameter.isPosition() && std::isfinite(number) ? decodeNumber(data, parameter, filter)
                                                           : number;
}

/// The first parameter with a role, and its samples; no samples if the profile has none.
class RoleSeries
{
public:
    RoleSeries(const Profile& profile, const MessageMap& messages, Role role);

    /// In stored order.
    const MessageSeries& samples() const { return *m_samples; }

    /// The value of one of the samples.
    double value(const StoredSample& sample, PositionFilter* filter = nullptr) const
    {
        return decodeFiltered(sample.data, *m_parameter, filter);
    }

    /// Calls function(seconds, value) for the samples within [start, end] that have a finite value,
    /// in stored order. Visits samples().around(start, end).
    template <typename Function>
    void forEach(double start, double end, Function&& function) const
    {
        for (const StoredSample& sample : m_samples->around(start, end)) {
            const double seconds = sample.seconds();
            if (seconds < start || seconds > end)
                continue;
            const double number = value(sample);
            if (std::isfinite(number))
                function(seconds, number);
        }
    }

    /// The first finite value at or after `seconds`, among at most 100 samples; otherwise 0.
    double valueAt(double seconds) const;

private:
    const ProfileParameter* m_parameter;
    const MessageSeries* m_samples;
};

/// A filter for a pass over the samples of one parameter. For a longitude, whose limit depends on
/// the latitude, all latitudes have been passed through it.
PositionFilter positionFilterFor(const Profile& profile, const MessageMap& messages,
                                 const ProfileParameter& parameter);

} // namespace KOLT
