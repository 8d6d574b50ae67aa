#include "analysis/ui/DialogData.h"
#include "app/DialogMain.h"
#include "app/settings/CommandLineOptions.h"
#include "app/startup/Startup.h"
#include "graph/ui/DialogDataGraph.h"
#include "map/ui/WidgetMap.h"
#include "record/CardContainer.h"
#include "resources/Resources.h"
#include "tools/screenshots/Camera.h"
#include "tools/screenshots/LibraryPictures.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <clocale>
#include <cstdio>
#include <vector>

namespace {

using namespace Screenshots;

constexpr QSize smallSize(1000, 800);
constexpr QSize largeSize(1600, 1000);

/// Waits for the last folder to be listed, then selects its second cycle and that cycle's second
/// flight (on the sample card, one with exceedances).
bool openFlight(const KOLT::DialogMain& window)
{
    if (!waitFor([&] { return !window.card().cycles().empty() && !window.isBusy(); }))
        return false;
    auto* const tree = window.findChild<QTreeWidget*>(QStringLiteral("cyclesTree"));
    int skipped = 0;
    for (int i = 0; tree != nullptr && i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = tree->topLevelItem(i);
        if (!item->flags().testFlag(Qt::ItemIsSelectable) || skipped++ == 0)
            continue;
        tree->setCurrentItem(item);
        if (!waitFor([&] { return item->childCount() > 1; }))
            return false;
        tree->setCurrentItem(item->child(1));
        return waitFor([&] {
            return window.card().dataSet() != nullptr && window.card().dataSet()->flight() &&
                   !window.isBusy();
        });
    }
    return false;
}

/// Moves the current line of a list, if the page has one with lines.
QAbstractItemView* chooseLine(const QWidget& pages)
{
    for (auto* view : pages.findChildren<QAbstractItemView*>()) {
        if (!view->isVisible() || view->model() == nullptr || view->model()->rowCount() == 0)
            continue;
        view->setCurrentIndex(view->model()->index(0, 0));
        return view;
    }
    return nullptr;
}

/// All pages, at the middle of the loaded data; then what else the window can show.
void takePages(KOLT::DialogMain& window, Camera& camera, const std::vector<QSize>& sizes)
{
    using Page = KOLT::DialogData::Page;
    auto* const pages = window.findChild<KOLT::DialogData*>();
    const KOLT::DataSet& data = *window.card().dataSet();
    const auto* const tabs = pages->findChild<QTabBar*>();
    const auto* const graph = pages->findChild<KOLT::DialogDataGraph*>();
    constexpr const char* names[] = {"table", "graph",     "fault-matrix", "limits",
                                     "lamps", "statistic", "emu-view"};
    for (const QSize size : sizes) {
        window.resize(size);
        const auto take = [&](const char* name) {
            waitFor([graph] { return !graph->isFeeding(); });
            camera.take(window, QStringLiteral("%1-%2x%3")
                                    .arg(QLatin1String(name))
                                    .arg(size.width())
                                    .arg(size.height()));
        };
        pages->setTime((data.startSeconds + data.stopSeconds) / 2);
        for (int page = 0; page < tabs->count(); ++page) {
            pages->setCurrentPage(static_cast<Page>(page));
            if (page >= static_cast<int>(Page::FaultMatrix) &&
                page <= static_cast<int>(Page::WarningLamps))
                chooseLine(*pages);
            take(names[page]);
        }
        pages->setCurrentPage(Page::Limit);
        if (QAbstractItemView* list = chooseLine(*pages)) {
            list->actions().constFirst()->trigger(); // "Show in graph"
            take("graph-markers");
        }
        for (const auto& [type, name] : {std::pair{2, "map-below"}, std::pair{0, "map-hidden"}}) {
            pages->slotMapType(type);
            take(name);
        }
        pages->slotMapType(1);
        pages->showFront(true);
        take("overview");
        pages->showFront(false);
    }
    pages->setCurrentPage(Page::Table);
}

/// The bare display in a small and a large size, shortly after take-off.
void takeDisplay(KOLT::DialogMain& window, Camera& camera)
{
    const KOLT::DataSet& data = *window.card().dataSet();
    const double time =
        data.flights.empty() ? data.startSeconds : data.flights.front().takeOffSeconds + 60.0;
    window.findChild<KOLT::DialogData*>()->setTime(time);
    for (const QSize size : {QSize(800, 480), QSize(1920, 1080)}) {
        window.resize(size);
        camera.take(window, QStringLiteral("emu-%1x%2").arg(size.width()).arg(size.height()));
    }
}

void takeExports(KOLT::DialogMain& window, Camera& camera)
{
    const std::pair<int, const char*> exports[] = {
        {17, "export-kml"}, {18, "export-csv"}, {21, "export-gpx"}};
    for (const auto& [command, name] : exports)
        takeModal(camera, QLatin1String(name), [&, number = command] { trigger(window, number); });
}

/// The windows that the menus open.
void takeDialogs(KOLT::DialogMain& window, Camera& camera)
{
    const std::pair<int, const char*> dialogs[] = {
        {8, "about"},      {9, "profile"},    {10, "help"},          {15, "preferences"},
        {20, "day-sheet"}, {22, "recording"}, {23, "engine-report"}, {24, "import-card"}};
    for (const auto& [command, name] : dialogs) {
        trigger(window, command);
        if (!waitFor([&] { return !window.isBusy(); }))
            return;
        for (QDialog* dialog : window.findChildren<QDialog*>()) {
            if (!dialog->isVisible())
                continue;
            camera.take(*dialog, QLatin1String(name));
            dialog->close();
        }
    }
    const auto* const graph = window.findChild<KOLT::DialogDataGraph*>();
    window.findChild<KOLT::DialogData*>()->setCurrentPage(KOLT::DialogData::Page::Graph);
    auto* const setup = graph->findChild<QDialog*>();
    setup->show();
    camera.take(*setup, QStringLiteral("graph-setup"));
    setup->close();
}

constexpr const char* usage =
    "Usage: kolt-screenshots DIR [-emu | -light | -dark] [WIDTHxHEIGHT...]\n"
    "Saves pictures of all pages in these sizes (1000x800 and 1600x1000) and of all dialogs, in\n"
    "the look of the settings or the given one; with -emu, of the bare display. The last folder\n"
    "in the settings has to be a card with flights; the windows of the library are among the\n"
    "pictures if the settings name one.\n";

/// The sizes among the arguments, such as "1366x768"; two without any.
std::vector<QSize> sizesFrom(const QStringList& arguments)
{
    std::vector<QSize> sizes;
    for (const QString& argument : arguments.mid(1)) {
        const QSize size(argument.section(QLatin1Char('x'), 0, 0).toInt(),
                         argument.section(QLatin1Char('x'), 1).toInt());
        if (!size.isEmpty())
            sizes.push_back(size);
    }
    return sizes.empty() ? std::vector{smallSize, largeSize} : sizes;
}

} // namespace

/// Opens the program with its settings, loads a flight, and saves pictures.
int main(int argc, char* argv[])
{
    if (const QByteArray first = argc > 1 ? argv[1] : ""; first.startsWith('-')) {
        const bool isHelp = first == "--help" || first == "-h";
        std::fputs(usage, isHelp ? stdout : stderr);
        return isHelp ? 0 : 2;
    }
    initKoltResources();
    qputenv("KOLT_OFFLINE", "1"); // so that pictures do not depend on map tiles
    const QByteArray option = argc > 2 ? argv[2] : "";
    const bool isEmu = option == "-emu";
    const char* const options[] = {argv[0], "-emu"};
    KOLT::Startup::parseCommandLine(isEmu ? 2 : 1, options);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("KOLT"));
    std::setlocale(LC_NUMERIC, "C");
    const QString directory = QCoreApplication::arguments().value(1);
    if (directory.isEmpty() || !QDir().mkpath(directory)) {
        std::fprintf(stderr, "kolt-screenshots: needs a directory that can be written\n");
        return 2;
    }
    QApplication::setStyle(QStringLiteral("Fusion"));
    KOLT::Startup::loadSettings();
    KOLT::Startup::installTranslations(application);
    KOLT::Startup::applyFontSize();
    KOLT::Startup::applyLook(application);
    if (option == "-light" || option == "-dark")
        KOLT::Startup::showLook(application,
                                option == "-dark" ? KOLT::Look::Dark : KOLT::Look::Light);
    KOLT::DialogMain window;
    Camera camera(directory);
    if (!QTest::qWaitForWindowExposed(&window))
        return 1;
    if (isEmu) {
        if (!waitFor([&] { return window.card().dataSet() != nullptr && !window.isBusy(); }))
            return 1;
        takeDisplay(window, camera);
    } else {
        if (!openFlight(window)) {
            std::fprintf(stderr, "kolt-screenshots: no card with flights in the last folder\n");
            return 1;
        }
        const std::vector<QSize> sizes = sizesFrom(QCoreApplication::arguments());
        takePages(window, camera, sizes);
        takeDialogs(window, camera);
        takeExports(window, camera);
        takeLibrary(window, camera, sizes);
    }
    if (!camera.isGood()) {
        std::fprintf(stderr, "kolt-screenshots: a picture could not be saved\n");
        return 1;
    }
    return 0;
}
