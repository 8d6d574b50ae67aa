#include "app/dialogs/DialogPreferences.h"
#include "library/database/LibraryQueries.h"
#include "library/ui/DialogImport.h"
#include "library/ui/DialogMove.h"
#include "library/ui/EngineWindow.h"
#include "library/ui/InstallationsWindow.h"
#include "library/ui/LibraryModel.h"
#include "library/ui/LibraryPage.h"
#include "record/ui/DialogCard.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/library/ArchiveSupport.h"
#include "ui/NoticeBar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// The library in the main window: what an import, a move or an edit changes is seen without
/// another click.
class TestLibraryWindow : public QObject, MainWindowFixture
{
    Q_OBJECT

private slots:

    void initTestCase() { prepareOnce(); }

    void init();

    void cleanup()
    {
        m_window.reset();
        m_output.reset();
    }

    void importedFlightsAreShown();
    void openCycleIsCompleted_data();
    void openCycleIsCompleted();
    void anotherLibraryEndsTheEvaluation();
    void installationMovesHours();
    void libraryIsMoved();
    void programEndsDuringImport();
    void programEndsWithListOfImports();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    static bool setLibrary(const QString& folder)
    {
        SettingsStore::instance().setText("LibraryFolder", folder.toUtf8());
        return folder.isEmpty() || Archive::create(folder).isEmpty();
    }

    LibraryPage& page() const { return *m_window->findChild<LibraryPage*>(); }

    /// Brings the tab of the library to the front.
    void showPage() const
    {
        auto* const tabs = m_window->findChild<DialogCard*>()->findChild<QTabWidget*>();
        tabs->setCurrentWidget(&page());
    }

    int shownCycles() const
    {
        auto* const tree = page().findChild<QTreeView*>("libraryTree");
        return tree->isVisible() ? countCycles(*tree, {}) : -1;
    }

    int countCycles(QTreeView& tree, const QModelIndex& parent) const
    {
        QAbstractItemModel& model = *tree.model();
        while (model.canFetchMore(parent))
            model.fetchMore(parent);
        int count = 0;
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            count += page().model().kindOf(index) == LibraryModel::Kind::Cycle ? 1 : 0;
            count += countCycles(tree, index);
        }
        return count;
    }

    /// Imports as the user does, and waits until figures are there, too. What the dialog says.
    QString import(const QString& card)
    {
        trigger(Command::ImportCard);
        auto* const dialog = m_window->findChild<DialogImport*>();
        dialog->findChild<QLineEdit*>("importCard")->setText(card);
        dialog->findChild<QLineEdit*>("importLibrary")->setText(path("lib"));
        dialog->findChild<QPushButton*>("importStart")->click();
        const bool isDone = QTest::qWaitFor(
            [&] { return !dialog->runner().isRunning() && !m_window->isBusy(); }, patience);
        const QString state = dialog->findChild<QLabel*>("importState")->text();
        dialog->close();
        return isDone ? state : "still running: " + state;
    }

    /// The one that offers to show the cycle as it is now; null if none does.
    NoticeBar* notice() const
    {
        for (auto* bar : m_window->findChildren<NoticeBar*>()) {
            if (bar->isVisible() &&
                bar->findChild<QPushButton*>()->text() == "Show it as it is now")
                return bar;
        }
        return nullptr;
    }

    static constexpr int patience = 60000; ///< milliseconds: a copy waits for the disk

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestLibraryWindow::init()
{
    QVERIFY(prepare());
    QVERIFY(setLibrary({}));
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestLibraryWindow::importedFlightsAreShown()
{
    QVERIFY(writeCard(path("card"), summerCard()));
    QVERIFY(open());
    trigger(Command::Engine); // there is no library yet, which is told
    auto* const engine = m_window->findChild<EngineWindow*>();
    QVERIFY(engine->isVisible() && engine->engine().isEmpty());
    showPage();
    QCOMPARE(shownCycles(), -1);

    const QString state = import(path("card"));
    QVERIFY2(state.startsWith("12 of 12 files are safe"), qPrintable(state));
    QCOMPARE(shownCycles(), 3);
    QVERIFY(page().findChild<QPushButton*>("updateLibrary")->isHidden()); // nothing is left to do
    QCOMPARE(engine->engine(), "E-1");
    QCOMPARE(engine->findChild<QComboBox*>("engineChoice")->count(), 1);
    LibraryDatabase database;
    QVERIFY(database.open({path("lib"), {}}, LibraryDatabase::Access::ReadOnly));
    const auto rows = LibraryQueries(database).cycles(LibraryFilter());
    QCOMPARE(rows.value.size(), 3);
    for (const CycleRow& row : rows.value)
        QVERIFY(row.hasFigures && row.sums.recordedSeconds > 0.0);
}

void TestLibraryWindow::openCycleIsCompleted_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("behind");
    QTest::newRow("its end comes later") << 7 << 10;
    QTest::newRow("its beginning comes later, which renames its folder") << 9 << 13;
}

void TestLibraryWindow::openCycleIsCompleted()
{
    QFETCH(int, first);
    QFETCH(int, behind);
    const CardContent card = engineRun(7, 6, clockOf(7, 3));
    CardContent part;
    for (int i = first; i < behind; ++i)
        part[recordName(i)] = card.at(recordName(i));
    QVERIFY(writeCard(path("part"), part));
    QVERIFY(writeCard(path("card"), card));
    QVERIFY(open());
    QVERIFY(import(path("part")).startsWith(QString("%1 of %1 files").arg(part.size())));
    showPage();
    auto* const tree = page().findChild<QTreeView*>("libraryTree");
    QModelIndex cycle = tree->model()->index(0, 0); // one unit, one year, one day: all are open
    while (cycle.isValid() && page().model().kindOf(cycle) != LibraryModel::Kind::Cycle)
        cycle = tree->model()->index(0, 0, cycle);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(cycle).center());
    QVERIFY(waitFor([this] { return dataSet() != nullptr; }));
    const QString folder = m_window->card().folder();
    QVERIFY(folder.startsWith(path("lib") + '/'));
    tree->expand(cycle);
    QCOMPARE(m_window->focusWidget(), tree); // keys go on there

    const QString state = import(path("card"));
    QVERIFY2(state.startsWith("6 of 6 files are safe"), qPrintable(state));
    QCOMPARE(shownCycles(), 1);
    cycle = tree->model()->index(0, 0);
    while (cycle.isValid() && page().model().kindOf(cycle) != LibraryModel::Kind::Cycle)
        cycle = tree->model()->index(0, 0, cycle);
    QCOMPARE(tree->isExpanded(cycle), first == 7); // as it was, unless its name is another
    QCOMPARE(QFileInfo::exists(folder), first == 7);
    QVERIFY(notice() != nullptr);
    const QString told = notice()->findChild<QLabel*>()->text();
    QVERIFY2(told.contains(QString("added %1 file").arg(6 - part.size())), qPrintable(told));
    QCOMPARE(m_window->card().files().size(), part.size()); // nothing was done behind the back
    notice()->findChild<QPushButton*>()->click();
    QVERIFY(waitFor([this] { return m_window->card().files().size() == 6; }));
    QCOMPARE(dataSet()->files.size(), 6U);
    QVERIFY(notice() == nullptr);
}

/// The figures that are being worked out are those of the library that the user leaves.
void TestLibraryWindow::anotherLibraryEndsTheEvaluation()
{
    QVERIFY(writeCard(path("card"), summerCard()));
    QVERIFY(importInto(path("lib"), path("card")).isComplete());
    QVERIFY(setLibrary(path("other")));
    QVERIFY(setLibrary(path("lib")));
    QVERIFY(open());
    showPage();
    QTimer timer;
    bool isSwitched = false;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (isSwitched || m_window->findChild<QProgressDialog*>("libraryProgress") == nullptr)
            return;
        isSwitched = true;
        setLibrary(path("other"));
        page().hide();
        page().show(); // as the user comes back to it
    });
    timer.start(1);
    page().findChild<QPushButton*>("updateLibrary")->click();
    QVERIFY(waitFor([&] { return isSwitched; }));
    QCOMPARE(shownCycles(), -1); // the other library is empty
    for (const char* name : {"lib", "other"}) {
        LibraryDatabase database;
        QVERIFY(database.open({path(name), {}}, LibraryDatabase::Access::ReadOnly));
        const auto rows = LibraryQueries(database).cycles(LibraryFilter());
        QVERIFY(rows.value.size() < 3);
        QVERIFY(name == QString("lib") || rows.value.empty());
    }
}

/// A cycle of the unit belongs to the engine that people say was in it.
void TestLibraryWindow::installationMovesHours()
{
    CardContent card = engineRun(1, 2, clockOf(7, 1), 4711, 1000); // at 1000 rpm
    card.merge(engineRun(3, 3, clockOf(7, 2), 4711, 1000));
    QVERIFY(writeCard(path("card"), card));
    QVERIFY(open());
    QVERIFY(import(path("card")).startsWith("5 of 5 files"));
    Note note; // on the second cycle
    note.about = Note::About::Cycle;
    note.engine = "E-1";
    note.text = "Noted";
    note.place = {4711, "REC00003.CAN", "key", hashOf(card.at("REC00003.CAN")), {}, {}};
    QVERIFY(Logbook(path("lib")).save(note));
    trigger(Command::Engine);
    auto* const engine = m_window->findChild<EngineWindow*>();
    const auto notes = [&] {
        return engine->findChild<QTreeWidget*>("noteTable")->topLevelItemCount();
    };
    QCOMPARE(notes(), 1);
    engine->findChild<QPushButton*>("installations")->click();
    auto* const window = m_window->findChild<InstallationsWindow*>();
    auto* const table = window->findChild<QTreeWidget*>("installationTable");
    QVERIFY(window->isVisible() && table->topLevelItemCount() == 0);

    QString told;
    bool isPossible = false;
    const auto enter = [&](const char* button, const QString& name, const QDate& from,
                           const QDate& to) {
        ModalBoxes boxes;
        boxes.handle([&](QDialog& dialog) {
            auto* const edit = dialog.findChild<QComboBox*>("installationEngine")->lineEdit();
            edit->selectAll();
            QTest::keyClicks(edit, name);
            for (const auto& [box, field, day] :
                 {std::tuple("installationHasFrom", "installationFrom", from),
                  std::tuple("installationHasTo", "installationTo", to)}) {
                dialog.findChild<QCheckBox*>(box)->setChecked(day.isValid());
                if (day.isValid())
                    dialog.findChild<QDateEdit*>(field)->setDate(day);
            }
            told = dialog.findChild<QLabel*>("mistake")->text();
            QAbstractButton* const ok =
                dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            isPossible = ok->isEnabled();
            isPossible ? ok->click() : dialog.reject();
        });
        click(*window, button);
        QVERIFY(boxes.isDone());
    };
    const auto secondsOf = [&](const QString& name) {
        LibraryDatabase database;
        if (!database.open({path("lib"), {}}, LibraryDatabase::Access::ReadOnly))
            return -1.0;
        const auto row = LibraryQueries(database).engine(name);
        return row.value ? row.value->sums.runSeconds : 0.0;
    };
    const double all = secondsOf("E-1");
    QVERIFY(all > 2500.0);
    enter("Add...", "E-2", {2026, 7, 2}, {2026, 7, 1}); // reversed
    QVERIFY(!isPossible && told.contains("before it begins"));
    enter("Add...", "E-2", {2026, 7, 2}, {});
    QVERIFY(isPossible);
    QCOMPARE(table->topLevelItemCount(), 1);
    const double later = secondsOf("E-2");
    QVERIFY(later > 1500.0 && later < all);
    QCOMPARE(secondsOf("E-1"), all - later);
    QCOMPARE(notes(), 0); // the note goes with its recording
    QCOMPARE(engine->findChild<QComboBox*>("engineChoice")->count(), 2);
    QCOMPARE(QDir(path("lib/installations")).entryList({"*.json"}).size(), 1);
    enter("Add...", "E-3", {}, {2026, 7, 2}); // one day has two engines
    QVERIFY2(!isPossible && told.contains("E-2"), qPrintable(told));
    enter("Add...", "E-3", {}, {2026, 7, 1});
    QVERIFY2(isPossible, qPrintable(told));
    QCOMPARE(secondsOf("E-3"), all - later);
    QCOMPARE(secondsOf("E-1"), 0.0);

    // Taken away again, the headers count.
    for (int row = 2; row > 0; --row) {
        table->setCurrentItem(table->topLevelItem(0));
        ModalBoxes boxes;
        boxes.answer("&Yes");
        click(*window, "Remove");
        QCOMPARE(table->topLevelItemCount(), row - 1);
    }
    QCOMPARE(secondsOf("E-1"), all);
}

void TestLibraryWindow::libraryIsMoved()
{
    QVERIFY(writeCard(path("card"), summerCard()));
    QVERIFY(open());
    QVERIFY(import(path("card")).startsWith("12 of 12"));
    showPage();
    const QStringList cycles = cyclesIn(path("lib"));
    trigger(Command::Preferences);
    auto* const preferences = m_window->findChild<DialogPreferences*>();
    ModalBoxes boxes;
    QString told;
    boxes.handle([&](QDialog& dialog) {
        QCOMPARE(shownCycles(), -1); // the database is closed
        QTest::keyClicks(dialog.findChild<QLineEdit*>("moveFolder"), path("moved"));
        dialog.findChild<QPushButton*>("moveStart")->click();
        QSignalSpy finished(static_cast<DialogMove*>(&dialog), &DialogMove::signalFinished);
        QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
        told = dialog.findChild<QLabel*>("moveState")->text();
        dialog.findChild<QPushButton*>("moveClose")->click();
    });
    preferences->findChild<QPushButton*>("moveLibraryButton")->click();
    QVERIFY(boxes.isDone());
    QVERIFY2(told.contains(path("moved")) && told.contains("kept"), qPrintable(told));
    QCOMPARE(setting("LibraryFolder"), path("moved"));
    QCOMPARE(cyclesIn(path("moved")), cycles);
    QCOMPARE(cyclesIn(path("lib")), cycles);
    QCOMPARE(shownCycles(), 3);
    QVERIFY(page().findChild<QPushButton*>("updateLibrary")->isHidden()); // with its database
}

/// While the card is listed, which lets the user go on.
void TestLibraryWindow::programEndsDuringImport()
{
    QVERIFY(QDir().mkpath(path("card")));
    for (int i = 0; i < 6000; ++i) {
        QFile file(path(QString("card/REC%1.CAN").arg(i, 5, 10, QLatin1Char('0'))));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(600, 'x')) == 600);
    }
    QVERIFY(open());
    trigger(Command::ImportCard);
    auto* const dialog = m_window->findChild<DialogImport*>();
    dialog->findChild<QLineEdit*>("importCard")->setText(path("card"));
    dialog->findChild<QLineEdit*>("importLibrary")->setText(path("lib"));
    bool isListing = true;
    QTimer::singleShot(0, m_window.get(), [&] {
        QVERIFY(isListing && dialog->runner().isRunning());
        m_window->close();
    });
    dialog->findChild<QPushButton*>("importStart")->click();
    isListing = false;
    QVERIFY(!m_window->isVisible() && !dialog->isVisible() && !dialog->runner().isRunning());
    trigger(Command::ImportCard);
    QVERIFY(!dialog->isVisible());
    QVERIFY(!QDir(path("lib")).exists("units"));
}

/// Escape and the command to close can come at once, so that the list has not yet returned.
void TestLibraryWindow::programEndsWithListOfImports()
{
    QVERIFY(writeCard(path("card"), summerCard()));
    QVERIFY(open());
    QVERIFY(import(path("card")).startsWith("12 of 12 files are safe"));
    trigger(Command::ImportCard);
    auto* const dialog = m_window->findChild<DialogImport*>();
    QTimer::singleShot(0, m_window.get(), [&] {
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        m_window->close();
    });
    dialog->findChild<QPushButton*>("importTakeBack")->click();
    QVERIFY(!m_window->isVisible() && !dialog->isVisible());
}

QTEST_MAIN(TestLibraryWindow)
#include "tst_librarywindow.moc"
