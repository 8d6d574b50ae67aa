#pragma once

#include "tools/samplecard/CardPlan.h"
#include "tools/samplecard/Random.h"

#include <QDate>

#include <cstdint>
#include <vector>

namespace KOLT::SampleCard {

struct HistoryOptions
{
    QString folder;      ///< created if missing; gets a folder for each card
    QString profilePath; ///< defines how values are encoded in messages
    std::uint64_t seed = 1;
    int flights = 300;          ///< on the cards
    int flightsWithoutCard = 0; ///< flown beside these with no card in the unit
    int flightsPerMonth = 25;
    int units = 2; ///< 1 or 2, each with an engine; of two, the engines change places
    QDate firstMonth{2025, 4, 1};
};

/// A run of an engine in a history.
struct HistoryCycle
{
    CyclePlan plan;
    int unit = 0;        ///< index
    int month = 0;       ///< since the first
    bool hasCard = true; ///< recorded
};

/// The engine runs of all units in order of time. Halfway, the engines of two units change places.
/// The first and last run of an engine in a unit are always recorded.
std::vector<HistoryCycle> planHistory(const HistoryOptions& options, Random& random);

} // namespace KOLT::SampleCard
