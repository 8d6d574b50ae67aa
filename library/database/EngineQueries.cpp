#include "library/database/CycleStore.h"
#include "library/database/LibraryQueries.h"
#include "library/database/LibraryRows.h"
#include "library/database/QueryRows.h"

#include <algorithm>

/// What the library tells of engines.
namespace KOLT::Library {

namespace {

constexpr QLatin1String monthDay("-01");

/// The first and the last reading of a counter of the unit with an engine.
struct Readings
{
    std::optional<CounterSpan> span;
    QString day; ///< of the last one
    QString error;
};

/// Of the cycles with a date, or of those without.
Readings readingsOf(LibraryDatabase& database, const QString& engine, quint32 unit,
                    const QString& counter, bool isDated)
{
    Readings result;
    for (const bool isFirst : {true, false}) {
        const auto found = rowsOf<std::pair<double, QString>>(
            database,
            QStringLiteral("SELECT c.%1_%3, c.day FROM cycle c WHERE c.engine = ? AND c.unit = ? "
                           "AND c.month %4 '' AND c.%1_last IS NOT NULL "
                           "ORDER BY c.month %2, c.date_time %2, c.folder %2 LIMIT 1")
                .arg(counter, isFirst ? QStringLiteral("ASC") : QStringLiteral("DESC"),
                     isFirst ? QStringLiteral("first") : QStringLiteral("last"),
                     isDated ? QStringLiteral(">") : QStringLiteral("=")),
            {boundText(engine), qint64{unit}}, [](const QSqlQuery& query) {
                return std::pair(query.value(0).toDouble(), query.value(1).toString());
            });
        result.error = found.error;
        if (!found || found.value.empty())
            return result;
        const auto& [value, day] = found.value.front();
        if (isFirst)
            result.span.emplace().first = value;
        else
            result.span->last = value;
        result.day = day;
    }
    return result;
}

Readings readingsOf(LibraryDatabase& database, const QString& engine, quint32 unit,
                    const QString& counter)
{
    const Readings dated = readingsOf(database, engine, unit, counter, true);
    return dated.span || !dated.error.isEmpty()
               ? dated
               : readingsOf(database, engine, unit, counter, false);
}

/// Adds what the row lacks besides sums and bands; returns an error.
QString complete(LibraryDatabase& database, EngineRow& row)
{
    const auto units = rowsOf<quint32>(
        database,
        QStringLiteral("SELECT DISTINCT c.unit FROM cycle c WHERE c.engine = ? ORDER BY c.unit"),
        {boundText(row.engine)},
        [](const QSqlQuery& query) { return static_cast<quint32>(query.value(0).toLongLong()); });
    const auto types = rowsOf<QString>(
        database,
        QStringLiteral("SELECT c.engine_type FROM cycle c WHERE c.engine = ? "
                       "ORDER BY c.month DESC, c.date_time DESC LIMIT 1"),
        {boundText(row.engine)}, [](const QSqlQuery& query) { return query.value(0).toString(); });
    if (!units || !types)
        return database.error();
    row.engineType = types.value.empty() ? QString() : types.value.front();
    QString hoursDay;
    QString startsDay;
    const auto isNewer = [](const Readings& readings, QString& day) {
        if (!readings.span || (!day.isNull() && readings.day < day))
            return false;
        day = readings.day;
        return true;
    };
    for (const quint32 unit : units.value) {
        row.units << unit;
        const Readings hours = readingsOf(database, row.engine, unit, QStringLiteral("unit_hours"));
        const Readings starts =
            readingsOf(database, row.engine, unit, QStringLiteral("unit_starts"));
        if (!hours.error.isEmpty() || !starts.error.isEmpty())
            return database.error();
        row.counters.push_back({unit, hours.span, starts.span});
        if (isNewer(hours, hoursDay))
            row.unitHours = hours.span->last;
        if (isNewer(starts, startsDay))
            row.unitStarts = starts.span->last;
    }
    return {};
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

Answer<std::vector<EngineRow>> enginesLike(LibraryDatabase& database,
                                           const std::optional<QString>& engine)
{
    auto answer = rowsOf<EngineRow>(
        database,
        QStringLiteral("SELECT c.engine, MIN(NULLIF(c.day, '')), MAX(NULLIF(c.day, '')), %1 "
                       "FROM cycle c %2 GROUP BY c.engine ORDER BY c.engine")
            .arg(sumColumns, engine ? QStringLiteral("WHERE c.engine = ?") : QString()),
        engine ? QVariantList{boundText(*engine)} : QVariantList(), [](const QSqlQuery& query) {
            constexpr int sums = 3;
            EngineRow row;
            row.engine = query.value(0).toString();
            row.first = dayFrom(query.value(1));
            row.last = dayFrom(query.value(2));
            row.sums = sumsFrom(query, sums);
            return row;
        });
    for (EngineRow& row : answer.value) {
        if (answer)
            answer.error = complete(database, row);
    }
    if (answer)
        answer.error = addBands(database, engine, answer.value);
    if (!answer)
        answer.value.clear();
    return answer;
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

Answer<std::vector<EpisodeRow>> LibraryQueries::engineEpisodes(const QString& engine, int limit,
                                                               int offset)
{
    return rowsOf<EpisodeRow>(
        m_database,
        limitedSql(QStringLiteral("SELECT %1 FROM cycle c JOIN episode e ON e.cycle = c.id "
                                  "WHERE c.engine = ? ORDER BY c.month DESC, c.date_time DESC, "
                                  "c.id DESC, e.number DESC")
                       .arg(episodeColumns),
                   limit, offset),
        {boundText(engine)}, episodeFrom);
}

Answer<std::vector<FaultRow>> LibraryQueries::engineFaults(const QString& engine, int limit,
                                                           int offset)
{
    return rowsOf<FaultRow>(
        m_database,
        limitedSql(QStringLiteral("SELECT %1 FROM cycle c JOIN fault b ON b.cycle = c.id "
                                  "WHERE c.engine = ? ORDER BY c.month DESC, c.date_time DESC, "
                                  "c.id DESC, b.number DESC")
                       .arg(faultColumns),
                   limit, offset),
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
