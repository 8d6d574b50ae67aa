#pragma once

#include "tools/samplecard/Pilot.h"

#include <QDateTime>

#include <cstdint>
#include <string_view>
#include <vector>

/// The script of the sample card: its engine cycles with incidents, so that every page of the
/// viewer has something to show.
namespace KOLT::SampleCard {

enum class Incident {
    OilHot,       ///< oil cooler blocked
    LeanMixture,  ///< cylinder 3 runs lean and hot
    Overspeed,    ///< propeller governor lets the engine run away
    GeneratorOff, ///< battery alone carries the bus
    FaultLaneA,   ///< a lane reports the fault bit named
    FaultLaneB,
    GpsJump, ///< positions about 20 km off
    DataGap, ///< nothing is recorded
};

/// Starts `delay` seconds after the pilot enters the phase of that flight (0: before the first).
struct PlannedIncident
{
    Incident kind = Incident::DataGap;
    int flight = 0;
    Phase phase = Phase::WarmUp;
    double delay = 0.0;
    double duration = 0.0;
    std::string_view fault = {}; ///< name of the fault's parameter
};

/// What the headers of the files tell of unit and engine.
struct Identity
{
    std::uint32_t unit = 4711023;
    const char* engine = "E-9150417";
};

struct CyclePlan
{
    Identity identity;
    QDateTime clock; ///< date and time at counter 0
    double counterStart = 4.0;
    double fileSeconds = 600.0;
    double stopCounter = 0.0; ///< end of the recording, 0: when the pilot is done
    double outsideTemperature = 20.0;
    double engineTemperature = 20.0; ///< °C at power-on; warm after an earlier run
    double fuelPerTank = 40.0;       ///< litres
    bool bigEndian = false;
    int fileWithTail = -1; ///< index of a file in the cycle that ends within a sample; -1: none
    FlightPlan flights;
    std::vector<PlannedIncident> incidents;
};

/// A long weekend at a gliding club.
std::vector<CyclePlan> defaultCard();

/// One tow on one morning, in three files: what the program ships to be tried.
std::vector<CyclePlan> shortCard();

/// One engine run of that length, tow after tow.
std::vector<CyclePlan> longCard(double hours);

} // namespace KOLT::SampleCard
