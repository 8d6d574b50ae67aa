#include "analysis/ExcursionTracker.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double holeSeconds = 2.0;
constexpr double holeSpacings = 10.0;

/// A range that is narrower than both hysteresis keeps this part of it as being back.
constexpr double leastPart = 1.0 / 3.0;

} // namespace

bool SampleTime::isBehindHole() const
{
    const double gap = seconds - before;
    if (index == 0 || !(gap > holeSeconds))
        return false;
    const double spacing = index > 1 ? (before - first) / static_cast<double>(index - 1) : 0.0;
    return gap > holeSpacings * spacing;
}

ExcursionTracker::ExcursionTracker(const ProfileParameter& parameter, bool keepsBands)
    : m_keepsBands(keepsBands)
{
    const Threshold& threshold = *parameter.threshold;
    std::vector<double> values;
    for (const ThresholdStep& step : threshold.steps)
        values.push_back(step.value);
    std::ranges::sort(values);
    double low = -infinity; // below the first step all is normal
    bool isNormal = true;
    const auto add = [&](double high) {
        Range range{low, high, low, high};
        const double width = high - low;
        if (std::isfinite(low))
            range.backLow = low + std::min(threshold.hysteresisAt(low), width * leastPart);
        if (std::isfinite(high))
            range.backHigh = high - std::min(threshold.hysteresisAt(high), width * leastPart);
        m_normal.push_back(range);
    };
    for (const double value : values) {
        const bool isNext = threshold.grade(value).state == ThresholdState::Ok;
        if (isNormal && !isNext)
            add(value);
        else if (!isNormal && isNext)
            low = value;
        isNormal = isNext;
    }
    if (isNormal)
        add(infinity);
}

bool ExcursionTracker::findBack(double number)
{
    for (const Range& range : m_normal) {
        if (number >= range.backLow && number <= range.backHigh && number < range.high) {
            m_backLow = range.backLow;
            // Without a hysteresis the step itself is beyond.
            m_backHigh = range.backHigh < range.high ? range.backHigh
                                                     : std::nextafter(range.high, -infinity);
            return true;
        }
    }
    return false;
}

bool ExcursionTracker::isHigh(double number) const
{
    if (m_backLow <= m_backHigh)
        return number > m_backHigh;
    // Nothing was normal yet, and the value before may have been no number.
    return std::ranges::none_of(m_normal, [&](const Range& range) { return range.low > number; });
}

void ExcursionTracker::step(double number, ThresholdState state, bool isCrossing,
                            const SampleTime& time)
{
    if (std::isnan(number)) // tells neither that it is back nor that it is not
        return;
    const bool isBehindHole = time.isBehindHole();
    const bool isBack = state == ThresholdState::Ok && findBack(number);
    if (m_isOpen && isBehindHole)
        m_current.isCut = true;
    if (isBack) {
        if (m_isOpen)
            close(isBehindHole ? time.before : time.seconds, time.index);
        return;
    }
    if (!m_isOpen)
        open(state, time, isBehindHole);
    if (!isCrossing)
        return;
    // Times may step back.
    m_current.firstCrossing =
        m_current.crossings++ == 0 ? time.seconds : std::min(m_current.firstCrossing, time.seconds);
    m_current.to = std::max(m_current.to, time.seconds);
    if (state > m_current.state) {
        m_current.state = state;
        m_current.firstWorst = time.seconds;
        m_current.isHigh = isHigh(number);
    }
}

void ExcursionTracker::open(ThresholdState state, const SampleTime& time, bool isBehindHole)
{
    m_isOpen = true;
    m_current = {};
    m_current.from = m_current.to = time.seconds;
    m_current.firstIndex = static_cast<std::uint32_t>(time.index);
    // What was beyond when it came into sight, was so for an unknown time.
    m_current.isCut = state != ThresholdState::Ok && (isBehindHole || time.index == 0);
}

void ExcursionTracker::close(double seconds, std::size_t behindIndex)
{
    m_isOpen = false;
    if (m_current.crossings == 0 && !m_keepsBands)
        return;
    m_current.to = std::max(m_current.to, seconds);
    m_current.behindIndex = static_cast<std::uint32_t>(behindIndex);
    m_excursions.push_back(m_current);
}

void ExcursionTracker::finish(double lastSeconds, std::size_t count)
{
    if (!m_isOpen)
        return;
    m_current.isCut = true;
    close(lastSeconds, count);
}

} // namespace KOLT
