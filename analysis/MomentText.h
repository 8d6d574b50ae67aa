#pragma once

#include "record/DataSet.h"

#include <QString>

namespace KOLT {

/// Shown where there is no time.
constexpr QLatin1String noDate{"--.--.---- --:--:--"};
constexpr QLatin1String noTime{"--:--:--.---"};

/// Date and clock time of a moment, cut to a millisecond; invalid if the recording has no date.
QDateTime momentOf(const QDateTime& start, double seconds);
QDateTime momentOf(const DataSet& dataSet, double seconds);

/// Date and clock time, rounded to a second; noDate if the recording has no date.
QString dateTimeText(const QDateTime& start, double seconds);

/// The time on the counter as a time of day, to a millisecond.
QString counterText(double seconds);

} // namespace KOLT
