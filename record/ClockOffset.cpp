#include "record/ClockOffset.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <cmath>

namespace KOLT {

namespace {

constexpr int minutesPerHour = 60;

struct Clock
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ClockOffset)
};

} // namespace

QString clockOffsetText(int minutes)
{
    const int size = std::abs(minutes);
    return QStringLiteral("%1%2:%3")
        .arg(QLatin1Char(minutes < 0 ? '-' : '+'))
        .arg(size / minutesPerHour, 2, 10, QLatin1Char('0'))
        .arg(size % minutesPerHour, 2, 10, QLatin1Char('0'));
}

std::optional<int> clockOffsetOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^([+-]?)(\\d{1,2}):([0-5]\\d)$"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const int size = match.captured(2).toInt() * minutesPerHour + match.captured(3).toInt();
    if (size > maxClockOffset)
        return std::nullopt;
    return match.captured(1) == QLatin1String("-") ? -size : size;
}

QString clockLine(int minutes)
{
    if (minutes == 0)
        return Clock::tr("Dates and times are those of the unit's clock, taken as UTC.");
    return Clock::tr("Dates and times are those of the unit's clock, taken as UTC, and %1.")
        .arg(clockOffsetText(minutes));
}

double lateClockSeconds(const RecordInfo& first)
{
    constexpr double worthTelling = 10.0;
    const bool hasOwnDate = first.dateTime.isValid() && !first.dateInvalid;
    return hasOwnDate && first.startSeconds > worthTelling ? first.startSeconds : 0.0;
}

} // namespace KOLT
