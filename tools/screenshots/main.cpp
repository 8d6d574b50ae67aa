#include "app/DialogMain.h"
#include "app/startup/Startup.h"
#include "resources/Resources.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTest>
#include <QTreeWidget>

#include <clocale>
#include <cstdio>

namespace {

constexpr int waitMilliseconds = 30'000;

/// Saves the window as it is drawn on the screen, at a size that users have.
bool saveWindow(QWidget& window, const QSize& size, const QString& path)
{
    window.resize(size);
    QCoreApplication::processEvents();
    if (!window.grab().save(path))
        return false;
    std::printf("%s\n", qUtf8Printable(path));
    return true;
}

/// Goes the typical road: the last folder is listed, and its first cycle is chosen and loaded.
bool openFirstCycle(const KOLT::DialogMain& window)
{
    if (!QTest::qWaitFor([&] { return !window.card().cycles().empty(); }, waitMilliseconds))
        return false;
    auto* const tree = window.findChild<QTreeWidget*>("cyclesTree");
    for (int i = 0; tree != nullptr && i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = tree->topLevelItem(i);
        if (!item->flags().testFlag(Qt::ItemIsSelectable))
            continue;
        tree->setCurrentItem(item);
        return QTest::qWaitFor([&] { return item->childCount() > 0; }, waitMilliseconds);
    }
    return false;
}

} // namespace

/// kolt-screenshots DIR: opens the program with its settings and saves pictures of its windows.
int main(int argc, char* argv[])
{
    initKoltResources();
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
    KOLT::Startup::applyStyleSheet(application);
    KOLT::DialogMain window;
    if (!QTest::qWaitForWindowExposed(&window) || !openFirstCycle(window)) {
        std::fprintf(stderr, "kolt-screenshots: no card with flights in the last folder\n");
        return 1;
    }
    const QString pattern = directory + QStringLiteral("/main-window-%1x%2.png");
    for (const QSize size : {QSize(1000, 800), QSize(1600, 1000)}) {
        if (!saveWindow(window, size, pattern.arg(size.width()).arg(size.height()))) {
            std::fprintf(stderr, "kolt-screenshots: could not save the main window\n");
            return 1;
        }
    }
    return 0;
}
