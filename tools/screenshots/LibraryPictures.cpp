#include "tools/screenshots/LibraryPictures.h"

#include "app/DialogMain.h"
#include "library/ui/EngineWindow.h"
#include "library/ui/InstallationsWindow.h"
#include "library/ui/LibraryFilterBar.h"
#include "library/ui/LibraryPage.h"
#include "library/ui/NotesWindow.h"
#include "tools/screenshots/Camera.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeView>

#include <span>

namespace Screenshots {

namespace {

constexpr int importCommand = 24;
constexpr int engineCommand = 25;
constexpr int notesCommand = 26;

QAbstractButton* button(const QWidget& window, const char* name)
{
    return window.findChild<QAbstractButton*>(QLatin1String(name));
}

/// Opens the first entry of each level.
void unfold(QTreeView& tree)
{
    QModelIndex index = tree.model()->index(0, 0);
    while (index.isValid()) {
        tree.expand(index);
        index = tree.model()->index(0, 0, index);
    }
}

/// Shows the tab; false if there is no library.
bool showTab(KOLT::LibraryPage& page)
{
    for (QWidget* parent = page.parentWidget(); parent != nullptr;
         parent = parent->parentWidget()) {
        if (auto* const tabs = qobject_cast<QTabWidget*>(parent))
            tabs->setCurrentWidget(&page);
    }
    auto* const tree = page.findChild<QTreeView*>(QStringLiteral("libraryTree"));
    if (!waitFor([&] { return page.note().isEmpty() && tree->model()->rowCount() > 0; }))
        return false;
    unfold(*tree);
    return true;
}

void takeTab(KOLT::DialogMain& window, KOLT::LibraryPage& page, Camera& camera,
             const std::vector<QSize>& sizes)
{
    for (const QSize size : sizes) {
        window.resize(size);
        camera.take(window, QStringLiteral("library-%1x%2").arg(size.width()).arg(size.height()));
    }
    auto* const bar = page.findChild<KOLT::LibraryFilterBar*>();
    bar->findChild<QToolButton*>()->click();
    if (QWidget* const more = QApplication::activePopupWidget()) {
        camera.take(*more, QStringLiteral("library-filter"));
        more->close();
    }
}

void takeImports(KOLT::DialogMain& window, Camera& camera)
{
    trigger(window, importCommand);
    QAbstractButton* const takeBack = button(window, "importTakeBack");
    takeModal(camera, QStringLiteral("imports"), [&] { takeBack->click(); });
    takeBack->window()->close();
    takeModal(camera, QStringLiteral("library-choice"),
              [&] { button(window, "chooseLibrary")->click(); });
    takeModal(camera, QStringLiteral("library-move"),
              [&] { button(window, "moveLibraryButton")->click(); });
}

void takeEngine(KOLT::DialogMain& window, Camera& camera)
{
    trigger(window, engineCommand);
    auto* const engine = window.findChild<KOLT::EngineWindow*>();
    auto* const tabs = engine->findChild<QTabWidget*>();
    constexpr const char* names[] = {"engine", "engine-episodes", "engine-notes"};
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        camera.take(*engine, QLatin1String(std::span(names)[static_cast<std::size_t>(page)]));
    }
    tabs->setCurrentIndex(0);
    takeModal(camera, QStringLiteral("engine-limit"),
              [&] { button(*engine, "addLimit")->click(); });
    takeModal(camera, QStringLiteral("engine-hours"),
              [&] { button(*engine, "hoursBefore")->click(); });
    takeModal(camera, QStringLiteral("engine-print"),
              [&] { button(*engine, "printLedger")->click(); });
    button(*engine, "installations")->click();
    auto* const installations = window.findChild<KOLT::InstallationsWindow*>();
    camera.take(*installations, QStringLiteral("installations"));
    takeModal(camera, QStringLiteral("installation"),
              [&] { button(*installations, "addInstallation")->click(); });
    installations->close();
    engine->close();
}

void takeNotes(KOLT::DialogMain& window, Camera& camera)
{
    trigger(window, notesCommand);
    auto* const notes = window.findChild<KOLT::NotesWindow*>();
    camera.take(*notes, QStringLiteral("notes"));
    takeModal(camera, QStringLiteral("note"), [&] { button(*notes, "addMoment")->click(); });
    notes->close();
}

} // namespace

void takeLibrary(KOLT::DialogMain& window, Camera& camera, const std::vector<QSize>& sizes)
{
    auto* const page = window.findChild<KOLT::LibraryPage*>();
    takeNotes(window, camera);
    if (page == nullptr || !showTab(*page))
        return;
    takeTab(window, *page, camera, sizes);
    takeImports(window, camera);
    takeEngine(window, camera);
}

} // namespace Screenshots
