#include "library/database/CycleStore.h"

#include "library/database/LibraryConnection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <tuple>

namespace KOLT::Library {

namespace {

constexpr qsizetype monthLength = 7; // of "yyyy-MM"

/// The engine of a cycle: as people say, otherwise as its files say.
constexpr QLatin1String engineOfCycle(
    "COALESCE((SELECT i.engine FROM installation i WHERE i.unit = cycle.unit "
    "AND (i.from_day IS NULL OR (cycle.day <> '' AND i.from_day <= cycle.day)) "
    "AND (i.to_day IS NULL OR (cycle.day <> '' AND i.to_day >= cycle.day)) "
    "ORDER BY COALESCE(i.from_day, '') DESC, i.engine LIMIT 1), cycle.recorded_engine)");

/// Columns of a cycle that engine_unit has the sums of, in its order.
constexpr std::array engineSums{"flights",    "starts",          "episodes",    "limits",
                                "run_micros", "recorded_micros", "air_seconds", "fuel_micros"};

} // namespace

QVariant boundText(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

QVariant bound(double number)
{
    return std::isfinite(number) ? QVariant(number) : QVariant(QMetaType(QMetaType::Double));
}

QVariant bound(const std::optional<double>& number)
{
    return bound(number.value_or(std::numeric_limits<double>::quiet_NaN()));
}

QVariant bound(const std::optional<int>& number)
{
    return number ? QVariant(*number) : QVariant(QMetaType(QMetaType::Int));
}

QVariant bound(const QDateTime& dateTime)
{
    return dateTime.isValid()
               ? QVariant(dateTime.toString(QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz")))
               : QVariant(QMetaType(QMetaType::QString));
}

QString dayText(const QDate& day)
{
    return day.isValid() ? day.toString(QStringLiteral("yyyy-MM-dd")) : QStringLiteral("");
}

qint64 microsOf(double value)
{
    constexpr double perUnit = 1e6;
    constexpr double most = 9e18;
    return std::isfinite(value) ? std::llround(std::clamp(value * perUnit, -most, most)) : 0;
}

bool CycleStore::putCycle(const ArchivedCycle& cycle)
{
    const QString day = dayText(cycle.dateTime.date());
    QSqlQuery& query = m_connection.runKept(
        QStringLiteral("INSERT INTO cycle (folder, unit, engine, recorded_engine, engine_type, "
                       "ecu_type, date_time, day, month, files) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, "
                       "?) ON CONFLICT (folder) DO UPDATE SET unit = excluded.unit, "
                       "recorded_engine = excluded.recorded_engine, "
                       "engine_type = excluded.engine_type, ecu_type = excluded.ecu_type, "
                       "date_time = excluded.date_time, day = excluded.day, "
                       "month = excluded.month, files = excluded.files RETURNING id"),
        {cycle.folder, qint64{cycle.unit}, boundText(cycle.engine), boundText(cycle.engine),
         boundText(cycle.engineType), boundText(cycle.ecuType), bound(cycle.dateTime), day,
         day.left(monthLength), static_cast<int>(cycle.files.size())});
    const bool isDone = query.isActive() && query.next();
    m_id = isDone ? query.value(0).toLongLong() : 0;
    query.finish();
    return isDone &&
           m_connection.run(
               QStringLiteral("UPDATE cycle SET engine = %1 WHERE id = ?").arg(engineOfCycle),
               {m_id});
}

bool CycleStore::putFiles(const ArchivedCycle& cycle)
{
    return m_connection.run(QStringLiteral("DELETE FROM file WHERE cycle = ?"), {m_id}) &&
           std::ranges::all_of(cycle.files, [this](const ArchivedFile& file) {
               return m_connection.run(
                   QStringLiteral("INSERT INTO file (cycle, name, sha256, bytes) "
                                  "VALUES (?, ?, ?, ?)"),
                   {m_id, boundText(file.name), boundText(file.sha256), file.bytes});
           });
}

std::optional<bool> CycleStore::hasFiles(const ArchivedCycle& cycle)
{
    QSqlQuery& query = m_connection.runKept(
        QStringLiteral("SELECT f.name, f.sha256, c.date_time FROM cycle c JOIN file f "
                       "ON f.cycle = c.id WHERE c.folder = ?"),
        {cycle.folder});
    if (!query.isActive())
        return {};
    std::set<std::pair<QString, QString>> known;
    bool isSameTime = true;
    while (query.next()) {
        known.emplace(query.value(0).toString(), query.value(1).toString());
        isSameTime = isSameTime && query.value(2).toString() == bound(cycle.dateTime).toString();
    }
    query.finish();
    std::set<std::pair<QString, QString>> wanted;
    for (const ArchivedFile& file : cycle.files)
        wanted.emplace(file.name, file.sha256);
    return isSameTime && known == wanted;
}

bool CycleStore::store(const ArchivedCycle& cycle)
{
    Transaction transaction(m_connection);
    if (!transaction.isOpen())
        return false;
    const std::optional<bool> isKnown = hasFiles(cycle);
    if (!isKnown)
        return false;
    if (*isKnown)
        return transaction.commit();
    return takeFromEngine(cycle.folder) && putCycle(cycle) && putFiles(cycle) && dropFigures() &&
           addToEngine(cycle.folder) && transaction.commit();
}

bool CycleStore::store(const ArchivedCycle& cycle, const CycleFigures& figures,
                       const FiguresSource& source)
{
    Transaction transaction(m_connection);
    if (!transaction.isOpen() || !takeFromEngine(cycle.folder) || !putCycle(cycle) ||
        !putFiles(cycle) || !dropFigures())
        return false;
    const std::optional<qint64> sourceId = idOf(source);
    return sourceId && putFigures(figures, *sourceId) && putFlights(figures) &&
           putEpisodes(figures) && putFaults(figures) && putFindings(figures) &&
           putBands(figures) && addToEngine(cycle.folder) && transaction.commit();
}

bool CycleStore::remove(const QString& folder)
{
    Transaction transaction(m_connection);
    return transaction.isOpen() && takeFromEngine(folder) &&
           m_connection.run(QStringLiteral("DELETE FROM cycle WHERE folder = ?"), {folder}) &&
           transaction.commit();
}

bool CycleStore::dropFigures()
{
    for (const char* table : {"flight", "episode", "fault", "finding", "band"}) {
        if (!m_connection.run(
                QStringLiteral("DELETE FROM %1 WHERE cycle = ?").arg(QLatin1String(table)), {m_id}))
            return false;
    }
    return m_connection.run(
        QStringLiteral("UPDATE cycle SET source = NULL, flights = 0, starts = 0, episodes = 0, "
                       "limits = 0, lamps = 0, faults = 0, worst = 0, severity = -1, "
                       "run_micros = 0, recorded_micros = 0, air_seconds = 0, fuel_micros = 0 "
                       "WHERE id = ?"),
        {m_id});
}

std::optional<bool> CycleStore::hasInstalled(const std::vector<Installation>& installations)
{
    using Told = std::tuple<QString, qint64, QString, QString>;
    std::multiset<Told> wanted;
    for (const Installation& one : installations)
        wanted.emplace(one.engine, one.unit, dayText(one.from), dayText(one.to));
    QSqlQuery query = m_connection.select(
        QStringLiteral("SELECT engine, unit, from_day, to_day FROM installation"));
    if (!query.isActive())
        return {};
    std::multiset<Told> known;
    constexpr int from = 2;
    constexpr int to = 3;
    while (query.next())
        known.emplace(query.value(0).toString(), query.value(1).toLongLong(),
                      query.value(from).toString(), query.value(to).toString());
    return known == wanted;
}

bool CycleStore::install(const std::vector<Installation>& installations)
{
    Transaction transaction(m_connection);
    const std::optional<bool> isKnown =
        transaction.isOpen() ? hasInstalled(installations) : std::nullopt;
    if (!isKnown)
        return false;
    if (*isKnown)
        return transaction.commit();
    if (!m_connection.run(QStringLiteral("DELETE FROM installation")))
        return false;
    const auto day = [](const QDate& date) {
        return date.isValid() ? QVariant(dayText(date)) : QVariant(QMetaType(QMetaType::QString));
    };
    for (const Installation& one : installations) {
        if (!m_connection.run(
                QStringLiteral("INSERT INTO installation (engine, unit, from_day, "
                               "to_day) VALUES (?, ?, ?, ?)"),
                {boundText(one.engine), qint64{one.unit}, day(one.from), day(one.to)}))
            return false;
    }
    return m_connection.run(QStringLiteral("UPDATE cycle SET engine = %1").arg(engineOfCycle)) &&
           fillEngines() && transaction.commit();
}

bool CycleStore::countForEngine(const QString& folder, bool isTaken)
{
    QStringList counted;
    QStringList added;
    for (const char* column : engineSums) {
        counted << QStringLiteral("%1 * c.%2").arg(isTaken ? -1 : 1).arg(QLatin1String(column));
        added << QStringLiteral("%1 = engine_unit.%1 + excluded.%1").arg(QLatin1String(column));
    }
    const QString sign = isTaken ? QStringLiteral("-") : QString();
    return m_connection.run(
               QStringLiteral("INSERT INTO engine_band (engine, quantity, state, micros) "
                              "SELECT c.engine, b.quantity, b.state, %1b.micros FROM band b "
                              "JOIN cycle c ON c.id = b.cycle WHERE c.folder = ? "
                              "ON CONFLICT (engine, quantity, state) "
                              "DO UPDATE SET micros = engine_band.micros + excluded.micros")
                   .arg(sign),
               {folder}) &&
           m_connection.run(
               QStringLiteral(
                   "INSERT INTO engine_unit SELECT c.engine, c.unit, %1 1, %2, "
                   "CASE WHEN c.unit_hours_last IS NULL THEN 0 ELSE %1 1 END, "
                   "CASE WHEN c.unit_starts_last IS NULL THEN 0 ELSE %1 1 END "
                   "FROM cycle c WHERE c.folder = ? ON CONFLICT (engine, unit) DO UPDATE SET "
                   "cycles = engine_unit.cycles + excluded.cycles, %3, "
                   "hours_readings = engine_unit.hours_readings + excluded.hours_readings, "
                   "starts_readings = engine_unit.starts_readings + excluded.starts_readings")
                   .arg(sign, counted.join(QStringLiteral(", ")), added.join(QStringLiteral(", "))),
               {folder});
}

bool CycleStore::addToEngine(const QString& folder)
{
    return countForEngine(folder, false);
}

bool CycleStore::takeFromEngine(const QString& folder)
{
    const auto dropEmpty = [&](const char* table, const char* column) {
        return m_connection.run(QStringLiteral("DELETE FROM %1 WHERE %2 = 0 AND engine = "
                                               "(SELECT engine FROM cycle WHERE folder = ?)")
                                    .arg(QLatin1String(table), QLatin1String(column)),
                                {folder});
    };
    return countForEngine(folder, true) && dropEmpty("engine_band", "micros") &&
           dropEmpty("engine_unit", "cycles");
}

bool CycleStore::fillEngines()
{
    QStringList sums;
    for (const char* column : engineSums)
        sums << QStringLiteral("SUM(%1)").arg(QLatin1String(column));
    return m_connection.runScript(
        QStringLiteral("DELETE FROM engine_band;\n"
                       "INSERT INTO engine_band (engine, quantity, state, micros) "
                       "SELECT cycle.engine, band.quantity, band.state, SUM(band.micros) "
                       "FROM band JOIN cycle ON cycle.id = band.cycle "
                       "GROUP BY cycle.engine, band.quantity, band.state;\n"
                       "DELETE FROM engine_unit;\n"
                       "INSERT INTO engine_unit SELECT engine, unit, COUNT(*), %1, "
                       "COUNT(unit_hours_last), COUNT(unit_starts_last) FROM cycle "
                       "GROUP BY engine, unit;\n")
            .arg(sums.join(QStringLiteral(", "))));
}

} // namespace KOLT::Library
