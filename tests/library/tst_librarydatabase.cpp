#include "library/database/FiguresText.h"
#include "library/database/LibraryDatabase.h"
#include "library/database/LibraryQueries.h"
#include "library/database/LibraryUpdate.h"
#include "tests/support/LibraryData.h"
#include "tests/support/PostgresServer.h"

#include <QJsonObject>
#include <QTest>

#include <cmath>
#include <limits>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

namespace {

using Access = LibraryDatabase::Access;
using Status = LibraryDatabase::Status;

constexpr int cycleCount = 60;

/// Stores cycles [first, behind) as a program of its own would.
int storeCycles(const QString& library, const QString& archive, int first, int behind)
{
    LibraryDatabase database;
    if (!database.open(*parseLibraryAddress(library, archive).address, Access::Create)) {
        qWarning("%s", qUtf8Printable(database.error()));
        return 1;
    }
    for (int i = first; i < behind; ++i) {
        if (!database.storeCycle(someCycle(i), someFigures(i), someSource())) {
            qWarning("%s", qUtf8Printable(database.error()));
            return 1;
        }
        std::puts("stored");
        std::fflush(stdout);
    }
    return 0;
}

constexpr int badCycle = 7;
constexpr int strayCycle = 9;

/// In place of kolt-cli: figures made up, a cycle that ends the process, and one that is answered
/// for another.
int workOutFigures()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return 1;
    for (QByteArray line = input.readLine(); !line.isEmpty(); line = input.readLine()) {
        const ArchivedCycle cycle = *cycleFrom(line.trimmed());
        const int number = cycle.folder.section('/', 2).section(' ', 0, 0).toInt();
        if (number == badCycle)
            std::_Exit(3);
        const QString folder = number == strayCycle ? someCycle(0).folder : cycle.folder;
        std::puts(lineOf(FoundFigures{someFigures(number), {}, folder}).constData());
        std::fflush(stdout);
    }
    return 0;
}

/// Bit for bit; what is not finite is NaN on both sides.
bool isSame(double a, double b)
{
    return std::isfinite(a) ? a == b : std::isnan(b);
}

QJsonArray ask(const LibraryAddress& address, const QString& sql)
{
    LibraryDatabase database;
    if (!database.open(address, Access::ReadOnly))
        qWarning("%s", qUtf8Printable(database.error()));
    const Answer<QJsonArray> answer = database.query(sql);
    if (!answer)
        qWarning("%s", qUtf8Printable(answer.error));
    return answer.value;
}

template <typename Set>
LibraryFilter filterWith(Set&& set)
{
    LibraryFilter filter;
    set(filter);
    return filter;
}

/// All that must hold of a database, whatever happened to its writers.
void checkWhole(const LibraryAddress& address)
{
    for (const char* table : {"flight", "episode", "fault"})
        QCOMPARE(ask(address, QString("SELECT c.folder FROM cycle c WHERE c.%1s <> (SELECT "
                                      "COUNT(*) FROM %1 x WHERE x.cycle = c.id)")
                                  .arg(table)),
                 QJsonArray());
    QCOMPARE(ask(address, "SELECT c.folder FROM cycle c WHERE c.files <> (SELECT COUNT(*) FROM "
                          "file x WHERE x.cycle = c.id)"),
             QJsonArray());
    QCOMPARE(ask(address, "SELECT engine, quantity, state, micros FROM engine_band "
                          "ORDER BY engine, quantity, state"),
             ask(address, "SELECT c.engine, b.quantity, b.state, CAST(SUM(b.micros) AS BIGINT) AS "
                          "micros FROM band b JOIN cycle c ON c.id = b.cycle "
                          "GROUP BY c.engine, b.quantity, b.state "
                          "ORDER BY c.engine, b.quantity, b.state"));
}

/// What must not depend on how cycles came into the library.
QJsonArray contentOf(const LibraryAddress& address)
{
    QJsonArray all;
    for (const char* sql :
         {"SELECT folder, unit, engine, day, files, run_seconds, flights, episodes FROM cycle "
          "ORDER BY folder",
          "SELECT * FROM engine ORDER BY engine", "SELECT * FROM unit ORDER BY unit",
          "SELECT * FROM engine_band ORDER BY engine, quantity, state"})
        all.append(ask(address, sql));
    return all;
}

} // namespace

/// Each test runs on both databases.
class TestLibraryDatabase : public QObject
{
    Q_OBJECT

private slots:

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QFETCH_GLOBAL(QString, kind);
        if (kind == "PostgreSQL") {
            if (!m_hasServer) {
                const QString error = m_server.start();
                QVERIFY2(error.isEmpty(), qPrintable(error));
                m_hasServer = true;
            }
            m_library = m_server.newDatabase();
            QVERIFY(!m_library.isEmpty());
        } else {
            m_library = m_folder->path();
        }
        m_address = *parseLibraryAddress(m_library, m_folder->path()).address;
    }

    void initTestCase_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("SQLite") << "SQLite";
        QTest::newRow("PostgreSQL") << "PostgreSQL";
    }

    void keepsEveryFigure()
    {
        LibraryDatabase database;
        QVERIFY2(database.open(m_address, Access::Create), qPrintable(database.error()));
        const ArchivedCycle cycle = someCycle(4);
        CycleFigures figures = someFigures(4, 3);
        Flight& odd = figures.flights[1].flight;
        odd.dateTime = {};
        odd.timePer100m = std::numeric_limits<double>::infinity();
        odd.fuelPer100m = std::nan("");
        odd.fuel = 0.1 + 0.2;
        odd.maxAltitude = 4.9e-324;
        odd.climbRate = -1.7976931348623157e308;
        QVERIFY2(database.storeCycle(cycle, figures, someSource()), qPrintable(database.error()));

        LibraryQueries queries(database);
        const auto row = queries.cycle(cycle.folder).value;
        QVERIFY(row && row->hasFigures);
        QCOMPARE(row->dateTime, cycle.dateTime);
        QVERIFY(row->source == someSource());
        QCOMPARE(row->severity, "wrong");
        const auto flights = queries.flights(row->id).value;
        QCOMPARE(flights.size(), figures.flights.size());
        for (std::size_t i = 0; i < flights.size(); ++i) {
            const Flight& a = figures.flights[i].flight;
            const Flight& b = flights[i].figures.flight;
            QCOMPARE(b.dateTime, a.dateTime);
            QCOMPARE(flights[i].figures.marked, figures.flights[i].marked);
            QVERIFY(flights[i].figures.counts == figures.flights[i].counts);
            for (double Flight::*figure :
                 {&Flight::startSeconds, &Flight::endSeconds, &Flight::takeOffSeconds,
                  &Flight::landingSeconds, &Flight::minAltitude, &Flight::maxAltitude,
                  &Flight::altitudeGain, &Flight::climbRate, &Flight::descentRate,
                  &Flight::maxGroundSpeed, &Flight::fuelA, &Flight::fuelB, &Flight::fuel,
                  &Flight::timePer100m, &Flight::fuelPer100m, &Flight::takeOffDistance,
                  &Flight::takeOffDistance15m})
                QVERIFY2(isSame(a.*figure, b.*figure), qPrintable(QString::number(a.*figure)));
        }
        const auto episodes = queries.episodes(row->id).value;
        QCOMPARE(episodes.size(), figures.episodes.size());
        QCOMPARE(episodes[0].episode.parameters, figures.episodes[0].parameters);
        QCOMPARE(episodes[0].episode.peak, figures.episodes[0].peak);
        QCOMPARE(episodes[0].episode.engineSpeed, std::optional<double>());
        QCOMPARE(episodes[0].dateTime, cycle.dateTime.addSecs(130));
        const auto findings = queries.findings(row->id).value;
        QCOMPARE(findings.size(), 1U);
        QCOMPARE(findings[0].text, figures.findings[0].text);
        QCOMPARE(findings[0].from, figures.findings[0].from);
        QCOMPARE(findings[0].to, figures.findings[0].to);
        const ArchivedCycle archived = queries.archived(row->id).value;
        QCOMPARE(archived.files.size(), cycle.files.size());
        QCOMPARE(archived.files[1].sha256, cycle.files[1].sha256);
        QCOMPARE(archived.files[1].bytes, cycle.files[1].bytes);
        checkWhole(m_address);
    }

    void anyOrderGivesTheSame()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        for (int i = 0; i < cycleCount; ++i)
            QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
        const QJsonArray forwards = contentOf(m_address);
        QVERIFY(forwards[0].toArray().size() == cycleCount);

        QVERIFY(database.recreate(m_address));
        QCOMPARE(contentOf(m_address)[0].toArray().size(), 0);
        for (int i = cycleCount - 1; i >= 0; --i) {
            // Half of the card first, then all of it; and once more.
            ArchivedCycle half = someCycle(i);
            half.dateTime = half.dateTime.addMonths(1);
            half.files.resize(1);
            QVERIFY(database.storeCycle(half));
            QVERIFY(database.storeCycle(half, someFigures(i + 1), someSource()));
            QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
            QVERIFY(database.storeCycle(someCycle(i))); // nothing new: the figures stay
        }
        QCOMPARE(contentOf(m_address), forwards);
        checkWhole(m_address);

        // What is taken back leaves nothing behind.
        QVERIFY(database.storeCycle(someCycle(999), someFigures(999), someSource()));
        QVERIFY(contentOf(m_address) != forwards);
        QVERIFY(database.removeCycle(someCycle(999).folder));
        QCOMPARE(contentOf(m_address), forwards);
    }

    void ledgerSumsUp()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        LibrarySums expected;
        double oil = 0.0;
        double lastHours = 0.0;
        int since = 0;
        const QString engine = someCycle(0).engine;
        for (int i = 0; i < cycleCount; ++i) {
            const CycleFigures figures = someFigures(i);
            QVERIFY(database.storeCycle(someCycle(i), figures, someSource()));
            if (someCycle(i).engine != engine)
                continue;
            ++expected.cycles;
            since += someCycle(i).dateTime >= someCycle(30).dateTime ? 1 : 0;
            if (someCycle(i).dateTime.isValid())
                lastHours = figures.unitHours->last;
            expected.runSeconds += figures.runSeconds;
            expected.fuel += figures.fuel;
            expected.starts += figures.starts;
            expected.flights += static_cast<int>(figures.flights.size());
            expected.episodes += static_cast<int>(figures.episodes.size());
            for (const BandTime& band : figures.bands)
                oil += band.quantity == "Quantity 2" && band.state == ThresholdState::Ok
                           ? band.seconds
                           : 0.0;
        }
        LibraryQueries queries(database);
        const auto row = queries.engine(engine).value;
        QVERIFY(row);
        QCOMPARE(row->sums.cycles, expected.cycles);
        QCOMPARE(row->sums.flights, expected.flights);
        QCOMPARE(row->sums.starts, expected.starts);
        QCOMPARE(row->sums.episodes, expected.episodes);
        QVERIFY(std::abs(row->sums.runSeconds - expected.runSeconds) < 1e-4);
        QVERIFY(std::abs(row->sums.fuel - expected.fuel) < 1e-4);
        const auto band = std::ranges::find_if(row->bands, [](const BandTime& one) {
            return one.quantity == "Quantity 2" && one.state == ThresholdState::Ok;
        });
        QVERIFY(band != row->bands.end() && std::abs(band->seconds - oil) < 1e-4);
        QCOMPARE(row->unitHours, std::optional(lastHours));
        QCOMPARE(row->counters.size(), 1U);
        QCOMPARE(row->counters[0].hours->first, 100.0);
        int months = 0;
        for (const MonthRow& month : queries.months(engine).value)
            months += month.sums.cycles;
        QCOMPARE(months, expected.cycles);
        QCOMPARE(queries.engines().value.size(), 4U); // three, and files that name none
        QCOMPARE(queries.engineSince(engine, someCycle(30).dateTime).value.cycles, since);
        QVERIFY(!queries.engine("E").value);
    }

    void enginesAreWherePeopleSay()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        const QDate day = someCycle(30).dateTime.date();
        for (int i = 0; i < cycleCount / 2; ++i)
            QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
        const QJsonArray before = contentOf(m_address);
        QVERIFY(database.setInstallations(
            {{"NEW", 1000, day.addDays(-2), {}}, {"OLD", 1000, {}, day.addDays(-3)}}));
        for (int i = cycleCount / 2; i < cycleCount; ++i) // stored later, it holds as well
            QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
        checkWhole(m_address);
        LibraryQueries queries(database);
        for (const CycleRow& row :
             queries.cycles(filterWith([=](auto& f) { f.unit = 1000; })).value)
            QCOMPARE(row.engine, !row.dateTime.isValid()                 ? row.engine
                                 : row.dateTime.date() < day.addDays(-2) ? "OLD"
                                                                         : "NEW");
        QVERIFY(queries.engine("NEW").value->sums.cycles > 5);
        QCOMPARE(queries.installations().value.size(), 2U);
        QVERIFY(database.setInstallations({}));
        for (int i = cycleCount / 2; i < cycleCount; ++i)
            QVERIFY(database.removeCycle(someCycle(i).folder));
        QCOMPARE(contentOf(m_address), before);
    }

    void filters_data()
    {
        QTest::addColumn<LibraryFilter>("filter");
        QTest::addColumn<int>("flights");
        QTest::addColumn<int>("cycles");
        const auto count = [](auto&& hasFlight, auto&& hasCycle) {
            std::pair<int, int> counts;
            for (int i = 0; i < cycleCount; ++i) {
                const CycleFigures figures = someFigures(i);
                for (int k = 0; k < static_cast<int>(figures.flights.size()); ++k)
                    counts.first += hasFlight(i, figures, k) ? 1 : 0;
                counts.second += hasCycle(i, figures) ? 1 : 0;
            }
            return counts;
        };
        const auto ofCycle = [&](const char* name, const LibraryFilter& filter, auto&& has) {
            const auto [flights, cycles] =
                count([&](int i, const CycleFigures&, int) { return has(someCycle(i)); },
                      [&](int i, const CycleFigures&) { return has(someCycle(i)); });
            QVERIFY(cycles > 0 && cycles <= cycleCount);
            QTest::newRow(name) << filter << flights << cycles;
        };
        const auto ofFlight = [&](const char* name, const LibraryFilter& filter, auto&& has) {
            const auto any = [&](int, const CycleFigures& figures) {
                for (int k = 0; k < static_cast<int>(figures.flights.size()); ++k) {
                    if (has(0, figures, k))
                        return true;
                }
                return false;
            };
            const auto [flights, cycles] = count(has, any);
            QVERIFY(flights > 0 && cycles < cycleCount);
            QTest::newRow(name) << filter << flights << cycles;
        };
        const QDate day = someCycle(30).dateTime.date();
        ofCycle("all", {}, [](const ArchivedCycle&) { return true; });
        ofCycle("unit", filterWith([=](auto& f) { f.unit = 1001; }),
                [](const auto& c) { return c.unit == 1001; });
        ofCycle("from", filterWith([=](auto& f) { f.from = day; }),
                [=](const auto& c) { return c.dateTime.isValid() && c.dateTime.date() >= day; });
        ofCycle("to", filterWith([=](auto& f) { f.to = day; }),
                [=](const auto& c) { return c.dateTime.isValid() && c.dateTime.date() <= day; });
        ofCycle("serial of a unit", filterWith([=](auto& f) { f.serial = "002"; }),
                [](const auto& c) { return c.unit == 1002; });
        ofCycle("serial of an engine", filterWith([=](auto& f) { f.serial = "e1002"; }),
                [](const auto& c) { return c.engine == "E1002"; });
        ofCycle("without an engine", filterWith([=](auto& f) { f.engine = ""; }),
                [](const auto& c) { return c.engine.isEmpty(); });
        ofCycle("folders", filterWith([=](auto& f) {
                    f.folders = QStringList{someCycle(7).folder, "it's; none"};
                }),
                [](const auto& c) { return c.folder == someCycle(7).folder; });
        QTest::newRow("no folders")
            << filterWith([=](auto& f) { f.folders = QStringList(); }) << 0 << 0;
        QTest::newRow("a letter that stands for any")
            << filterWith([=](auto& f) { f.serial = "1_0%"; }) << 0 << 0;
        int faulty = 0; // none of these faults lies in a flight
        for (int i = 0; i < cycleCount; ++i)
            faulty += someFigures(i).faults.empty() ? 0 : 1;
        QTest::newRow("fault") << filterWith([](auto& f) { f.fault = "LANE a 100% it's"; }) << 0
                               << faulty;
        const auto has = [](const CycleFigures& figures, int k, auto&& matches) {
            return std::ranges::any_of(figures.episodes, [&](const EpisodeRecord& one) {
                return one.flight == k + 1 && matches(one);
            });
        };
        ofFlight("exceeded", filterWith([=](auto& f) { f.exceeded = ThresholdState::Warning; }),
                 [=](int, const auto& figures, int k) {
                     return has(figures, k, [](const auto&) { return true; });
                 });
        ofFlight("limit", filterWith([=](auto& f) { f.exceeded = ThresholdState::Limit; }),
                 [=](int, const auto& figures, int k) {
                     return has(figures, k,
                                [](const auto& e) { return e.state == ThresholdState::Limit; });
                 });
        ofFlight("limit of a quantity", filterWith([=](auto& f) {
                     f.exceeded = ThresholdState::Limit;
                     f.quantity = "oil TEMP";
                 }),
                 [=](int, const auto& figures, int k) {
                     return has(figures, k, [](const auto& e) {
                         return e.state == ThresholdState::Limit && e.quantity != "EGT";
                     });
                 });
        ofFlight("duration", filterWith([=](auto& f) {
                     f.shortest = 300.0;
                     f.longest = 400.0;
                 }),
                 [](int, const auto& figures, int k) {
                     const auto seconds = figures.flights[static_cast<std::size_t>(k)].airSeconds;
                     return seconds >= 300 && seconds <= 400;
                 });
    }

    void filters()
    {
        QFETCH(LibraryFilter, filter);
        QFETCH(int, flights);
        QFETCH(int, cycles);
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        for (int i = 0; i < cycleCount; ++i)
            QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
        LibraryQueries queries(database);
        const auto found = queries.flights(filter, -1);
        QVERIFY2(found, qPrintable(found.error));
        QCOMPARE(static_cast<int>(found.value.size()), flights);
        QCOMPARE(queries.flightCount(filter).value, flights);
        for (std::size_t i = 1; i < found.value.size(); ++i) // newest first, undated last
            QVERIFY(found.value[i - 1].folder == found.value[i].folder ||
                    queries.cycle(found.value[i - 1].folder).value->dateTime >=
                        queries.cycle(found.value[i].folder).value->dateTime);
        QCOMPARE(static_cast<int>(queries.cycles(filter).value.size()), cycles);
        QCOMPARE(queries.sums(filter).value.cycles, cycles);
        // The pages go down the tree, and find the same.
        int below = 0;
        for (const UnitRow& unit : queries.units(filter).value) {
            int inUnit = 0;
            for (const YearRow& year : queries.years(unit.unit, filter).value) {
                for (const DayRow& day : queries.days(unit.unit, year.year, filter).value) {
                    const auto rows = queries.cycles(unit.unit, day.date, filter).value;
                    QCOMPARE(static_cast<int>(rows.size()), day.sums.cycles);
                    inUnit += day.sums.cycles;
                }
            }
            QCOMPARE(inUnit, unit.sums.cycles);
            below += inUnit;
        }
        QCOMPARE(below, cycles);
        // Page by page.
        std::size_t paged = 0;
        for (int offset = 0; offset < flights; offset += 7)
            paged += queries.flights(filter, 7, offset).value.size();
        QCOMPARE(paged, found.value.size());
    }

    void staleFiguresAreKnown()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        QVERIFY(database.storeCycle(someCycle(1), someFigures(1), someSource("old")));
        QVERIFY(database.storeCycle(someCycle(2), someFigures(2), someSource()));
        QVERIFY(database.storeCycle(someCycle(3)));
        QVERIFY(database.storeCycle(someCycle(4), someFigures(4), someSource()));
        ArchivedCycle grown = someCycle(4);
        grown.files.push_back({"REC99999.CAN", QString(64, 'a'), 5});
        QVERIFY(database.storeCycle(grown)); // its figures are those of fewer files
        const QStringList stale = database.staleFolders(someSource()).value;
        QCOMPARE(QSet<QString>(stale.begin(), stale.end()),
                 QSet<QString>({someCycle(1).folder, someCycle(3).folder, grown.folder}));
        checkWhole(m_address);
    }

    void severalWritersLoseAndDoubleNothing()
    {
        std::vector<std::unique_ptr<QProcess>> writers;
        for (int i = 0; i < 4; ++i) { // overlapping parts, all at once, the first on nothing
            writers.push_back(std::make_unique<QProcess>());
            writers.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
            writers.back()->start(QCoreApplication::applicationFilePath(),
                                  {"store", m_library, m_folder->path(), QString::number(i * 12),
                                   QString::number(i * 12 + 24)});
        }
        for (const auto& writer : writers) {
            QVERIFY(writer->waitForFinished(120'000));
            QCOMPARE(writer->exitCode(), 0);
        }
        const QJsonArray together = contentOf(m_address);
        checkWhole(m_address);
        LibraryDatabase database;
        QVERIFY(database.recreate(m_address));
        for (int i = 0; i < cycleCount; ++i)
            QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
        QCOMPARE(contentOf(m_address), together);
    }

    void killedWriterLeavesWholeCycles()
    {
        int most = 0;
        for (const int until : {1, 2, 5, 9, 14, 20}) {
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(),
                         {"store", m_library, m_folder->path(), "0", "1000"});
            for (int told = 0; told < until;) {
                QVERIFY(writer.waitForReadyRead(30'000));
                told += static_cast<int>(writer.readAll().count("stored"));
            }
            writer.kill(); // in the middle of one of the next
            QVERIFY(writer.waitForFinished(30'000));
            checkWhole(m_address);
            const int kept = static_cast<int>(ask(m_address, "SELECT 1 FROM cycle").size());
            QVERIFY(kept >= until && kept >= most);
            most = kept;
        }
    }

    void updateGoesOnPastBadCycles()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        QVERIFY(database.storeCycle(someCycle(500), someFigures(500), someSource()));
        std::vector<ArchivedCycle> archive;
        for (int i = 0; i < 20; ++i)
            archive.push_back(someCycle(i));
        const auto plan = planUpdate(database, archive, {}, someSource());
        QCOMPARE(plan.value.cycles.size(), 20);
        QCOMPARE(plan.value.removed, QStringList{someCycle(500).folder});

        ArchivedCycle grown = someCycle(3); // another import adds a file meanwhile
        grown.files.push_back({"REC99999.CAN", QString(64, 'a'), 5});
        UpdateOptions options;
        options.source = someSource();
        options.worker = {QCoreApplication::applicationFilePath(), {"figures"}, 3};
        options.current = [&](const QString& folder) -> std::optional<ArchivedCycle> {
            if (folder == grown.folder)
                return grown;
            const auto found = std::ranges::find(archive, folder, &ArchivedCycle::folder);
            return folder == archive[5].folder ? std::nullopt : std::optional(*found);
        };
        qsizetype last = 0;
        options.progress = [&](const UpdateProgress& progress) {
            last = progress.done;
            return true;
        };
        const UpdateResult result = updateLibrary(database, plan.value, options);
        QCOMPARE(result.error, QString());
        QStringList failed = result.failed;
        failed.sort();
        QCOMPARE(failed.size(), 2);
        QVERIFY(failed[1].startsWith(someCycle(badCycle).folder + ": "));
        QVERIFY(failed[0].startsWith(someCycle(strayCycle).folder + ": "));
        QVERIFY(failed[0].contains(someCycle(0).folder));
        QCOMPARE(result.cycles, 17); // without the bad ones and the one that was taken away
        QCOMPARE(last, 20);
        checkWhole(m_address);
        archive[3] = grown;
        archive.erase(archive.begin() + 5);
        const auto rest = planUpdate(database, archive, {}, someSource());
        QCOMPARE(rest.value.removed, QStringList());
        QCOMPARE(rest.value.cycles.size(), 2); // the bad ones are tried again next time
        QCOMPARE(rest.value.cycles[0].folder, someCycle(badCycle).folder);
        QCOMPARE(rest.value.cycles[1].folder, someCycle(strayCycle).folder);
    }

    void updateEndsEarly()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        UpdatePlan plan;
        for (int i = 10; i < 30; ++i)
            plan.cycles << someCycle(i);
        UpdateOptions options;
        options.source = someSource();
        options.worker = {QCoreApplication::applicationFilePath(), {"figures"}, 2};
        options.progress = [](const UpdateProgress& progress) { return progress.done < 4; };
        const UpdateResult cancelled = updateLibrary(database, plan, options);
        QVERIFY(cancelled.isCancelled);
        QCOMPARE(cancelled.cycles, 4);
        QCOMPARE(ask(m_address, "SELECT 1 AS n FROM cycle").size(), 4);
        options.progress = {};
        options.worker.program = "/nowhere/kolt-cli";
        QVERIFY(updateLibrary(database, plan, options).error.contains("/nowhere/kolt-cli"));
        options.worker = {QCoreApplication::applicationFilePath(), {"refuse"}, 2};
        QVERIFY(updateLibrary(database, plan, options).error.contains("status 2"));
        checkWhole(m_address);
    }

    void readsOnly_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<bool>("isPossible");
        QTest::newRow("select") << "SELECT COUNT(*) AS n FROM cycle" << true;
        QTest::newRow("end") << "  select 1 as n ; \n" << true;
        QTest::newRow("with") << "WITH a AS (SELECT 1 AS n) SELECT n FROM a" << true;
        QTest::newRow("wrong") << "SELECT nothing FROM nowhere" << false;
        QTest::newRow("delete") << "DELETE FROM cycle" << false;
        QTest::newRow("update") << "UPDATE cycle SET unit = 1" << false;
        QTest::newRow("with delete") << "WITH a AS (SELECT 1) DELETE FROM cycle" << false;
        QTest::newRow("two") << "SELECT 1 AS n; DELETE FROM cycle" << false;
        QTest::newRow("out of the transaction") << "SELECT 1; COMMIT; DELETE FROM cycle" << false;
        QTest::newRow("pragma") << "PRAGMA query_only = OFF" << false;
        QTest::newRow("copy") << "VACUUM INTO '/tmp/kolt-copy.sqlite'" << false;
        QTest::newRow("program") << "COPY cycle TO PROGRAM 'cat'" << false;
        QTest::newRow("attach") << "ATTACH '/tmp/kolt-copy.sqlite' AS other" << false;
        QTest::newRow("comment first") << "/* SELECT */ DELETE FROM cycle" << false;
        QTest::newRow("into") << "SELECT * INTO copied FROM cycle" << false;
        QTest::newRow("rights") << "SELECT set_config('transaction_read_only', 'off', false)"
                                << false;
        QTest::newRow("nothing") << "" << false;
    }

    void readsOnly()
    {
        QFETCH(QString, sql);
        QFETCH(bool, isPossible);
        {
            LibraryDatabase database;
            QVERIFY(database.open(m_address, Access::Create));
            QVERIFY(database.storeCycle(someCycle(1), someFigures(1), someSource()));
        }
        const QJsonArray before = contentOf(m_address);
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::ReadOnly));
        const Answer<QJsonArray> answer = database.query(sql);
        QCOMPARE(answer.error.isEmpty(), isPossible);
        if (isPossible)
            QCOMPARE(answer.value, QJsonArray{QJsonObject({{"n", 1}})});
        QVERIFY(!QFile::exists("/tmp/kolt-copy.sqlite"));
        QCOMPARE(contentOf(m_address), before);
        QVERIFY(!database.query("SELECT 1 AS n").value.isEmpty()); // goes on after a failure
    }

    void newerAndOlderSchemas()
    {
        QJsonArray before;
        {
            LibraryDatabase database;
            QVERIFY(database.open(m_address, Access::Create));
            for (int i = 0; i < 10; ++i)
                QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
            before = contentOf(m_address);
        }
        // As version 1 had it.
        QStringList script{"DROP VIEW engine", "DROP VIEW unit", "DROP TABLE engine_band",
                           "UPDATE library_schema SET version = 1"};
        for (const char* index :
             {"cycle_by_unit", "cycle_by_engine", "cycle_by_time", "flight_by_duration",
              "episode_by_quantity", "fault_by_parameter", "file_by_hash"})
            script << QString("DROP INDEX ") + index;
        for (const QString& sql : script)
            execute(sql);
        LibraryDatabase database;
        QVERIFY(!database.open(m_address, Access::ReadOnly));
        QVERIFY(database.open(m_address, Access::ReadWrite));
        QCOMPARE(contentOf(m_address), before);
        execute("UPDATE library_schema SET version = 9999");
        for (const Access access : {Access::ReadOnly, Access::ReadWrite, Access::Create}) {
            QVERIFY(!database.open(m_address, access));
            QCOMPARE(database.status(), Status::TooNew);
            QVERIFY(database.error().contains("9999"));
        }
    }

    void absentLibraryIsTold()
    {
        LibraryDatabase database;
        for (const Access access : {Access::ReadOnly, Access::ReadWrite}) {
            QVERIFY(!database.open(m_address, access));
            QCOMPARE(database.status(), Status::Absent);
        }
        QVERIFY(!QFile::exists(m_folder->path() + "/library.sqlite"));
        const QString gone = m_address.isServer() ? m_library + "gone" : m_folder->path() + "/gone";
        QVERIFY(!database.open(
            *parseLibraryAddress(gone, m_folder->path() + (m_address.isServer() ? "" : "/gone"))
                 .address,
            Access::Create));
        QVERIFY(database.error().contains("gone"));
    }

    void damagedDatabaseIsToldAndMadeAnew()
    {
        if (m_address.isServer())
            QSKIP("the files of a server are its own business");
        for (const QByteArray& damage :
             {QByteArray("no database at all"), QByteArray(), QByteArray("*")}) {
            {
                LibraryDatabase database;
                QVERIFY(database.recreate(m_address));
                for (int i = 0; i < 20; ++i)
                    QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
            }
            QFile file(m_address.sqliteFile());
            QVERIFY(file.open(QIODevice::ReadWrite));
            if (damage == "*") { // pages in the middle, as from a bad disk
                file.seek(file.size() / 4);
                file.write(QByteArray(static_cast<int>(file.size() / 2), 'x'));
            } else if (damage.isEmpty()) {
                file.resize(file.size() / 3);
            } else {
                file.resize(0);
                file.write(damage.repeated(100));
            }
            file.close();
            LibraryDatabase database;
            const bool isOpen = database.open(m_address, Access::ReadWrite);
            const bool isFine = isOpen && LibraryQueries(database).flights({}, -1) &&
                                database.storeCycle(someCycle(30), someFigures(30), someSource());
            QVERIFY(!isFine);
            QCOMPARE(database.status(), Status::Damaged);
            QVERIFY2(database.error().contains("rebuild"), qPrintable(database.error()));
            QVERIFY2(database.recreate(m_address), qPrintable(database.error()));
            QVERIFY(database.storeCycle(someCycle(1), someFigures(1), someSource()));
            checkWhole(m_address);
        }
        QVERIFY(QFile::exists(m_address.sqliteFile() + ".broken"));
    }

    void lackingTableIsDamage()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        execute("DROP TABLE finding");
        QVERIFY(!database.storeCycle(someCycle(4), someFigures(4), someSource()));
        QCOMPARE(database.status(), Status::Damaged);
        QVERIFY(database.recreate(m_address));
        QVERIFY(database.storeCycle(someCycle(4), someFigures(4), someSource()));
        checkWhole(m_address);
    }

    void passwordsAreAskedFor()
    {
        if (!m_address.isServer())
            QSKIP("a file has no password");
        QVERIFY(m_server.addUserWithPassword("pilot" + QString(m_library.right(2)), "s3cret")
                    .isEmpty());
        QString url = m_library;
        url.replace("owner@", "pilot" + m_library.right(2) + "@");
        const LibraryAddress address = *parseLibraryAddress(url, m_folder->path()).address;
        LibraryDatabase database;
        QVERIFY(!database.open(address, Access::Create));
        QCOMPARE(database.status(), Status::NoPassword);
        QStringList answers{"wrong", "s3cret"};
        QString asked;
        QVERIFY(database.open(address, Access::Create, [&](const QString& server) {
            asked = server;
            return answers.isEmpty() ? std::optional<QString>() : answers.takeFirst();
        }));
        QCOMPARE(asked, url.section("://", 1).replace(QRegularExpression(":\\d+"), ""));
        QVERIFY(!database.error().contains("s3cret"));
        QVERIFY(!database.open(address, Access::Create,
                               [](const QString&) { return std::optional<QString>(); }));
        QCOMPARE(database.status(), Status::NoPassword);
        QVERIFY(!database.open(
            *parseLibraryAddress("postgresql://owner@127.0.0.1:1/x", m_folder->path()).address,
            Access::Create));
        QCOMPARE(database.status(), Status::Unreachable);
    }

    void addresses_data()
    {
        QTest::addColumn<QString>("library");
        QTest::addColumn<QString>("archive");
        QTest::addColumn<bool>("isFine");
        QTest::newRow("folder") << "/a"
                                << "" << true;
        QTest::newRow("the same folder") << "/a"
                                         << "/a/" << true;
        QTest::newRow("two folders") << "/a"
                                     << "/b" << false;
        QTest::newRow("nothing") << ""
                                 << "" << false;
        QTest::newRow("server") << "postgresql://u@h:1/d?sslmode=require"
                                << "/a" << true;
        QTest::newRow("no archive") << "postgresql://u@h/d"
                                    << "" << false;
        QTest::newRow("no database") << "postgresql://u@h"
                                     << "/a" << false;
        QTest::newRow("password") << "postgresql://u:p4ss@h/d"
                                  << "/a" << false;
        QTest::newRow("hidden password") << "postgresql://u@h/d?password=p4ss"
                                         << "/a" << false;
        QTest::newRow("option") << "postgresql://u@h/d?service=x"
                                << "/a" << false;
        QTest::newRow("other server") << "mysql://u:p4ss@h/d"
                                      << "/a" << false;
    }

    void addresses()
    {
        QFETCH(QString, library);
        QFETCH(QString, archive);
        QFETCH(bool, isFine);
        const ParsedAddress parsed = parseLibraryAddress(library, archive);
        QCOMPARE(parsed.address.has_value(), isFine);
        QCOMPARE(parsed.error.isEmpty(), isFine);
        QVERIFY(!parsed.error.contains("p4ss"));
    }

    void linesBetweenProcessesAreWhole()
    {
        const CycleFigures figures = someFigures(4, 3);
        const QByteArray line = lineOf(FoundFigures{figures, {}, "unit/folder"});
        const auto found = figuresFrom(line);
        QVERIFY(found && found->figures);
        QCOMPARE(lineOf(*found), line);
        QCOMPARE(found->figures->flights[2].flight.fuel, figures.flights[2].flight.fuel);
        for (qsizetype length = 0; length < line.size(); length += 4)
            QVERIFY(!figuresFrom(line.left(length)));
        QCOMPARE(lineOf(*cycleFrom(lineOf(someCycle(4)))), lineOf(someCycle(4)));
    }

private:
    /// Past the program.
    void execute(const QString& sql)
    {
        if (m_address.isServer()) {
            QCOMPARE(m_server.sql(sql, m_library.section('/', -1)), QString());
            return;
        }
        QProcess sqlite;
        sqlite.start("sqlite3", {"-bail", m_address.sqliteFile(), sql});
        QVERIFY(sqlite.waitForFinished(30'000));
        QCOMPARE(sqlite.readAllStandardError(), QByteArray());
        QCOMPARE(sqlite.exitCode(), 0);
    }

    PostgresServer m_server;
    bool m_hasServer = false;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_library; ///< as on a command line
    LibraryAddress m_address;
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "store")
        return storeCycles(arguments[2], arguments[3], arguments[4].toInt(), arguments[5].toInt());
    if (arguments.value(1) == "figures")
        return workOutFigures();
    if (arguments.value(1) == "refuse")
        return 2;
    TestLibraryDatabase test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_librarydatabase.moc"
