#include "analysis/MomentText.h"

#include "record/ClockTime.h"

#include <cmath>

namespace KOLT {

QDateTime momentOf(const QDateTime& start, double seconds)
{
    return start.isValid() ? start.addMSecs(static_cast<qint64>(seconds * 1000.0)) : QDateTime();
}

QDateTime momentOf(const DataSet& dataSet, double seconds)
{
    return momentOf(dataSet.dateTime, seconds);
}

QString dateTimeText(const QDateTime& start, double seconds)
{
    const double milliseconds = std::round(seconds * 1000.0);
    if (!start.isValid() || !(std::abs(milliseconds) < 1e15))
        return noDate;
    return start.addMSecs(static_cast<qint64>(milliseconds))
        .toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"));
}

QString counterText(double seconds)
{
    return clockTime(seconds).toString(QStringLiteral("hh:mm:ss.zzz"));
}

} // namespace KOLT
