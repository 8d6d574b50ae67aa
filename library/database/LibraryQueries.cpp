#include "library/database/LibraryQueries.h"

#include "library/database/CycleStore.h"
#include "library/database/FilterSql.h"
#include "library/database/LibraryRows.h"
#include "library/database/QueryRows.h"

namespace KOLT::Library {

namespace {

constexpr qsizetype yearLength = 4;
constexpr qsizetype dayLength = 10; // of "yyyy-MM-dd"

QString yearText(int year)
{
    return year > 0 ? QStringLiteral("%1").arg(year, yearLength, 10, QLatin1Char('0'))
                    : QStringLiteral("");
}

QString cyclesWhere(const QString& condition)
{
    return QStringLiteral("SELECT %1 FROM cycle c LEFT JOIN source s ON s.id = c.source WHERE ")
               .arg(cycleColumns) +
           condition;
}

} // namespace

Answer<std::vector<UnitRow>> LibraryQueries::units(const LibraryFilter& filter)
{
    const Condition condition = cycleCondition(filter);
    auto answer = rowsOf<UnitRow>(
        m_database,
        QStringLiteral("SELECT c.unit, MIN(NULLIF(c.day, '')), MAX(NULLIF(c.day, '')), %1 "
                       "FROM cycle c WHERE %2 GROUP BY c.unit ORDER BY c.unit")
            .arg(sumColumns, condition.sql),
        condition.values, [](const QSqlQuery& query) {
            constexpr int sums = 3;
            return UnitRow{static_cast<quint32>(query.value(0).toLongLong()),
                           {},
                           {},
                           dayFrom(query.value(1)),
                           dayFrom(query.value(2)),
                           sumsFrom(query, sums)};
        });
    const auto engines = rowsOf<std::pair<quint32, QString>>(
        m_database,
        QStringLiteral("SELECT DISTINCT c.unit, c.engine FROM cycle c WHERE %1 "
                       "ORDER BY c.unit, c.engine")
            .arg(condition.sql),
        condition.values, [](const QSqlQuery& query) {
            return std::pair(static_cast<quint32>(query.value(0).toLongLong()),
                             query.value(1).toString());
        });
    if (!answer || !engines)
        return {{}, m_database.error()};
    for (UnitRow& row : answer.value) {
        for (const auto& [unit, engine] : engines.value) {
            if (unit == row.unit && !engine.isEmpty())
                row.engines << engine;
        }
        const auto types = rowsOf<QString>(
            m_database,
            QStringLiteral("SELECT c.ecu_type FROM cycle c WHERE c.unit = ? ORDER BY c.day DESC "
                           "LIMIT 1"),
            {qint64{row.unit}}, [](const QSqlQuery& query) { return query.value(0).toString(); });
        if (!types.value.empty())
            row.ecuType = types.value.front();
    }
    return answer;
}

Answer<std::vector<YearRow>> LibraryQueries::years(quint32 unit, const LibraryFilter& filter)
{
    Condition condition = cycleCondition(filter);
    condition.add(QStringLiteral("c.unit = ?"), {qint64{unit}});
    return rowsOf<YearRow>(m_database,
                           QStringLiteral("SELECT SUBSTR(c.day, 1, 4), %1 FROM cycle c WHERE %2 "
                                          "GROUP BY SUBSTR(c.day, 1, 4) ORDER BY 1 DESC")
                               .arg(sumColumns, condition.sql),
                           condition.values, [](const QSqlQuery& query) {
                               return YearRow{query.value(0).toInt(), sumsFrom(query, 1)};
                           });
}

Answer<std::vector<DayRow>> LibraryQueries::days(quint32 unit, int year,
                                                 const LibraryFilter& filter)
{
    Condition condition = cycleCondition(filter);
    condition.add(QStringLiteral("c.unit = ?"), {qint64{unit}});
    if (year > 0)
        condition.add(QStringLiteral("c.day >= ? AND c.day < ?"),
                      {yearText(year), yearText(year + 1)});
    else
        condition.add(QStringLiteral("c.day = ''"));
    return rowsOf<DayRow>(m_database,
                          QStringLiteral("SELECT c.day, %1 FROM cycle c WHERE %2 GROUP BY c.day "
                                         "ORDER BY c.day DESC")
                              .arg(sumColumns, condition.sql),
                          condition.values, [](const QSqlQuery& query) {
                              return DayRow{dayFrom(query.value(0)), sumsFrom(query, 1)};
                          });
}

Answer<std::vector<CycleRow>> LibraryQueries::cycles(quint32 unit, const QDate& day,
                                                     const LibraryFilter& filter)
{
    Condition condition = cycleCondition(filter);
    condition.add(QStringLiteral("c.unit = ? AND c.day = ?"), {qint64{unit}, dayText(day)});
    return rowsOf<CycleRow>(
        m_database, cyclesWhere(condition.sql) + QStringLiteral(" ORDER BY c.date_time, c.folder"),
        condition.values, cycleFrom);
}

Answer<std::vector<CycleRow>> LibraryQueries::cycles(const LibraryFilter& filter, int limit)
{
    const Condition condition = cycleCondition(filter);
    return rowsOf<CycleRow>(
        m_database,
        limitedSql(cyclesWhere(condition.sql) +
                       QStringLiteral(" ORDER BY c.unit, c.day, c.date_time, c.folder"),
                   limit),
        condition.values, cycleFrom);
}

Answer<std::vector<FlightRow>> LibraryQueries::flights(qint64 cycle)
{
    return rowsOf<FlightRow>(
        m_database,
        QStringLiteral("SELECT %1 FROM flight f JOIN cycle c ON c.id = f.cycle "
                       "WHERE f.cycle = ? ORDER BY f.number")
            .arg(flightColumns),
        {cycle}, flightFrom);
}

Answer<std::vector<FlightRow>> LibraryQueries::flights(const LibraryFilter& filter, int limit,
                                                       const FlightRow* after)
{
    Condition condition = flightCondition(filter);
    if (after != nullptr) {
        const auto times = rowsOf<QString>(
            m_database, QStringLiteral("SELECT COALESCE(date_time, '') FROM cycle WHERE id = ?"),
            {after->cycle}, [](const QSqlQuery& query) { return query.value(0).toString(); });
        if (!times || times.value.empty())
            return {{}, times.error};
        const QString& time = times.value.front();
        condition.add(
            QStringLiteral(
                "c.day <= ? AND (COALESCE(c.date_time, ''), c.id, f.number) < (?, ?, ?)"),
            {boundText(time.left(dayLength)), boundText(time), after->cycle, after->number});
    }
    return rowsOf<FlightRow>(
        m_database,
        limitedSql( // As written: the newest cycles first, and as many as are needed.
            QStringLiteral("SELECT %1 FROM cycle c CROSS JOIN flight f "
                           "WHERE f.cycle = c.id AND %2 "
                           "ORDER BY c.day DESC, c.date_time DESC, c.id DESC, f.number DESC")
                .arg(flightColumns, condition.sql),
            limit),
        condition.values, flightFrom);
}

Answer<int> LibraryQueries::flightCount(const LibraryFilter& filter)
{
    const bool isOfFlights = asksForFlights(filter);
    const Condition condition = isOfFlights ? flightCondition(filter) : cycleCondition(filter);
    const auto counted = rowsOf<int>(
        m_database,
        (isOfFlights ? QStringLiteral("SELECT COUNT(*) FROM cycle c JOIN flight f "
                                      "ON f.cycle = c.id WHERE ")
                     : QStringLiteral("SELECT COALESCE(SUM(c.flights), 0) FROM cycle c WHERE ")) +
            condition.sql,
        condition.values, [](const QSqlQuery& query) { return query.value(0).toInt(); });
    if (!counted)
        return {0, counted.error};
    return {counted.value.front(), {}};
}

Answer<LibrarySums> LibraryQueries::sums(const LibraryFilter& filter)
{
    return sumsWhere(cycleCondition(filter).sql, cycleCondition(filter).values);
}

Answer<LibrarySums> LibraryQueries::sumsWhere(const QString& condition, const QVariantList& values)
{
    const auto summed = rowsOf<LibrarySums>(
        m_database, QStringLiteral("SELECT %1 FROM cycle c WHERE ").arg(sumColumns) + condition,
        values, [](const QSqlQuery& query) { return sumsFrom(query, 0); });
    if (!summed)
        return {{}, summed.error};
    return {summed.value.front(), {}};
}

Answer<std::optional<CycleRow>> LibraryQueries::cycle(const QString& folder)
{
    const auto found = rowsOf<CycleRow>(m_database, cyclesWhere(QStringLiteral("c.folder = ?")),
                                        {folder}, cycleFrom);
    if (!found || found.value.empty())
        return {{}, found.error};
    return {found.value.front(), {}};
}

Answer<std::map<qint64, QList<ArchivedFile>>> LibraryQueries::files(const LibraryFilter& filter)
{
    const Condition condition = cycleCondition(filter);
    Answer<std::map<qint64, QList<ArchivedFile>>> answer;
    const auto files = rowsOf<int>(
        m_database,
        QStringLiteral("SELECT c.id, f.name, f.sha256, f.bytes FROM cycle c JOIN file f "
                       "ON f.cycle = c.id WHERE %1 ORDER BY c.id, f.name")
            .arg(condition.sql),
        condition.values, [&](const QSqlQuery& query) {
            constexpr int bytes = 3;
            answer.value[query.value(0).toLongLong()].push_back({query.value(1).toString(),
                                                                 query.value(2).toString(),
                                                                 query.value(bytes).toLongLong()});
            return 0;
        });
    if (!files)
        return {{}, files.error};
    return answer;
}

Answer<ArchivedCycle> LibraryQueries::archived(qint64 cycle)
{
    const auto known = rowsOf<ArchivedCycle>(
        m_database,
        QStringLiteral("SELECT folder, unit, recorded_engine, engine_type, ecu_type, date_time "
                       "FROM cycle WHERE id = ?"),
        {cycle}, [](const QSqlQuery& query) {
            constexpr int type = 3;
            constexpr int ecu = 4;
            constexpr int time = 5;
            return ArchivedCycle{query.value(0).toString(),
                                 static_cast<quint32>(query.value(1).toLongLong()),
                                 query.value(2).toString(),
                                 query.value(type).toString(),
                                 query.value(ecu).toString(),
                                 dateTimeFrom(query.value(time)),
                                 {}};
        });
    const auto files = rowsOf<ArchivedFile>(
        m_database,
        QStringLiteral("SELECT name, sha256, bytes FROM file WHERE cycle = ? ORDER BY name"),
        {cycle}, [](const QSqlQuery& query) {
            return ArchivedFile{query.value(0).toString(), query.value(1).toString(),
                                query.value(2).toLongLong()};
        });
    if (!known || !files || known.value.empty())
        return {{}, m_database.error()};
    ArchivedCycle result = known.value.front();
    result.files = QList<ArchivedFile>(files.value.begin(), files.value.end());
    return {result, {}};
}

Answer<std::vector<EpisodeRow>> LibraryQueries::episodes(qint64 cycle)
{
    return rowsOf<EpisodeRow>(
        m_database,
        QStringLiteral("SELECT %1 FROM episode e JOIN cycle c ON c.id = e.cycle "
                       "WHERE e.cycle = ? ORDER BY e.number")
            .arg(episodeColumns),
        {cycle}, episodeFrom);
}

Answer<std::vector<FaultRow>> LibraryQueries::faults(qint64 cycle)
{
    return rowsOf<FaultRow>(m_database,
                            QStringLiteral("SELECT %1 FROM fault b JOIN cycle c ON c.id = b.cycle "
                                           "WHERE b.cycle = ? ORDER BY b.number")
                                .arg(faultColumns),
                            {cycle}, faultFrom);
}

Answer<std::vector<FindingRecord>> LibraryQueries::findings(qint64 cycle)
{
    return rowsOf<FindingRecord>(
        m_database,
        QStringLiteral("SELECT kind, severity, files, told, from_seconds, to_seconds FROM finding "
                       "WHERE cycle = ? ORDER BY number"),
        {cycle}, [](const QSqlQuery& query) {
            const auto seconds = [&](int column) {
                return query.isNull(column) ? std::optional<double>()
                                            : query.value(column).toDouble();
            };
            constexpr int text = 3;
            constexpr int from = 4;
            constexpr int to = 5;
            return FindingRecord{
                query.value(0).toString(),
                query.value(1).toString(),
                seconds(from),
                seconds(to),
                query.value(2).toString().split(QLatin1Char('\n'), Qt::SkipEmptyParts),
                query.value(text).toString()};
        });
}

} // namespace KOLT::Library
