#pragma once

#include <QDateTime>

namespace KOLT {

/// One flight of a recording with its figures. Times are seconds on the unit's counter, altitudes
/// and distances metres, speeds km/h, rates m/s, fuel litres. A figure that was never found is 0;
/// ratios of a flight without gain are not finite. Formulas: docs/flights.md.
struct Flight
{
    QDateTime dateTime;        ///< of the take-off; invalid when the recording has no date
    double startSeconds = 0.0; ///< 30 s before the take-off, not below 0
    double endSeconds = 0.0;   ///< 30 s after the landing
    double takeOffSeconds = 0.0;
    double landingSeconds = 0.0;
    bool statisticsValid = false;
    double minAltitude = 0.0;
    double maxAltitude = 0.0;
    double altitudeGain = 0.0;
    double climbRate = 0.0;
    double descentRate = 0.0;
    double maxGroundSpeed = 0.0;
    double fuelA = 0.0;
    double fuelB = 0.0;
    double fuel = 0.0;
    double timePer100m = 0.0; ///< seconds
    double fuelPer100m = 0.0;
    double takeOffDistance = 0.0;    ///< brake release to lift-off
    double takeOffDistance15m = 0.0; ///< brake release to 15 m height
};

} // namespace KOLT
