#include "tools/samplecard/ParameterSources.h"

#include <algorithm>
#include <array>
#include <utility>

namespace KOLT::SampleCard {

namespace {

using Q = Quantities;

constexpr auto sources = std::to_array<ParameterSource>({
    {"Engine Speed", &Q::engineSpeed, 9.0},
    {"Manifold Pressure", &Q::manifoldPressure, 3.0},
    {"Throttle A", &Q::throttle, 0.15},
    {"Power Lever A", &Q::powerLever},
    {"Ignition Advance A", &Q::ignitionAdvance, 0.5},
    {"Knock Retard A", &Q::knockRetard, 0.1},
    {"Fuel Flow A", &Q::fuelFlowPerLane, 0.08},
    {"Fuel Pressure A", &Q::fuelPressure, 0.02},
    {"Oil Temperature", &Q::oilTemperature, 0.03},
    {"Oil Pressure", &Q::oilPressure, 0.04},
    {"Coolant Temperature A", &Q::coolantTemperature, 0.2},
    {"Intake Air Temperature", &Q::intakeAirTemperature, 0.2},
    {"EGT 1", &Q::egt1, 2.0},
    {"EGT 2", &Q::egt2, 2.0},
    {"EGT 3", &Q::egt3, 2.0},
    {"EGT 4", &Q::egt4, 2.0},
    {"Bus Voltage A", &Q::busVoltage, 0.03},
    {"Ambient Pressure", &Q::ambientPressure, 0.1},
    {"Engine Hours", &Q::engineHours},
    {"Engine Starts", &Q::engineStarts},
    {"ECU Temperature A", &Q::ecuTemperatureA},
    {"Ignition Dwell A", &Q::ignitionDwell},
    {"Engine State A", &Q::engineState},
    {"Control Mode A", &Q::controlMode},
    {"Lane A Active", &Q::laneAActive},
    {"Ignition A", &Q::ignition},
    {"Starter", &Q::starter},
    {"Injection Angle A", &Q::injectionAngle},
    {"Injection Time A", &Q::injectionTime, 40.0},
    {"Wastegate Position", &Q::wastegate, 0.5},
    {"Carburettor Air Temperature", &Q::carburettorTemperature},

    {"Engine Speed B", &Q::engineSpeed, 9.0},
    {"Manifold Pressure B", &Q::manifoldPressure, 3.0},
    {"Throttle B", &Q::throttle, 0.2},
    {"Power Lever B", &Q::powerLever},
    {"Ignition Advance B", &Q::ignitionAdvance, 0.5},
    {"Knock Retard B", &Q::knockRetard, 0.1},
    {"Fuel Flow B", &Q::fuelFlowPerLane, 0.08},
    {"Fuel Pressure B", &Q::fuelPressure, 0.02},
    {"Bus Voltage B", &Q::busVoltage, 0.03},
    {"Coolant Temperature B", &Q::coolantTemperature, 0.2},
    {"Injection Time B", &Q::injectionTime, 40.0},
    {"Engine State B", &Q::engineState},
    {"Control Mode B", &Q::controlMode},
    {"Lane B Active", &Q::laneBActive},
    {"Ignition B", &Q::ignition},
    {"ECU Temperature B", &Q::ecuTemperatureB},
    {"Ignition Dwell B", &Q::ignitionDwell},
    {"Lambda Trim", &Q::lambdaTrim, 1.0},
    {"Processor Load B", &Q::processorLoad, 2.0},

    {"Alternator Current", &Q::alternatorCurrent, 0.3},
    {"Battery Current", &Q::batteryCurrent, 0.2},
    {"Fuel Level Left", &Q::fuelLevelLeft},
    {"Fuel Level Right", &Q::fuelLevelRight},
    {"Outside Air Temperature", &Q::outsideTemperature, 0.1},
    {"Cabin Temperature", &Q::cabinTemperature},
    {"Carbon Monoxide", &Q::carbonMonoxide, 0.6},
    {"Relative Humidity", &Q::humidity, 0.5},
    {"Propeller Speed", &Q::propellerSpeed, 2.0},
    {"Propeller Pitch", &Q::propellerPitch},
    {"Elevator Trim", &Q::elevatorTrim},
    {"Flap Position", &Q::flaps},
    {"Fuel Pump Main", &Q::fuelPumpMain},
    {"Fuel Pump Auxiliary", &Q::fuelPumpAuxiliary},
    {"Fuel Selector", &Q::fuelSelector},
    {"Tow Hook", &Q::towHook},
    {"Landing Light", &Q::landingLight},
    {"Pitot Heat", &Q::pitotHeat},
    {"Indicated Airspeed", &Q::airspeed, 0.8},
    {"Vertical Speed", &Q::verticalSpeed, 0.08},
    {"Normal Acceleration", &Q::normalAcceleration, 0.015},
    {"Rope Force", &Q::ropeForce, 3.0},
    {"Pressure Altitude", &Q::pressureAltitude, 0.3},
    {"Density Altitude", &Q::densityAltitude, 0.3},

    {"Latitude", &Q::latitude},
    {"Longitude", &Q::longitude},
    {"Altitude", &Q::altitude},
    {"Ground Speed", &Q::groundSpeed},
    {"Track", &Q::track},
    {"Satellites", &Q::satellites},
    {"Geoid Separation", &Q::geoidSeparation},
    {"GPS Fix", &Q::gpsFix},
    {"GPS Week", &Q::gpsWeek},
    {"GPS Time of Day", &Q::gpsTimeOfDay},

    {"Lamp Oil Pressure", &Q::lampOilPressure},
    {"Lamp Oil Temperature", &Q::lampOilTemperature},
    {"Lamp Coolant", &Q::lampCoolant},
    {"Lamp Exhaust Gas", &Q::lampExhaustGas},
    {"Lamp Overspeed", &Q::lampOverspeed},
    {"Lamp Generator", &Q::lampGenerator},
    {"Lamp Fuel Pressure", &Q::lampFuelPressure},
    {"Lamp Low Fuel", &Q::lampLowFuel},
    {"Lamp Lane A", &Q::lampLaneA},
    {"Lamp Lane B", &Q::lampLaneB},
    {"Lamp Tow", &Q::lampTow},
    {"EMU Voltage", &Q::busVoltage, 0.03},
    {"EMU Temperature", &Q::unitTemperature},
    {"Display Brightness", &Q::brightness},
    {"Recorder State", &Q::recorderState},
    {"EMU Run Time", &Q::runTime},
    {"Clock Deviation", &Q::clockDeviation, 0.3},
    {"Fuel Used", &Q::fuelUsed},
});

/// Identifier and messages per second.
constexpr auto rates = std::to_array<std::pair<int, int>>({
    {256, 50}, {257, 10}, {258, 5},  {259, 2},  {260, 2},  {261, 5},  {262, 5},  {263, 2},
    {264, 1},  {265, 5},  {272, 2},  {512, 10}, {513, 10}, {514, 5},  {515, 2},  {516, 1},
    {528, 2},  {768, 2},  {769, 1},  {770, 1},  {771, 2},  {772, 10}, {773, 10}, {774, 1},
    {1024, 5}, {1025, 5}, {1026, 5}, {1027, 1}, {1280, 5}, {1281, 1}, {1282, 1}, {1283, 1},
});

constexpr int stepsPerSecond = 50;

} // namespace

const ParameterSource* parameterSource(std::string_view name)
{
    const auto* const found = std::ranges::find(sources, name, &ParameterSource::name);
    return found == sources.end() ? nullptr : found;
}

std::optional<int> messagePeriod(int identifier)
{
    const auto* const found = std::ranges::find(rates, identifier, &std::pair<int, int>::first);
    if (found == rates.end())
        return {};
    return stepsPerSecond / found->second;
}

} // namespace KOLT::SampleCard
