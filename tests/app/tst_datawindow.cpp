#include "analysis/MomentText.h"
#include "analysis/ui/DialogDataLimit.h"
#include "analysis/ui/DialogDataTable.h"
#include "analysis/ui/DialogDataWarning.h"
#include "analysis/ui/WidgetFaultMatrix.h"
#include "app/DataWindow.h"
#include "app/settings/SettingsStore.h"
#include "graph/ui/DialogDataGraph.h"
#include "map/ui/DialogDataMap.h"
#include "record/DataSet.h"
#include "resources/Resources.h"
#include "tests/support/Buttons.h"
#include "tests/support/RecordingFixture.h"
#include "ui/DataPage.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QLCDNumber>
#include <QSlider>
#include <QSplitter>
#include <QTabBar>
#include <QTest>
#include <QTimeEdit>
#include <QToolButton>

using namespace KOLT;
using namespace KOLT::Test;

using Page = DialogData::Page;

namespace {

/// Logs the calls of its virtual functions.
class CountingPage : public DataPage
{
public:
    QStringList log;

protected:
    void dropData() override { log << "drop"; }

    void showData(Changes changes) override
    {
        log << (dataSet() != nullptr ? "data:" : "nothing:") + QString::number(int(changes));
    }

    void showTime() override { log << QString::number(time()); }
};

} // namespace

class TestDataWindow : public QObject
{
    Q_OBJECT

private slots:

    void initTestCase() { initKoltResources(); }

    void init();

    void cleanup() { m_window.reset(); }

    void hiddenPagesWorkWhenShown();
    void timeReachesThePages();
    void displaysFollowTheTime();
    void controlsMoveTheTime();
    void timeFieldFollowsTheReplay();
    void speedControlsStayInStep();
    void replayRunsPausesAndRewinds();
    void largeTextsLeaveTheReplayBar();
    void momentsBeyondADay();
    void tabsAndTexts();
    void mapLayouts();
    void emuDisplayHidesControls();

private:
    template <typename Widget>
    Widget* child(int index = 0) const
    {
        return m_window->findChildren<Widget*>().value(index);
    }

    QSlider* slider() const
    {
        return find<QSlider>([](auto* w) { return w->minimum() == 0; });
    }

    QSlider* speedSlider() const
    {
        return find<QSlider>([](auto* w) { return w->minimum() > 0; });
    }

    QToolButton* layoutButton(const QString& tip) const
    {
        return find<QToolButton>([&](auto* w) { return w->toolTip() == tip; });
    }

    template <typename Widget, typename Predicate>
    Widget* find(Predicate&& isWanted) const
    {
        const QList<Widget*> all = m_window->findChildren<Widget*>();
        const auto found = std::ranges::find_if(all, isWanted);
        return found == all.end() ? nullptr : *found;
    }

    static QList<Page> allPages()
    {
        QList<Page> pages;
        for (int page = 0; page < static_cast<int>(DialogData::pageCount); ++page)
            pages << static_cast<Page>(page);
        return pages;
    }

    Profile m_profile;
    DataSet m_dataSet;
    double m_clock = 0.0;
    std::unique_ptr<DialogData> m_window;
};

void TestDataWindow::init()
{
    m_clock = 1000.0;
    m_dataSet.startSeconds = 100.0;
    m_dataSet.stopSeconds = 300.0;
    m_dataSet.dateTime = QDateTime(QDate(2026, 7, 28), QTime(14, 0), Qt::UTC);
    m_window.reset(createDataWindow(m_profile, SettingsStore::instance(), DialogData::Display::Full,
                                    nullptr, [this] { return m_clock; })
                       .window);
    m_window->setData(m_dataSet);
}

void TestDataWindow::hiddenPagesWorkWhenShown()
{
    CountingPage page;
    const auto log = [&] { return std::exchange(page.log, {}).join(' '); };
    page.setData(&m_dataSet);
    page.setTime(1.0);
    page.setTime(2.0);
    QCOMPARE(log(), "drop");
    page.setShown(true);
    QCOMPARE(log(), "data:1 2");
    page.setTime(3.0);
    page.refresh(DataPage::Change::Units);
    QCOMPARE(log(), "3 data:4 3");
    page.setShown(false);
    page.setTime(4.0);
    page.refresh(DataPage::Change::Selection);
    page.clear();
    QCOMPARE(log(), "drop"); // at once, as the data set is deleted
    QCOMPARE(page.dataSet(), nullptr);
    page.setShown(true);
    QCOMPARE(log(), "nothing:3 4");
}

void TestDataWindow::timeReachesThePages()
{
    // Each page's own signal, and the pages that must not be told.
    const struct
    {
        const char* name;
        std::function<void()> pick;
        QList<Page> others;
    } sources[] = {
        {"graph",
         [this] { emit child<DialogDataGraph>()->signalCursor(200.0F, 7.0); },
         {Page::Graph, Page::Statistic}},
        {"table",
         [this] { emit child<DialogDataTable>()->signalTime(200.0); },
         {Page::Table, Page::Statistic}},
        {"limits",
         [this] { emit child<DialogDataLimit>()->signalTime(200.0); },
         {Page::Limit, Page::Statistic}},
        {"lamps",
         [this] { emit child<DialogDataWarning>()->signalTime(200.0); },
         {Page::WarningLamps, Page::Statistic, Page::Map}},
        {"faults",
         [this] { emit child<WidgetFaultMatrix>()->signalTime(200.0); },
         {Page::FaultMatrix, Page::Statistic}},
        {"map", [this] { emit child<DialogDataMap>()->signalTime(200.0); }, {Page::Statistic}},
        {"slider", [this] { slider()->setValue(5000); }, {}},
        {"time field", [this] { child<QTimeEdit>()->setTime(QTime(0, 3, 20)); }, {}}};

    for (const auto& source : sources) {
        m_window->setTime(100.0);
        source.pick();
        QCOMPARE(m_window->time(), 200.0);
        for (const Page page : allPages())
            QVERIFY2(m_window->page(page).time() == (source.others.contains(page) ? 100.0 : 200.0),
                     qPrintable(QStringLiteral("%1 to page %2").arg(source.name).arg(int(page))));
    }
}

void TestDataWindow::displaysFollowTheTime()
{
    m_window->setTime(3661.25);
    QCOMPARE(slider()->value(), 10'000);
    QCOMPARE(child<QTimeEdit>()->time(), QTime(1, 1, 1, 250));
    m_window->setTime(150.0);
    QCOMPARE(slider()->value(), 2500);
    QCOMPARE(m_window->time(), 150.0); // the window's update of its own field is not taken as input
    QCOMPARE(child<QLCDNumber>(0)->digitCount(), 19);
    QCOMPARE(child<QLCDNumber>(1)->digitCount(), 12);
    m_window->clear();
    QVERIFY(!labelled(*m_window, "Replay Start")->isEnabled());
    for (const Page page : allPages()) {
        QCOMPARE(m_window->page(page).dataSet(), nullptr);
        QCOMPARE(m_window->page(page).time(), 0.0);
    }
}

void TestDataWindow::controlsMoveTheTime()
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    slider()->setValue(1234);
    QCOMPARE(m_window->time(), 100.0 + 200.0 / 10'000 * 1234);
    QCOMPARE(child<QTimeEdit>()->time(), QTime(0, 2, 4, 680));
    QTimeEdit* const edit = child<QTimeEdit>();
    edit->setFocus();
    edit->setSelectedSection(QTimeEdit::SecondSection);
    QTest::keyClick(edit, Qt::Key_Up);
    QCOMPARE(m_window->time(), 125.0); // this field has whole seconds
    QCOMPARE(slider()->value(), 1250);
    // A click moves the slider there, and a drag continues from there.
    const auto place = [this](double part) {
        return QPoint(static_cast<int>(slider()->width() * part), slider()->height() / 2);
    };
    QTest::mousePress(slider(), Qt::LeftButton, {}, place(0.75));
    QVERIFY2(std::abs(m_window->time() - 250.0) < 5.0,
             qPrintable(QString::number(m_window->time())));
    QTest::mouseMove(slider(), place(0.25));
    QTest::mouseRelease(slider(), Qt::LeftButton, {}, place(0.25));
    QVERIFY2(std::abs(m_window->time() - 150.0) < 5.0,
             qPrintable(QString::number(m_window->time())));
}

void TestDataWindow::timeFieldFollowsTheReplay()
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QApplication::setActiveWindow(m_window.get());
    QTimeEdit* const edit = child<QTimeEdit>();
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());
    edit->setSelectedSection(QTimeEdit::SecondSection);
    QTest::mouseClick(labelled(*m_window, "Replay Start"), Qt::LeftButton);
    edit->setFocus();
    m_clock += 5.0;
    QTRY_COMPARE(edit->time(), QTime(0, 1, 45));
    QTest::keyClick(edit, Qt::Key_Up);
    QCOMPARE(m_window->time(), 106.0);
    edit->setSelectedSection(QTimeEdit::HourSection);
    QTest::keyClicks(edit, "0"); // partial input is kept
    m_clock += 5.0;
    QTRY_COMPARE(m_window->time(), 111.0);
    QCOMPARE(edit->time(), QTime(0, 1, 46));
    QTest::keyClick(edit, Qt::Key_Return); // moves to the typed time
    m_clock += 1.0;
    QTRY_COMPARE(edit->time(), QTime(0, 1, 47));
}

void TestDataWindow::speedControlsStayInStep()
{
    auto* const box = child<QDoubleSpinBox>();
    box->setValue(2.5);
    QCOMPARE(speedSlider()->value(), 250);
    speedSlider()->setValue(1234);
    QCOMPARE(box->value(), 12.34);
    QCOMPARE(box->text(), "Speed 12.34");
    speedSlider()->setValue(10'000);
    QCOMPARE(box->value(), 100.0);
    m_window->show();
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "2.5"); // typed: the window must not overwrite it meanwhile
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(box->value(), 2.5);
    QCOMPARE(speedSlider()->value(), 250);
}

void TestDataWindow::largeTextsLeaveTheReplayBar()
{
    m_window->show();
    QFont large = m_window->font();
    large.setPixelSize(24);
    auto* const bar = labelled(*m_window, "Replay Start")->parentWidget();
    bar->setFont(large);
    const auto* const stop = qobject_cast<QToolButton*>(labelled(*m_window, "Replay Stop"));
    const auto endOfSpeed = [&] { return child<QDoubleSpinBox>()->geometry().right(); };
    for (const int width : {700, 1600, 700}) {
        QCoreApplication::processEvents(); // the layout learns the new font
        m_window->resize(width, 800);
        QTRY_COMPARE(stop->toolButtonStyle(),
                     width < 1000 ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextUnderIcon);
        QTRY_VERIFY(bar->width() <= m_window->width() && endOfSpeed() < bar->width());
        QCOMPARE(m_window->width(), width);
    }
}

void TestDataWindow::replayRunsPausesAndRewinds()
{
    m_window->show();
    auto* const start = labelled(*m_window, "Replay Start");
    auto* const stop = labelled(*m_window, "Replay Stop");
    QVERIFY(!stop->isEnabled());
    child<QDoubleSpinBox>()->setValue(10.0);
    QTest::mouseClick(start, Qt::LeftButton);
    QCOMPARE(start->text(), "Replay Pause");
    QVERIFY(stop->isEnabled());
    m_clock += 5.0;
    QTRY_COMPARE(m_window->page(Page::Map).time(), 150.0);
    QTest::mouseClick(start, Qt::LeftButton);
    QCOMPARE(start->text(), "Replay Run");
    m_clock += 5.0; // a pause does not count
    QTest::mouseClick(start, Qt::LeftButton);
    m_clock += 1.0;
    QTRY_COMPARE(m_window->time(), 160.0);
    m_clock += 14.5;
    QTRY_COMPARE(start->text(), "Replay Start"); // beyond the end
    QCOMPARE(m_window->page(Page::Table).time(), 100.0);
    QVERIFY(!stop->isEnabled());

    QTest::mouseClick(start, Qt::LeftButton);
    m_clock += 1.0;
    QTRY_COMPARE(m_window->time(), 110.0);
    QTest::mouseClick(stop, Qt::LeftButton);
    QCOMPARE(m_window->time(), 100.0);
    QCOMPARE(start->text(), "Replay Start");
}

void TestDataWindow::momentsBeyondADay()
{
    m_dataSet.stopSeconds = m_dataSet.startSeconds; // of zero length
    m_window->setData(m_dataSet);
    slider()->setValue(7000);
    QCOMPARE(m_window->time(), 100.0);
    m_dataSet.startSeconds = 30 * 3600.0;
    m_dataSet.stopSeconds = 31 * 3600.0;
    m_window->setData(m_dataSet);
    child<QTimeEdit>()->setTime(QTime(6, 30));
    QCOMPARE(m_window->time(), 30.5 * 3600.0);
    // The field means the nearest matching time within the data, and else their start or end.
    constexpr double hour = 3600.0;
    m_dataSet.stopSeconds = 80 * hour;
    m_window->setData(m_dataSet);

    const struct
    {
        double from; ///< hours
        QTime typed;
        double to;
    } moves[] = {{50, {2, 30}, 50.5},
                 {47, {1, 0}, 49},
                 {49, {23, 0}, 47},
                 {31, {5, 0}, 53},
                 {79, {9, 0}, 57}};

    for (const auto& [from, typed, to] : moves) {
        m_window->setTime(from * hour);
        child<QTimeEdit>()->setTime(typed);
        QCOMPARE(m_window->time() / hour, to);
    }
    m_dataSet.stopSeconds = 31 * hour;
    m_window->setData(m_dataSet);
    for (const auto& [typed, to] : {std::pair(QTime(9, 0), 31), {QTime(5, 0), 30}}) {
        child<QTimeEdit>()->setTime(typed);
        QCOMPARE(m_window->time() / hour, double(to));
        QCOMPARE(child<QTimeEdit>()->time(), QTime(to - 24, 0));
    }
    child<QTimeEdit>()->setCurrentSection(QTimeEdit::SecondSection);
    m_window->setTime(30.5 * hour - 1.0);
    child<QTimeEdit>()->stepUp(); // carries over
    QCOMPARE(m_window->time(), 30.5 * hour);
    QCOMPARE(dateTimeText(m_dataSet.dateTime, m_window->time()), "29.07.2026 20:30:00");
}

void TestDataWindow::tabsAndTexts()
{
    auto* const tabs = child<QTabBar>();
    QStringList texts;
    for (int i = 0; i < tabs->count(); ++i)
        texts << tabs->tabText(i);
    QCOMPARE(texts.join(", "), "Data, Graph, Fault Matrix, Limit/Warning, Warning Lamps, "
                               "Tow Statistic, EMU View");
    QVERIFY(layoutButton("Tile Map Display Horizontally")->isChecked());
    QCOMPARE(dateTimeText(m_dataSet.dateTime, 61.9996), "28.07.2026 14:01:02"); // rounded
    QCOMPARE(dateTimeText({}, 61.0), "--.--.---- --:--:--");
    QCOMPARE(dateTimeText(m_dataSet.dateTime, 1e300), "--.--.---- --:--:--");
    QCOMPARE(counterText(3661.25), "01:01:01.250");
    QCOMPARE(counterText(-1.0), "23:59:59.000");
}

void TestDataWindow::mapLayouts()
{
    m_window->resize(900, 700);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    auto* const splitter = child<QSplitter>();
    const auto choose = [&](const QString& tip) {
        QTest::mouseClick(layoutButton(tip), Qt::LeftButton);
    };
    choose("Hide Map Display");
    QCOMPARE(splitter->sizes().at(1), 0);
    choose("Tile Map Display Vertically");
    QCOMPARE(splitter->orientation(), Qt::Vertical);
    const QList<int> halves = splitter->sizes();
    QVERIFY2(std::abs(halves[0] - halves[1]) <= 1, qPrintable(QString::number(halves[0])));
    splitter->setSizes({halves[0] + 50, halves[1] - 50});
    const QList<int> sizes = splitter->sizes();
    choose("Tile Map Display Vertically");
    QCOMPARE(splitter->sizes(), sizes);
    choose("Tile Map Display Horizontally");
    QCOMPARE(splitter->orientation(), Qt::Horizontal);
}

void TestDataWindow::emuDisplayHidesControls()
{
    m_window.reset(
        createDataWindow(m_profile, SettingsStore::instance(), DialogData::Display::EmuOnly)
            .window);
    QVERIFY(!child<QLCDNumber>(0)->isHidden());
    QVERIFY(child<QLCDNumber>(1)->isHidden());
    QVERIFY(slider()->isHidden());
    QVERIFY(child<QTimeEdit>()->isHidden());
    QVERIFY(!labelled(*m_window, "Replay Start")->isHidden());
}

QTEST_MAIN(TestDataWindow)
#include "tst_datawindow.moc"
