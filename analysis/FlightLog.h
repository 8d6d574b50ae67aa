#pragma once

#include "profile/Profile.h"
#include "record/ClockTime.h"
#include "record/DataSet.h"

#include <QString>

#include <vector>

namespace KOLT {

/// One flight as a log of flights shows it. Seconds on the unit's counter, metric units.
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
    std::size_t exceedances = 0; ///< within the flight and the 30 s around it

    /// From take-off to landing in whole seconds, as both are shown: lines and sums add up.
    double flightSeconds() const;
};

/// Sums over several flights.
struct FlightTotals
{
    int flights = 0;
    double seconds = 0.0; ///< in the air, whole ones
    double fuel = 0.0;
    std::size_t exceedances = 0;

    void add(const FlightLine& line);
    void add(const FlightTotals& other);
};

struct FlightLog
{
    std::vector<FlightLine> lines;
    std::size_t exceedances = 0; ///< of the whole data set, also outside of flights
};

/// The flights of a data set with their exceedances. Costs one pass over all graded parameters.
FlightLog flightLog(const Profile& profile, const DataSet& dataSet);

/// Date and clock time of a moment; invalid when the recording has no date.
QDateTime momentOf(const DataSet& dataSet, double seconds);

/// The number with a fixed count of decimals and its unit, "-" when it is not finite.
QString figureText(double value, int decimals, const QString& unit);

} // namespace KOLT
