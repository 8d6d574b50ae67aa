#pragma once

#include "profile/Profile.h"
#include "record/ClockTime.h"
#include "record/DataSet.h"

#include <QString>

#include <vector>

namespace KOLT {

/// One flight in a log of flights. Seconds are on the counter; units are metric.
struct FlightLine
{
    int number = 0;    ///< from 1 within its cycle
    QDateTime takeOff; ///< invalid when the recording has no date
    QDateTime landing;
    double takeOffSeconds = 0.0;
    double landingSeconds = 0.0;
    double maxAltitude = 0.0;
    double climb = 0.0; ///< altitude gain
    double climbRate = 0.0;
    double fuel = 0.0;
    double takeOffDistance = 0.0;
    double takeOffDistance15m = 0.0;
    std::size_t exceedances = 0; ///< from 30 s before take-off to 30 s after landing

    /// From take-off to landing, each cut to whole seconds as shown, so that the shown lines add up
    /// to the shown sums.
    double flightSeconds() const;
};

/// Sums over several flights.
struct FlightTotals
{
    int flights = 0;
    double seconds = 0.0; ///< in the air; a whole number
    double fuel = 0.0;
    std::size_t exceedances = 0;

    void add(const FlightLine& line);
    void add(const FlightTotals& other);
};

/// The line of one flight. `crossings` are the ascending times of all exceedances, `dateTime` is
/// the clock at counter 0.
FlightLine flightLine(const Flight& flight, int number, const QDateTime& dateTime,
                      const std::vector<double>& crossings);

struct FlightLog
{
    std::vector<FlightLine> lines;
    std::size_t exceedances = 0; ///< of the whole data set, outside flights too
};

/// The flights of a data set with their exceedances, which are searched for unless they are known.
FlightLog flightLog(const Profile& profile, const DataSet& dataSet);

/// The number with fixed decimals and its unit; "-" for NaN and infinity.
QString figureText(double value, int decimals, const QString& unit);

} // namespace KOLT
