#pragma once

#include <QString>
#include <QTime>

#include <algorithm>
#include <cmath>

namespace KOLT {

/// Seconds, truncated to milliseconds, added to 00:00:00; beyond a day it begins anew. Times on the
/// unit's counter are shown this way.
inline QTime clockTime(double seconds)
{
    constexpr qint64 dayMilliseconds = 24LL * 60 * 60 * 1000;
    if (!std::isfinite(seconds) || std::abs(seconds) > 1e15)
        return {};
    const auto milliseconds = static_cast<qint64>(seconds * 1000.0) % dayMilliseconds;
    const qint64 inDay = milliseconds < 0 ? milliseconds + dayMilliseconds : milliseconds;
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>(inDay));
}

/// "hh:mm:ss" of a duration, in whole seconds; hours may exceed a day. Below 0 it is 0.
inline QString durationText(double seconds)
{
    const auto whole = static_cast<qint64>(seconds > 0.0 ? std::min(seconds, 1e15) : 0.0);
    return QStringLiteral("%1:%2:%3")
        .arg(whole / 3600, 2, 10, QLatin1Char('0'))
        .arg(whole / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace KOLT
