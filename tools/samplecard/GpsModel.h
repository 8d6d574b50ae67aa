#pragma once

#include "tools/samplecard/Pilot.h"
#include "tools/samplecard/Quantities.h"

namespace KOLT::SampleCard {

/// The satellite receiver: where the airfield lies, how long the first fix takes, and by how much
/// the fix wanders.
class GpsModel
{
public:
    GpsModel(Runway runway, Random& random);

    void step(const Motion& motion);
    /// `jumps` puts the position some 20 km off.
    void describe(Quantities& out, bool jumps) const;

    bool hasFix() const { return m_seconds > m_firstFix; }

    /// Of the airfield above the sea, metres.
    static double elevation();

private:
    void wander(double& value, double deviation, double seconds);

    Runway m_runway;
    Random& m_random;
    double m_seconds = 0.0;
    double m_firstFix = 40.0;
    double m_track = 0.0; ///< degrees true, kept while standing
    double m_speed = 0.0; ///< km/h
    double m_height = 0.0;
    double m_east = 0.0; ///< of the middle of the airfield, metres
    double m_north = 0.0;
    double m_eastError = 0.0;
    double m_northError = 0.0;
    double m_heightError = 0.0;
};

} // namespace KOLT::SampleCard
