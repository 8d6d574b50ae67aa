#include "analysis/ui/DialogDataTable.h"
#include "resources/Resources.h"
#include "tests/support/Buttons.h"
#include "tests/support/ModalBoxes.h"
#include "tests/support/RecordingFixture.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

using namespace KOLT;
using namespace KOLT::Test;

class TestDialogDataTable : public QObject
{
    Q_OBJECT

private slots:

    void initTestCase() { initKoltResources(); }

    void init();

    void cleanup() { m_window.reset(); }

    void modelShowsValues();
    void followsWithoutReporting();
    void pickedRowIsReported();
    void copiesWithTheCopyKey();
    void tooManyCellsAreNotCopied();
    void timeColumnStaysInSight();
    void saysWhyItIsEmpty();

private:
    QModelIndex cell(int row, int column) const { return m_view->model()->index(row, column); }

    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
    std::unique_ptr<QMainWindow> m_window;
    DialogDataTable* m_page = nullptr;
    QTableView* m_view = nullptr;
};

/// Speed once a second: 0 for 50 s, then 60. Flow every two seconds, without a threshold.
void TestDialogDataTable::init()
{
    QVERIFY(loadProfile(
        m_profile,
        unit("unitMetric='l' unitImperial='gal' factor='2' offset='0'") +
            threshold("T", {"val='0' color='#00ff00' state='OK'",
                            "val='50' color='#ff0000' state='LIMIT'"}) +
            device({"name='Flow' id='2' dataType='FLOAT' precision='1' unitMetric='l' "
                    "unitImperial='gal'",
                    "name='Speed' id='1' dataType='FLOAT' precision='0' thresholdId='T'"})));
    m_profile.select([](const ProfileParameter&) { return true; });
    m_dataSet = std::make_unique<DataSet>();
    for (int i = 0; i < 100; ++i) {
        add(m_dataSet->messages, 1, i, floats(i < 50 ? 0.0F : 60.0F));
        if (i % 2 == 1)
            add(m_dataSet->messages, 2, i, floats(1.5F));
    }
    m_dataSet->stopSeconds = 99.0;
    m_window = std::make_unique<QMainWindow>();
    m_page = new DialogDataTable(m_profile);
    m_window->setCentralWidget(m_page);
    m_window->resize(400, 300);
    m_page->setShown(true);
    m_page->setData(m_dataSet.get());
    m_view = m_page->findChild<QTableView*>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QApplication::setActiveWindow(m_window.get()); // no window manager does it
}

void TestDialogDataTable::modelShowsValues()
{
    const QAbstractItemModelTester tester(m_view->model());
    QCOMPARE(m_view->model()->rowCount(), 100);
    const auto look = [&](int row, int column) {
        const QModelIndex at = cell(row, column);
        const QVariant mark = at.data(Qt::DecorationRole);
        return at.data().toString() + (at.data(Qt::ForegroundRole).isValid() ? " dimmed" : "") +
               (mark.isValid() ? ' ' + mark.value<QColor>().name() : QString()) +
               (at.data(Qt::BackgroundRole).isValid() ? " filled" : "");
    };
    QCOMPARE(cell(3, 0).data().toString(), "00:00:03.000");
    QCOMPARE(cell(0, 1).data().toString(), ""); // before its first sample
    QCOMPARE(look(3, 1), "1.5");
    QCOMPARE(look(4, 1), "1.5 dimmed"); // carried over
    QCOMPARE(look(3, 2), "0 #00ff00");
    QCOMPARE(look(60, 2), "60 #ff0000 filled");
    const auto header = [&] { return m_view->model()->headerData(1, Qt::Horizontal).toString(); };
    QCOMPARE(header(), "Flow\n[l]");
    m_profile.setUnitSystem(UnitSystem::Imperial);
    m_view->selectRow(7);
    m_page->refresh(DataPage::Change::Units);
    QCOMPARE(m_view->currentIndex().row(), 7); // the rows are the same
    QCOMPARE(look(3, 1), "3.0");
    QCOMPARE(header(), "Flow\n[gal]");
    m_profile.setUnitSystem(UnitSystem::Metric);
}

void TestDialogDataTable::followsWithoutReporting()
{
    const QSignalSpy reported(m_page, &DialogDataTable::signalTime);
    m_view->selectionModel()->select(QItemSelection(cell(1, 1), cell(2, 2)),
                                     QItemSelectionModel::Select);
    m_page->setTime(70.4);
    QCOMPARE(m_view->currentIndex().row(), 70);
    const int top = m_view->visualRect(cell(70, 0)).top();
    const int height = m_view->viewport()->height();
    QVERIFY2(top > height / 4 && top < height * 3 / 4, qPrintable(QString::number(top)));
    QCOMPARE(m_view->selectionModel()->selectedIndexes().size(), 4); // still the user's
    m_page->setTime(-5.0);
    QCOMPARE(m_view->currentIndex().row(), 0);
    QCOMPARE(reported.size(), 0);
    // The row of the moment has no later sample of the same tenth.
    add(m_dataSet->messages, 2, 99.0, floats(1.5F));
    add(m_dataSet->messages, 2, 99.02, floats(2.5F));
    m_page->setData(m_dataSet.get());
    for (const auto& [seconds, text] : {std::pair(99.01, "1.5"), {99.02, "2.5"}, {50.0, "2.5"}}) {
        m_page->setTime(seconds);
        QCOMPARE(cell(99, 1).data().toString(), text);
    }
}

void TestDialogDataTable::pickedRowIsReported()
{
    QSignalSpy reported(m_page, &DialogDataTable::signalTime);
    const auto told = [&] {
        return reported.isEmpty() ? -1.0 : reported.takeFirst()[0].toDouble();
    };
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
                      m_view->visualRect(cell(3, 2)).center());
    QCOMPARE(told(), 3.0);
    QTest::keyClick(m_view, Qt::Key_Down);
    QCOMPARE(told(), 4.0);
    QTest::keyClick(m_view, Qt::Key_Right); // the same row
    QCOMPARE(told(), -1.0);
    QCOMPARE(m_page->time(), 4.0);
    // The current row can be picked again, in the frozen column too.
    auto* const frozen = m_view->findChild<QTableView*>("frozenColumn");
    for (const auto& [view, column] : {std::pair(m_view, 2), {frozen, 0}}) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(cell(4, column)).center());
        QCOMPARE(told(), 4.0);
    }
    QTest::keyClick(m_view, Qt::Key_Return);
    QCOMPARE(told(), 4.0);
    m_view->setCurrentIndex(cell(4, 2));
    QCOMPARE(told(), -1.0);
    // Ctrl jumps to the next change of the value.
    QTest::keyClick(m_view, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(told(), 50.0);
    QTest::keyClick(m_view, Qt::Key_Down, Qt::ControlModifier); // there is none
    QCOMPARE(told(), -1.0);
    QTest::keyClick(m_view, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(told(), 49.0);
}

void TestDialogDataTable::copiesWithTheCopyKey()
{
    // The main window uses the same key for a command.
    QAction other(m_window.get());
    other.setShortcut(QKeySequence(QStringLiteral("Ctrl+C")));
    m_window->addAction(&other);
    const QSignalSpy triggered(&other, &QAction::triggered);
    m_view->selectionModel()->select(QItemSelection(cell(2, 0), cell(3, 1)),
                                     QItemSelectionModel::ClearAndSelect);
    m_view->selectionModel()->select(cell(3, 2), QItemSelectionModel::Select);
    m_view->setFocus();
    QTest::keyClick(m_view, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             "Time\tFlow [l]\tSpeed\n00:00:02.000\t1.5\t\n00:00:03.000\t1.5\t0\n");
    QCOMPARE(triggered.size(), 0);
    // The clock time has a column of its own, also where its cell is not selected.
    m_dataSet->dateTime = QDateTime(QDate(2026, 7, 28), QTime(23, 59, 58), Qt::UTC);
    m_page->setData(m_dataSet.get());
    const QSignalSpy told(m_page, &DialogDataTable::signalClockShown);
    click(*m_page, "Clock time");
    QCOMPARE(told.value(0).value(0), true);
    QCOMPARE(cell(3, 0).data().toString(), "00:00:03.000 00:00:01.000");
    m_view->selectionModel()->select(QItemSelection(cell(2, 0), cell(2, 1)),
                                     QItemSelectionModel::ClearAndSelect);
    m_view->selectionModel()->select(cell(3, 1), QItemSelectionModel::Select);
    QTest::keyClick(m_view, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "Time\tClock time\tFlow [l]\n"
                                                "00:00:02.000\t00:00:00.000\t1.5\n\t\t1.5\n");
    m_view->clearFocus();
    QTest::keyClick(m_window.get(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(triggered.size(), 1);
}

void TestDialogDataTable::tooManyCellsAreNotCopied()
{
    for (int i = 0; i < 70'000; ++i)
        add(m_dataSet->messages, 1, 100.0 + i);
    m_page->setData(m_dataSet.get());
    QApplication::clipboard()->setText("before");
    m_view->selectAll();
    ModalBoxes boxes;
    boxes.answer("OK");
    QTest::keyClick(m_view, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(boxes.seen().value(0).startsWith("KOLT Info|"));
    QCOMPARE(QApplication::clipboard()->text(), "before");
}

void TestDialogDataTable::timeColumnStaysInSight()
{
    auto* const frozen = m_view->findChild<QTableView*>("frozenColumn");
    m_view->setColumnWidth(1, 1000);
    QTRY_VERIFY(m_view->horizontalScrollBar()->maximum() > 500);
    m_view->horizontalScrollBar()->setValue(m_view->horizontalScrollBar()->maximum());
    QVERIFY(m_view->visualRect(cell(0, 0)).right() < 0);
    QVERIFY(frozen->isVisible());
    QVERIFY(!frozen->isColumnHidden(0) && frozen->isColumnHidden(1));
    m_view->verticalScrollBar()->setValue(40);
    QCOMPARE(frozen->verticalScrollBar()->value(), 40);
    QCOMPARE(frozen->visualRect(cell(45, 0)).top(), m_view->visualRect(cell(45, 0)).top());
}

void TestDialogDataTable::saysWhyItIsEmpty()
{
    QStringList texts;
    const auto note = [&] {
        for (const QLabel* label : m_page->findChildren<QLabel*>("emptyState"))
            texts << (label->isVisible() ? label->text().section(' ', 0, 2) : QString());
    };
    note();
    m_profile.select([](const ProfileParameter&) { return false; });
    m_page->refresh(DataPage::Change::Selection);
    note();
    m_profile.select([](const ProfileParameter& parameter) { return parameter.id == 2; });
    const DataSet empty;
    m_page->setData(&empty);
    note();
    m_page->clear();
    note();
    QCOMPARE(texts,
             (QStringList{"", "No parameters are", "The selected parameters", "Choose a cycle"}));
}

QTEST_MAIN(TestDialogDataTable)
#include "tst_dialogdatatable.moc"
