#pragma once

#include <QDateTime>
#include <QString>

#include <algorithm>
#include <cmath>

namespace KOLT {

/// A time on the unit's counter as it is displayed: 00:00:00 plus the seconds, truncated to
/// milliseconds, modulo one day. Invalid for NaN, infinity and absurdly large numbers.
inline QTime clockTime(double seconds)
{
    constexpr qint64 dayMilliseconds = 24LL * 60 * 60 * 1000;
    if (!std::isfinite(seconds) || std::abs(seconds) > 1e15)
        return {};
    const auto milliseconds = static_cast<qint64>(seconds * 1000.0) % dayMilliseconds;
    const qint64 inDay = milliseconds < 0 ? milliseconds + dayMilliseconds : milliseconds;
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>(inDay));
}

/// A duration in whole seconds as "hh:mm:ss"; hours may exceed 24. Negative ones count as 0.
inline QString durationText(double seconds)
{
    const auto whole = static_cast<qint64>(seconds > 0.0 ? std::min(seconds, 1e15) : 0.0);
    return QStringLiteral("%1:%2:%3")
        .arg(whole / 3600, 2, 10, QLatin1Char('0'))
        .arg(whole / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(whole % 60, 2, 10, QLatin1Char('0'));
}

/// "hh:mm:ss" of a moment, or of its counter where the recording has no date.
inline QString timeOfDayText(const QDateTime& dateTime, double counterSeconds)
{
    return dateTime.isValid() ? dateTime.toString(QStringLiteral("hh:mm:ss"))
                              : durationText(counterSeconds);
}

} // namespace KOLT
