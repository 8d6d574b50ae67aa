#include "export/ExportClock.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr qint64 dayMilliseconds = 24LL * 60 * 60 * 1000;
constexpr double maxSeconds = 1e11; // about three thousand years

void appendDigits(std::string& line, qint64 value, int digits)
{
    const std::size_t end = line.size() + static_cast<std::size_t>(digits);
    line.resize(end);
    for (int i = 1; i <= digits; ++i, value /= 10)
        line[end - static_cast<std::size_t>(i)] = static_cast<char>('0' + value % 10);
}

} // namespace

ExportClock::ExportClock(const QDateTime& start)
    : m_isValid(start.isValid())
{
    if (m_isValid)
        m_start = QDateTime(start.date(), start.time(), Qt::UTC).toMSecsSinceEpoch();
}

qint64 ExportClock::millisecondsAt(double seconds) const
{
    return m_start + std::llround(std::clamp(seconds, -maxSeconds, maxSeconds) * 1000.0);
}

QDateTime ExportClock::dateTime(double seconds) const
{
    if (!m_isValid || !(std::abs(seconds) < maxSeconds))
        return {};
    return QDateTime::fromMSecsSinceEpoch(millisecondsAt(seconds), Qt::UTC);
}

QString ExportClock::isoText(double seconds) const
{
    if (!dateTime(seconds).isValid())
        return {};
    std::string text;
    appendTo(text, seconds, 'T');
    return QString::fromLatin1(text) + QLatin1Char('Z');
}

void ExportClock::appendTo(std::string& line, double seconds, char separator) const
{
    if (!m_isValid) {
        line += separator;
        return;
    }
    const qint64 milliseconds = millisecondsAt(seconds);
    const qint64 inDay = (milliseconds % dayMilliseconds + dayMilliseconds) % dayMilliseconds;
    const qint64 day = (milliseconds - inDay) / dayMilliseconds;
    if (day != m_day || m_dayText.empty()) {
        m_day = day;
        m_dayText = QDate(1970, 1, 1).addDays(day).toString(Qt::ISODate).toStdString();
    }
    line += m_dayText;
    line += separator;
    appendDigits(line, inDay / 3'600'000, 2);
    line += ':';
    appendDigits(line, inDay / 60'000 % 60, 2);
    line += ':';
    appendDigits(line, inDay / 1000 % 60, 2);
    line += '.';
    appendDigits(line, inDay % 1000, 3);
}

} // namespace KOLT
