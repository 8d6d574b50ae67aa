#pragma once

#include "library/database/LibraryDatabase.h"

namespace KOLT::Library {

/// What a unit's counter says of an engine: how far it went on in the cycles of that engine, and
/// between two of them that follow each other in the unit. What it counted while the engine
/// changed is nobody's. A counter that went back was set or replaced: that step does not count.
struct CountedUse
{
    double used = 0.0;     ///< all that the counter went on
    double recorded = 0.0; ///< of that, within cycles
    std::optional<double> first;
    std::optional<double> last; ///< the latest reading

    /// The counter went on without a recording.
    double missed() const { return used > recorded ? used - recorded : 0.0; }
};

/// One cycle of a unit, as the counter saw it.
struct CountedCycle
{
    quint32 unit = 0;
    QString engine;
    QString time; ///< as the database has it, in order as text; empty without a date
    std::optional<CounterSpan> hours;
    std::optional<CounterSpan> starts;
};

struct EngineUse
{
    CountedUse hours;
    CountedUse starts;
};

/// `cycles` by unit and time, those without a date anywhere in their unit.
EngineUse engineUse(const std::vector<CountedCycle>& cycles, const QString& engine);

/// All cycles of the units that had the engine, by unit and time.
Answer<std::vector<CountedCycle>> countedCycles(LibraryDatabase& database, const QString& engine);

} // namespace KOLT::Library
