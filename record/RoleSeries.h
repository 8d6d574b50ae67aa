#pragma once

#include "profile/ValueDecoder.h"
#include "record/MessageMap.h"

#include <cmath>

namespace KOLT {

/// A parameter found by its role, with its samples. Without such a parameter it has no samples.
class RoleSeries
{
public:
    RoleSeries(const Profile& profile, const MessageMap& messages, const char* role)
        : m_parameter(profile.parameterByRole(QLatin1String(role)))
        , m_series(m_parameter != nullptr ? &seriesOf(messages, *m_parameter) : nullptr)
    {
    }

    /// How many samples a look at [start, end] takes.
    std::size_t samplesAround(double start, double end) const
    {
        return m_series != nullptr ? m_series->around(start, end).size() : 0;
    }

    /// Calls function(seconds, value) for each sample in stored order within [start, end] whose
    /// value is finite.
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

    /// The value of the first sample at or after `seconds`, 0 when there is none. A value that is
    /// not finite leaves the word to the next sample, for up to 100 samples.
    double valueAt(double seconds) const;

private:
    const ProfileParameter* m_parameter;
    const MessageSeries* m_series;
};

/// The number as a pass over a recording takes it. What is no number stays out of the filter, which
/// would never let go of it.
inline double decodeFiltered(const MessageData& data, const ProfileParameter& parameter,
                             PositionFilter* filter)
{
    const double number = decodeNumber(data, parameter);
    return parameter.isPosition && std::isfinite(number) ? decodeNumber(data, parameter, filter)
                                                         : number;
}

/// The filter for a pass over the samples of one parameter: for a longitude, whose limit follows
/// from the latitude, it has seen all latitudes before.
PositionFilter positionFilterFor(const Profile& profile, const MessageMap& messages,
                                 const ProfileParameter& parameter);

} // namespace KOLT
