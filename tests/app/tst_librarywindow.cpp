#include "library/database/LibraryQueries.h"
#include "library/ui/DialogImport.h"
#include "library/ui/EngineWindow.h"
#include "library/ui/LibraryModel.h"
#include "library/ui/LibraryPage.h"
#include "record/ui/DialogCard.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/library/ArchiveSupport.h"
#include "ui/NoticeBar.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
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

    const QString state = import(path("card"));
    QVERIFY2(state.startsWith("6 of 6 files are safe"), qPrintable(state));
    QCOMPARE(shownCycles(), 1);
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

QTEST_MAIN(TestLibraryWindow)
#include "tst_librarywindow.moc"
