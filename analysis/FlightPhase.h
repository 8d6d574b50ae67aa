#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/RoleSeries.h"
#include "record/TimeOrdered.h"

#include <QString>

#include <optional>
#include <vector>

namespace KOLT {

/// What the aircraft was doing (docs/flights.md).
enum class FlightPhase {
    Unknown,
    Start,
    Ground,
    TakeOff,
    Climb,
    Cruise,
    Descent,
    Landing,
    Shutdown
};

/// "take-off", for JSON; the same in all languages.
QString phaseName(FlightPhase phase);
/// For people.
QString phaseTitle(FlightPhase phase);

/// Tells the phase of flight at any time of a data set, which must outlive it with the profile.
/// Costs a pass over ground speed and engine speed.
class FlightPhases
{
public:
    FlightPhases(const Profile& profile, const DataSet& dataSet);

    /// O(log samples + samples of some seconds).
    FlightPhase at(double seconds) const;

private:
    struct Span
    {
        double from = 0.0;
        double to = 0.0;
    };

    /// In the air, with the ends of take-off and begin of landing.
    struct Air : Span
    {
        double takeOffEnd = 0.0;
        double landingBegin = 0.0;
    };

    void findAir();
    void findRuns();
    FlightPhase onGround(double seconds) const;
    FlightPhase inTheAir(double seconds) const;

    const Profile& m_profile;
    const DataSet& m_dataSet;
    RoleSeries m_speeds;
    RoleSeries m_altitudes;
    TimeOrdered m_speedsByTime;
    TimeOrdered m_altitudesByTime;
    std::vector<Air> m_air;   ///< ascending
    std::vector<Span> m_runs; ///< in which the engine ran, ascending
};

} // namespace KOLT
