#pragma once

#include "tools/samplecard/CardPlan.h"
#include "tools/samplecard/EngineModel.h"
#include "tools/samplecard/GpsModel.h"

namespace KOLT::SampleCard {

/// An incident as it came about. Seconds on the unit's counter.
struct IncidentReport
{
    Incident kind = Incident::DataGap;
    std::string_view parameter; ///< that shows it best; empty for a gap
    double from = 0.0;
    double to = 0.0;
    double peak = 0.0; ///< of the parameter, without noise
};

/// One engine cycle, from power-on to power-off, step by step.
class CycleSimulation
{
public:
    /// `engineHours` and `engineStarts` before the cycle.
    CycleSimulation(const CyclePlan& plan, double engineHours, int engineStarts, Random& random);

    /// False once the cycle is over. Quantities and incidents are kept up only where they are
    /// wanted, and at the end.
    bool step(bool isWanted = true);

    const Quantities& quantities() const { return m_quantities; }

    /// Nothing is recorded at the current step.
    bool inDataGap() const { return isActive(Incident::DataGap); }

    /// The unit's counter at the current step.
    double counter() const;

    /// Completed landings.
    int flights() const { return m_landings; }

    /// When the aircraft became fast for the last time and did not land; 0 when it landed.
    double openTakeOff() const { return m_openTakeOff; }

    std::vector<IncidentReport> incidents() const;

private:
    struct Window
    {
        PlannedIncident incident;
        double start = 0.0;
        double end = 0.0; ///< of the recording, where that comes first
        double peak = 0.0;
    };

    void openWindows();
    void watchIncidents();
    bool isActive(Incident kind) const;
    void describe();
    void describeAir();
    void describeUnit();

    const CyclePlan& m_plan;
    Random& m_random;
    Pilot m_pilot;
    EngineModel m_engine;
    GpsModel m_gps;
    Surroundings m_air;
    Quantities m_quantities;
    std::vector<Window> m_windows; ///< of all incidents whose phase has begun
    Phase m_phase = Phase::Done;
    int m_flight = -1;
    int m_landings = 0;
    double m_openTakeOff = 0.0;
    long m_steps = 0;
    double m_earlierHours = 0.0;
    int m_earlierStarts = 0;
    double m_bump = 0.0; ///< vertical acceleration by turbulence, m/s²
};

} // namespace KOLT::SampleCard
