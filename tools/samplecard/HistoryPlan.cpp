#include "tools/samplecard/HistoryPlan.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace KOLT::SampleCard {

namespace {

constexpr int maxFlightsPerCycle = 4;

constexpr std::array<std::uint32_t, 2> unitSerials{4711023, 4711058};
constexpr std::array<const char*, 2> engineSerials{"E-9150417", "E-9150522"};

/// Something to find in most months; what depends on the flights of the cycle is left out.
void addIncidents(CyclePlan& plan, int number)
{
    if (plan.flights.count < 1)
        return;
    if (number % 5 == 1)
        plan.incidents.push_back({Incident::Overspeed, 1, Phase::Tow, 50.0, 6.0});
    if (number % 8 == 3)
        plan.incidents.push_back({Incident::OilHot, plan.flights.count, Phase::Tow, 5.0, 240.0});
    if (number % 11 == 6)
        plan.incidents.push_back({Incident::LeanMixture, 1, Phase::Tow, 30.0, 40.0});
    if (number % 13 == 4)
        plan.incidents.push_back({Incident::FaultLaneA, 1, Phase::Tow, 20.0, 25.0, "EGT 3 Sensor"});
}

HistoryCycle cycleOf(int flights, bool hasCard, Random& random)
{
    HistoryCycle cycle;
    cycle.hasCard = hasCard;
    cycle.plan.flights.count = flights;
    // The first file has no date, so that each run needs two.
    cycle.plan.fileSeconds = flights == 0 ? 120.0 : 420.0;
    cycle.plan.flights.runway = random.uniform(0.0, 1.0) < 0.6 ? Runway::West : Runway::East;
    cycle.plan.flights.warmUpSeconds = 60.0;
    cycle.plan.flights.towHeight = 0.55;
    cycle.plan.flights.waiting = 0.7;
    cycle.plan.counterStart = random.uniform(2.5, 6.5);
    cycle.plan.engineTemperature = random.uniform(12.0, 55.0);
    return cycle;
}

int drawFlights(int rest, Random& random)
{
    return std::min(rest, 1 + static_cast<int>(random.uniform(0.0, maxFlightsPerCycle)));
}

/// Cycles in no order yet: those with and without a card are mixed as they were flown.
std::vector<HistoryCycle> drawCycles(const HistoryOptions& options, Random& random)
{
    std::vector<HistoryCycle> cycles;
    int recorded = options.flights;
    int missing = options.flightsWithoutCard;
    while (recorded > 0 || missing > 0) {
        const double share = static_cast<double>(missing) / (recorded + missing);
        const bool hasCard = random.uniform(0.0, 1.0) >= share;
        int& rest = hasCard ? recorded : missing;
        const int flights = drawFlights(rest, random);
        rest -= flights;
        cycles.push_back(cycleOf(flights, hasCard, random));
        if (cycles.size() % 17 == 9)
            cycles.push_back(cycleOf(0, true, random));
    }
    return cycles;
}

/// Without a card at the borders nobody could tell which engine the unit has counted.
void recordBorders(std::vector<HistoryCycle>& cycles, int units)
{
    const int count = static_cast<int>(cycles.size());
    const auto isBorder = [&](int i) {
        return i < units || i >= count - units || std::abs(2 * i + 1 - count) <= 2 * units;
    };
    int spare = 0;
    for (int i = 0; i < count; ++i) {
        if (!isBorder(i) || cycles[static_cast<std::size_t>(i)].hasCard)
            continue;
        while (spare < count &&
               (isBorder(spare) || !cycles[static_cast<std::size_t>(spare)].hasCard))
            ++spare;
        if (spare < count)
            std::swap(cycles[static_cast<std::size_t>(i)], cycles[static_cast<std::size_t>(spare)]);
    }
}

/// A unit flies every other cycle, on days that ascend within a month, at most two a day.
void setTimes(std::vector<HistoryCycle>& cycles, const HistoryOptions& options, int months,
              Random& random)
{
    const int count = static_cast<int>(cycles.size());
    const int perMonth = (count + months - 1) / months;
    for (int i = 0; i < count; ++i) {
        HistoryCycle& cycle = cycles[static_cast<std::size_t>(i)];
        cycle.month = i / perMonth;
        cycle.unit = i % options.units;
        const int place = i % perMonth;
        const int halfDays = perMonth + perMonth % 2;
        const int halfDay = place * 54 / halfDays;
        const QDate day = options.firstMonth.addMonths(cycle.month).addDays(halfDay / 2);
        const int hour = halfDay % 2 == 0 ? 8 : 14;
        cycle.plan.clock = QDateTime(day, QTime(hour, 0), Qt::UTC)
                               .addSecs(static_cast<qint64>(random.uniform(0.0, 5400.0)));
        const bool isSummer = day.month() > 4 && day.month() < 10;
        cycle.plan.outsideTemperature =
            isSummer ? random.uniform(15.0, 29.0) : random.uniform(2.0, 14.0);
        const bool haveMoved = options.units > 1 && i >= count / 2;
        const auto unit = static_cast<std::size_t>(cycle.unit);
        cycle.plan.identity = {unitSerials[unit], engineSerials[haveMoved ? 1 - unit : unit]};
        addIncidents(cycle.plan, i);
    }
}

} // namespace

std::vector<HistoryCycle> planHistory(const HistoryOptions& options, Random& random)
{
    std::vector<HistoryCycle> cycles = drawCycles(options, random);
    const int flights = options.flights + options.flightsWithoutCard;
    const int perMonth = std::max(1, options.flightsPerMonth);
    const int months = std::max(1, (flights + perMonth - 1) / perMonth);
    recordBorders(cycles, options.units);
    setTimes(cycles, options, months, random);
    return cycles;
}

} // namespace KOLT::SampleCard
