#include "analysis/ExceedanceTracker.h"

#include "record/RecordFormat.h"

#include <cmath>

namespace KOLT {

namespace {

/// How far a peak lies beyond a threshold, in proportion to the threshold where it is not 0.
double excessOf(double peak, double threshold)
{
    if (!std::isfinite(threshold))
        return 0.0;
    const double distance = std::abs(peak - threshold);
    return threshold != 0.0 ? distance / std::abs(threshold) : distance;
}

} // namespace

QString Exceedance::peakText(const Profile& profile) const
{
    const QString text = textOf(profile, *parameter, peakData, peak);
    const QString& unit = profile.unitLabel(*parameter);
    return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}

bool isWorse(const Exceedance& a, const Exceedance& b)
{
    if (a.state != b.state)
        return a.state > b.state;
    if (a.excess != b.excess)
        return a.excess > b.excess;
    if (a.seconds != b.seconds)
        return a.seconds < b.seconds;
    if (a.parameter->device != b.parameter->device)
        return a.parameter->device < b.parameter->device;
    return a.parameter->fullName < b.parameter->fullName;
}

bool ExceedanceTracker::follow(const Profile& profile, bool isCrossing, const MessageData& data,
                               std::uint32_t timeHigh, std::uint32_t timeLow,
                               std::vector<Exceedance>& over)
{
    const ThresholdState state = m_detector.state();
    const double number = m_detector.number();
    if (m_isFirst)
        m_isOnFromTheStart = state != ThresholdState::Ok;
    m_isFirst = false;
    if (state == ThresholdState::Ok) {
        finish(over);
        return false;
    }
    if (!m_open.empty() && number < m_open.back().lowest) {
        m_open.back().lowest = number;
        m_open.back().lowestData = data;
    }
    if (!m_open.empty() && number > m_open.back().highest) {
        m_open.back().highest = number;
        m_open.back().highestData = data;
    }
    if (!isCrossing || isTextNan(profile, parameter(), data, number))
        return false;
    open(data, RecordFormat::secondsOf(timeHigh, timeLow));
    return true;
}

void ExceedanceTracker::open(const MessageData& data, double seconds)
{
    Open& last = m_open.emplace_back();
    last.exceedance.parameter = &parameter();
    last.exceedance.state = m_detector.state();
    last.exceedance.seconds = seconds;
    last.isRising = m_detector.isRising();
    last.threshold = last.isRising ? m_detector.low() : m_detector.high();
    last.lowest = last.highest = m_detector.number();
    last.lowestData = last.highestData = data;
}

void ExceedanceTracker::finish(std::vector<Exceedance>& over)
{
    for (std::size_t i = m_open.size(); i > 0; --i) {
        Open& one = m_open[i - 1];
        if (i < m_open.size() && m_open[i].lowest < one.lowest) {
            one.lowest = m_open[i].lowest;
            one.lowestData = m_open[i].lowestData;
        }
        if (i < m_open.size() && m_open[i].highest > one.highest) {
            one.highest = m_open[i].highest;
            one.highestData = m_open[i].highestData;
        }
        Exceedance& exceedance = one.exceedance;
        exceedance.peak = one.isRising ? one.highest : one.lowest;
        exceedance.peakData = one.isRising ? one.highestData : one.lowestData;
        exceedance.excess = excessOf(exceedance.peak, one.threshold);
        over.push_back(exceedance);
    }
    m_open.clear();
}

} // namespace KOLT
