#include "analysis/ui/PositionSlider.h"
#include "analysis/ui/RecordingStrip.h"
#include "tests/app/MainWindowFixture.h"

#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QSlider>
#include <QTableWidget>
#include <QToolTip>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

/// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

/// A card with a hole, from its listing to the moment of the hole.
class TestTrustMarks : public QObject, private MainWindowFixture
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

    void markTellsAndLeadsToTheMoment();
    void stripShowsTheHole();
    void soundRecordingSaysSo();

private:
    QTreeWidget* tree() const { return m_window->findChild<QTreeWidget*>("cyclesTree"); }

    QTableWidget* findings() const { return m_window->findChild<QTableWidget*>("findingsTable"); }

    double time() const { return m_window->findChild<DialogData*>()->time(); }

    bool load(int cycle)
    {
        tree()->setCurrentItem(tree()->topLevelItem(cycle));
        auto* const strip = m_window->findChild<RecordingStrip*>();
        return waitFor([&] { return dataSet() != nullptr; }) &&
               QTest::qWaitFor([&] { return strip->grab().toImage() != m_emptyStrip; });
    }

    QImage m_emptyStrip;
};

/// Cycle 1 has a hole from 99 s to 160 s, cycle 2 has none.
void TestTrustMarks::init()
{
    QVERIFY(prepare());
    RecordBytes first;
    for (int t = 0; t <= 200; ++t) {
        if (t < 100 || t >= 160)
            first.sample(1, t, floats(1.0F));
    }
    RecordBytes second;
    for (int t = 0; t <= 200; ++t)
        second.sample(1, t, floats(1.0F));
    QDir(m_cards->path()).mkdir("card");
    QVERIFY(writeFile(m_cards->filePath("card/1.CAN"), first.bytes()));
    QVERIFY(writeFile(m_cards->filePath("card/2.CAN"), second.bytes()));
    SettingsStore::instance().setText("LastPath", m_cards->filePath("card").toUtf8());
    QVERIFY(open());
    m_emptyStrip = m_window->findChild<RecordingStrip*>()->grab().toImage();
}

void TestTrustMarks::markTellsAndLeadsToTheMoment()
{
    QTreeWidgetItem* const item = tree()->topLevelItem(1);
    QTRY_VERIFY(!item->icon(1).isNull()); // read for the overview
    QVERIFY(tree()->topLevelItem(2)->icon(1).isNull());
    QVERIFY(item->toolTip(1).contains("nothing was recorded"));
    const QModelIndex index = tree()->model()->index(1, 1);
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, tree()->visualRect(index).center());
    QTRY_VERIFY(findings()->isVisible());
    QVERIFY(tree()->selectedItems().isEmpty());
    QStringList cells;
    for (int column = 1; column < 5; ++column)
        cells << findings()->item(0, column)->text();
    QCOMPARE(cells, (QStringList{"Hole", "00:01:39", "00:02:40", "1.CAN"}));
    QTest::keyClick(findings(), Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QApplication::clipboard()->text().startsWith("doubtful\tHole\t00:01:39\t00:02:40"));
    QTest::keyClick(findings(), Qt::Key_Return);
    QVERIFY(waitFor([this] { return dataSet() != nullptr; }));
    QCOMPARE(time(), 99.0);
    QCOMPARE(tree()->selectedItems(), QList{item});
}

void TestTrustMarks::stripShowsTheHole()
{
    QVERIFY(load(1));
    auto* const strip = m_window->findChild<RecordingStrip*>();
    auto* const slider = m_window->findChild<QSlider*>();
    // In step with the slider: a click on it goes to the time that the strip shows there.
    const auto placeOf = [&](double seconds) {
        const auto travel = static_cast<PositionSlider*>(slider)->travel();
        return QPoint(travel.left + static_cast<int>(seconds / 200.0 * (travel.width - 1)), 5);
    };
    const QImage picture = strip->grab().toImage();
    QCOMPARE(picture.pixelColor(placeOf(50.0)).name(), "#7d94a8");
    QCOMPARE(picture.pixelColor(placeOf(130.0)), strip->palette().color(QPalette::Base));
    QCOMPARE(picture.pixelColor(placeOf(180.0)).name(), "#7d94a8");

    QCoreApplication::processEvents();
    PaintCounter paints;
    strip->installEventFilter(&paints);
    for (int i = 1; i <= 20; ++i) {
        slider->setValue(400 * i);
        QTest::qWait(5);
    }
    QCOMPARE(time(), 160.0);
    QCOMPARE(paints.count, 0);

    QHelpEvent help(QEvent::ToolTip, placeOf(130.0), strip->mapToGlobal(placeOf(130.0)));
    QApplication::sendEvent(strip, &help);
    QVERIFY(QToolTip::text().contains("nothing was recorded"));
    QTest::mouseClick(strip, Qt::LeftButton, {}, placeOf(130.0));
    QTRY_VERIFY(findings()->isVisible());
    QTest::mouseClick(findings()->viewport(), Qt::LeftButton, {},
                      findings()->visualItemRect(findings()->item(0, 1)).center());
    QTRY_COMPARE(time(), 99.0);
}

void TestTrustMarks::soundRecordingSaysSo()
{
    QVERIFY(load(2));
    trigger(Command::Recording);
    QTRY_VERIFY(findings()->window()->isVisible());
    QVERIFY(!findings()->isVisible());
    QCOMPARE(findings()->window()->findChild<QLabel*>("emptyState")->text(),
             "Cycle 2\nNothing doubtful was found in this recording.");
}

QTEST_MAIN(TestTrustMarks)
#include "tst_trustmarks.moc"
