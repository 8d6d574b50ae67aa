// What the pages of the library ask, of 100,000 flights on both databases. The figures are times in
// milliseconds: pages have to open at once, however long the library has been kept. Those of
// PostgreSQL are taken with KOLT_BENCH_SERVER=1. And a rebuild on one core, beside the report of
// the same files.

#include "analysis/CardOverview.h"
#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "library/database/LibraryQueries.h"
#include "tests/support/LibraryData.h"
#include "tests/support/PostgresServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

using namespace KOLT;
using namespace KOLT::Library;

namespace {

constexpr int cycleCount = 40'000;
constexpr int flightsPerCycle = 5; // in every second cycle
constexpr int flightCount = cycleCount / 2 * flightsPerCycle;
constexpr int units = 20;
constexpr int quantities = 24;
constexpr double most = 100.0;

constexpr int page = 200;

void releaseStores();

[[noreturn]] void giveUp(const QString& why)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(why));
    releaseStores();
    std::exit(1);
}

struct Pages : LibraryQueries
{
    using LibraryQueries::LibraryQueries;

    FlightRow beforeOldest; ///< the last flight before the oldest page
};

struct Store
{
    QTemporaryDir folder;
    Test::PostgresServer server;
    LibraryDatabase database;
    Pages queries{database};

    explicit Store(bool isServer)
    {
        QString library = folder.path();
        if (isServer) {
            if (const QString error = server.start(); !error.isEmpty())
                giveUp(error);
            library = server.newDatabase();
        }
        const ParsedAddress parsed = parseLibraryAddress(library, folder.path());
        if (!parsed.address || !database.open(*parsed.address, LibraryDatabase::Access::Create))
            giveUp(parsed.error + database.error());
        for (int i = 0; i < cycleCount; ++i) {
            ArchivedCycle cycle = Test::someCycle(i, units);
            // Over the years that a club keeps; a few engines have been through several units.
            cycle.dateTime = QDateTime(QDate(2010, 1, 1), QTime(7, 0), Qt::UTC)
                                 .addSecs(qint64{i} * 14 * 365 * 24 * 3600 / cycleCount);
            if (!database.storeCycle(
                    cycle, Test::someFigures(i, i % 2 == 0 ? flightsPerCycle : 0, quantities),
                    Test::someSource()))
                giveUp(database.error());
        }
        if (isServer)
            server.sql("ANALYZE", library.section(QLatin1Char('/'), -1));
        const auto all = queries.flights({}, -1);
        if (all.value.size() != flightCount || queries.flightCount({}).value != flightCount)
            giveUp(QStringLiteral("the library is not whole"));
        queries.beforeOldest = all.value[flightCount - page - 1];
    }
};

std::array<std::unique_ptr<Store>, 2> stores;

/// Before the toolkit ends, whose connections they use.
void releaseStores()
{
    stores = {};
}

Store& store(bool isServer)
{
    std::unique_ptr<Store>& one = stores.at(isServer ? 1 : 0);
    if (one == nullptr)
        one = std::make_unique<Store>(isServer);
    return *one;
}

/// Asks, and returns how many rows came.
using Question = std::size_t (*)(Pages& queries);

/// The median of some answers after one that warms up.
double milliseconds(bool isServer, Question question)
{
    Pages& queries = store(isServer).queries;
    if (question(queries) == 0)
        giveUp(QStringLiteral("nothing was found: ") + store(isServer).database.error());
    constexpr int times = 5;
    std::vector<double> all;
    for (int i = 0; i < times; ++i) {
        QElapsedTimer timer;
        timer.start();
        question(queries);
        all.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(all);
    return all[times / 2];
}

template <typename Set>
LibraryFilter filterWith(Set&& set)
{
    LibraryFilter filter;
    set(filter);
    return filter;
}

const LibraryFilter limits = filterWith([](LibraryFilter& filter) {
    filter.exceeded = ThresholdState::Limit;
    filter.quantity = QStringLiteral("oil");
});
const LibraryFilter faults =
    filterWith([](LibraryFilter& filter) { filter.fault = QStringLiteral("lane a"); });
const LibraryFilter durations = filterWith([](LibraryFilter& filter) {
    filter.shortest = 300.0;
    filter.longest = 400.0;
});
const LibraryFilter serials =
    filterWith([](LibraryFilter& filter) { filter.serial = QStringLiteral("101"); });
const LibraryFilter dates = filterWith([](LibraryFilter& filter) {
    filter.from = QDate(2012, 3, 1);
    filter.to = QDate(2012, 6, 1);
});

const QString engine = QStringLiteral("E1004");
constexpr quint32 unit = 1004;

struct Asked
{
    const char* name;
    Question question;
};

constexpr Asked questions[] = {
    {"units", [](Pages& q) { return q.units().value.size(); }},
    {"units, limits", [](Pages& q) { return q.units(limits).value.size(); }},
    {"units, faults", [](Pages& q) { return q.units(faults).value.size(); }},
    {"units, durations", [](Pages& q) { return q.units(durations).value.size(); }},
    {"units, serials", [](Pages& q) { return q.units(serials).value.size(); }},
    {"years", [](Pages& q) { return q.years(unit).value.size(); }},
    {"days of a year", [](Pages& q) { return q.days(unit, 2015).value.size(); }},
    {"cycles of a day",
     [](Pages& q) { return q.cycles(unit, q.days(unit, 2015).value.front().date).value.size(); }},
    {"flights of a cycle",
     [](Pages& q) { return q.flights(qint64{cycleCount / 2 + 1}).value.size(); }},
    {"newest flights", [](Pages& q) { return q.flights({}, page).value.size(); }},
    {"oldest flights", [](Pages& q) { return q.flights({}, page, &q.beforeOldest).value.size(); }},
    {"flights, limits", [](Pages& q) { return q.flights(limits, page).value.size(); }},
    {"flights, faults",
     [](Pages& q) {
         return q.flights(faults, page).value.size() + q.cycles(faults, page).value.size();
     }},
    {"flights, durations", [](Pages& q) { return q.flights(durations, page).value.size(); }},
    {"flights, serials", [](Pages& q) { return q.flights(serials, page).value.size(); }},
    {"flights, dates", [](Pages& q) { return q.flights(dates, page).value.size(); }},
    {"count of flights, limits",
     [](Pages& q) { return static_cast<std::size_t>(q.flightCount(limits).value); }},
    {"count of flights, durations",
     [](Pages& q) { return static_cast<std::size_t>(q.flightCount(durations).value); }},
    {"engines", [](Pages& q) { return q.engines().value.size(); }},
    {"ledger of an engine", [](Pages& q) { return q.engine(engine).value->bands.size(); }},
    {"months of an engine", [](Pages& q) { return q.months(engine).value.size(); }},
    {"episodes of an engine", [](Pages& q) { return q.engineEpisodes(engine, page).value.size(); }},
    {"faults of an engine", [](Pages& q) { return q.engineFaults(engine, page).value.size(); }},
    {"since the last oil change",
     [](Pages& q) {
         return static_cast<std::size_t>(
             q.engineSince(engine, QDateTime(QDate(2016, 1, 1), QTime(), Qt::UTC)).value.cycles);
     }},
};

double millisecondsOf(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Working out and storing all cycles of a card, divided by what the report of kolt-cli reads.
double rebuildRatio()
{
    const Bench::Card card;
    const QTemporaryDir folder;
    LibraryDatabase database;
    if (!database.open({folder.path(), {}}, LibraryDatabase::Access::Create))
        giveUp(database.error());
    const auto report = [&] {
        CardOverview overview(card.profile, card.container, CardOverview::Trust::Wanted);
        while (overview.step()) {
        }
    };
    const auto rebuild = [&] {
        for (const auto& [number, listed] : card.container.cycles()) {
            // The card is an archive of one folder here.
            ArchivedCycle cycle;
            cycle.folder = QStringLiteral(".");
            cycle.dateTime = listed.dateTime;
            for (const QString& name : listed.fileNames)
                cycle.files.push_back({name, {}, 0});
            const FoundFigures found =
                findCycleFigures(card.profile, card.container.folder(), cycle);
            cycle.folder = listed.name;
            if (!found.figures || !database.storeCycle(cycle, *found.figures, Test::someSource()))
                giveUp(found.error + database.error());
        }
    };
    report(); // brings the files into the cache
    const double ratio = millisecondsOf(rebuild) / millisecondsOf(report);
    if (LibraryQueries(database).flightCount({}).value < 5)
        giveUp(QStringLiteral("the card is not whole"));
    return ratio;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    std::vector<Bench::Figure> figures;
    for (const bool isServer : {false, true}) {
        // It takes minutes to fill, as each statement goes to the server and back.
        if (isServer && qEnvironmentVariableIsEmpty("KOLT_BENCH_SERVER"))
            continue;
        for (const Asked& asked : questions) {
            figures.push_back(
                {std::string(isServer ? "PostgreSQL, " : "SQLite, ") + asked.name + ", ms", nullptr,
                 nullptr, Bench::Bound::AtMost, most,
                 [=] { return milliseconds(isServer, asked.question); }});
        }
    }
    figures.push_back({"rebuild of the sample card / its report", nullptr, nullptr,
                       Bench::Bound::AtMost, 2.0, rebuildRatio});
    const int status = Bench::run(argc, argv, figures);
    releaseStores();
    return status;
}
