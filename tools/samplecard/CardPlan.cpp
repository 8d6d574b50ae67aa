#include "tools/samplecard/CardPlan.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT::SampleCard {

namespace {

QDateTime clock(int day, int hour, int minute, int second)
{
    return {QDate(2024, 5, day), QTime(hour, minute, second), Qt::UTC};
}

/// A hot Saturday with two busy towing sessions; the oil and one cylinder get too hot.
void addSaturday(std::vector<CyclePlan>& card)
{
    CyclePlan morning;
    morning.clock = clock(18, 8, 12, 31);
    morning.counterStart = 3.4;
    morning.outsideTemperature = 22.0;
    morning.engineTemperature = 18.0;
    morning.flights.count = 5;
    morning.incidents = {{Incident::OilHot, 4, Phase::Tow, 20.0, 260.0}};
    card.push_back(morning);

    CyclePlan afternoon;
    afternoon.clock = clock(18, 13, 40, 7);
    afternoon.counterStart = 5.12;
    afternoon.outsideTemperature = 27.0;
    afternoon.engineTemperature = 58.0;
    afternoon.fuelPerTank = 17.5;
    afternoon.fileWithTail = 1;
    afternoon.flights.count = 4;
    afternoon.incidents = {{Incident::LeanMixture, 2, Phase::Tow, 70.0, 35.0},
                           {Incident::FaultLaneA, 3, Phase::Tow, 40.0, 25.0, "EGT 3 Sensor"},
                           {Incident::FaultLaneA, 3, Phase::Descent, 12.0, 8.0, "EGT 3 Sensor"}};
    card.push_back(afternoon);
}

/// Sunday: an engine test on the ground, then tows on the other runway.
void addSunday(std::vector<CyclePlan>& card)
{
    CyclePlan groundTest;
    groundTest.clock = clock(19, 7, 55, 48);
    groundTest.counterStart = 2.6;
    groundTest.fileSeconds = 300.0;
    groundTest.outsideTemperature = 14.0;
    groundTest.engineTemperature = 13.0;
    groundTest.flights.count = 0;
    groundTest.flights.warmUpSeconds = 280.0;
    groundTest.flights.runUpSeconds = 75.0;
    card.push_back(groundTest);

    CyclePlan midday;
    midday.clock = clock(19, 10, 21, 15);
    midday.counterStart = 4.2;
    midday.outsideTemperature = 19.0;
    midday.engineTemperature = 32.0;
    midday.flights.runway = Runway::East;
    midday.flights.count = 2;
    midday.flights.abortedBefore = 1;
    midday.incidents = {{Incident::Overspeed, 1, Phase::Tow, 110.0, 5.0},
                        {Incident::GpsJump, 2, Phase::Tow, 60.0, 1.6}};
    card.push_back(midday);

    CyclePlan afternoon;
    afternoon.clock = clock(19, 15, 3, 59);
    afternoon.counterStart = 6.0;
    afternoon.outsideTemperature = 21.0;
    afternoon.engineTemperature = 45.0;
    afternoon.bigEndian = true;
    afternoon.flights.runway = Runway::East;
    afternoon.flights.count = 2;
    afternoon.incidents = {{Incident::GeneratorOff, 1, Phase::Tow, 45.0, 95.0}};
    card.push_back(afternoon);
}

/// The holiday after it: few flights, and a recording that ends in the air.
void addMonday(std::vector<CyclePlan>& card)
{
    CyclePlan morning;
    morning.clock = clock(20, 9, 30, 2);
    morning.counterStart = 3.0;
    morning.fileSeconds = 480.0;
    morning.outsideTemperature = 17.0;
    morning.engineTemperature = 16.0;
    morning.flights.count = 1;
    morning.incidents = {{Incident::DataGap, 1, Phase::Hookup, 6.0, 60.0},
                         {Incident::FaultLaneB, 1, Phase::Tow, 90.0, 40.0, "Lane Link B"},
                         {Incident::FaultLaneB, 1, Phase::Tow, 95.0, 12.0, "Throttle Sensor 2 B"}};
    card.push_back(morning);

    CyclePlan evening;
    evening.clock = clock(20, 17, 46, 20);
    evening.counterStart = 4.6;
    evening.outsideTemperature = 20.0;
    evening.engineTemperature = 28.0;
    evening.flights.count = 1;
    evening.flights.endsInTheAir = true;
    card.push_back(evening);
}

} // namespace

std::vector<CyclePlan> defaultCard()
{
    std::vector<CyclePlan> card;
    addSaturday(card);
    addSunday(card);
    addMonday(card);
    return card;
}

std::vector<CyclePlan> shortCard()
{
    CyclePlan cycle;
    cycle.clock = clock(25, 9, 41, 12);
    cycle.fileSeconds = 330.0;
    cycle.outsideTemperature = 18.0;
    cycle.engineTemperature = 45.0;
    cycle.flights.count = 1;
    cycle.incidents = {{Incident::Overspeed, 1, Phase::Tow, 110.0, 5.0}};
    return {cycle};
}

std::vector<CyclePlan> longCard(double hours)
{
    CyclePlan cycle;
    cycle.clock = clock(22, 5, 0, 0);
    const double seconds = hours * 3600.0;
    cycle.stopCounter = cycle.counterStart + seconds;
    // A cycle needs a second file, as its first one has no date.
    cycle.fileSeconds = std::clamp(std::floor(seconds / 2.0), 1.0, 1800.0);
    cycle.flights.count = std::numeric_limits<int>::max();
    return {cycle};
}

} // namespace KOLT::SampleCard
