#pragma once

#include "profile/ValueDecoder.h"
#include "record/RoleSeries.h"

#include <limits>

namespace KOLT {

/// Finds where one parameter crosses its thresholds for the worse: from Ok to Warning or Limit, or
/// from Warning to Limit. Must be given every sample of the parameter in stored order. A parameter
/// beyond its threshold from the first sample on must return first.
class CrossingDetector
{
public:
    /// The parameter must have a threshold. The filter is that of a pass over a position.
    explicit CrossingDetector(const ProfileParameter& parameter, PositionFilter filter = {})
        : m_parameter(&parameter)
        , m_filter(filter)
    {
    }

    /// Grades a sample; true if it crossed.
    bool step(const MessageData& data)
    {
        m_previous = m_number;
        m_number = decodeFiltered(data, *m_parameter, &m_filter);
        // Nearly all samples lie between the same two steps as the one before.
        return !(m_number >= m_low && m_number < m_high) && regrade();
    }

    const ProfileParameter& parameter() const { return *m_parameter; }

    double number() const { return m_number; }

    ThresholdState state() const { return m_state; }

    /// Whether the last sample was not below the one before.
    bool isRising() const { return m_number >= m_previous; }

    /// The values that have the same grade as the last sample by the same step: [low, high).
    double low() const { return m_low; }

    double high() const { return m_high; }

private:
    bool regrade()
    {
        const ThresholdState before = m_state;
        m_state = gradeOf(*m_parameter, m_number).state;
        constexpr double infinity = std::numeric_limits<double>::infinity();
        m_low = std::isnan(m_number) ? infinity : -infinity;
        m_high = infinity;
        for (const ThresholdStep& step : m_parameter->threshold->steps) {
            if (step.value > m_number) {
                m_high = step.value;
                break;
            }
            if (step.value > m_low)
                m_low = step.value;
        }
        return (before == ThresholdState::Ok && m_state != ThresholdState::Ok) ||
               (before == ThresholdState::Warning && m_state == ThresholdState::Limit);
    }

    const ProfileParameter* m_parameter;
    PositionFilter m_filter;
    ThresholdState m_state = ThresholdState::Limit;
    double m_number = 0.0;
    double m_previous = 0.0;
    double m_low = std::numeric_limits<double>::infinity(); ///< nothing is in the first range
    double m_high = -std::numeric_limits<double>::infinity();
};

/// Whether the value is shown as "nan", which is never reported as a crossing.
inline bool isTextNan(const Profile& profile, const ProfileParameter& parameter,
                      const MessageData& data, double number)
{
    return !std::isfinite(number) &&
           textOf(profile, parameter, data, number) == QLatin1String("nan");
}

} // namespace KOLT
