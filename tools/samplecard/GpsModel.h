#pragma once

#include "tools/samplecard/Pilot.h"
#include "tools/samplecard/Quantities.h"

namespace KOLT::SampleCard {

/// The GPS receiver: turns the aircraft's motion into positions around the airfield, with a delay
/// for the first fix and a drifting error.
class GpsModel
{
public:
    GpsModel(Runway runway, Random& random);

    void step(const Motion& motion);
    /// `jumps` shifts the position by about 20 km.
    void describe(Quantities& out, bool jumps) const;

    bool hasFix() const { return m_seconds > m_firstFix; }

    /// Elevation of the airfield in metres.
    static double elevation();

private:
    void wander(double& value, double deviation, double seconds);

    Runway m_runway;
    Random& m_random;
    double m_seconds = 0.0;
    double m_firstFix = 40.0;
    double m_track = 0.0; ///< degrees true, unchanged while standing
    double m_speed = 0.0; ///< km/h
    double m_height = 0.0;
    double m_east = 0.0; ///< metres from the middle of the airfield
    double m_north = 0.0;
    double m_eastError = 0.0;
    double m_northError = 0.0;
    double m_heightError = 0.0;
};

} // namespace KOLT::SampleCard
