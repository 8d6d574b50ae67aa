#pragma once

#include "analysis/Episode.h"
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
    double startSeconds = 0.0; ///< 30 s before the take-off, and 30 s behind the landing
    double endSeconds = 0.0;
    double maxAltitude = 0.0;
    double climb = 0.0; ///< altitude gain
    double climbRate = 0.0;
    double fuel = 0.0;
    double takeOffDistance = 0.0;
    double takeOffDistance15m = 0.0;
    std::size_t exceedances = 0; ///< from 30 s before take-off to 30 s after landing
    std::size_t episodes = 0;    ///< that began in the same time
    EpisodeCounts counts;        ///< each for one flight; set by flightLog()

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
    std::size_t episodes = 0;

    void add(const FlightLine& line);
    void add(const FlightTotals& other);
};

/// The line of one flight. `crossings` are the ascending times of all exceedances, `begins` of all
/// episodes, `dateTime` is the clock at counter 0.
FlightLine flightLine(const Flight& flight, int number, const QDateTime& dateTime,
                      const std::vector<double>& crossings, const std::vector<double>& begins);

struct FlightLog
{
    std::vector<FlightLine> lines;
    std::size_t exceedances = 0; ///< of the whole data set, outside flights too
    double fuel = 0.0;           ///< of the whole data set
    EpisodeCounts outside;       ///< that began in no flight and its 30 s around

    /// Negative where the 30 s around flights that follow each other count for both.
    double outsideFuel() const;
};

/// The flights of a data set, and what lies outside of them. An episode counts for one flight, the
/// first around whose flight it began. The data set must not be that of a single flight.
FlightLog flightLog(const Profile& profile, const DataSet& dataSet);

/// The number with fixed decimals and its unit; "-" for NaN and infinity.
QString figureText(double value, int decimals, const QString& unit);

} // namespace KOLT
