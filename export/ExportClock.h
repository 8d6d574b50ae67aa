#pragma once

#include <QDateTime>
#include <QString>

#include <string>

namespace KOLT {

/// Formats times of a recording for exported files, rounded to milliseconds. Times are seconds on
/// the unit's counter; the recording's clock has no time zone and is taken as UTC.
class ExportClock
{
public:
    /// `start` is the clock at counter 0; if it is invalid, texts are empty.
    explicit ExportClock(const QDateTime& start);

    bool isValid() const { return m_isValid; }

    /// Invalid without a clock, or for times beyond any calendar.
    QDateTime dateTime(double seconds) const;

    /// "2026-07-28T14:32:05.500Z" (XML's dateTime); empty where dateTime() is invalid.
    QString isoText(double seconds) const;

    /// Appends "2026-07-28", `separator` and "14:32:05.500"; only the separator without a clock.
    /// The date's text is cached, so this is cheap for successive times.
    void appendTo(std::string& line, double seconds, char separator) const;

private:
    qint64 millisecondsAt(double seconds) const;

    bool m_isValid;
    qint64 m_start = 0; ///< milliseconds since 1970
    mutable qint64 m_day = -1;
    mutable std::string m_dayText;
};

} // namespace KOLT
