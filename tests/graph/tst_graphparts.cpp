#include "graph/ui/BandScroll.h"
#include "graph/ui/DialogGraphSetup.h"
#include "tests/graph/GraphPageFixture.h"
#include "tests/support/Buttons.h"
#include "tests/support/Rows.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHelpEvent>
#include <QTableWidget>

using namespace KOLT;
using namespace KOLT::Test;

/// What is around the graph's widget: its first window, the scroll bar and the table.
class TestGraphParts : public GraphPageFixture
{
    Q_OBJECT

private slots:

    void init() { setUp(); }

    void cleanup() { m_page.reset(); }

    void windowOfANewFlight_data();
    void windowOfANewFlight();
    void spanIsShownLater();
    void bandsScroll();
    void markersFillTheTable();
};

void TestGraphParts::windowOfANewFlight_data()
{
    // isWhole, span, mode, window after the load of 5000 s to 5200 s, and its start 10 s later
    const Rows<bool, double, CursorMode, TimeRange, double> row;
    row("whole", true, 60.0, CursorMode::Center, {4980.0, 5220.0}, 4890.0);
    row("whole, floating", true, 60.0, CursorMode::Floating, {4980.0, 5220.0}, 4980.0);
    row("a span longer than it", false, 500.0, CursorMode::Center, {4980.0, 5220.0}, 4890.0);
    row("span, centred", false, 60.0, CursorMode::Center, {4970.0, 5030.0}, 4980.0);
    row("span, end", false, 60.0, CursorMode::End, {4946.0, 5006.0}, 4956.0);
    row("span, floating", false, 60.0, CursorMode::Floating, {4994.0, 5054.0}, 4994.0);
}

void TestGraphParts::windowOfANewFlight()
{
    const auto [isWhole, span, mode, window, later] =
        fetchRow<bool, double, CursorMode, TimeRange, double>();
    m_settings.isWhole = isWhole;
    m_settings.timeSpan = span;
    m_settings.cursorMode = mode;
    makePage();
    m_page->setData(m_dataSet.get());
    m_page->setTime(150.0);
    widget()->setWindow(4990.0, 5010.0); // must not be taken over
    const auto other = recording(5000.0, 5200.0, 2);
    m_page->setData(other.get());
    m_page->setTime(5000.0);
    QCOMPARE(graph().window(), window);
    QCOMPARE(graph().cursor().time, 5000.0);
    m_page->setTime(5010.0);
    QCOMPARE(graph().window().start, later);
    QTest::keyClick(widget(), Qt::Key_M);
    QTest::mouseClick(button(3), Qt::LeftButton); // a span of the user's own
    QVERIFY(!m_reported.back().isWhole);
    QTest::mouseClick(button(2), Qt::LeftButton);
    QVERIFY(m_reported.back().isWhole);
    m_page->clear();
}

void TestGraphParts::spanIsShownLater()
{
    const GraphSettings before = graph().settings();
    for (const bool isHidden : {true, false}) {
        m_page->setShown(!isHidden);
        m_page->showSpan({121.0, 141.0}, {125.0, 130.0}, isHidden ? "D/b" : "D/a");
        QCOMPARE(graph().window().start == 121.0, !isHidden);
        m_page->setTime(125.0 + (isHidden ? 1.0 : 0.0)); // the window stays when it is shown
        m_page->setShown(true);
        QCOMPARE(graph().cursor().trace, isHidden ? 1 : 0);
        QCOMPARE(graph().markers(), (TimeRange{125.0, 130.0}));
        if (isHidden)
            QCOMPARE(graph().window(), (TimeRange{121.0, 141.0}));
        widget()->setWindow(0.0, 60.0);
    }
    QCOMPARE(graph().settings().timeSpan, before.timeSpan);
    m_page->setShown(false);
    m_page->showSpan({121.0, 141.0}, {125.0, 130.0});
    m_page->setData(m_dataSet.get()); // it was meant for the data before
    m_page->setShown(true);
    QCOMPARE(graph().window().length(), 60.0);
}

void TestGraphParts::bandsScroll()
{
    QVERIFY(!m_page->findChild<BandScroll*>()->isVisible());
    selectMany(30);
    m_page->resize(700, 500);
    m_page->setData(m_dataSet.get());
    m_page->setTime(150.0);
    m_page->show();
    auto* const bar = m_page->findChild<BandScroll*>();
    QTRY_VERIFY(bar->isVisible());
    const auto inView = static_cast<int>(graph().tracesInView().size());
    QVERIFY(graph().bandHeight() >= 2.5 * graph().metrics().lineHeight);
    QTest::keyClick(widget(), Qt::Key_PageDown);
    QCOMPARE(graph().tracesInView().front(), inView);
    m_page->showSpan({121.0, 141.0}, {125.0, 130.0}, "D/p12");
    QCOMPARE(graph().tracesInView().front(), 2);
    QCOMPARE(bar->value(), 2);
    const GraphScale& scale = graph().scaleOf(2);
    const QPoint label(static_cast<int>(graph().plotRight()) - 90,
                       static_cast<int>(graph().height() - scale.offset - scale.height) + 8);
    for (const auto& [place, tip] :
         {std::pair(label, QStringLiteral("p12: both ends")), {{90, 200}, "Left button"}}) {
        widget()->grabFramebuffer();
        QHelpEvent help(QEvent::ToolTip, place, widget()->mapToGlobal(place));
        QApplication::sendEvent(widget(), &help);
        QVERIFY2(widget()->toolTip().startsWith(tip), qPrintable(widget()->toolTip()));
    }
    QTest::mouseClick(button(7), Qt::LeftButton);
    QTRY_VERIFY(!bar->isVisible());
}

void TestGraphParts::markersFillTheTable()
{
    auto* const table = m_page->findChild<QTableWidget*>();
    const int height = widget()->height();
    QTest::mousePress(widget(), Qt::LeftButton, {}, place(130.0, 100));
    QTest::mouseMove(widget(), place(150.0, 100));
    QVERIFY(!table->isVisible()); // the graph must not change its size under the pointer
    QTest::mouseRelease(widget(), Qt::LeftButton, {}, place(150.0, 100));
    QVERIFY(table->isVisible());
    QTRY_VERIFY(widget()->height() < height);
    const auto row = [&](int index) {
        QStringList texts;
        for (int column = 0; column < table->columnCount(); ++column)
            texts << table->item(index, column)->text();
        return texts.join('|');
    };
    QCOMPARE(row(1), "b||5.000|5.000|0.000|5.000|5.000|5.000");
    QTest::mousePress(widget(), Qt::LeftButton, {}, place(163.0, 100));
    QVERIFY(table->isVisible());
    QCOMPARE(row(1), "b||5.000|5.000|0.000|---|---|---");
    QTest::mouseRelease(widget(), Qt::LeftButton, {}, place(163.0, 100));
    QVERIFY(!table->isVisible());
    m_page->showSpan({121.0, 141.0}, {125.0, 130.0});
    QVERIFY(table->isVisible());
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    const QString copied = QApplication::clipboard()->text();
    QVERIFY2(copied.contains("00:02:05.000") && copied.contains(row(0).replace('|', '\t')),
             qPrintable(copied));
    labelled<QCheckBox>(*m_page->findChild<DialogGraphSetup*>(), "Statistic")->click();
    QVERIFY(!table->isVisible());
}

QTEST_MAIN(TestGraphParts)
#include "tst_graphparts.moc"
