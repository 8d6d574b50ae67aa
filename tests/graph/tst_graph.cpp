#include "graph/GraphScene.h"
#include "graph/GraphTexts.h"
#include "graph/GraphTicks.h"
#include "graph/TraceFeeder.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"

#include <QLineF>
#include <QTest>

#include <cmath>
#include <cstring>
#include <map>
#include <random>

using namespace KOLT;
using namespace KOLT::Test;

class TestGraph : public QObject
{
    Q_OBJECT

private slots:
    void samplesMergeIntoColumns_data();
    void samplesMergeIntoColumns();
    void rebuiltColumnsAreTheMergedOnes_data();
    void rebuiltColumnsAreTheMergedOnes();
    void windowTakesTheSampleBefore();
    void valueIsHeld_data();
    void valueIsHeld();
    void statisticOfARange();
    void traceCountAndColors();
    void mappingGoesRoundTrip();
    void bandsOfVisibleTraces();
    void timeTicksForSpans_data();
    void timeTicksForSpans();
    void valueTicksStayApart();
    void scalesToTheVisibleWindow();
    void scaleLeavesOutWhatLiesBehindGaps();
    void cursorModes();
    void timeSpanKeepsAnEnd();
    void keys_data();
    void keys();
    void mouse_data();
    void mouse();
    void holdOfTheCursor();
    void handleDragMovesATrace();
    void wheelZoomsAboutThePointer();
    void feedingMarksGaps();
    void tracesOfAMessageShareTheirTimes();
    void feederKeepsWhatIsStillRight();
    void sceneBreaksLinesAtGaps();
    void cursorTextStaysInThePlot();
    void sceneJoinsStrokes_data();
    void sceneJoinsStrokes();
    void textsKeepApart_data();
    void textsKeepApart();
    void thresholdLines();
    void legendTexts();
    void decimalsFollowTheRange_data();
    void decimalsFollowTheRange();

private:
    static GraphTrace traceOf(const std::vector<std::tuple<double, double, int>>& samples)
    {
        GraphTrace trace;
        for (const auto& [time, value, mark] : samples)
            trace.append(time, value, mark);
        return trace;
    }
};

namespace {

/// All fields at once; equal bits count, so that NaN equals NaN.
QString describe(const GraphColumn& column)
{
    return QString::asprintf("%d t%.17g f%.17g l%.17g h%.17g z%.17g m%d [%.17g %.17g] e%.17g",
                             column.fill, column.time, column.first, column.low, column.high,
                             column.last, column.mark, column.lowest, column.highest, column.end);
}

QStringList describe(const std::vector<GraphColumn>& columns)
{
    QStringList texts;
    for (const GraphColumn& column : columns)
        texts << describe(column);
    return texts;
}

QString describe(const std::vector<GraphSignal>& reports)
{
    QStringList texts;
    const char* const names[] = {"cursor", "finished", "marker", "man", "move"};
    for (const GraphSignal& report : reports)
        texts << QStringLiteral("%1 %2 %3")
                     .arg(names[static_cast<int>(report.kind)])
                     .arg(report.first)
                     .arg(report.second);
    return texts.join(", ");
}

/// A plot of 400 by 200 pixels over 0 to 100 s, with two bands of 0 to 10.
void prepare(Graph& graph)
{
    graph.setTraceCount(2);
    graph.settings.isAutoscaled = false;
    graph.settings.yMinimum = 0.0;
    graph.settings.yMaximum = 10.0;
    graph.setSize(Graph::leftMargin + 400.0 + Graph::rightMargin, 200.0 + Graph::bottomMargin);
    graph.setWindow(0.0, 100.0);
}

QPointF placeOf(const Graph& graph, double seconds, double yFromTop)
{
    return {graph.xOf(seconds), yFromTop};
}

} // namespace

void TestGraph::samplesMergeIntoColumns_data()
{
    QTest::addColumn<QList<double>>("values"); // a second apart, ten to a pixel
    QTest::addColumn<int>("gapAt");
    QTest::addColumn<QString>("column");

    QTest::newRow("one") << QList<double>{5} << -1 << "2 t0 f5 l5 h5 z5 m1 [5 5] e5";
    QTest::newRow("two: the second is the high value")
        << QList<double>{5, -100} << -1 << "3 t0 f5 l5 h-100 z5 m1 [-100 5] e-100";
    QTest::newRow("three: a downward spike in second place")
        << QList<double>{5, -100, 6} << -1 << "4 t0 f5 l5 h6 z6 m1 [-100 6] e6";
    QTest::newRow("many") << QList<double>{5, 7, 1, 9, 3} << -1 << "4 t0 f5 l1 h9 z3 m1 [1 9] e3";
    QTest::newRow("a gap within") << QList<double>{5, 7, 1} << 2 << "4 t0 f5 l1 h7 z1 m0 [1 7] e1";
    QTest::newRow("a gap before") << QList<double>{5, 7} << 0 << "3 t0 f5 l5 h7 z5 m0 [5 7] e7";
}

void TestGraph::samplesMergeIntoColumns()
{
    QFETCH(QList<double>, values);
    QFETCH(int, gapAt);
    std::vector<GraphColumn> columns;
    for (int i = 0; i < values.size(); ++i)
        mergeSample(columns, 10.0, i, values[i], i == gapAt ? 0 : 1);
    QCOMPARE(columns.size(), 1U);
    QTEST(describe(columns.front()), "column");
    mergeSample(columns, 10.0, 10.0, 1.0, 1); // exactly one pixel behind still belongs to it
    QCOMPARE(columns.size(), 1U);
    mergeSample(columns, 10.0, 10.1, 2.0, 1);
    QCOMPARE(columns.size(), 2U);
}

void TestGraph::rebuiltColumnsAreTheMergedOnes_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<bool>("isOrdered");
    for (int seed = 1; seed <= 30; ++seed)
        QTest::addRow("%d", seed) << seed << (seed % 10 != 0);
}

void TestGraph::rebuiltColumnsAreTheMergedOnes()
{
    QFETCH(int, seed);
    QFETCH(bool, isOrdered);
    std::mt19937 random(static_cast<unsigned>(seed));
    std::uniform_real_distribution<double> chance(0.0, 1.0);
    GraphTrace trace;

    struct Sample
    {
        double time, value;
        int mark;
    };

    std::vector<Sample> samples;
    double time = 100.0;
    const int count = seed * seed * 17 + 3;
    for (int i = 0; i < count; ++i) {
        const bool isGap = chance(random) < 0.01;
        time += isGap ? 50.0 : chance(random) < 0.2 ? 0.0 : chance(random) * 0.2;
        if (!isOrdered && chance(random) < 0.01)
            time -= 5.0;
        const double value = chance(random) < 0.02 ? std::nan("") : chance(random) * 100.0 - 50.0;
        samples.push_back({time, value, isGap ? 0 : 1});
        trace.append(time, value, samples.back().mark);
        if (i == count / 2)
            trace.rebuild(100.0, time, 1.0); // the pyramid grows with the samples
    }
    const double last = samples.back().time;
    for (const double pixel : {1e-9, 0.05, 0.7, 13.0, 1e6}) {
        const double start = 100.0 + (last - 100.0) * chance(random) * 0.5;
        const double end = start + (last - start) * chance(random);
        trace.rebuild(start, end, pixel);
        std::vector<GraphColumn> expected;
        std::size_t first = 0;
        while (first < samples.size() && samples[first].time < start)
            ++first;
        for (std::size_t i = first >= 2 ? first - 1 : first; i < samples.size(); ++i) {
            mergeSample(expected, pixel, samples[i].time, samples[i].value, samples[i].mark);
            if (samples[i].time >= end)
                break;
        }
        QCOMPARE(describe(trace.columns()), describe(expected));
    }
}

void TestGraph::windowTakesTheSampleBefore()
{
    GraphTrace trace = traceOf({{0, 0, 1}, {10, 1, 1}, {20, 2, 1}, {30, 3, 1}, {40, 4, 1}});
    const auto times = [&](double start, double end) {
        trace.rebuild(start, end, 0.1);
        QList<double> result;
        for (const GraphColumn& column : trace.columns())
            result << column.time;
        return result;
    };
    QCOMPARE(times(25, 28), (QList<double>{20, 30})); // enters from the left, leaves to the right
    QCOMPARE(times(20, 30), (QList<double>{10, 20, 30}));
    QCOMPARE(times(5, 6), (QList<double>{10})); // too near the front for a step back
    QCOMPARE(times(100, 110), (QList<double>{40}));
    QCOMPARE(times(-20, -10), (QList<double>{0}));
}

void TestGraph::valueIsHeld_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<double>("value"); // -1: none

    QTest::newRow("before") << 9.9 << -1.0;
    QTest::newRow("at the first") << 10.0 << 1.0;
    QTest::newRow("between") << 15.0 << 1.0;
    QTest::newRow("at the second: not yet used") << 20.0 << 1.0;
    QTest::newRow("behind the second") << 20.1 << 2.0;
    QTest::newRow("at the last") << 30.0 << 2.0;
    QTest::newRow("behind the last") << 30.1 << -1.0;
}

void TestGraph::valueIsHeld()
{
    QFETCH(double, time);
    const GraphTrace trace = traceOf({{10, 1, 1}, {20, 2, 1}, {30, 3, 1}});
    QTEST(trace.valueAt(time).value_or(-1.0), "value");
    QVERIFY(!GraphTrace().valueAt(time));
}

void TestGraph::statisticOfARange()
{
    GraphTrace trace;
    double sum = 0.0;
    for (int i = 0; i < 20'000; ++i) {
        const double value = i == 7000 ? std::nan("") : std::sin(i * 0.01) * 10.0;
        trace.append(i, value, 1);
        if (i >= 100 && i <= 15'000 && i != 7000)
            sum += value;
    }
    const auto statistic = trace.statistic(100.0, 15'000.0);
    QVERIFY(statistic);
    QVERIFY(std::abs(statistic->mean - sum / 14'900.0) < 1e-9);
    QVERIFY(std::abs(statistic->maximum - 10.0) < 1e-3);
    QVERIFY(!trace.statistic(100.2, 100.8));   // no sample between
    QVERIFY(!trace.statistic(7000.0, 7000.0)); // no number
}

void TestGraph::traceCountAndColors()
{
    Graph graph;
    QCOMPARE(graph.traceCount(), 6);
    for (const auto& [asked, made] : {std::pair(0, 1), {60, 50}, {7, 7}}) {
        graph.setTraceCount(asked);
        QCOMPARE(graph.traceCount(), made);
    }
    QCOMPARE(graph.trace(6).color, QColor(255, 0, 0));
    QCOMPARE(graph.trace(0).name, "NoName");
    graph.setName(99, "x", "y");
    graph.setVisible(-1, false);
    graph.trace(2).append(0, 1, 1);
    graph.setVisible(2, false);
    graph.setVisible(2, true);
    QVERIFY(graph.trace(2).isEmpty());
}

void TestGraph::mappingGoesRoundTrip()
{
    Graph graph;
    prepare(graph);
    QCOMPARE(graph.xOf(0.0), Graph::leftMargin);
    QCOMPARE(graph.xOf(100.0), Graph::leftMargin + 400.0);
    QCOMPARE(graph.timeAt(graph.xOf(33.0)), 33.0);
    for (const bool isSplit : {true, false}) {
        graph.settings.isSplit = isSplit;
        for (int trace = 0; trace < 2; ++trace)
            QCOMPARE(graph.valueAt(trace, graph.yOf(trace, 7.0)), 7.0);
    }
    QCOMPARE(graph.yOf(0, 0.0), Graph::bottomMargin);
    QCOMPARE(graph.yOf(0, 10.0), Graph::bottomMargin + 200.0);
}

void TestGraph::bandsOfVisibleTraces()
{
    Graph graph;
    prepare(graph);
    graph.setTraceCount(4);
    graph.setVisible(1, false);
    graph.rebuild();
    const double band = 200.0 / 3.0;
    QCOMPARE(graph.trace(3).bandOffset, Graph::bottomMargin); // the last at the bottom
    QCOMPARE(graph.trace(0).bandOffset, Graph::bottomMargin + 2 * band);
    QCOMPARE(graph.traceAt(Graph::bottomMargin + 1.0), 3);
    QCOMPARE(graph.traceAt(Graph::bottomMargin + band + 1.0), 2);
    QCOMPARE(graph.traceAt(Graph::bottomMargin + 2 * band + 1.0), 0);
    QCOMPARE(graph.traceAt(5.0), 0); // none: the first
}

void TestGraph::timeTicksForSpans_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("step"); // of major lines, in a plot of 700 pixels
    QTest::addColumn<int>("minor");

    QTest::newRow("0.3 s") << 0.3 << 0.05 << 5;
    QTest::newRow("6 s") << 6.0 << 1.0 << 5;
    QTest::newRow("4 s") << 4.0 << 0.5 << 5;
    QTest::newRow("15 s") << 15.0 << 2.0 << 4;
    QTest::newRow("30 s") << 30.0 << 5.0 << 5;
    QTest::newRow("60 s") << 60.0 << 10.0 << 5;
    QTest::newRow("250 s") << 250.0 << 50.0 << 5;
    QTest::newRow("an hour") << 3600.0 << 500.0 << 5;
}

void TestGraph::timeTicksForSpans()
{
    QFETCH(double, span);
    QFETCH(double, step);
    QFETCH(int, minor);
    const std::vector<GraphTick> ticks = timeTicks(1000.0, 1000.0 + span, 700.0);
    std::vector<double> major;
    int between = 0;
    for (const GraphTick& tick : ticks) {
        QVERIFY(tick.value >= 1000.0 && tick.value <= 1000.0 + span);
        if (tick.isMajor)
            major.push_back(tick.value);
        else if (major.size() == 1)
            ++between;
    }
    QVERIFY(major.size() >= 2);
    QVERIFY2(std::abs(major[1] - major[0] - step) < 1e-9,
             qPrintable(QString::number(major[1] - major[0])));
    QCOMPARE(between, minor - 1);
    QVERIFY(timeTicks(0.0, span, 69.9).empty());
}

void TestGraph::valueTicksStayApart()
{
    for (const double extent : {1e-6, 0.37, 5.0, 99.0, 1e9}) {
        const std::vector<double> ticks = valueTicks(-extent / 3, extent, 200.0, 25.0);
        QVERIFY(ticks.size() >= 2 && ticks.size() <= 8);
        for (const double tick : ticks)
            QVERIFY(tick >= -extent / 3 && tick <= extent);
    }
    const std::vector<double> far = valueTicks(1e18, 1e18 + 256.0, 200.0, 25.0);
    QVERIFY(std::ranges::adjacent_find(far) == far.end()); // none twice
    QVERIFY(valueTicks(1.0, 1.0, 200.0, 25.0).empty());
    QVERIFY(valueTicks(0.0, std::nan(""), 200.0, 25.0).empty());
}

void TestGraph::scalesToTheVisibleWindow()
{
    Graph graph;
    prepare(graph);
    graph.settings.isAutoscaled = true;
    for (int i = 0; i <= 100; ++i) {
        graph.trace(0).append(i, i, 1);
        graph.trace(1).append(i, 5.0, 1);
    }
    graph.setWindow(20.0, 40.0);
    QCOMPARE(graph.trace(0).lower, 17.95); // 19 to 40, with 5 % room
    QCOMPARE(graph.trace(0).upper, 41.05);
    QCOMPARE(graph.trace(1).lower + graph.trace(1).upper, 10.0); // flat: centred
    QVERIFY(graph.trace(1).upper > 5.0);
    graph.trace(0).append(101.0, std::numeric_limits<double>::infinity(), 1);
    graph.trace(0).append(102.0, -std::numeric_limits<double>::infinity(), 1);
    graph.trace(0).append(103.0, 110.0, 1);
    graph.setWindow(95.0, 110.0);
    QCOMPARE(graph.trace(0).lower, 93.2); // 94 to 110
    QCOMPARE(graph.trace(0).upper, 110.8);
    graph.setWindow(20.0, 40.0);
    graph.settings.isSplit = false;
    graph.rebuild();
    QVERIFY(graph.commonLower() < 5.0 && graph.commonUpper() > 40.0);
    graph.settings.isAutoscaled = false;
    graph.settings.yMinimum = graph.settings.yMaximum = 3.0; // would divide by zero
    graph.rebuild();
    QVERIFY(std::isfinite(graph.yOf(0, 3.0)));
}

/// No line leads to them, so the scale has nothing to do with them.
void TestGraph::scaleLeavesOutWhatLiesBehindGaps()
{
    GraphTrace trace = traceOf(
        {{0, 500, 1}, {1, 900, 1}, {2, 5, 0}, {3, 6, 1}, {4, 7, 1}, {5, -800, 0}, {6, 1, 1}});
    const auto range = [&](double start, double end) {
        trace.rebuild(start, end, 0.1);
        return trace.visibleRange().value_or(std::pair(-1.0, -1.0));
    };
    QCOMPARE(range(1.5, 4.5), std::pair(5.0, 7.0));
    QCOMPARE(range(1.0, 5.0), std::pair(-800.0, 900.0)); // at the very edges they are seen
    QCOMPARE(range(2.5, 3.5), std::pair(5.0, 7.0));      // joined from both sides
    QCOMPARE(range(4.2, 4.8), std::pair(-1.0, -1.0));    // nothing but missing data
}

void TestGraph::cursorModes()
{
    Graph graph;
    prepare(graph);
    QVERIFY(graph.setCursorTime(70.0));
    QCOMPARE(graph.windowStart, 20.0);
    graph.settings.cursorMode = CursorMode::Floating;
    QVERIFY(!graph.setCursorTime(90.0));
    QCOMPARE(graph.windowStart, 20.0);
    graph.isCursorHeld = true;
    graph.setCursorTime(10.0);
    QCOMPARE(graph.cursorTime, 90.0); // the user has it
    graph.isCursorHeld = false;
    graph.settings.cursorMode = CursorMode::End;
    QVERIFY(graph.setCursorTime(190.0));
    QCOMPARE(graph.windowEnd, 200.0);
    QCOMPARE(graph.windowStart, 100.0);
}

void TestGraph::timeSpanKeepsAnEnd()
{
    Graph graph;
    prepare(graph);
    graph.setTimeSpan(40.0);
    QCOMPARE(graph.windowStart, 60.0);
    graph.settings.isAutomatic = false;
    graph.setTimeSpan(10.0);
    QCOMPARE(graph.windowEnd, 70.0);
    graph.setWindow(5.0, 5.0); // nothing to divide by
    graph.setWindow(std::nan(""), 5.0);
    QCOMPARE(graph.windowStart, 60.0);
}

void TestGraph::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("isShift");
    QTest::addColumn<double>("time"); // cursor from 50 s and 5.0, in pixels of 482 and 100
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("newValue");
    QTest::addColumn<int>("selected");

    const double pixel = 100.0 / (Graph::leftMargin + 400.0 + Graph::rightMargin);
    QTest::newRow("left") << int(Qt::Key_Left) << false << 50.0 - pixel << 5.0 << 5.0 << 0;
    QTest::newRow("right, far") << int(Qt::Key_Right) << true << 50.0 + 10 * pixel << 5.0 << 5.0
                                << 0;
    QTest::newRow("up") << int(Qt::Key_Up) << false << 50.0 << 5.0 << 5.1 << 0;
    QTest::newRow("down, far") << int(Qt::Key_Down) << true << 50.0 << 5.0 << 4.0 << 0;
    QTest::newRow("down, into the band below")
        << int(Qt::Key_Down) << true << 50.0 << 0.4 << 9.4 << 1;
}

void TestGraph::keys()
{
    QFETCH(int, key);
    QFETCH(bool, isShift);
    QFETCH(double, time);
    QFETCH(double, value);
    QFETCH(double, newValue);
    QFETCH(int, selected);
    Graph graph;
    prepare(graph);
    GraphInput input(graph);
    graph.cursorTime = 50.0;
    graph.cursorValue = value;
    const GraphResponse response =
        input.keyPress(key, isShift ? Qt::ShiftModifier : Qt::NoModifier);
    QCOMPARE(graph.cursorTime, time);
    QCOMPARE(graph.cursorValue, newValue);
    QVERIFY(response.isHandled && graph.isCursorHeld);
    QCOMPARE(response.hold, GraphResponse::Hold::Timed);
    QCOMPARE(response.reports,
             (std::vector<GraphSignal>{{GraphSignal::Kind::Cursor, time, graph.cursorValue}}));
    QCOMPARE(graph.selectedTrace, selected);

    QVERIFY(!input.keyPress(Qt::Key_A, {}).isHandled);
    input.setExtent(1000.0, 2000.0);
    graph.settings.isAutomatic = true;
    QCOMPARE(describe(input.keyPress(Qt::Key_F, {}).reports), "man 0 0");
    QVERIFY(!graph.settings.isAutomatic);
    QCOMPARE(graph.windowStart, 900.0);
    QCOMPARE(graph.windowEnd, 2100.0);
    QCOMPARE(describe(input.keyPress(Qt::Key_M, {}).reports), "marker 1200 1800");
    QCOMPARE(describe(input.keyPress(Qt::Key_End, {}).reports).section(' ', 0, 1), "cursor 2000");
    QCOMPARE(graph.windowStart, 1400.0);
}

void TestGraph::mouse_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("pressed"); // at 20 s
    QTest::addColumn<QString>("moved");   // to 40 s
    QTest::addColumn<QString>("released");
    QTest::addColumn<double>("windowStart");

    const auto none = int(Qt::NoModifier);
    QTest::newRow("left: markers") << int(Qt::LeftButton) << none << "marker 20 20"
                                   << "marker 20 40, cursor 40 5, marker 20 40"
                                   << "" << 0.0;
    QTest::newRow("ctrl+left: cursor")
        << int(Qt::LeftButton) << int(Qt::ControlModifier) << "cursor 20 5"
        << "cursor 40 5"
        << "" << 0.0;
    QTest::newRow("shift+left: marker and pan")
        << int(Qt::LeftButton) << int(Qt::ShiftModifier) << "marker 20 80"
        << "marker 40 80, cursor 40 5, marker 40 80, man 0 0"
        << "" << -20.0;
    QTest::newRow("middle: cursor") << int(Qt::MiddleButton) << none << "cursor 20 5"
                                    << "cursor 40 5"
                                    << "finished 0 0" << 0.0;
    QTest::newRow("right: pan") << int(Qt::RightButton) << none << ""
                                << "man 0 0"
                                << "" << -20.0;
}

void TestGraph::mouse()
{
    QFETCH(int, button);
    QFETCH(int, modifiers);
    Graph graph;
    prepare(graph);
    graph.markerLeft = 10.0;
    graph.markerRight = 80.0;
    GraphInput input(graph);
    const auto keys = static_cast<Qt::KeyboardModifiers>(modifiers);
    const auto pressed = static_cast<Qt::MouseButton>(button);
    QTEST(describe(input.mousePress(pressed, placeOf(graph, 20.0, 50.0), keys).reports), "pressed");
    QTEST(describe(input.mouseMove(placeOf(graph, 40.0, 50.0), keys).reports), "moved");
    QTEST(describe(input.mouseRelease(pressed).reports), "released");
    QTEST(graph.windowStart, "windowStart");
    QVERIFY(graph.markerLeft <= graph.markerRight);
    QVERIFY(input.mouseMove(placeOf(graph, 60.0, 50.0), keys).reports.empty());
    QCOMPARE(graph.pointerTime, graph.timeAt(graph.xOf(60.0)));
}

void TestGraph::holdOfTheCursor()
{
    using Hold = GraphResponse::Hold;
    Graph graph;
    prepare(graph);
    GraphInput input(graph);
    const QPointF place = placeOf(graph, 30.0, 50.0);
    QCOMPARE(input.mousePress(Qt::LeftButton, place, Qt::ControlModifier).hold, Hold::Timed);
    QCOMPARE(input.mouseMove(place, Qt::ControlModifier).hold, Hold::Timed); // again from now on
    QCOMPARE(input.mouseRelease(Qt::LeftButton).hold, Hold::Unchanged);
    QCOMPARE(input.mousePress(Qt::MiddleButton, place, {}).hold, Hold::Open);
    QCOMPARE(input.mouseMove(place, {}).hold, Hold::Unchanged);
    QCOMPARE(input.keyPress(Qt::Key_Left, {}).hold, Hold::Unchanged); // its time must not end it
    QVERIFY(graph.isCursorHeld);
    QCOMPARE(input.mouseRelease(Qt::MiddleButton).hold, Hold::Ended);
    QVERIFY(!graph.isCursorHeld);
}

void TestGraph::handleDragMovesATrace()
{
    Graph graph;
    prepare(graph);
    graph.markerLeft = 10.0;
    graph.markerRight = 80.0;
    GraphInput input(graph);
    QVERIFY(input.mouseMove({10.0, 60.0}, {}).needsRepaint);
    QCOMPARE(input.hoveredTrace().value_or(-1), 0);
    QVERIFY(!input.mouseMove({12.0, 60.0}, {}).needsRepaint);
    QVERIFY(input.mousePress(Qt::LeftButton, {10.0, 50.0}, {}).reports.empty());
    QVERIFY(input.mouseMove({15.0, 150.0}, {}).reports.empty());
    QCOMPARE(input.dragOffset(), -100.0);
    QCOMPARE(describe(input.mouseRelease(Qt::LeftButton).reports), "move 0 1");
    QCOMPARE(graph.markerLeft, 10.0); // markers stay
    input.mousePress(Qt::LeftButton, {10.0, 150.0}, {});
    QCOMPARE(describe(input.mouseRelease(Qt::LeftButton).reports), "move 1 1"); // also in its place
}

void TestGraph::wheelZoomsAboutThePointer()
{
    Graph graph;
    prepare(graph);
    GraphInput input(graph);
    // The replay moved the window since the pointer came there.
    input.mouseMove(placeOf(graph, 25.0, 50.0), {});
    const double x = graph.xOf(25.0);
    graph.setWindow(100.0, 200.0);
    QCOMPARE(input.wheel(120, x, {}).recalculations.value_or(-1), 3);
    QCOMPARE(graph.windowStart, 102.5);
    QCOMPARE(graph.windowEnd, 192.5);
    QVERIFY(input.wheel(-120, x, {}).hasZoomed);
    QCOMPARE(graph.windowStart, 100.0);
    for (const auto& [turned, modifiers] :
         {std::pair(120, Qt::KeyboardModifiers(Qt::ShiftModifier)), {0, {}}}) {
        const GraphResponse response = input.wheel(turned, x, modifiers);
        QVERIFY(!response.hasZoomed && !response.recalculations);
        QCOMPARE(graph.windowEnd, 200.0);
    }
    for (int i = 0; i < 2000; ++i)
        input.wheel(120, x, {}); // as far as it goes
    QVERIFY(graph.span() > 0.0);
}

void TestGraph::feedingMarksGaps()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile, "<UnitConversions><Unit unitMetric='m' unitImperial='ft' factor='2' offset='1'/>"
                 "</UnitConversions>" +
                     device({"name='a' id='1' dataType='FLOAT' precision='5' unitMetric='m' "
                             "unitImperial='ft'"})));
    DataSet dataSet;
    for (const double seconds : {0.0, 0.5, 1.0, 1.5, 2.0, 3.4, 5.0, 5.5})
        add(dataSet.messages, 1, seconds, floats(static_cast<float>(seconds)));
    Graph graph;
    profile.setUnitSystem(UnitSystem::Imperial);
    feedTrace(graph, 0, profile, profile.parameters().front(), dataSet);
    GraphTrace& trace = graph.trace(0);
    QCOMPARE(trace.unit, "ft");
    QCOMPARE(trace.decimals, 3);
    QCOMPARE(trace.valueAt(1.7).value_or(-1), 4.0); // 1.5 in feet
    trace.rebuild(0.0, 10.0, 0.01);
    QList<int> marks;
    for (const GraphColumn& column : trace.columns())
        marks << column.mark;
    QCOMPARE(marks, (QList<int>{1, 1, 1, 1, 1, 1, 0, 1})); // 1.4 s is not three times 0.5 s
    feedTrace(graph, 99, profile, profile.parameters().front(), dataSet); // ignored
    DataSet dense; // a second is the shortest gap
    for (const double seconds : {0.0, 0.1, 0.2, 0.3, 1.25, 2.25, 2.35})
        add(dense.messages, 1, seconds, floats(0.0F));
    feedTrace(graph, 0, profile, profile.parameters().front(), dense);
    trace.rebuild(0.0, 10.0, 0.01);
    marks.clear();
    for (const GraphColumn& column : trace.columns())
        marks << column.mark;
    QCOMPARE(marks, (QList<int>{1, 1, 1, 1, 1, 0, 1}));
    add(dense.messages, 1, 2.45, floats(std::numeric_limits<float>::infinity()));
    feedTrace(graph, 0, profile, profile.parameters().front(), dense);
    trace.rebuild(0.0, 10.0, 0.01);
    QCOMPARE(trace.visibleRange(), std::optional(std::pair(1.0, 1.0))); // 0 in feet
}

/// The second trace takes over what the first found out about the times of their message.
void TestGraph::tracesOfAMessageShareTheirTimes()
{
    Profile profile;
    QVERIFY(loadProfile(profile, device({"name='a' id='1' dataType='FLOAT'",
                                         "name='b' id='1' startByte='4' dataType='FLOAT'",
                                         "name='c' id='2' dataType='FLOAT'"})));
    DataSet dataSet;
    for (int i = 0; i < 3000; ++i) {
        const double seconds = i * 0.1 + (i > 2000 ? 7.0 : 0.0);
        const auto value = static_cast<float>(i * 37 % 101);
        add(dataSet.messages, 1, seconds, floats(value, -value));
        add(dataSet.messages, 2, seconds + 0.05, floats(value));
    }
    Graph graph;
    graph.setTraceCount(3);
    for (int i = 0; i < 3; ++i)
        feedTrace(graph, i, profile, profile.parameters()[static_cast<std::size_t>(i)], dataSet);
    QCOMPARE(graph.trace(0).times(), graph.trace(1).times());
    QVERIFY(graph.trace(0).times() != graph.trace(2).times());
    // Each window is looked up by the one and answered from memory for the other.
    for (const double start : {0.0, 50.0, 150.0}) {
        for (const double pixel : {0.7, 0.01}) {
            std::vector<GraphColumn> expected;
            for (int i = 0; i < 2; ++i)
                graph.trace(i).rebuild(start, start + 100.0, pixel);
            for (GraphColumn column : graph.trace(1).columns()) {
                for (double* value : {&column.first, &column.low, &column.high, &column.last,
                                      &column.lowest, &column.highest, &column.end})
                    *value = -*value;
                std::swap(column.lowest, column.highest);
                expected.push_back(column);
            }
            QCOMPARE(graph.trace(0).columns().size(), expected.size());
            for (std::size_t i = 0; i < expected.size(); ++i) {
                const GraphColumn& column = graph.trace(0).columns()[i];
                QCOMPARE(column.time, expected[i].time);
                QCOMPARE(column.mark, expected[i].mark);
                QCOMPARE(column.lowest, expected[i].lowest);
                QCOMPARE(column.highest, expected[i].highest);
                QCOMPARE(column.end, expected[i].end);
            }
        }
    }
}

void TestGraph::feederKeepsWhatIsStillRight()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile, "<UnitConversions><Unit unitMetric='m' unitImperial='ft' factor='2' offset='1'/>"
                 "</UnitConversions>" +
                     device({"name='a' id='1' dataType='FLOAT'",
                             "name='b' id='2' dataType='FLOAT' unitMetric='m' unitImperial='ft'",
                             "name='c' id='2' dataType='FLOAT'"})));
    DataSet dataSet;
    for (int i = 0; i < 100; ++i) {
        add(dataSet.messages, 1, i, floats(1.0F));
        add(dataSet.messages, 2, i, floats(2.0F));
    }
    const ProfileParameter* const a = &profile.parameters()[0];
    const ProfileParameter* const b = &profile.parameters()[1];
    const ProfileParameter* const c = &profile.parameters()[2];
    Graph graph;
    TraceFeeder feeder(graph);
    const auto values = [&] {
        QList<double> result;
        for (int i = 0; i < graph.traceCount(); ++i)
            result << graph.trace(i).valueAt(50.0).value_or(-1.0);
        return result;
    };
    feeder.begin(profile, {a, b, c}, dataSet);
    QCOMPARE(graph.trace(2).name, "c"); // named, and empty
    QCOMPARE(values(), (QList<double>{-1, -1, -1}));
    QVERIFY(!feeder.feed({})); // one at least, and no more than the time allows
    QCOMPARE(values(), (QList<double>{1, -1, -1}));
    graph.selectedTrace = 0;
    feeder.begin(profile, {b, a}, dataSet); // before the others had their turn
    QCOMPARE(values(), (QList<double>{-1, 1}));
    QCOMPARE(graph.selectedTrace, 1); // a still
    QVERIFY(feeder.feed({}));
    QCOMPARE(values(), (QList<double>{2, 1}));
    profile.setUnitSystem(UnitSystem::Imperial);
    feeder.begin(profile, {a, b}, dataSet);
    QCOMPARE(feeder.total(), std::size_t{1});
    QCOMPARE(values(), (QList<double>{1, -1}));
    QVERIFY(feeder.feed({}));
    QCOMPARE(values(), (QList<double>{1, 5}));
    add(dataSet.messages, 1, 100.0, floats(9.0F)); // the series went on
    feeder.begin(profile, {a, b}, dataSet);
    QCOMPARE(values(), (QList<double>{-1, 5}));
}

namespace {

/// The lines that are drawn for trace 0.
std::vector<QLineF> linesOf(Graph& graph, double pixelRatio)
{
    std::vector<QLineF> lines;
    const GraphScene scene = buildScene(graph, GraphInput(graph), pixelRatio);
    for (const GraphScene::Figure& figure : scene.figures) {
        if (figure.color != graph.trace(0).color || figure.kind == GraphScene::Kind::Quads)
            continue;
        const int step = figure.kind == GraphScene::Kind::Lines ? 2 : 1;
        for (int i = figure.first; i + 1 < figure.first + figure.count; i += step) {
            const float* const ends = scene.vertices.data() + 2 * i;
            lines.emplace_back(ends[0], ends[1], ends[2], ends[3]);
        }
    }
    return lines;
}

} // namespace

void TestGraph::sceneBreaksLinesAtGaps()
{
    Graph graph;
    prepare(graph);
    graph.setTraceCount(1);
    graph.setSize(graph.width(), graph.height());
    for (const auto& [time, mark] : {std::pair(10.0, 1), {20.0, 1}, {60.0, 0}, {70.0, 1}})
        graph.trace(0).append(time, 5.0, mark);
    graph.setWindow(0.0, 100.0);
    QList<double> ends;
    for (const QLineF& line : linesOf(graph, 1.0)) {
        if (line.dx() != 0.0)
            ends << graph.timeAt(line.x1()) << graph.timeAt(line.x2());
    }
    QCOMPARE(ends, (QList<double>{10.0, 20.0, 60.0, 70.0}));
}

void TestGraph::cursorTextStaysInThePlot()
{
    Graph graph;
    for (const double width : {240.0, 600.0}) {
        graph.setSize(width, 200.0);
        graph.setWindow(0.0, 100.0);
        for (const double seconds : {0.0, 30.0, 50.0, 99.0}) {
            graph.cursorTime = seconds;
            const GraphScene scene = buildScene(graph, GraphInput(graph));
            const QString label = cursorText(seconds, graph.cursorValue);
            const auto text = std::find_if(scene.texts.begin(), scene.texts.end(),
                                           [&](const auto& each) { return each.text == label; });
            QVERIFY(text != scene.texts.end());
            QVERIFY(text->x >= Graph::leftMargin);
            QVERIFY(text->x <= graph.xOf(seconds) + 5.0);
        }
    }
}

void TestGraph::sceneJoinsStrokes_data()
{
    QTest::addColumn<double>("pixelRatio");
    QTest::addColumn<double>("pixelsPerSample");
    for (const double ratio : {1.0, 1.5, 2.0}) {
        for (const double pixels : {0.003, 0.09, 0.4, 0.77, 1.3, 7.0})
            QTest::addRow("%g at %g", pixels, ratio) << ratio << pixels;
    }
}

void TestGraph::sceneJoinsStrokes()
{
    QFETCH(double, pixelRatio);
    QFETCH(double, pixelsPerSample);
    Graph graph;
    graph.setTraceCount(1);
    graph.setSize(400.0, 200.0);
    unsigned noise = 1;
    double level = 0.0;
    for (int i = 0; i * pixelsPerSample < 300.0; ++i) {
        noise = noise * 1664525U + 1013904223U;
        level += noise >> 31 != 0U ? 1.0 : -0.7;
        graph.trace(0).append(i, level, 1);
    }
    graph.setWindow(0.0, graph.plotWidth() / pixelsPerSample);

    // What a pixel column holds, as one interval: strokes and sloping lines together.
    std::map<int, std::pair<double, double>> reached;
    const auto reach = [&](double x, double y) { // x in pixels of the framebuffer
        auto& interval = *reached.try_emplace(static_cast<int>(std::floor(x)), y, y).first;
        interval.second = {std::min(interval.second.first, y), std::max(interval.second.second, y)};
    };
    const std::vector<QLineF> lines = linesOf(graph, pixelRatio);
    for (const QLineF& line : lines) {
        if (line.dx() == 0.0) { // as wide as its trace
            const double width = std::max(1.0, std::round(1.4 * pixelRatio));
            for (double px = 0.0; px < width; px += 1.0) {
                reach(line.x1() * pixelRatio + px - (width - 1.0) / 2.0, line.y1());
                reach(line.x1() * pixelRatio + px - (width - 1.0) / 2.0, line.y2());
            }
            continue;
        }
        // One pixel thin; it fills pixels of which it passes the middle, without its last one.
        const double begin = line.x1() * pixelRatio;
        const double end = line.x2() * pixelRatio;
        for (double x = std::ceil(begin - 0.5) + 0.5; x < end; x += 1.0) {
            reach(x, line.pointAt((x - 0.5 - begin) / (end - begin)).y());
            reach(x, line.pointAt((x + 0.5 - begin) / (end - begin)).y());
        }
    }
    const double first = graph.xOf(0.0) * pixelRatio;
    const double last = graph.xOf(graph.trace(0).lastTime()) * pixelRatio;
    for (int x = static_cast<int>(first) + 2; x < static_cast<int>(last) - 2; ++x) {
        QVERIFY2(reached.count(x) == 1, qPrintable(QString::number(x)));
        const auto [low, high] = reached[x];
        const auto [lowBefore, highBefore] = reached[x - 1];
        QVERIFY2(low <= highBefore + 1.0 && high >= lowBefore - 1.0,
                 qPrintable(QString::number(x)));
    }
}

void TestGraph::textsKeepApart_data()
{
    QTest::addColumn<int>("traces");
    QTest::addColumn<bool>("isSplit");
    QTest::addColumn<double>("fontScale");
    QTest::addColumn<int>("left"); // out, in the legend

    QTest::newRow("a few bands") << 4 << true << 1.0 << 0;
    QTest::newRow("bands lower than a line") << 40 << true << 1.0 << 18;
    QTest::newRow("one scale") << 40 << false << 1.0 << 18;
    QTest::newRow("large font") << 12 << true << 2.2 << 3;
}

void TestGraph::textsKeepApart()
{
    QFETCH(int, traces);
    QFETCH(bool, isSplit);
    QFETCH(double, fontScale);
    Graph graph;
    graph.setTraceCount(traces);
    graph.settings.isSplit = isSplit;
    const GraphMetrics metrics{16.0 * fontScale, 7.3 * fontScale};
    graph.setMetrics(metrics);
    graph.setSize(900.0, 400.0);
    for (int i = 0; i < traces; ++i) {
        graph.setName(i, QStringLiteral("%1 ").arg(i) + QString(i % 2 == 0 ? 200 : 5, 'x'), "unit");
        for (const double seconds : {0.0, 50.0, 100.0})
            graph.trace(i).append(seconds, seconds, 1);
    }
    graph.cursorTime = 60.0;
    graph.markerRight = 80.0;
    graph.setWindow(0.0, 100.0);
    const GraphScene scene = buildScene(graph, GraphInput(graph));
    std::map<double, std::vector<QRectF>> columns; // by where they begin
    int values = 0;
    QStringList more;
    for (const GraphScene::Text& text : scene.texts) {
        const double width = static_cast<double>(text.text.size()) * metrics.characterWidth;
        const bool isRight = text.alignment.testFlag(Qt::AlignRight);
        const QRectF box(isRight ? text.x - width : text.x, text.y - metrics.rowHeight / 2.0, width,
                         metrics.rowHeight);
        QVERIFY2(box.left() >= 0.0 && box.right() <= graph.width() + 1.0, qPrintable(text.text));
        QVERIFY2(box.bottom() <= graph.height() + 1.0, qPrintable(text.text));
        for (const QRectF& other : columns[text.x])
            QVERIFY2(isRight || !box.adjusted(0.0, 0.1, 0.0, -0.1).intersects(other),
                     qPrintable(text.text));
        columns[text.x].push_back(box);
        values += text.text.endsWith("[unit]   50.00");
        if (text.text.startsWith("..."))
            more << text.text;
    }
    QFETCH(int, left);
    QCOMPARE(values, traces - left);
    QCOMPARE(more.isEmpty(), left == 0);
}

void TestGraph::thresholdLines()
{
    Profile profile;
    QVERIFY(loadProfile(profile, "<ThresholdList><Threshold name='T'>"
                                 "<Value val='10' color='#ff8800' state='WARNING'/>"
                                 "<Value val='90' color='#ff0000' state='LIMIT'/>"
                                 "</Threshold></ThresholdList>" +
                                     device({"name='a' id='1' dataType='FLOAT' thresholdId='T'"})));
    DataSet dataSet;
    for (const double seconds : {0.0, 50.0, 100.0})
        add(dataSet.messages, 1, seconds, floats(static_cast<float>(seconds) * 0.5F));
    Graph graph;
    prepare(graph);
    graph.settings.yMaximum = 50.0;
    graph.setTraceCount(1);
    feedTrace(graph, 0, profile, profile.parameters().front(), dataSet);
    graph.rebuild();
    const auto linesAt = [&] {
        QStringList lines;
        const GraphScene scene = buildScene(graph, GraphInput(graph));
        for (const GraphScene::Figure& figure : scene.figures) {
            const float* const ends = scene.vertices.data() + 2 * figure.first;
            if (figure.kind == GraphScene::Kind::Lines && figure.count == 2 &&
                (figure.color.name() == "#ff8800" || figure.color.name() == "#ff0000"))
                lines << QStringLiteral("%1 %2").arg(figure.color.name()).arg(ends[1]);
        }
        return lines.join(", ");
    };
    QCOMPARE(linesAt(), QStringLiteral("#ff8800 %1").arg(graph.yOf(0, 10.0))); // 90 lies outside
    graph.settings.hasThresholds = false;
    QCOMPARE(linesAt(), "");
}

void TestGraph::legendTexts()
{
    Profile profile;
    QVERIFY(loadProfile(profile,
                        "<EnumList><Enum name='E'><Value val='1' label='ON'/>"
                        "<Value val='-1' label='FAIL'/></Enum></EnumList>" +
                            device({"name='Lamp' id='1' dataType='BLONG' endBit='31' enumId='E'",
                                    "name='Count' id='1' dataType='LONG' enumId='E'",
                                    "name='Heat' id='2' dataType='FLOAT' enumId='E'"})));
    DataSet dataSet;
    for (const auto& [seconds, value] : {std::pair(0.0, 0), {10.0, 1}, {20.0, 255}, {30.0, 1}}) {
        const auto byte = static_cast<unsigned char>(value);
        const auto rest = static_cast<unsigned char>(value == 255 ? 255 : 0);
        add(dataSet.messages, 1, seconds, {byte, rest, rest, rest});
        add(dataSet.messages, 2, seconds, floats(seconds == 10.0 ? std::nanf("") : 1.0F));
    }
    Graph graph;
    for (int i = 0; i < 3; ++i)
        feedTrace(graph, i, profile, profile.parameters()[static_cast<std::size_t>(i)], dataSet);
    QCOMPARE(legendText(graph, 0, 15.0), "Lamp   ON");
    QCOMPARE(legendText(graph, 0, 5.0), "Lamp   0");
    QCOMPARE(legendText(graph, 0, 25.0), "Lamp   FAIL"); // all 32 bits, as the table reads them
    QCOMPARE(legendText(graph, 0, 35.0), "Lamp   ---");
    QCOMPARE(legendText(graph, 1, 15.0), "Count   1"); // labels are for bit fields
    QCOMPARE(legendText(graph, 2, 15.0), "Heat   ---");
    QCOMPARE(legendText(graph, 3, 5.0), "NoName [-]   ---");
    QCOMPARE(legendText(graph, 0, 15.0, 12), "Lamp   ON");
    graph.trace(0).name = "A long name of a lamp";
    QCOMPARE(legendText(graph, 0, 15.0, 16), QStringLiteral("A long nam\u2026   ON"));
    QCOMPARE(statisticText(graph, 0, 0.0, 15.0), "A long name of a lamp  0  ON  0.50");
    QCOMPARE(statisticText(graph, 1, 0.0, 15.0), "Count  0  1  0.50");
    QCOMPARE(statisticText(graph, 1, 11.0, 15.0), "Count  ---");
    QCOMPARE(cursorText(3661.25, 1.2345), "01:01:01.250/1.23");
    QCOMPARE(timeTickText(3661.9), "1:01:01");
    QCOMPARE(timeTickText(-61.0), "-0:01:01");
}

void TestGraph::decimalsFollowTheRange_data()
{
    QTest::addColumn<int>("precision");
    QTest::addColumn<float>("extent"); // from 0.00025 on
    QTest::addColumn<QString>("text");
    QTest::newRow("three are enough") << 6 << 10.0F << "0.000";
    QTest::newRow("the range needs more") << 6 << 0.001F << "0.00025";
    QTest::newRow("the parameter has no more") << 4 << 0.001F << "0.0002";
    QTest::newRow("a flat one") << 6 << 0.0F << "0.000250";
    QTest::newRow("fewer") << 1 << 0.001F << "0.0";
}

void TestGraph::decimalsFollowTheRange()
{
    QFETCH(int, precision);
    QFETCH(float, extent);
    Profile profile;
    QVERIFY(loadProfile(profile, device({"name='a' id='1' dataType='FLOAT' precision='" +
                                         QByteArray::number(precision) + "'"})));
    DataSet dataSet;
    for (const double seconds : {0.0, 10.0, 20.0})
        add(dataSet.messages, 1, seconds, floats(0.00025F + (seconds == 10.0 ? extent : 0.0F)));
    Graph graph;
    feedTrace(graph, 0, profile, profile.parameters().front(), dataSet);
    graph.setSize(400.0, 200.0);
    graph.setWindow(0.0, 30.0);
    QTEST(valueText(graph, 0, 0.000249999), "text");
}

QTEST_GUILESS_MAIN(TestGraph)
#include "tst_graph.moc"
