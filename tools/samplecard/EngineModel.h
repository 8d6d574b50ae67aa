#pragma once

#include "tools/samplecard/Pilot.h"
#include "tools/samplecard/Quantities.h"

namespace KOLT::SampleCard {

/// The incidents that are active.
struct Trouble
{
    bool oilHot = false;
    bool leanMixture = false;
    bool overspeed = false;
    bool generatorOff = false;
    bool faultLaneA = false;
    bool faultLaneB = false;
};

/// The air around the engine.
struct Surroundings
{
    double temperature = 15.0; ///< °C
    double pressure = 960.0;   ///< hPa
    double airspeed = 0.0;     ///< m/s
};

/// The engine with its fuel and electrical systems. Speeds and pressures follow the throttle within
/// a second, temperatures lag behind.
class EngineModel
{
public:
    /// Temperature of the engine at power-on, and litres in each of the two tanks.
    EngineModel(double temperature, double fuelPerTank);

    void step(const Controls& controls, const Surroundings& air, const Trouble& trouble);

    void refuel() { m_fuelPerTank = 40.0; }

    double fuelPerTank() const { return m_fuelPerTank; }

    void describe(Quantities& out) const;

private:
    void stepSpeed(const Controls& controls, double airspeed, const Trouble& trouble);
    void stepTemperatures(const Surroundings& air, const Trouble& trouble);
    void stepElectrics(const Controls& controls, const Trouble& trouble);
    void stepFuel();
    void describeControl(Quantities& out) const;

    bool running() const { return m_speed > 1000.0; }

    double m_throttle = 0.0; ///< 0..1, lags behind the lever
    double m_lever = 0.0;
    double m_power = 0.0; ///< 0..1 of full power
    double m_speed = 0.0; ///< rpm
    double m_manifold = 960.0;
    double m_fuelFlow = 0.0; ///< l/h, both lanes
    double m_fuelPressure = 0.0;
    double m_oilTemperature = 0.0;
    double m_oilPressure = 0.0;
    double m_coolant = 0.0;
    double m_intakeAir = 0.0;
    double m_exhaust = 0.0;    ///< mean of the cylinders
    double m_leanExcess = 0.0; ///< extra temperature of cylinder 3
    double m_busVoltage = 12.4;
    double m_alternator = 0.0;
    double m_battery = 0.0;
    double m_charge = 1.0; ///< 0..1, battery charge
    double m_fuelPerTank = 0.0;
    double m_fuelUsed = 0.0; ///< litres
    double m_runSeconds = 0.0;
    bool m_starter = false;
    bool m_ignition = false;
};

} // namespace KOLT::SampleCard
