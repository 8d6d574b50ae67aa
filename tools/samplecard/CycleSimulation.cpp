#include "tools/samplecard/CycleSimulation.h"

#include <algorithm>
#include <cmath>

namespace KOLT::SampleCard {

namespace {

constexpr double gravity = 9.81;
constexpr double fast = 50.0 / 3.6; ///< m/s, faster than anything on the ground but a take-off
constexpr double fuelReserve = 9.0; ///< litres per tank, below which the aircraft refuels

double flag(bool on)
{
    return on ? 1.0 : 0.0;
}

/// What shows an incident best, and whether by a low value.
struct Sign
{
    std::string_view parameter;
    double Quantities::*value;
    bool isLow = false;
};

Sign signOf(const PlannedIncident& incident)
{
    switch (incident.kind) {
    case Incident::OilHot:
        return {"Oil Temperature", &Quantities::oilTemperature};
    case Incident::LeanMixture:
        return {"EGT 3", &Quantities::egt3};
    case Incident::Overspeed:
        return {"Engine Speed", &Quantities::engineSpeed};
    case Incident::GeneratorOff:
        return {"Bus Voltage A", &Quantities::busVoltage, true};
    case Incident::GpsJump:
        return {"Latitude", &Quantities::latitude};
    case Incident::FaultLaneA:
    case Incident::FaultLaneB:
    case Incident::DataGap:
        break;
    }
    return {incident.fault, nullptr};
}

bool isAirborne(Phase phase)
{
    return phase >= Phase::Tow && phase <= Phase::Final;
}

} // namespace

CycleSimulation::CycleSimulation(const CyclePlan& plan, double engineHours, int engineStarts,
                                 Random& random)
    : m_plan(plan)
    , m_random(random)
    , m_pilot(plan.flights, random)
    , m_engine(plan.engineTemperature, plan.fuelPerTank)
    , m_gps(plan.flights.runway, random)
    , m_earlierHours(engineHours)
    , m_earlierStarts(engineStarts)
{
    describe();
}

double CycleSimulation::counter() const
{
    return m_plan.counterStart + stepSeconds * static_cast<double>(m_steps);
}

bool CycleSimulation::step(bool isWanted)
{
    ++m_steps;
    const Phase before = m_pilot.phase();
    m_pilot.step();
    const Phase now = m_pilot.phase();
    if (before == Phase::Final && now == Phase::RollOut) {
        ++m_landings;
        m_openTakeOff = 0.0;
    } else if (now == Phase::Abort) {
        m_openTakeOff = 0.0;
    } else if (now == Phase::TakeOff && m_openTakeOff == 0.0 && m_pilot.motion().speed > fast) {
        m_openTakeOff = counter();
    }
    openWindows();
    if (now == Phase::Hookup && before != now && m_engine.fuelPerTank() < fuelReserve)
        m_engine.refuel();

    const double above = GpsModel::elevation() + m_pilot.motion().height;
    m_air.temperature = m_plan.outsideTemperature - 0.0065 * m_pilot.motion().height;
    m_air.pressure = 1016.0 * std::pow(1.0 - 2.25577e-5 * above, 5.2559);
    m_air.airspeed = m_pilot.motion().speed;
    Trouble trouble;
    trouble.oilHot = isActive(Incident::OilHot);
    trouble.leanMixture = isActive(Incident::LeanMixture);
    trouble.overspeed = isActive(Incident::Overspeed);
    trouble.generatorOff = isActive(Incident::GeneratorOff);
    m_engine.step(m_pilot.controls(), m_air, trouble);
    m_gps.step(m_pilot.motion());
    const bool goesOn =
        now != Phase::Done && (m_plan.stopCounter <= 0.0 || counter() < m_plan.stopCounter);
    if (isWanted || !goesOn) {
        describe();
        watchIncidents();
    }
    return goesOn;
}

void CycleSimulation::openWindows()
{
    if (m_pilot.phase() == m_phase && m_pilot.flight() == m_flight)
        return;
    m_phase = m_pilot.phase();
    m_flight = m_pilot.flight();
    for (const PlannedIncident& incident : m_plan.incidents) {
        if (incident.phase == m_phase && incident.flight == m_flight)
            m_windows.push_back({incident, counter() + incident.delay, 0.0, 0.0});
    }
}

void CycleSimulation::watchIncidents()
{
    const double now = counter();
    for (Window& window : m_windows) {
        if (now < window.start || now >= window.start + window.incident.duration)
            continue;
        const Sign sign = signOf(window.incident);
        const double value = sign.value != nullptr ? m_quantities.*sign.value : 1.0;
        const bool isFirst = window.end == 0.0;
        window.peak = isFirst      ? value
                      : sign.isLow ? std::min(window.peak, value)
                                   : std::max(window.peak, value);
        window.end = now;
    }
}

std::vector<IncidentReport> CycleSimulation::incidents() const
{
    std::vector<IncidentReport> reports;
    for (const Window& window : m_windows) {
        if (window.end > 0.0)
            reports.push_back({window.incident.kind, signOf(window.incident).parameter,
                               window.start, window.end, window.peak});
    }
    return reports;
}

bool CycleSimulation::isActive(Incident kind) const
{
    const double now = counter();
    return std::ranges::any_of(m_windows, [&](const Window& window) {
        return window.incident.kind == kind && now >= window.start &&
               now < window.start + window.incident.duration;
    });
}

void CycleSimulation::describe()
{
    m_engine.describe(m_quantities);
    const bool hasRun = m_quantities.engineHours > 0.0;
    m_quantities.engineStarts = m_earlierStarts + (hasRun ? 1 : 0);
    m_quantities.engineHours += m_earlierHours;
    describeAir();
    m_gps.describe(m_quantities, isActive(Incident::GpsJump));
    describeUnit();
}

void CycleSimulation::describeAir()
{
    Quantities& q = m_quantities;
    const Motion& motion = m_pilot.motion();
    const Controls& controls = m_pilot.controls();
    const bool airborne = isAirborne(m_pilot.phase());
    const double bumps = airborne ? 1.1 : std::min(1.0, 0.05 * motion.speed);
    m_bump += (m_random.noise(6.0 * bumps) - m_bump) * stepSeconds / 0.25;

    q.outsideTemperature = m_air.temperature;
    q.ambientPressure = m_air.pressure;
    q.cabinTemperature = m_plan.outsideTemperature + 4.0;
    q.carbonMonoxide = 3.0 + q.throttle * 0.05;
    q.humidity = std::clamp(95.0 - 1.7 * m_air.temperature, 20.0, 100.0);
    q.elevatorTrim = airborne ? std::clamp(20.0 - 1.2 * (motion.speed - 25.0), -40.0, 40.0) : 15.0;
    q.flaps = controls.flaps;
    const double fuelPumps = flag(controls.engineOn);
    q.fuelPumpMain = fuelPumps;
    q.fuelPumpAuxiliary = flag(controls.engineOn && airborne && motion.height < 150.0);
    q.fuelSelector = 3.0;
    q.towHook = controls.ropeAttached ? 2.0 : flag(!controls.hookOpen);
    q.landingLight = flag(airborne && motion.height < 250.0);
    q.pitotHeat = flag(m_air.temperature < 5.0);
    const double density = m_air.pressure / (2.8705 * (m_air.temperature + 273.15));
    q.airspeed = 3.6 * motion.speed * std::sqrt(density / 1.225);
    q.verticalSpeed = motion.climb;
    const double bank = airborne ? std::atan(motion.speed * motion.turnRate / gravity) : 0.0;
    q.normalAcceleration = 1.0 / std::cos(bank) + m_bump / gravity;
    const bool pulls = controls.ropeAttached && motion.speed > 1.0;
    q.ropeForce =
        pulls ? 35.0 + 45.0 * std::max(0.0, motion.acceleration) + 14.0 * motion.climb : 0.0;
    q.pressureAltitude = 44330.8 * (1.0 - std::pow(m_air.pressure / 1013.25, 0.190263));
    const double standard = 15.0 - 0.0065 * q.pressureAltitude;
    q.densityAltitude = q.pressureAltitude + 36.5 * (m_air.temperature - standard);
}

void CycleSimulation::describeUnit()
{
    Quantities& q = m_quantities;
    const bool laneA = isActive(Incident::FaultLaneA);
    const bool laneB = isActive(Incident::FaultLaneB);
    q.faults.clear();
    for (const Window& window : m_windows) {
        if (!window.incident.fault.empty() && counter() >= window.start &&
            counter() < window.start + window.incident.duration)
            q.faults.push_back(window.incident.fault);
    }
    q.laneAActive = 1.0;
    q.laneBActive = 0.0;
    q.lampLaneA = flag(laneA);
    q.lampLaneB = flag(laneB);
    q.lampTow = flag(m_pilot.controls().ropeAttached);
    q.runTime = counter();
    q.unitTemperature = m_plan.outsideTemperature + 14.0 * (1.0 - std::exp(-counter() / 900.0));
    q.brightness = 80.0;
    q.recorderState = 1.0;
    q.clockDeviation = m_gps.hasFix() ? 21.0 : 0.0;
    const QDateTime gpsStart(QDate(1980, 1, 6), QTime(0, 0), Qt::UTC);
    const qint64 startSeconds = m_plan.clock.toSecsSinceEpoch() - gpsStart.toSecsSinceEpoch();
    const double seconds = static_cast<double>(startSeconds) + counter();
    constexpr double week = 7.0 * 86400.0;
    q.gpsWeek = m_gps.hasFix() ? std::floor(seconds / week) : 0.0;
    q.gpsTimeOfDay = m_gps.hasFix() ? std::fmod(seconds, 86400.0) : 0.0;
}

} // namespace KOLT::SampleCard
