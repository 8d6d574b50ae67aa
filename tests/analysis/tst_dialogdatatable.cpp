#include "analysis/DialogDataTable.h"
#include "resources/Resources.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QTimer>

using namespace KOLT;
using namespace KOLT::Test;

class TestDialogDataTable : public QObject
{
    Q_OBJECT

private slots:

    void initTestCase() { initKoltResources(); }

    void init();
    void cleanup();
    void modelShowsValues();
    void followsWithoutReporting();
    void pickedRowIsReported();
    void jumpsToChanges();
    void copiesWithTheCopyKey();
    void tooManyCellsAreNotCopied();
    void timeColumnStaysInSight();
    void saysWhyItIsEmpty();

private:
    QModelIndex cell(int row, int column) const { return m_view->model()->index(row, column); }

    QString text(int row, int column) const { return cell(row, column).data().toString(); }

    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
    std::unique_ptr<QMainWindow> m_window;
    DialogDataTable* m_page = nullptr;
    QTableView* m_view = nullptr;
};

/// Speed once a second, 0 for 50 s and then 60; flow every two seconds, ungraded.
void TestDialogDataTable::init()
{
    QVERIFY(loadProfile(
        m_profile,
        "<UnitConversions><Unit unitMetric='l' unitImperial='gal' factor='2' offset='0'/>"
        "</UnitConversions><ThresholdList><Threshold name='T'><Value val='0' color='#00ff00' "
        "state='OK'/><Value val='50' color='#ff0000' state='LIMIT'/></Threshold></ThresholdList>" +
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
    QApplication::setActiveWindow(m_window.get()); // there is no window manager to do it
}

void TestDialogDataTable::cleanup()
{
    m_window.reset();
}

void TestDialogDataTable::modelShowsValues()
{
    const QAbstractItemModelTester tester(m_view->model());
    QCOMPARE(m_view->model()->rowCount(), 100);
    QCOMPARE(text(3, 0), "00:00:03.000");
    QCOMPARE(text(3, 2), "0");
    QCOMPARE(text(0, 1), ""); // before its first sample
    QCOMPARE(text(3, 1), "1.5");
    QVERIFY(!cell(3, 1).data(Qt::ForegroundRole).isValid());
    QCOMPARE(text(4, 1), "1.5");
    QVERIFY(cell(4, 1).data(Qt::ForegroundRole).isValid()); // dimmed: from the row before
    QCOMPARE(cell(3, 2).data(Qt::DecorationRole).value<QColor>(), QColor(Qt::green));
    QVERIFY(!cell(3, 2).data(Qt::BackgroundRole).isValid());
    QCOMPARE(cell(60, 2).data(Qt::DecorationRole).value<QColor>(), QColor(Qt::red));
    QVERIFY(cell(60, 2).data(Qt::BackgroundRole).isValid());
    QVERIFY(!cell(3, 1).data(Qt::DecorationRole).isValid());
    QCOMPARE(m_view->model()->headerData(1, Qt::Horizontal).toString(), "Flow\n[l]");
    m_profile.setUnitSystem(UnitSystem::Imperial);
    m_page->refresh();
    QCOMPARE(text(3, 1), "3.0");
    QCOMPARE(m_view->model()->headerData(1, Qt::Horizontal).toString(), "Flow\n[gal]");
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
    QCOMPARE(m_view->selectionModel()->selectedIndexes().size(), 4); // the user's stays
    m_page->setTime(-5.0);
    QCOMPARE(m_view->currentIndex().row(), 0);
    QCOMPARE(reported.size(), 0);
}

void TestDialogDataTable::pickedRowIsReported()
{
    QSignalSpy reported(m_page, &DialogDataTable::signalTime);
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
                      m_view->visualRect(cell(3, 2)).center());
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 3.0);
    QTest::keyClick(m_view, Qt::Key_Down);
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 4.0);
    QTest::keyClick(m_view, Qt::Key_Right); // the same row
    QCOMPARE(reported.size(), 0);
    QCOMPARE(m_page->time(), 4.0);
}

void TestDialogDataTable::jumpsToChanges()
{
    QSignalSpy reported(m_page, &DialogDataTable::signalTime);
    m_view->setCurrentIndex(cell(10, 2));
    m_view->setFocus();
    reported.clear();
    QTest::keyClick(m_view, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 50.0);
    QTest::keyClick(m_view, Qt::Key_Down, Qt::ControlModifier); // there is no other
    QCOMPARE(reported.size(), 0);
    QTest::keyClick(m_view, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 49.0);
}

void TestDialogDataTable::copiesWithTheCopyKey()
{
    // The main window has a command on the same key.
    QAction other(m_window.get());
    other.setShortcut(QKeySequence(QStringLiteral("Ctrl+C")));
    m_window->addAction(&other);
    const QSignalSpy triggered(&other, &QAction::triggered);
    m_view->selectionModel()->select(QItemSelection(cell(2, 0), cell(3, 1)),
                                     QItemSelectionModel::ClearAndSelect);
    m_view->selectionModel()->select(cell(3, 2), QItemSelectionModel::Select);
    m_view->setFocus();
    QTest::keyClick(m_view, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "00:00:02.000\t1.5\t\n00:00:03.000\t1.5\t0\n");
    QCOMPARE(triggered.size(), 0);
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
    QString told;
    QTimer::singleShot(0, this, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box != nullptr);
        told = box->windowTitle();
        box->accept();
    });
    QTest::keyClick(m_view, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(told, "KOLT Info");
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
    m_page->refresh();
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
