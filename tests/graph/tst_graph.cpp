#include "graph/GraphScene.h"
#include "tests/graph/GraphSupport.h"
#include "tests/support/Rows.h"

#include <cmath>
#include <functional>

using namespace KOLT;
using namespace KOLT::Test;

/// Window, scales, bands, and the effect of mouse and keys on them.
class TestGraph : public QObject
{
    Q_OBJECT

private slots:
    void traceCountAndColors();
    void mappingGoesRoundTrip();
    void bandsOfVisibleTraces();
    void bandsWithoutRoomAreScrolled();
    void scalesToTheVisibleWindow();
    void scaleLeavesOutWhatLiesBehindGaps();
    void cursorModes();
    void manyEventsShareColumns();
    void timeSpanKeepsAnEnd();
    void keys_data();
    void keys();
    void mouse_data();
    void mouse();
    void holdOfTheCursor();
    void replayLeavesAPannedWindow_data();
    void replayLeavesAPannedWindow();
    void handleDragMovesATrace();
    void wheelZoomsAboutThePointer();
};

namespace {

QString textOf(const CursorReport& report)
{
    return QStringLiteral("cursor %1 %2").arg(report.seconds).arg(report.value);
}

QString textOf(const CursorFinishedReport& /*report*/)
{
    return "finished";
}

QString textOf(const MarkersReport& report)
{
    return QStringLiteral("marker %1 %2").arg(report.markers.start).arg(report.markers.end);
}

QString textOf(const ManualModeReport& /*report*/)
{
    return "man";
}

QString textOf(const TraceMovedReport& report)
{
    return QStringLiteral("move %1 %2").arg(report.trace).arg(report.row);
}

QString describe(const std::vector<GraphReport>& reports)
{
    QStringList texts;
    for (const GraphReport& report : reports)
        texts << std::visit([](const auto& each) { return textOf(each); }, report);
    return texts.join(", ");
}

} // namespace

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
    graph.trace(2).append(0, 1);
    graph.setVisible(2, false);
    graph.setVisible(2, true);
    QVERIFY(graph.trace(2).isEmpty());
}

void TestGraph::mappingGoesRoundTrip()
{
    Graph graph = prepared();
    QCOMPARE(graph.xOf(0.0), Graph::leftMargin);
    QCOMPARE(graph.xOf(100.0), Graph::leftMargin + 400.0);
    QCOMPARE(graph.timeAt(graph.xOf(33.0)), 33.0);
    for (const bool isSplit : {true, false}) {
        graph.editSettings().isSplit = isSplit;
        for (int trace = 0; trace < 2; ++trace)
            QCOMPARE(graph.scaleOf(trace).valueAt(graph.scaleOf(trace).yOf(7.0)), 7.0);
    }
    QCOMPARE(graph.scaleOf(0).yOf(0.0), Graph::bottomMargin);
    QCOMPARE(graph.scaleOf(0).yOf(10.0), Graph::bottomMargin + 200.0);
}

void TestGraph::bandsOfVisibleTraces()
{
    Graph graph = prepared();
    graph.setTraceCount(4);
    graph.setVisible(1, false);
    graph.rebuild();
    const double band = 200.0 / 3.0;
    QCOMPARE(graph.trace(3).scale.offset, Graph::bottomMargin); // the last trace is at the bottom
    QCOMPARE(graph.trace(0).scale.offset, Graph::bottomMargin + 2 * band);
    QCOMPARE(graph.traceAt(Graph::bottomMargin + 1.0), 3);
    QCOMPARE(graph.traceAt(Graph::bottomMargin + band + 1.0), 2);
    QCOMPARE(graph.traceAt(Graph::bottomMargin + 2 * band + 1.0), 0);
    QCOMPARE(graph.traceAt(5.0), 0); // no band there: trace 0
}

void TestGraph::bandsWithoutRoomAreScrolled()
{
    Graph graph = prepared(); // 200 pixels: three bands of at least four lines
    graph.setTraceCount(8);
    graph.setLeastBand(4.0);
    graph.setVisible(2, false);
    const auto inView = [&] {
        graph.rebuild();
        return graph.tracesInView();
    };
    QCOMPARE(inView(), (std::vector{0, 1, 3}));
    QCOMPARE(graph.bandHeight(), 200.0 / 3.0);
    graph.bringIntoView(5);
    QCOMPARE(inView(), (std::vector{3, 4, 5}));
    QCOMPARE(graph.trace(5).scale.offset, Graph::bottomMargin);
    QCOMPARE(graph.traceAt(graph.height() - 1.0), 3);
    GraphInput input(graph);
    input.mousePress(Qt::LeftButton, {10.0, 100.0}, {}); // rows count from the first of all
    QCOMPARE(describe(input.mouseRelease(Qt::LeftButton).reports), "move 4 3");
    graph.setFirstRow(99);
    QCOMPARE(inView(), (std::vector{5, 6, 7}));
    graph.editSettings().isSplit = false;
    QCOMPARE(inView().size(), 7U);
}

void TestGraph::scalesToTheVisibleWindow()
{
    Graph graph = prepared();
    graph.editSettings().isAutoscaled = true;
    GraphTrace& climbing = graph.trace(0);
    GraphTrace& flat = graph.trace(1);
    for (int i = 0; i <= 100; ++i) {
        climbing.append(i, i);
        flat.append(i, 5.0);
    }
    graph.setWindow(20.0, 40.0);
    QCOMPARE(climbing.scale.lower, 17.95); // 19 to 40 with a margin of 5 %
    QCOMPARE(climbing.scale.upper, 41.05);
    QCOMPARE(flat.scale.lower + flat.scale.upper, 10.0); // centred
    QVERIFY(flat.scale.upper > 5.0);
    for (const double value : {HUGE_VAL, -HUGE_VAL, 110.0})
        climbing.append(climbing.lastTime() + 1.0, value);
    graph.setWindow(95.0, 110.0);
    QCOMPARE(climbing.scale.lower, 93.2); // 94 to 110
    QCOMPARE(climbing.scale.upper, 110.8);
    graph.setWindow(20.0, 40.0);
    graph.editSettings().isSplit = false;
    graph.rebuild();
    QVERIFY(graph.commonScale().lower < 5.0 && graph.commonScale().upper > 40.0);
    graph.editSettings().isAutoscaled = false;
    graph.editSettings().yMinimum = graph.editSettings().yMaximum = 3.0; // would divide by zero
    graph.rebuild();
    QVERIFY(std::isfinite(graph.scaleOf(0).yOf(3.0)));
}

/// No line leads to such samples, so the scale ignores them.
void TestGraph::scaleLeavesOutWhatLiesBehindGaps()
{
    GraphTrace trace = traceOf(
        {{0, 500, 1}, {1, 900, 1}, {2, 5, 0}, {3, 6, 1}, {4, 7, 1}, {5, -800, 0}, {6, 1, 1}});
    const auto range = [&](double start, double end) {
        trace.rebuild(start, end, 0.1);
        return trace.visibleRange().value_or(std::pair(-1.0, -1.0));
    };
    QCOMPARE(range(1.5, 4.5), std::pair(5.0, 7.0));
    QCOMPARE(range(1.0, 5.0), std::pair(-800.0, 900.0)); // visible exactly at the edges
    QCOMPARE(range(2.5, 3.5), std::pair(5.0, 7.0));      // lines lead in from both sides
    QCOMPARE(range(4.2, 4.8), std::pair(-1.0, -1.0));    // only missing data
}

void TestGraph::cursorModes()
{
    Graph graph = prepared();
    graph.setCursorTime(70.0);
    QCOMPARE(graph.window().start, 20.0);
    graph.editSettings().cursorMode = CursorMode::Floating;
    graph.setCursorTime(90.0);
    QCOMPARE(graph.window().start, 20.0);
    graph.holdCursor();
    graph.setCursorTime(10.0);
    QCOMPARE(graph.cursor().time, 90.0); // held by the user
    graph.releaseCursor();
    graph.editSettings().cursorMode = CursorMode::End;
    graph.setCursorTime(190.0);
    QCOMPARE(graph.window().end, 200.0);
    QCOMPARE(graph.window().start, 100.0);
}

void TestGraph::manyEventsShareColumns()
{
    Graph graph = prepared();
    std::vector<EventLine> lines{{0, std::nan("")}};
    for (int i = 100'000; i > 0; --i) // four pixels per second
        lines.push_back({i, i * 0.002 - 50.0});
    graph.setEventLines(lines);
    graph.addEventLine({-1, 0.1});
    QCOMPARE(graph.eventLines().size(), 100'001U);
    QList<double> columns;
    QList<int> numbers;
    for (const EventLine& line : graph.eventsInSight()) {
        columns << std::floor(graph.xOf(line.seconds));
        numbers << line.number;
    }
    QCOMPARE(columns.size(), 401); // both edges included
    QVERIFY(std::ranges::adjacent_find(columns, std::greater_equal()) == columns.end());
    QCOMPARE(numbers.mid(0, 2), (QList<int>{25'000, 25'125}));
    QCOMPARE(numbers.back(), 75'000);
    graph.setWindow(0.0999, 0.1001);
    QCOMPARE(graph.eventsInSight().size(), 1U); // of two at the same time
    graph.setWindow(200.0, 300.0);
    QVERIFY(graph.eventsInSight().empty());
}

void TestGraph::timeSpanKeepsAnEnd()
{
    Graph graph = prepared();
    graph.setTimeSpan(40.0);
    QCOMPARE(graph.window().start, 60.0);
    graph.editSettings().isAutomatic = false;
    graph.setTimeSpan(10.0);
    QCOMPARE(graph.window().end, 70.0);
    graph.setWindow(5.0, 5.0); // an empty window is ignored
    graph.setWindow(std::nan(""), 5.0);
    QCOMPARE(graph.window().start, 60.0);
}

void TestGraph::keys_data()
{
    // key, isShift, value at 50 s before, time, value and selected trace after; the widget has
    // 482 pixels for 100 s, a band 100 pixels for 10
    const Rows<Qt::Key, bool, double, double, double, int> row;
    const double pixel = 100.0 / (Graph::leftMargin + 400.0 + Graph::rightMargin);
    row("left", Qt::Key_Left, false, 5.0, 50.0 - pixel, 5.0, 0);
    row("right, far", Qt::Key_Right, true, 5.0, 50.0 + 10 * pixel, 5.0, 0);
    row("up", Qt::Key_Up, false, 5.0, 50.0, 5.1, 0);
    row("down, far", Qt::Key_Down, true, 5.0, 50.0, 4.0, 0);
    row("down, into the band below", Qt::Key_Down, true, 0.4, 50.0, 9.4, 1);
}

void TestGraph::keys()
{
    const auto [key, isShift, value, time, newValue, selected] =
        fetchRow<Qt::Key, bool, double, double, double, int>();
    Graph graph = prepared();
    GraphInput input(graph);
    graph.placeCursor(50.0, graph.scaleOf(0).yOf(value));
    const GraphResponse response =
        input.keyPress(key, isShift ? Qt::ShiftModifier : Qt::NoModifier);
    QCOMPARE(graph.cursor().time, time);
    QCOMPARE(graph.cursor().value, newValue);
    QVERIFY(response.isHandled && graph.cursor().isHeld);
    QCOMPARE(response.hold, GraphResponse::Hold::Timed);
    QCOMPARE(describe(response.reports), textOf(CursorReport{time, newValue}));
    QCOMPARE(graph.cursor().trace, selected);

    QVERIFY(!input.keyPress(Qt::Key_A, {}).isHandled);
    input.setExtent(1000.0, 2000.0);
    graph.editSettings().isAutomatic = true;
    QCOMPARE(describe(input.keyPress(Qt::Key_F, {}).reports), "man");
    QVERIFY(!graph.settings().isAutomatic);
    QCOMPARE(graph.window().start, 900.0);
    QCOMPARE(graph.window().end, 2100.0);
    QCOMPARE(describe(input.keyPress(Qt::Key_M, {}).reports), "marker 1200 1800");
    QCOMPARE(describe(input.keyPress(Qt::Key_End, {}).reports).section(' ', 0, 1), "cursor 2000");
    QCOMPARE(graph.window().start, 1400.0);
}

void TestGraph::mouse_data()
{
    // button, modifier, reports on press at 20 s, on move to 40 s and on release, windowStart
    const Rows<Qt::MouseButton, Qt::KeyboardModifier, QString, QString, QString, double> row;
    row("left: markers", Qt::LeftButton, Qt::NoModifier, "marker 20 20",
        "marker 20 40, cursor 40 5, marker 20 40", "", 0.0);
    row("ctrl+left: cursor", Qt::LeftButton, Qt::ControlModifier, "cursor 20 5", "cursor 40 5", "",
        0.0);
    row("shift+left: marker and pan", Qt::LeftButton, Qt::ShiftModifier, "marker 20 80",
        "marker 40 80, cursor 40 5, marker 40 80, man", "", -20.0);
    row("middle: cursor", Qt::MiddleButton, Qt::NoModifier, "cursor 20 5", "cursor 40 5",
        "finished", 0.0);
    row("right: pan", Qt::RightButton, Qt::NoModifier, "", "man", "", -20.0);
}

void TestGraph::mouse()
{
    const auto [button, keys, pressed, moved, released, windowStart] =
        fetchRow<Qt::MouseButton, Qt::KeyboardModifier, QString, QString, QString, double>();
    Graph graph = prepared();
    graph.setMarkers(10.0, 80.0);
    GraphInput input(graph);
    QCOMPARE(describe(input.mousePress(button, placeOf(graph, 20.0, 50.0), keys).reports), pressed);
    QCOMPARE(describe(input.mouseMove(placeOf(graph, 40.0, 50.0), keys).reports), moved);
    QCOMPARE(describe(input.mouseRelease(button).reports), released);
    QCOMPARE(graph.window().start, windowStart);
    QVERIFY(graph.markers().start <= graph.markers().end);
    QVERIFY(input.mouseMove(placeOf(graph, 60.0, 50.0), keys).reports.empty());
}

void TestGraph::holdOfTheCursor()
{
    using Hold = GraphResponse::Hold;
    Graph graph = prepared();
    GraphInput input(graph);
    const QPointF place = placeOf(graph, 30.0, 50.0);
    QCOMPARE(input.mousePress(Qt::LeftButton, place, Qt::ControlModifier).hold, Hold::Timed);
    QCOMPARE(input.mouseMove(place, Qt::ControlModifier).hold, Hold::Timed); // starts over
    QCOMPARE(input.mouseRelease(Qt::LeftButton).hold, Hold::Unchanged);
    QCOMPARE(input.mousePress(Qt::MiddleButton, place, {}).hold, Hold::Open);
    QCOMPARE(input.mouseMove(place, {}).hold, Hold::Unchanged);
    QCOMPARE(input.keyPress(Qt::Key_Left, {}).hold, Hold::Unchanged); // no timer meanwhile
    QVERIFY(graph.cursor().isHeld);
    QCOMPARE(input.mouseRelease(Qt::MiddleButton).hold, Hold::Ended);
    QVERIFY(!graph.cursor().isHeld);
}

void TestGraph::replayLeavesAPannedWindow_data()
{
    const Rows<Qt::MouseButton, Qt::KeyboardModifier> row;
    row("right", Qt::RightButton, Qt::NoModifier);
    row("shift+left", Qt::LeftButton, Qt::ShiftModifier);
}

void TestGraph::replayLeavesAPannedWindow()
{
    const auto [button, keys] = fetchRow<Qt::MouseButton, Qt::KeyboardModifier>();
    Graph graph = prepared();
    GraphInput input(graph);
    input.mousePress(button, placeOf(graph, 20.0, 50.0), keys);
    graph.setCursorTime(500.0);
    QCOMPARE(graph.cursor().time, 500.0);
    input.mouseMove(placeOf(graph, 40.0, 50.0), keys);
    graph.setCursorTime(501.0);
    QCOMPARE(graph.window().start, -20.0);
    input.mouseRelease(button);
    graph.setCursorTime(502.0);
    QCOMPARE(graph.window().start, 452.0);
}

void TestGraph::handleDragMovesATrace()
{
    Graph graph = prepared();
    graph.setMarkers(80.0, 10.0);
    GraphInput input(graph);
    QVERIFY(input.mouseMove({10.0, 60.0}, {}).needsRepaint);
    QCOMPARE(input.hoveredTrace().value_or(-1), 0);
    QVERIFY(!input.mouseMove({12.0, 60.0}, {}).needsRepaint);
    QVERIFY(input.mousePress(Qt::LeftButton, {10.0, 50.0}, {}).reports.empty());
    QVERIFY(input.mouseMove({15.0, 150.0}, {}).reports.empty());
    QCOMPARE(input.dragOffset(), -100.0);
    QCOMPARE(describe(input.mouseRelease(Qt::LeftButton).reports), "move 0 1");
    QCOMPARE(graph.markers().start, 10.0); // markers keep their times, but are ordered
    QCOMPARE(graph.markers().end, 80.0);
    input.mousePress(Qt::LeftButton, {10.0, 150.0}, {});
    QCOMPARE(describe(input.mouseRelease(Qt::LeftButton).reports), "move 1 1"); // same row
    // Handles of low rows overlap: a click without a drag must not move any trace.
    graph.setTraceCount(30);
    graph.setSize(500.0, 300.0);
    for (double y = 5.0; y < 300.0; y += 10.0) {
        input.mousePress(Qt::LeftButton, {10.0, y}, {});
        const auto reports = input.mouseRelease(Qt::LeftButton).reports;
        QCOMPARE(reports.size(), 1U);
        const auto& moved = std::get<TraceMovedReport>(reports.front());
        QCOMPARE(moved.trace, moved.row);
    }
}

void TestGraph::wheelZoomsAboutThePointer()
{
    Graph graph = prepared();
    GraphInput input(graph);
    // The replay has moved the window since the last mouse move.
    input.mouseMove(placeOf(graph, 25.0, 50.0), {});
    const double x = graph.xOf(25.0);
    graph.setWindow(100.0, 200.0);
    QCOMPARE(input.wheel(120, x, {}).recalculations.value_or(-1), 3);
    QCOMPARE(graph.window().start, 102.5);
    QCOMPARE(graph.window().end, 192.5);
    QVERIFY(input.wheel(-120, x, {}).hasZoomed);
    QCOMPARE(graph.window().start, 100.0);
    for (const auto& [turned, modifiers] :
         {std::pair(120, Qt::KeyboardModifiers(Qt::ShiftModifier)), {0, {}}}) {
        const GraphResponse response = input.wheel(turned, x, modifiers);
        QVERIFY(!response.hasZoomed && !response.recalculations);
        QCOMPARE(graph.window().end, 200.0);
    }
    for (int i = 0; i < 2000; ++i)
        input.wheel(120, x, {}); // up to the shortest window
    QVERIFY(graph.window().length() > 0.0);
}

QTEST_GUILESS_MAIN(TestGraph)
#include "tst_graph.moc"
