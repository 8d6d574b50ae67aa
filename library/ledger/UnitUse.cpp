#include "library/ledger/UnitUse.h"

#include "library/database/QueryRows.h"

#include <algorithm>
#include <limits>
#include <map>

namespace KOLT::Library {

namespace {

using SpanOf = std::optional<CounterSpan> CountedCycle::*;

/// The lowest last and the highest first reading of a unit.
struct DatedReadings
{
    double lowestLast = std::numeric_limits<double>::infinity();
    double highestFirst = -std::numeric_limits<double>::infinity();
};

std::map<quint32, DatedReadings> datedReadings(const std::vector<CountedCycle>& cycles,
                                               SpanOf spanOf)
{
    std::map<quint32, DatedReadings> readings;
    for (const CountedCycle& cycle : cycles) {
        const std::optional<CounterSpan>& span = cycle.*spanOf;
        if (!span || cycle.time.isEmpty())
            continue;
        DatedReadings& unit = readings[cycle.unit];
        unit.lowestLast = std::min(unit.lowestLast, span->last);
        unit.highestFirst = std::max(unit.highestFirst, span->first);
    }
    return readings;
}

/// Cycles without a date have no place among the others: what they counted is already in the step
/// between two of these, unless it lies before or behind all of them.
void addUndated(const std::vector<CountedCycle>& cycles, const QString& engine, SpanOf spanOf,
                CountedUse& use)
{
    std::map<quint32, DatedReadings> dated = datedReadings(cycles, spanOf);
    for (const CountedCycle& cycle : cycles) {
        const std::optional<CounterSpan>& span = cycle.*spanOf;
        if (!span || !cycle.time.isEmpty() || cycle.engine != engine)
            continue;
        const double within = std::max(0.0, span->last - span->first);
        const DatedReadings& others = dated[cycle.unit];
        use.recorded += within;
        if (others.lowestLast > span->first || others.highestFirst < span->last)
            use.used += within;
    }
}

CountedUse useOf(const std::vector<CountedCycle>& cycles, const QString& engine, SpanOf spanOf)
{
    CountedUse use;
    const CountedCycle* before = nullptr; // in the same unit, with a reading
    QString latest;
    for (const CountedCycle& cycle : cycles) {
        const std::optional<CounterSpan>& span = cycle.*spanOf;
        if (!span || cycle.time.isEmpty())
            continue;
        const bool follows = before != nullptr && before->unit == cycle.unit;
        if (cycle.engine == engine) {
            if (follows && before->engine == engine)
                use.used += std::max(0.0, span->first - (before->*spanOf)->last);
            const double within = std::max(0.0, span->last - span->first);
            use.used += within;
            use.recorded += within;
            if (!use.last || latest <= cycle.time) {
                use.last = span->last;
                latest = cycle.time;
            }
        }
        before = &cycle;
    }
    addUndated(cycles, engine, spanOf, use);
    QString earliest;
    for (const CountedCycle& cycle : cycles) {
        const std::optional<CounterSpan>& span = cycle.*spanOf;
        const bool counts = span && !cycle.time.isEmpty() && cycle.engine == engine;
        if (counts && (!use.first || cycle.time < earliest)) {
            use.first = span->first;
            earliest = cycle.time;
        }
    }
    return use;
}

} // namespace

EngineUse engineUse(const std::vector<CountedCycle>& cycles, const QString& engine)
{
    return {useOf(cycles, engine, &CountedCycle::hours),
            useOf(cycles, engine, &CountedCycle::starts)};
}

Answer<std::vector<CountedCycle>> countedCycles(LibraryDatabase& database, const QString& engine)
{
    return rowsOf<CountedCycle>(
        database,
        QStringLiteral("SELECT unit, engine, date_time, unit_hours_first, unit_hours_last, "
                       "unit_starts_first, unit_starts_last FROM cycle WHERE unit IN "
                       "(SELECT unit FROM cycle WHERE engine = ?) "
                       "ORDER BY unit, month, date_time, folder"),
        {engine.isNull() ? QString(QLatin1String("")) : engine}, [](const QSqlQuery& query) {
            const auto span = [&](int column) -> std::optional<CounterSpan> {
                if (query.isNull(column) || query.isNull(column + 1))
                    return {};
                return CounterSpan{query.value(column).toDouble(),
                                   query.value(column + 1).toDouble()};
            };
            constexpr int time = 2;
            constexpr int hours = 3;
            constexpr int starts = 5;
            return CountedCycle{static_cast<quint32>(query.value(0).toLongLong()),
                                query.value(1).toString(), query.value(time).toString(),
                                span(hours), span(starts)};
        });
}

} // namespace KOLT::Library
