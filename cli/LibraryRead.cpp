#include "cli/Json.h"
#include "cli/LibraryDatabaseVerbs.h"
#include "cli/Recording.h"
#include "cli/Trust.h"
#include "library/database/LibraryQueries.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

/// The verbs that read the library's database.
namespace KOLT::Cli {

namespace {

using namespace KOLT::Library;

QString printArray(const QJsonArray& array)
{
    writeOutput(QJsonDocument(array).toJson());
    return finishOutput();
}

QString bandName(ThresholdState state)
{
    switch (state) {
    case ThresholdState::Limit:
        return QStringLiteral("LIMIT");
    case ThresholdState::Warning:
        return QStringLiteral("WARNING");
    case ThresholdState::Ok:
        break;
    }
    return QStringLiteral("OK");
}

/// Reads --unit, --from and --to; returns an error message or nothing.
QString readFilter(const LibraryArguments& arguments, LibraryFilter& filter)
{
    const QString unit = QStringLiteral("unit");
    if (arguments.options.contains(unit)) {
        bool isNumber = false;
        filter.unit = arguments.options[unit].toUInt(&isNumber);
        if (!isNumber)
            return QStringLiteral("--unit needs the serial number of a unit, not \"%1\"")
                .arg(arguments.options[unit]);
    }
    for (const auto& [name, date] :
         {std::pair(QStringLiteral("from"), &filter.from), {QStringLiteral("to"), &filter.to}}) {
        if (!arguments.options.contains(name))
            continue;
        *date = QDate::fromString(arguments.options[name], Qt::ISODate);
        if (!date->isValid())
            return QStringLiteral("--%1 needs a date such as 2024-05-18, not \"%2\"")
                .arg(name, arguments.options[name]);
    }
    return {};
}

QJsonArray jsonFiles(const QList<ArchivedFile>& files)
{
    QJsonArray result;
    for (const ArchivedFile& file : files)
        result.append(QJsonObject{{QStringLiteral("name"), file.name},
                                  {QStringLiteral("sha256"), file.sha256}});
    return result;
}

QJsonObject jsonOf(const FlightRow& row)
{
    QJsonObject flight = jsonFlight(row.figures.flight);
    flight.insert(QStringLiteral("marked"), jsonMarked(row.figures.marked));
    return flight;
}

QJsonObject jsonOf(const EngineRow& row)
{
    QJsonArray units;
    for (const quint32 unit : row.units)
        units.append(qint64{unit});
    QJsonArray bands;
    for (const BandTime& band : row.bands)
        bands.append(QJsonObject{{QStringLiteral("quantity"), band.quantity},
                                 {QStringLiteral("state"), bandName(band.state)},
                                 {QStringLiteral("seconds"), band.seconds}});
    return {{QStringLiteral("engine"), row.engine},
            {QStringLiteral("units"), units},
            {QStringLiteral("runSeconds"), row.sums.runSeconds},
            {QStringLiteral("flights"), row.sums.flights},
            {QStringLiteral("starts"), row.sums.starts},
            {QStringLiteral("fuel"), row.sums.fuel},
            {QStringLiteral("bands"), bands},
            {QStringLiteral("episodes"), row.sums.episodes},
            {QStringLiteral("unitHours"), orNull(row.unitHours)},
            {QStringLiteral("unitStarts"), orNull(row.unitStarts)}};
}

} // namespace

QString libraryList(const LibraryArguments& arguments)
{
    LibraryFilter filter;
    if (const QString error = readFilter(arguments, filter); !error.isEmpty())
        return error;
    LibraryDatabase database;
    if (const QString error = openDatabase(arguments, LibraryDatabase::Access::ReadOnly, database);
        !error.isEmpty())
        return error;
    if (!database.beginReading())
        return database.error();
    LibraryQueries queries(database);
    const auto cycles = queries.cycles(filter);
    const auto flights = queries.flights(filter, -1);
    const auto files = queries.files(filter);
    database.endReading();
    for (const QString& error : {cycles.error, flights.error, files.error}) {
        if (!error.isEmpty())
            return error;
    }
    std::map<qint64, std::map<int, const FlightRow*>> byCycle;
    for (const FlightRow& flight : flights.value)
        byCycle[flight.cycle][flight.number] = &flight;
    QJsonArray result;
    for (const CycleRow& cycle : cycles.value) {
        QJsonArray found;
        for (const auto& [number, flight] : byCycle[cycle.id])
            found.append(jsonOf(*flight));
        const auto own = files.value.find(cycle.id);
        result.append(
            QJsonObject{{QStringLiteral("unit"), qint64{cycle.unit}},
                        {QStringLiteral("engine"), cycle.engine},
                        {QStringLiteral("dateTime"), jsonDateTime(cycle.dateTime)},
                        {QStringLiteral("files"),
                         jsonFiles(own == files.value.end() ? QList<ArchivedFile>() : own->second)},
                        {QStringLiteral("flights"), found}});
    }
    return printArray(result);
}

QString libraryEngines(const LibraryArguments& arguments)
{
    LibraryDatabase database;
    if (const QString error = openDatabase(arguments, LibraryDatabase::Access::ReadOnly, database);
        !error.isEmpty())
        return error;
    const auto engines = LibraryQueries(database).engines();
    if (!engines)
        return engines.error;
    QJsonArray result;
    for (const EngineRow& row : engines.value)
        result.append(jsonOf(row));
    return printArray(result);
}

QString libraryQuery(const LibraryArguments& arguments)
{
    LibraryDatabase database;
    if (const QString error = openDatabase(arguments, LibraryDatabase::Access::ReadOnly, database);
        !error.isEmpty())
        return error;
    const Answer<QJsonArray> answer = database.query(arguments.operand);
    return answer ? printArray(answer.value) : answer.error;
}

} // namespace KOLT::Cli
