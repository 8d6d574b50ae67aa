#include "library/database/LibraryQueries.h"
#include "tests/library/DatabaseSupport.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

namespace {

/// Bit for bit; what is not finite is NaN on both sides.
bool isSame(double a, double b)
{
    return std::isfinite(a) ? a == b : std::isnan(b);
}

template <typename Set>
LibraryFilter filterWith(Set&& set)
{
    LibraryFilter filter;
    set(filter);
    return filter;
}

} // namespace

/// What is kept, and what can be asked.
class TestLibraryDatabase : public DatabaseTest
{
    Q_OBJECT

private slots:

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
        std::vector<FlightRow> paged;
        const auto page = [&] {
            return queries.flights(filter, 7, paged.empty() ? nullptr : &paged.back()).value;
        };
        for (std::vector<FlightRow> next = page(); !next.empty(); next = page())
            paged.insert(paged.end(), next.begin(), next.end());
        QVERIFY(std::ranges::equal(paged, found.value, [](const auto& a, const auto& b) {
            return a.folder == b.folder && a.number == b.number;
        }));
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
};

QTEST_GUILESS_MAIN(TestLibraryDatabase)

#include "tst_librarydatabase.moc"
