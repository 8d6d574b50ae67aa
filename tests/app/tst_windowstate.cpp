#include "analysis/ui/FaultTable.h"
#include "tests/app/MainWindowFixture.h"

#include <QHeaderView>
#include <QSplitter>
#include <QTabBar>
#include <QToolButton>
#include <QTreeWidget>

using namespace KOLT;
using namespace KOLT::Test;

/// What the window looks like at its next start.
class TestWindowState : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:

    void initTestCase() { prepareOnce(); }

    void init() { QVERIFY(prepare()); }

    void cleanup()
    {
        m_window.reset();
        m_output.reset();
    }

    void windowComesBack();
    void columnsComeBack();
    void draggedColumnsOfListsComeBack();
    void largeWindowComesBackOnALargerScreen();
    void settingsThatCannotBeSavedAreTold();

private:
    /// Opens the window and waits until it is settled, after which changes are stored.
    bool start()
    {
        m_window.reset();
        return open() && waitFor([] { return true; });
    }

    DialogData& data() const { return *m_window->findChild<DialogData*>(); }

    QSplitter* splitter(const QWidget* part) const
    {
        return qobject_cast<QSplitter*>(part->parentWidget());
    }

    QTabBar* tabs() const { return data().findChild<QTabBar*>(); }

    /// Drags the handle behind the first part.
    static void drag(QSplitter& splitter, const QPoint& by)
    {
        QSplitterHandle* const handle = splitter.handle(1);
        const QPoint place = handle->rect().center();
        QTest::mousePress(handle, Qt::LeftButton, {}, place);
        QTest::mouseMove(handle, place + by);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, place + by);
    }
};

void TestWindowState::windowComesBack()
{
    QVERIFY(start());
    QCOMPARE(m_window->size(), QSize(1000, 800));
    QCOMPARE(tabs()->currentIndex(), 0);
    QSplitter* const panels = splitter(&data());
    QVERIFY(std::abs(panels->sizes().at(0) - 1000 / 3) < 5);

    m_window->resize(1100, 700);
    QTRY_COMPARE(m_window->size(), QSize(1100, 700));
    drag(*panels, {50, 0});
    const int listWidth = panels->sizes().at(0);
    QVERIFY(listWidth > 1100 / 3 + 20);
    QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(3).center());
    for (auto* button : data().findChildren<QToolButton*>()) {
        if (button->toolTip() == "Tile Map Display Vertically")
            QTest::mouseClick(button, Qt::LeftButton);
    }
    const int page = data().arrangement().sizes.at(0);
    QCoreApplication::processEvents();
    m_window->close();

    QVERIFY(start());
    QCOMPARE(m_window->size(), QSize(1100, 700));
    QCOMPARE(tabs()->currentIndex(), 3);
    QVERIFY(data().page(DialogData::Page::Limit).dataSet() == nullptr);
    QVERIFY(std::abs(splitter(&data())->sizes().at(0) - listWidth) <= 1);
    QCOMPARE(data().arrangement().map, 2);
    QVERIFY(std::abs(data().arrangement().sizes.at(0) - page) <= 1);
}

void TestWindowState::settingsThatCannotBeSavedAreTold()
{
    QVERIFY(start());
    const QString file = QFile::decodeName(SettingsStore::instance().fileName());
    QFile::remove(file);
    QVERIFY(QDir().mkdir(file)); // cannot be replaced, like a file that another program holds
    const ModalBoxes boxes;
    m_window->resize(1111, 777);
    QTRY_COMPARE(boxes.seen().size(), 1);
    const QString text = boxes.seen().first();
    QVERIFY2(text.contains(file) && text.contains("that no other program has the file open"),
             qPrintable(text));
    QVERIFY(QDir().rmdir(file));
}

void TestWindowState::columnsComeBack()
{
    const auto header = [this] {
        return data().findChild<DialogDataTable*>()->findChild<QTableView*>()->horizontalHeader();
    };
    const QString card = folder("card");
    QVERIFY(openCycle(card));
    const int speed = header()->sectionSize(1);
    header()->resizeSection(2, 222); // as a drag does
    confirmSelection("Fuel");        // drops the column
    confirmSelection("Fuel");
    QCOMPARE(header()->sectionSize(2), 222);
    m_window->close();
    m_window.reset();
    QVERIFY(openCycle(card));
    QCOMPARE(header()->sectionSize(2), 222);
    QCOMPARE(header()->sectionSize(1), speed); // fitted
}

void TestWindowState::draggedColumnsOfListsComeBack()
{
    const auto overview = [this] {
        return m_window->findChild<QTreeWidget*>("overviewTree")->header();
    };
    const auto faults = [this] { return m_window->findChild<FaultTable*>()->horizontalHeader(); };
    const auto widen = [](QHeaderView* header, int column) {
        QWidget* const part = header->viewport();
        const QPoint edge(header->sectionViewportPosition(column) + header->sectionSize(column) - 2,
                          header->height() / 2);
        QTest::mousePress(part, Qt::LeftButton, {}, edge);
        QTest::mouseMove(part, edge + QPoint(31, 0));
        QTest::mouseRelease(part, Qt::LeftButton, {}, edge + QPoint(31, 0));
        return header->sectionSize(column);
    };
    QVERIFY(openCycle(folder("card")));
    data().setCurrentPage(DialogData::Page::FaultMatrix);
    const int begin = faults()->sectionSize(1);
    const int fault = widen(faults(), 0);
    data().showFront(true);
    const int name = widen(overview(), 0);
    m_window->close();
    m_window.reset();
    QVERIFY(openCycle(folder("card")));
    data().setCurrentPage(DialogData::Page::FaultMatrix);
    QCOMPARE(faults()->sectionSize(0), fault);
    QCOMPARE(faults()->sectionSize(1), begin); // fitted
    data().showFront(true);
    QCOMPARE(overview()->sectionSize(0), name);
}

void TestWindowState::largeWindowComesBackOnALargerScreen()
{
    WindowState state;
    state.size = {5000, 4000};
    storeWindowState(state, SettingsStore::instance());
    QVERIFY(start());
    const QSize screen = m_window->screen()->availableSize();
    QVERIFY(screen.width() < 5000);
    QCOMPARE(m_window->frameGeometry().size(), screen);
    QTest::keyClick(tabs(), Qt::Key_Right);
    m_window->close();
    QCOMPARE(setting("WindowPage"), "1");
    QCOMPARE(setting("WindowWidth"), "5000"); // not what the smaller screen left of it
}

QTEST_MAIN(TestWindowState)
#include "tst_windowstate.moc"
