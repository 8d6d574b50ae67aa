#pragma once

#include <QDateTime>

namespace KOLT {

/// One flight of a recording with its figures. Times are seconds on the unit's counter, altitudes
/// and distances metres, speeds km/h, rates m/s, fuel litres. Figures without data are 0; ratios
/// are infinite or NaN for a flight without altitude gain. Formulas: docs/flights.md.
struct Flight
{
    QDateTime dateTime;        ///< of the take-off; invalid if the recording has no date
    double startSeconds = 0.0; ///< 30 s before the take-off, at least 0
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
