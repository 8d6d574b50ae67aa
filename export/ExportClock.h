#pragma once

#include <QDateTime>
#include <QString>

#include <string>

namespace KOLT {

/// The recording's clock in the texts of exported files, to the millisecond, rounded. Times are
/// seconds on the unit's counter; the clock has no time zone and is taken as UTC.
class ExportClock
{
public:
    /// `start` is the clock at counter 0; an invalid one gives empty texts.
    explicit ExportClock(const QDateTime& start);

    bool isValid() const { return m_isValid; }

    /// Invalid without a clock, or for times that no calendar has.
    QDateTime dateTime(double seconds) const;

    /// "2026-07-28T14:32:05.500Z", as XML schemas have it; empty where dateTime() is invalid.
    QString isoText(double seconds) const;

    /// Appends "2026-07-28", then `separator`, then "14:32:05.500"; only the separator without a
    /// clock. Cheap: the date's text is made once a day.
    void appendTo(std::string& line, double seconds, char separator) const;

private:
    qint64 millisecondsAt(double seconds) const;

    bool m_isValid;
    qint64 m_start = 0; ///< milliseconds since 1970
    mutable qint64 m_day = -1;
    mutable std::string m_dayText;
};

} // namespace KOLT
