#include "library/ui/EngineWindow.h"
#include "library/ui/LedgerChart.h"
#include "library/ui/LibraryFilterBar.h"
#include "library/ui/LibraryModel.h"
#include "library/ui/LibraryPage.h"
#include "library/ui/NotesWindow.h"
#include "tests/support/ModalBoxes.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTreeView>
#include <QTreeWidget>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// The library in the window: a tree that is asked for piece by piece, and an engine's ledger.
class TestLibraryFaces : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void treeIsFilledOnDemand();
    void searchMeansDaysOrSerials_data();
    void searchMeansDaysOrSerials();
    void filterLeavesWhatIsWanted_data();
    void filterLeavesWhatIsWanted();
    void clickOpensFromTheArchive();
    void openEntriesStayOpen();
    void withoutALibraryItIsOffered();
    void chartsAreLaidOut();
    void engineTellsWhatIsDue();
    void notesLeadToTheirMoments();

private:
    void store(quint32 unit, const QDate& day, int flights, ThresholdState state,
               const QString& fault);

    static int count(const LibraryModel& model, LibraryModel::Kind kind)
    {
        return countBelow(const_cast<LibraryModel&>(model), {}, kind); // NOLINT
    }

    static int countBelow(LibraryModel& model, const QModelIndex& parent, LibraryModel::Kind kind)
    {
        while (model.canFetchMore(parent))
            model.fetchMore(parent);
        int found = 0;
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            found += (model.kindOf(index) == kind ? 1 : 0) + countBelow(model, index, kind);
        }
        return found;
    }

    QTemporaryDir m_folder;
    LibraryDatabase m_database;
};

void TestLibraryFaces::store(quint32 unit, const QDate& day, int flights, ThresholdState state,
                             const QString& fault)
{
    const QString name = day.toString("yyyyMMdd");
    ArchivedCycle cycle;
    cycle.folder = QStringLiteral("%1/%2/%3").arg(unit).arg(day.year()).arg(name);
    cycle.unit = unit;
    cycle.engine = QStringLiteral("E-%1").arg(unit);
    cycle.dateTime = QDateTime(day, QTime(9, 30), Qt::UTC);
    cycle.files = {{"REC00001.CAN", name.leftJustified(64, '0'), 1000}};
    CycleFigures figures;
    figures.stopSeconds = 1800.0;
    figures.recordedSeconds = 1800.0;
    figures.runSeconds = 1700.0;
    figures.starts = 1;
    for (int i = 0; i < flights; ++i) {
        FlightFigures one;
        one.flight.takeOffSeconds = 300.0 + 600.0 * i;
        one.flight.landingSeconds = one.flight.takeOffSeconds + 400.0 + 300.0 * i;
        one.airSeconds = 401 + 300 * i; // by whole seconds of the clock
        one.flight.dateTime = cycle.dateTime.addSecs(300 + 600 * i);
        figures.flights.push_back(one);
    }
    if (state != ThresholdState::Ok) {
        EpisodeRecord episode;
        episode.quantity = "Oil Temperature";
        episode.state = state;
        episode.flight = 1;
        figures.episodes.push_back(episode);
        EpisodeCounts& counts = figures.flights.front().counts;
        (state == ThresholdState::Limit ? counts.limits : counts.warnings) = {1, 1};
    }
    if (!fault.isEmpty())
        figures.faults.push_back({fault, 10.0, 20.0, false, {}});
    QVERIFY2(m_database.storeCycle(cycle, figures, {"p", "1", "h", "915", "1"}),
             qPrintable(m_database.error()));
}

void TestLibraryFaces::initTestCase()
{
    QVERIFY(m_database.open({m_folder.path(), {}}, LibraryDatabase::Access::Create));
    store(4711023, {2024, 5, 18}, 3, ThresholdState::Ok, {});
    store(4711023, {2025, 5, 18}, 2, ThresholdState::Warning, {});
    store(4711023, {2025, 6, 1}, 1, ThresholdState::Limit, "ECU/EGT 3 Sensor");
    store(8150099, {2025, 6, 1}, 1, ThresholdState::Ok, {});
}

void TestLibraryFaces::treeIsFilledOnDemand()
{
    LibraryModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    tester.setUseFetchMore(false);
    Logbook::Contents written;
    written.aircraft.push_back({{}, 4711023, "D-EKLT"});
    model.show(&m_database, {}, written);
    QCOMPARE(model.rowCount(), 2);
    const QModelIndex unit = model.index(0, 0);
    QVERIFY(unit.data().toString().startsWith("D-EKLT (6 "));
    QCOMPARE(model.rowCount(unit), 0);
    QVERIFY(model.hasChildren(unit) && model.canFetchMore(unit));
    model.fetchMore(unit);
    QCOMPARE(model.rowCount(unit), 2);
    QVERIFY(model.index(0, 0, unit).data().toString().startsWith("2025"));
    QCOMPARE(count(model, LibraryModel::Kind::Day), 4);
    QCOMPARE(count(model, LibraryModel::Kind::Cycle), 4);
    QCOMPARE(count(model, LibraryModel::Kind::Flight), 7);
}

void TestLibraryFaces::searchMeansDaysOrSerials_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<QString>("serial");
    const auto days = [](const char* text, const QDate& from, const QDate& to) {
        QTest::newRow(text) << text << from << to << QString();
    };
    days("1.6.2025", {2025, 6, 1}, {2025, 6, 1});
    days("2025-06-01", {2025, 6, 1}, {2025, 6, 1});
    days(" 2.2024 ", {2024, 2, 1}, {2024, 2, 29});
    days("2025-12", {2025, 12, 1}, {2025, 12, 31});
    days("2025", {2025, 1, 1}, {2025, 12, 31});
    for (const char* serial : {"4711", "E-81", "30.2.2025", ""})
        QTest::newRow(serial) << serial << QDate() << QDate() << serial;
}

void TestLibraryFaces::searchMeansDaysOrSerials()
{
    QFETCH(QString, text);
    LibraryFilter filter;
    LibraryFilterBar::readSearch(text, filter);
    QTEST(filter.from, "from");
    QTEST(filter.to, "to");
    QTEST(filter.serial, "serial");
}

void TestLibraryFaces::filterLeavesWhatIsWanted_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<int>("exceeded");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("cycles");
    QTest::newRow("all") << "" << 0 << "" << 4;
    QTest::newRow("serial") << "e-815" << 0 << "" << 1;
    QTest::newRow("month") << "6.2025" << 0 << "" << 2;
    QTest::newRow("exceeded") << "" << 1 << "" << 2;
    QTest::newRow("limit") << "" << 2 << "" << 1;
    QTest::newRow("fault") << "" << 0 << "egt" << 1;
    QTest::newRow("none") << "2024" << 2 << "" << 0;
}

void TestLibraryFaces::filterLeavesWhatIsWanted()
{
    QFETCH(QString, search);
    QFETCH(int, exceeded);
    QFETCH(QString, fault);
    QFETCH(int, cycles);
    LibraryPage page;
    page.setLibrary(m_database, {});
    auto* const bar = page.findChild<LibraryFilterBar*>();
    QSignalSpy filtered(bar, &LibraryFilterBar::signalFilter);
    page.findChild<QComboBox*>("libraryExceeded")->setCurrentIndex(exceeded);
    page.findChild<QLineEdit*>("librarySearch")->setText(search);
    page.findChild<QLineEdit*>("libraryFault")->setText(fault);
    if (cycles < 4)
        QVERIFY(filtered.wait());
    QCOMPARE(count(page.model(), LibraryModel::Kind::Cycle), cycles);
    page.show();
    QCOMPARE(page.findChild<QTreeView*>()->isVisible(), cycles > 0);
    page.findChild<QPushButton*>("libraryShowAll")->click();
    QTRY_COMPARE(count(page.model(), LibraryModel::Kind::Cycle), 4);
    QVERIFY(bar->filter().isEmpty());
}

void TestLibraryFaces::clickOpensFromTheArchive()
{
    LibraryPage page;
    page.resize(400, 500);
    page.setLibrary(m_database, {});
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto* const tree = page.findChild<QTreeView*>();
    QVERIFY(count(page.model(), LibraryModel::Kind::Flight) > 0); // now all is there
    QModelIndex index = page.model().index(1, 0);
    while (page.model().kindOf(index) != LibraryModel::Kind::Flight) {
        tree->expand(index);
        index = page.model().index(0, 0, index);
        QVERIFY(index.isValid());
    }
    QVERIFY2(index.data().toString().endsWith("(00:06:41)"), qPrintable(index.data().toString()));
    tree->scrollTo(index);
    QSignalSpy opened(&page, &LibraryPage::signalOpen);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(index).center());
    QVERIFY(opened.wait());
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened[0][0].toString(), QString("8150099/2025/20250601"));
    QCOMPARE(opened[0][1].toInt(), 1);
}

/// When an import has added to the library.
void TestLibraryFaces::openEntriesStayOpen()
{
    LibraryPage page;
    page.resize(400, 500);
    page.setLibrary(m_database, {});
    page.show();
    auto* const tree = page.findChild<QTreeView*>();
    QModelIndex index = page.model().index(0, 0);
    while (page.model().kindOf(index) != LibraryModel::Kind::Flight) {
        tree->expand(index);
        index = page.model().index(0, 0, index);
        QVERIFY(index.isValid());
    }
    tree->setCurrentIndex(index);
    QSignalSpy opened(&page, &LibraryPage::signalOpen);
    QVERIFY(opened.wait());
    const QString shown = index.data().toString();

    store(1, {2024, 1, 1}, 1, ThresholdState::Ok, {}); // the first of the tree now
    page.showNote("The disk is away");
    page.setLibrary(m_database, {});
    QCOMPARE(tree->currentIndex().data().toString(), shown);
    page.setLibrary(m_database, {});
    QCOMPARE(page.model().unitOf(page.model().index(0, 0)), 1U);
    QVERIFY(!tree->isExpanded(page.model().index(0, 0)));
    index = tree->currentIndex();
    QCOMPARE(index.data().toString(), shown);
    QVERIFY(!tree->visualRect(index).isEmpty());
    QVERIFY(!opened.wait(700)); // longer than a choice settles
    QVERIFY(m_database.removeCycle("1/2024/20240101"));
}

void TestLibraryFaces::withoutALibraryItIsOffered()
{
    LibraryPage page;
    QSignalSpy shown(&page, &LibraryPage::signalShown);
    page.show();
    QCOMPARE(shown.size(), 1);
    auto* const button = page.findChild<QPushButton*>("chooseLibrary");
    QVERIFY(button->isVisible());
    QSignalSpy chosen(&page, &LibraryPage::signalChooseLibrary);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(chosen.size(), 1);
    page.setLibrary(m_database, {});
    QVERIFY(!button->isVisible());
    page.setStale(3);
    QVERIFY(page.findChild<QPushButton*>("updateLibrary")->isVisible());
    page.showNote("gone");
    QVERIFY(button->isVisible());
    QCOMPARE(page.model().rowCount(), 0);
}

void TestLibraryFaces::chartsAreLaidOut()
{
    EngineLedger ledger;
    for (const QDate& month : {QDate(2024, 11, 1), QDate(2025, 2, 1), QDate()}) {
        MonthRow row;
        row.month = month;
        row.sums.runSeconds = 7200.0;
        row.sums.flights = 5;
        ledger.months.push_back(row);
    }
    const LedgerChart chart = ledgerChart(ledger);
    QCOMPARE(chart.months.size(), 4U); // with those in between
    QCOMPARE(chart.months[1].hours, 0.0);
    QCOMPARE(chart.months[3].hours, 2.0);

    QCOMPARE(axisTicks(7.3), (std::vector{0.0, 2.0, 4.0, 6.0, 8.0}));
    QVERIFY(axisTicks(0.0).size() >= 2);
    QCOMPARE(barWidths({100.0, 0.0, 0.0}, 50), (std::array{50, 0, 0}));
    QCOMPARE(barWidths({1e6, 1.0, 0.5}, 50), (std::array{46, 2, 2}));
    QCOMPARE(barWidths({0.0, 1.0, 1.0}, 50), (std::array{0, 25, 25}));
    QCOMPARE(barWidths({0.0, 0.0, 0.0}, 50), (std::array{0, 0, 0}));
}

void TestLibraryFaces::engineTellsWhatIsDue()
{
    const QDate today(2025, 7, 1);
    Logbook::Contents written;
    written.limits.push_back({{}, "E-4711023", "Oil", 1.0, {}, 0.0, {2025, 1, 1}});
    written.limits.push_back({{}, "E-4711023", "Big check", 1000.0, {}, 0.0, {2025, 1, 1}});
    const auto ledger = engineLedger(m_database, written, "E-4711023", today);
    QVERIFY(ledger && ledger.value);
    EngineWindow window;
    window.setEngines({"E-4711023", "E-8150099"});
    window.setLedger(*ledger.value, today);
    window.show();
    auto* const limits = window.findChild<QTreeWidget*>("limitTable");
    QCOMPARE(limits->topLevelItemCount(), 2);
    QCOMPARE(limits->topLevelItem(0)->text(0), QString("Oil"));
    const auto labels = window.findChildren<QLabel*>();
    QVERIFY(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->text().contains("Oil: ") && !label->text().contains("Big check");
    }));

    QSignalSpy saved(&window, &EngineWindow::signalLimit);
    auto* const done = window.findChild<QPushButton*>("doneLimit");
    QVERIFY(!done->isEnabled());
    limits->setCurrentItem(limits->topLevelItem(0));
    QTest::mouseClick(done, Qt::LeftButton);
    QCOMPARE(saved.size(), 1);
    const auto limit = saved[0][0].value<MaintenanceLimit>();
    QCOMPARE(limit.lastDate, today);
    QVERIFY(std::abs(limit.lastHours - ledger.value->hours) < 0.006);
    QVERIFY(limit.lastHours > 1.0);

    // Return opens the line's editor, and no other one after it.
    int editors = 0;
    ModalBoxes boxes;
    for (int i = 0; i < 2; ++i)
        boxes.handle([&](QDialog& editor) {
            ++editors;
            editor.reject();
        });
    QTest::keyClick(limits, Qt::Key_Return);
    QCOMPARE(editors, 1);

    QTest::mouseClick(window.findChild<QPushButton*>("copyLedger"), Qt::LeftButton);
    QVERIFY(!QApplication::clipboard()->image().isNull());
    const QString text = window.document(500.0)->toPlainText();
    QVERIFY(text.contains("Oil") && text.contains("06.2025"));

    QSignalSpy other(&window, &EngineWindow::signalEngine);
    auto* const engines = window.findChild<QComboBox*>("engineChoice");
    engines->setFocus();
    QTest::keyClick(engines, Qt::Key_Down);
    QCOMPARE(other.size(), 1);
    QCOMPARE(other[0][0].toString(), QString("E-8150099"));
}

void TestLibraryFaces::notesLeadToTheirMoments()
{
    Note note;
    note.about = Note::About::Moment;
    note.place.seconds = 812.5;
    note.text = "Rattles";
    NotesWindow window;
    window.setNotes({note}, true);
    window.show();
    auto* const table = window.findChild<QTreeWidget*>("recordingNotes");
    QSignalSpy time(&window, &NotesWindow::signalTime);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualItemRect(table->topLevelItem(0)).center());
    QCOMPARE(time.size(), 1);
    QCOMPARE(time[0][0].toDouble(), 812.5);

    // Return changes the note, and adds none after it. Tab leads out of its text.
    int editors = 0;
    ModalBoxes boxes;
    for (int i = 0; i < 2; ++i)
        boxes.handle([&](QDialog& editor) {
            ++editors;
            auto* const text = editor.findChild<QPlainTextEdit*>();
            QTest::keyClick(text, Qt::Key_Tab);
            QCOMPARE(text->toPlainText(), QString("Rattles"));
            editor.reject();
        });
    QTest::keyClick(table, Qt::Key_Return);
    QCOMPARE(editors, 1);
}

QTEST_MAIN(TestLibraryFaces)
#include "tst_libraryfaces.moc"
