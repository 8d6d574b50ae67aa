#include "tools/samplecard/EngineModel.h"

#include <algorithm>
#include <cmath>

namespace KOLT::SampleCard {

namespace {

constexpr double leverIdle = 0.08;
constexpr double idleSpeed = 1850.0;
constexpr double fullSpeed = 5480.0;
constexpr double idleFlow = 3.8;
constexpr double fullFlow = 38.0;

/// One step of a first-order lag with the time constant in seconds.
void lag(double& value, double target, double seconds)
{
    value += (target - value) * stepSeconds / seconds;
}

double lamp(bool on)
{
    return on ? 1.0 : 0.0;
}

} // namespace

EngineModel::EngineModel(double temperature, double fuelPerTank)
    : m_oilTemperature(temperature)
    , m_coolant(temperature)
    , m_intakeAir(temperature)
    , m_exhaust(temperature)
    , m_fuelPerTank(fuelPerTank)
{
}

void EngineModel::step(const Controls& controls, const Surroundings& air, const Trouble& trouble)
{
    stepSpeed(controls, air.airspeed, trouble);
    const double boost = m_power * 1475.0 + (1.0 - m_power) * 385.0;
    lag(m_manifold, running() ? boost : air.pressure, 0.5);
    stepTemperatures(air, trouble);
    stepElectrics(controls, trouble);
    stepFuel();
}

void EngineModel::stepSpeed(const Controls& controls, double airspeed, const Trouble& trouble)
{
    m_lever = controls.throttle;
    m_starter = controls.starter;
    m_ignition = controls.engineOn;
    lag(m_throttle, controls.throttle, 0.55);
    const double opening = std::clamp((m_throttle - leverIdle) / (1.0 - leverIdle), 0.0, 1.0);

    double target = 0.0;
    if (m_starter) {
        target = 320.0;
    } else if (controls.engineOn) {
        target = idleSpeed + (fullSpeed - idleSpeed) * std::pow(opening, 0.75);
        // In flight the airstream turns the propeller of a throttled engine.
        target += std::min(12.0 * airspeed, 0.35 * (fullSpeed - target));
    }
    if (trouble.overspeed)
        target += 450.0;
    lag(m_speed, target, 0.6);
    lag(m_power, running() ? std::pow(opening, 1.05) : 0.0, 0.6);
    if (running())
        m_runSeconds += stepSeconds;
}

void EngineModel::stepTemperatures(const Surroundings& air, const Trouble& trouble)
{
    const bool runs = running();
    const double cooling = 0.12 * air.airspeed;
    const double oil =
        runs ? 74.0 + 0.6 * (air.temperature - 20.0) + 46.0 * m_power - cooling : air.temperature;
    lag(m_oilTemperature, oil + (trouble.oilHot ? 42.0 : 0.0), trouble.oilHot ? 105.0 : 190.0);
    const double water =
        runs ? 80.0 + 0.4 * (air.temperature - 20.0) + 28.0 * m_power - cooling : air.temperature;
    lag(m_coolant, water, 85.0);
    lag(m_intakeAir, air.temperature + 6.0 + 26.0 * m_power, 20.0);
    const double opening = std::sqrt(std::clamp(m_power, 0.0, 1.0));
    lag(m_exhaust, runs ? 545.0 + 335.0 * opening : air.temperature, 5.0);
    lag(m_leanExcess, trouble.leanMixture ? 92.0 : 0.0, 6.0);

    // Thick cold oil gives a little more, thin hot oil a little less.
    const double thickness = std::clamp((90.0 - m_oilTemperature) / 100.0, -0.4, 0.7);
    const double pressure = 1.15 + m_speed / fullSpeed * 2.75 + 0.8 * thickness;
    lag(m_oilPressure, runs ? pressure : (m_starter ? 0.6 : 0.0), 0.7);
}

void EngineModel::stepElectrics(const Controls& controls, const Trouble& trouble)
{
    const bool charging = running() && !trouble.generatorOff;
    const double load = 6.5 + (m_ignition ? 5.5 : 0.0) + (controls.ropeAttached ? 1.0 : 0.0);
    const double rate = charging ? 20.0 * (1.0 - m_charge) : -load / 300.0;
    m_charge = std::clamp(m_charge + rate * stepSeconds / 3600.0, 0.3, 1.0);
    if (m_starter)
        m_charge = std::max(0.3, m_charge - 0.015 * stepSeconds);
    const double charge = charging ? 80.0 * (1.0 - m_charge) : 0.0;
    lag(m_alternator, charging ? load + charge : 0.0, 0.4);
    lag(m_battery, charging ? charge : -load - (m_starter ? 110.0 : 0.0), 0.3);
    double voltage = charging ? 14.15 : 12.15 + 0.35 * m_charge;
    if (m_starter)
        voltage -= 0.65;
    lag(m_busVoltage, voltage, charging ? 0.8 : 0.4);
}

void EngineModel::stepFuel()
{
    const double flow = idleFlow + (fullFlow - idleFlow) * std::pow(m_power, 1.1);
    lag(m_fuelFlow, running() ? flow : 0.0, 0.4);
    m_fuelPerTank = std::max(0.0, m_fuelPerTank - m_fuelFlow / 2.0 * stepSeconds / 3600.0);
    m_fuelUsed += m_fuelFlow * stepSeconds / 3600.0;
    lag(m_fuelPressure, 3.08 - 0.0022 * m_fuelFlow, 0.5);
}

void EngineModel::describe(Quantities& out) const
{
    out.engineSpeed = m_speed;
    out.manifoldPressure = m_manifold;
    out.throttle = 100.0 * m_throttle;
    out.powerLever = 100.0 * m_lever;
    out.fuelFlowPerLane = m_fuelFlow / 2.0;
    out.fuelPressure = m_fuelPressure;
    out.oilTemperature = m_oilTemperature;
    out.oilPressure = m_oilPressure;
    out.coolantTemperature = m_coolant;
    out.intakeAirTemperature = m_intakeAir;
    out.carburettorTemperature = m_intakeAir - 9.0;
    out.egt1 = m_exhaust + 4.0;
    out.egt2 = m_exhaust - 11.0;
    out.egt3 = m_exhaust + 9.0 + m_leanExcess;
    out.egt4 = m_exhaust - 6.0;
    out.engineHours = m_runSeconds / 3600.0;
    out.busVoltage = m_busVoltage;
    out.alternatorCurrent = m_alternator;
    out.batteryCurrent = m_battery;
    out.fuelUsed = m_fuelUsed;
    out.fuelLevelLeft = m_fuelPerTank + 0.6;
    out.fuelLevelRight = m_fuelPerTank - 0.4;
    out.propellerSpeed = m_speed / 2.43;
    out.propellerPitch = 12.0 + 10.0 * m_power;
    describeControl(out);

    out.lampOilPressure = lamp(m_oilPressure < 0.8);
    out.lampOilTemperature = lamp(m_oilTemperature >= 130.0);
    out.lampCoolant = lamp(m_coolant >= 120.0);
    out.lampExhaustGas = lamp(out.egt3 >= 920.0);
    out.lampOverspeed = lamp(m_speed >= 5800.0);
    out.lampGenerator = lamp(m_busVoltage < 12.9);
    out.lampFuelPressure = lamp(m_fuelPressure < 2.5);
    out.lampLowFuel = lamp(m_fuelPerTank < 10.0);
}

void EngineModel::describeControl(Quantities& out) const
{
    const bool runs = running();
    out.ignitionAdvance = runs ? 26.0 - 11.0 * m_power + m_speed / 1100.0 : 0.0;
    out.knockRetard = std::max(0.0, 2.4 * (m_power - 0.85) / 0.15);
    out.ignitionDwell = m_ignition ? 3.2 : 0.0;
    out.injectionAngle = runs ? 300.0 + 35.0 * m_power : 0.0;
    out.injectionTime = runs ? m_fuelFlow / m_speed * 1.15e6 : 0.0;
    out.wastegate = runs ? 92.0 - 70.0 * m_power : 100.0;
    out.lambdaTrim = runs ? 3.0 - 8.0 * m_power - 0.12 * m_leanExcess : 0.0;
    out.ignition = lamp(m_ignition);
    out.starter = lamp(m_starter);
    out.controlMode = !runs ? 0.0 : m_power > 0.97 ? 3.0 : m_power > 0.85 ? 1.0 : 2.0;
    out.processorLoad = 18.0 + m_speed / 130.0;
    out.ecuTemperatureA = 24.0 + 0.25 * m_coolant;
    out.ecuTemperatureB = 22.0 + 0.24 * m_coolant;

    if (!runs)
        out.engineState = m_starter ? 1.0 : 0.0;
    else if (m_throttle > 0.985)
        out.engineState = 6.0;
    else if (m_throttle > 0.9)
        out.engineState = 5.0;
    else if (m_oilTemperature < 50.0)
        out.engineState = 3.0;
    else
        out.engineState = m_throttle < 0.2 ? 2.0 : 4.0;
}

} // namespace KOLT::SampleCard
