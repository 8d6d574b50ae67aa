#pragma once

#include <QTime>

#include <cmath>

namespace KOLT {

/// Seconds, truncated to milliseconds, added to 00:00:00; beyond a day it begins anew. Counter
/// times and durations are shown this way.
inline QTime clockTime(double seconds)
{
    constexpr qint64 dayMilliseconds = 24LL * 60 * 60 * 1000;
    if (!std::isfinite(seconds) || std::abs(seconds) > 1e15)
        return {};
    const auto milliseconds = static_cast<qint64>(seconds * 1000.0) % dayMilliseconds;
    const qint64 inDay = milliseconds < 0 ? milliseconds + dayMilliseconds : milliseconds;
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>(inDay));
}

} // namespace KOLT
