#include "library/database/CycleStore.h"
#include "library/database/LibraryQueries.h"
#include "library/database/LibraryRows.h"
#include "library/database/QueryRows.h"

#include <algorithm>

/// What the library tells of engines.
namespace KOLT::Library {

namespace {

constexpr QLatin1String monthDay("-01");

/// The first and the last reading of a counter of a unit with an engine.
struct Readings
{
    std::optional<CounterSpan> span;
    QString day; ///< of the last one
};

struct EngineUnit
{
    QString engine;
    quint32 unit = 0;
    Readings hours;
    Readings starts;
};

/// The column of the first or the last cycle of engine and unit u that has the counter: of those
/// with a date, or of those without.
QString readingSql(const QString& column, const QString& counter, bool isFirst, bool isDated)
{
    return QStringLiteral("(SELECT c.%1 FROM cycle c WHERE c.engine = u.engine "
                          "AND c.unit = u.unit AND c.month %2 '' AND c.%3_last IS NOT NULL "
                          "ORDER BY c.month %4, c.date_time %4, c.folder %4 LIMIT 1)")
        .arg(column, isDated ? QStringLiteral(">") : QStringLiteral("="), counter,
             isFirst ? QStringLiteral("ASC") : QStringLiteral("DESC"));
}

/// First, last and day of the last. Nothing is searched where there is no reading.
QString readingsSql(const QString& counter, const QString& count)
{
    const auto either = [&](const QString& column, bool isFirst) {
        return QStringLiteral("CASE WHEN u.%1 > 0 THEN COALESCE(%2, %3) END")
            .arg(count, readingSql(column, counter, isFirst, true),
                 readingSql(column, counter, isFirst, false));
    };
    return QStringLiteral("%1, %2, %3")
        .arg(either(counter + QStringLiteral("_first"), true),
             either(counter + QStringLiteral("_last"), false),
             either(QStringLiteral("day"), false));
}

Readings readingsFrom(const QSqlQuery& query, int first)
{
    if (query.isNull(first) || query.isNull(first + 1))
        return {};
    return {CounterSpan{query.value(first).toDouble(), query.value(first + 1).toDouble()},
            query.value(first + 2).toString()};
}

/// In one statement, as a server takes its time for each.
Answer<std::vector<EngineUnit>> unitsOf(LibraryDatabase& database,
                                        const std::optional<QString>& engine)
{
    return rowsOf<EngineUnit>(
        database,
        QStringLiteral("SELECT u.engine, u.unit, %1, %2 FROM engine_unit u %3 "
                       "ORDER BY u.engine, u.unit")
            .arg(readingsSql(QStringLiteral("unit_hours"), QStringLiteral("hours_readings")),
                 readingsSql(QStringLiteral("unit_starts"), QStringLiteral("starts_readings")),
                 engine ? QStringLiteral("WHERE u.engine = ?") : QString()),
        engine ? QVariantList{boundText(*engine)} : QVariantList(), [](const QSqlQuery& query) {
            constexpr int hours = 2;
            constexpr int starts = 5;
            return EngineUnit{query.value(0).toString(),
                              static_cast<quint32>(query.value(1).toLongLong()),
                              readingsFrom(query, hours), readingsFrom(query, starts)};
        });
}

/// Adds what the rows lack besides sums and bands; returns an error.
QString addUnits(LibraryDatabase& database, const std::optional<QString>& engine,
                 std::vector<EngineRow>& rows)
{
    const auto units = unitsOf(database, engine);
    const auto isNewer = [](const Readings& readings, QString& day) {
        if (!readings.span || (!day.isNull() && readings.day < day))
            return false;
        day = readings.day;
        return true;
    };
    auto unit = units.value.begin(); // both are in the same order
    for (EngineRow& row : rows) {
        QString hoursDay;
        QString startsDay;
        for (; unit != units.value.end() && unit->engine == row.engine; ++unit) {
            row.units << unit->unit;
            row.counters.push_back({unit->unit, unit->hours.span, unit->starts.span});
            if (isNewer(unit->hours, hoursDay))
                row.unitHours = unit->hours.span->last;
            if (isNewer(unit->starts, startsDay))
                row.unitStarts = unit->starts.span->last;
        }
    }
    return units.error;
}

struct EngineBand
{
    QString engine;
    BandTime band;
};

QString addBands(LibraryDatabase& database, const std::optional<QString>& engine,
                 std::vector<EngineRow>& rows)
{
    const auto bands = rowsOf<EngineBand>(
        database,
        QStringLiteral("SELECT engine, quantity, state, micros FROM engine_band %1 "
                       "ORDER BY engine, quantity, state")
            .arg(engine ? QStringLiteral("WHERE engine = ?") : QString()),
        engine ? QVariantList{boundText(*engine)} : QVariantList(), [](const QSqlQuery& query) {
            constexpr int state = 2;
            constexpr int micros = 3;
            return EngineBand{query.value(0).toString(),
                              {query.value(1).toString(),
                               static_cast<ThresholdState>(query.value(state).toInt()),
                               secondsOfMicros(query.value(micros))}};
        });
    auto row = rows.begin();
    for (const EngineBand& one : bands.value) {
        // Both are in the same order.
        const auto found = std::find_if(
            row, rows.end(), [&](const EngineRow& other) { return other.engine == one.engine; });
        if (found == rows.end())
            continue;
        row = found;
        row->bands.push_back(one.band);
    }
    return bands.error;
}

/// A column of the first cycle of engine c in this order.
QString ofEngine(const char* column, const char* condition, const char* order)
{
    return QStringLiteral("(SELECT t.%1 FROM cycle t WHERE t.engine = c.engine AND %2 "
                          "ORDER BY %3 LIMIT 1)")
        .arg(QLatin1String(column), QLatin1String(condition), QLatin1String(order));
}

Answer<std::vector<EngineRow>> enginesLike(LibraryDatabase& database,
                                           const std::optional<QString>& engine)
{
    auto answer = rowsOf<EngineRow>(
        database,
        QStringLiteral("SELECT c.engine, %1, %2, %3, %4 FROM engine_unit c %5 "
                       "GROUP BY c.engine ORDER BY c.engine")
            .arg(ofEngine("day", "t.month > ''", "t.month, t.day"),
                 ofEngine("day", "t.month > ''", "t.month DESC, t.day DESC"),
                 ofEngine("engine_type", "1 = 1", "t.month DESC, t.date_time DESC"),
                 QString(sumColumns)
                     .replace(QLatin1String("COUNT(*)"), QLatin1String("SUM(c.cycles)")),
                 engine ? QStringLiteral("WHERE c.engine = ?") : QString()),
        engine ? QVariantList{boundText(*engine)} : QVariantList(), [](const QSqlQuery& query) {
            constexpr int type = 3;
            constexpr int sums = 4;
            EngineRow row;
            row.engine = query.value(0).toString();
            row.first = dayFrom(query.value(1));
            row.last = dayFrom(query.value(2));
            row.engineType = query.value(type).toString();
            row.sums = sumsFrom(query, sums);
            return row;
        });
    if (answer)
        answer.error = addUnits(database, engine, answer.value);
    if (answer)
        answer.error = addBands(database, engine, answer.value);
    if (!answer)
        answer.value.clear();
    return answer;
}

/// The newest rows of a table that belong to an engine.
QString newestSql(QLatin1String columns, const char* table, const char* alias, int limit)
{
    return limitedSql(QStringLiteral("SELECT %1 FROM cycle c JOIN %2 %3 ON %3.cycle = c.id "
                                     "WHERE c.engine = ? ORDER BY c.month DESC, c.date_time DESC, "
                                     "c.id DESC, %3.number DESC")
                          .arg(columns, QLatin1String(table), QLatin1String(alias)),
                      limit);
}

} // namespace

Answer<std::vector<EngineRow>> LibraryQueries::engines()
{
    return enginesLike(m_database, {});
}

Answer<std::optional<EngineRow>> LibraryQueries::engine(const QString& engine)
{
    const auto found = enginesLike(m_database, engine);
    if (!found || found.value.empty())
        return {{}, found.error};
    return {found.value.front(), {}};
}

Answer<std::vector<MonthRow>> LibraryQueries::months(const QString& engine)
{
    return rowsOf<MonthRow>(
        m_database,
        QStringLiteral("SELECT c.month, %1 FROM cycle c WHERE c.engine = ? "
                       "GROUP BY c.month ORDER BY c.month")
            .arg(sumColumns),
        {boundText(engine)}, [](const QSqlQuery& query) {
            return MonthRow{dayFrom(query.value(0).toString() + monthDay), sumsFrom(query, 1)};
        });
}

Answer<std::vector<EpisodeRow>> LibraryQueries::engineEpisodes(const QString& engine, int limit)
{
    return rowsOf<EpisodeRow>(m_database, newestSql(episodeColumns, "episode", "e", limit),
                              {boundText(engine)}, episodeFrom);
}

Answer<std::vector<FaultRow>> LibraryQueries::engineFaults(const QString& engine, int limit)
{
    return rowsOf<FaultRow>(m_database, newestSql(faultColumns, "fault", "b", limit),
                            {boundText(engine)}, faultFrom);
}

Answer<LibrarySums> LibraryQueries::engineSince(const QString& engine, const QDateTime& from)
{
    constexpr qsizetype monthLength = 7;
    const QString moment = bound(from).toString();
    return sumsWhere(QStringLiteral("c.engine = ? AND c.month >= ? AND c.date_time >= ?"),
                     {boundText(engine), moment.left(monthLength), moment});
}

Answer<std::vector<Installation>> LibraryQueries::installations()
{
    return rowsOf<Installation>(
        m_database,
        QStringLiteral("SELECT engine, unit, from_day, to_day FROM installation "
                       "ORDER BY unit, COALESCE(from_day, ''), engine"),
        {}, [](const QSqlQuery& query) {
            constexpr int from = 2;
            constexpr int to = 3;
            return Installation{query.value(0).toString(),
                                static_cast<quint32>(query.value(1).toLongLong()),
                                dayFrom(query.value(from)), dayFrom(query.value(to))};
        });
}

} // namespace KOLT::Library
