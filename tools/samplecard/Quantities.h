#pragma once

#include <string_view>
#include <vector>

namespace KOLT::SampleCard {

/// All quantities that the recording unit sends, at one moment, in the profile's metric units.
/// States are numbers of their enumerations.
struct Quantities
{
    // Engine
    double engineSpeed = 0.0;
    double manifoldPressure = 0.0;
    double throttle = 0.0;
    double powerLever = 0.0;
    double ignitionAdvance = 0.0;
    double knockRetard = 0.0;
    double ignitionDwell = 0.0;
    double fuelFlowPerLane = 0.0;
    double fuelPressure = 0.0;
    double oilTemperature = 0.0;
    double oilPressure = 0.0;
    double coolantTemperature = 0.0;
    double intakeAirTemperature = 0.0;
    double carburettorTemperature = 0.0;
    double egt1 = 0.0;
    double egt2 = 0.0;
    double egt3 = 0.0;
    double egt4 = 0.0;
    double engineHours = 0.0;
    double engineStarts = 0.0;
    double injectionAngle = 0.0;
    double injectionTime = 0.0;
    double wastegate = 0.0;
    double lambdaTrim = 0.0;
    double engineState = 0.0;
    double controlMode = 0.0;
    double laneAActive = 0.0;
    double laneBActive = 0.0;
    double ignition = 0.0;
    double starter = 0.0;
    double ecuTemperatureA = 0.0;
    double ecuTemperatureB = 0.0;
    double processorLoad = 0.0;

    // Airframe
    double busVoltage = 0.0;
    double alternatorCurrent = 0.0;
    double batteryCurrent = 0.0;
    double fuelLevelLeft = 0.0;
    double fuelLevelRight = 0.0;
    double ambientPressure = 0.0;
    double outsideTemperature = 0.0;
    double cabinTemperature = 0.0;
    double carbonMonoxide = 0.0;
    double humidity = 0.0;
    double propellerSpeed = 0.0;
    double propellerPitch = 0.0;
    double elevatorTrim = 0.0;
    double flaps = 0.0;
    double fuelPumpMain = 0.0;
    double fuelPumpAuxiliary = 0.0;
    double fuelSelector = 0.0;
    double towHook = 0.0;
    double landingLight = 0.0;
    double pitotHeat = 0.0;
    double airspeed = 0.0;
    double verticalSpeed = 0.0;
    double normalAcceleration = 0.0;
    double ropeForce = 0.0;
    double pressureAltitude = 0.0;
    double densityAltitude = 0.0;

    // GPS; positions in decimal degrees
    double latitude = 0.0;
    double longitude = 0.0;
    double altitude = 0.0;
    double groundSpeed = 0.0;
    double track = 0.0;
    double satellites = 0.0;
    double geoidSeparation = 0.0;
    double gpsFix = 0.0;
    double gpsWeek = 0.0;
    double gpsTimeOfDay = 0.0;

    // Management unit
    double lampOilPressure = 0.0;
    double lampOilTemperature = 0.0;
    double lampCoolant = 0.0;
    double lampExhaustGas = 0.0;
    double lampOverspeed = 0.0;
    double lampGenerator = 0.0;
    double lampFuelPressure = 0.0;
    double lampLowFuel = 0.0;
    double lampLaneA = 0.0;
    double lampLaneB = 0.0;
    double lampTow = 0.0;
    double unitTemperature = 0.0;
    double brightness = 0.0;
    double recorderState = 0.0;
    double runTime = 0.0;
    double clockDeviation = 0.0;
    double fuelUsed = 0.0;

    std::vector<std::string_view> faults; ///< parameter names of the set fault bits
};

} // namespace KOLT::SampleCard
