// How long the tab of the library and the ledger of an engine take with 100,000 flights, from the
// database to the first picture. In milliseconds: both have to be there at once.

#include "benchmarks/Figures.h"
#include "benchmarks/ShownWindow.h"
#include "library/ledger/EngineLedger.h"
#include "library/ui/EngineWindow.h"
#include "library/ui/LibraryModel.h"
#include "library/ui/LibraryPage.h"
#include "tests/support/LibraryData.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTreeView>

#include <algorithm>
#include <cstdlib>

using namespace KOLT;
using namespace KOLT::Library;

namespace {

constexpr int cycleCount = 40'000;
constexpr int flightsPerCycle = 5; // in every second cycle
constexpr int units = 20;
constexpr int quantities = 24;
constexpr double most = 300.0;

bool fill(LibraryDatabase& database, const QString& folder)
{
    if (!database.open({folder, {}}, LibraryDatabase::Access::Create))
        return false;
    for (int i = 0; i < cycleCount; ++i) {
        ArchivedCycle cycle = Test::someCycle(i, units);
        cycle.dateTime = QDateTime(QDate(2010, 1, 1), QTime(7, 0), Qt::UTC)
                             .addSecs(qint64{i} * 14 * 365 * 24 * 3600 / cycleCount);
        if (!database.storeCycle(cycle,
                                 Test::someFigures(i, i % 2 == 0 ? flightsPerCycle : 0, quantities),
                                 Test::someSource()))
            return false;
    }
    return LibraryQueries(database).flightCount({}).value == cycleCount / 2 * flightsPerCycle;
}

double median(double (*once)(const LibraryAddress&), const LibraryAddress& address)
{
    std::vector<double> all;
    for (int i = 0; i < 5; ++i)
        all.push_back(once(address));
    std::ranges::sort(all);
    return all[2];
}

/// The database opened, the page shown and painted, a unit, a year and a day opened in it.
double openPage(const LibraryAddress& address)
{
    QElapsedTimer timer;
    timer.start();
    LibraryDatabase database;
    if (!database.open(address, LibraryDatabase::Access::ReadWrite))
        std::abort();
    LibraryPage page;
    page.setLibrary(database, {});
    Bench::showAndWait(page);
    auto* const tree = page.findChild<QTreeView*>();
    for (QModelIndex index = page.model().index(0, 0); index.isValid();
         index = page.model().index(0, 0, index))
        tree->expand(index);
    page.grab();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double openEngine(const LibraryAddress& address)
{
    LibraryDatabase database;
    if (!database.open(address, LibraryDatabase::Access::ReadWrite))
        std::abort();
    const auto engines = LibraryQueries(database).engines();
    if (engines.value.empty())
        std::abort();
    QElapsedTimer timer;
    timer.start();
    const QDate today(2024, 1, 1);
    const auto ledger = engineLedger(database, {}, engines.value.front().engine, today);
    if (!ledger || !ledger.value)
        std::abort();
    EngineWindow window;
    window.setLedger(*ledger.value, today);
    Bench::showAndWait(window);
    window.grab();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    const LibraryAddress address{folder.path(), {}};
    {
        LibraryDatabase database;
        if (!fill(database, folder.path()))
            std::abort();
    }
    return Bench::run(argc, argv,
                      {{"library page, 100,000 flights, ms", nullptr, nullptr, Bench::Bound::AtMost,
                        most, [&] { return median(openPage, address); }},
                       {"window of an engine, 100,000 flights, ms", nullptr, nullptr,
                        Bench::Bound::AtMost, most, [&] { return median(openEngine, address); }}});
}
