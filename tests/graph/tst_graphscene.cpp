#include "graph/Contrast.h"
#include "graph/GraphScene.h"
#include "graph/GraphTexts.h"
#include "graph/GraphTicks.h"
#include "graph/MarkerTable.h"
#include "graph/TraceFeeder.h"
#include "graph/TraceLines.h"
#include "tests/graph/GraphSupport.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <QLineF>
#include <QRegularExpression>
#include <QSet>

#include <cmath>
#include <functional>
#include <map>

using namespace KOLT;
using namespace KOLT::Test;

/// The display list.
class TestGraphScene : public QObject
{
    Q_OBJECT

private slots:
    void timeTicksForSpans_data();
    void timeTicksForSpans();
    void valueTicksStayApart();
    void sceneBreaksLinesAtGaps();
    void cursorTextStaysInThePlot();
    void sceneJoinsStrokes_data();
    void sceneJoinsStrokes();
    void switchesTakePartsAway_data();
    void switchesTakePartsAway();
    void textsKeepApart_data();
    void textsKeepApart();
    void cornersTellTheExtremes();
    void tracesAreToldApart_data();
    void tracesAreToldApart();
    void timeLabels_data();
    void timeLabels();
    void zoomedMarkersTintNoData();
    void dragTextsStayInSight();
    void thresholdLines();
    void legendTexts();
    void decimalsFollowTheRange_data();
    void decimalsFollowTheRange();
};

namespace {

/// The lines drawn for trace 0.
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

QStringList textsOf(const GraphScene& scene)
{
    QStringList texts;
    for (const GraphScene::Text& text : scene.texts)
        texts << text.text;
    return texts;
}

/// Widths of the figures of a colour, from left to right.
double widthOf(const GraphScene& scene, const QColor& color)
{
    double width = 0.0;
    for (const GraphScene::Figure& figure : scene.figures) {
        for (int i = figure.first; figure.color == color && i + 1 < figure.first + figure.count;
             i += 2)
            width +=
                std::abs(static_cast<double>(scene.vertices[2 * i + 2] - scene.vertices[2 * i]));
    }
    return width;
}

} // namespace

void TestGraphScene::timeTicksForSpans_data()
{
    const Rows<double, double, int> row; // span on 700 pixels, major step, minor lines per step
    row("0.3 s", 0.3, 0.05, 5);
    row("6 s", 6.0, 1.0, 5);
    row("4 s", 4.0, 0.5, 5);
    row("15 s", 15.0, 2.0, 4);
    row("30 s", 30.0, 5.0, 5);
    row("60 s", 60.0, 10.0, 5);
    row("250 s", 250.0, 50.0, 5);
    row("an hour", 3600.0, 500.0, 5);
}

void TestGraphScene::timeTicksForSpans()
{
    const auto [span, step, minor] = fetchRow<double, double, int>();
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

void TestGraphScene::valueTicksStayApart()
{
    for (const double extent : {1e-6, 0.37, 5.0, 99.0, 1e9}) {
        const std::vector<double> ticks = valueTicks(-extent / 3, extent, 200.0, 25.0);
        QVERIFY(ticks.size() >= 2 && ticks.size() <= 8);
        for (const double tick : ticks)
            QVERIFY(tick >= -extent / 3 && tick <= extent);
    }
    const std::vector<double> far = valueTicks(1e18, 1e18 + 256.0, 200.0, 25.0);
    QVERIFY(std::ranges::adjacent_find(far) == far.end()); // no duplicates
    QVERIFY(valueTicks(1.0, 1.0, 200.0, 25.0).empty());
    QVERIFY(valueTicks(0.0, std::nan(""), 200.0, 25.0).empty());
}

void TestGraphScene::sceneBreaksLinesAtGaps()
{
    Graph graph = prepared();
    graph.setTraceCount(1);
    for (const auto& [time, mark] : {std::pair(10.0, 1), {20.0, 1}, {60.0, 0}, {70.0, 1}})
        graph.trace(0).append(time, 5.0, SampleMark(mark));
    graph.setWindow(0.0, 100.0);
    QList<double> ends;
    for (const QLineF& line : linesOf(graph, 1.0)) {
        if (line.dx() != 0.0)
            ends << graph.timeAt(line.x1()) << graph.timeAt(line.x2());
    }
    QCOMPARE(ends, (QList<double>{10.0, 20.0, 60.0, 70.0}));
}

void TestGraphScene::cursorTextStaysInThePlot()
{
    Graph graph;
    graph.setTraceCount(1); // one trace: its legend leaves the cursor's line free
    for (const double width : {240.0, 600.0}) {
        graph.setSize(width, 200.0);
        graph.setWindow(0.0, 100.0);
        for (const double seconds : {0.0, 30.0, 50.0, 99.0}) {
            graph.moveCursor(seconds);
            const GraphScene scene = buildScene(graph, GraphInput(graph));
            const QString label = cursorText(seconds, graph.cursor().value);
            const auto text = std::find_if(scene.texts.begin(), scene.texts.end(),
                                           [&](const auto& each) { return each.text == label; });
            QVERIFY(text != scene.texts.end());
            QVERIFY(text->x >= Graph::leftMargin);
            QVERIFY(text->x <= graph.xOf(seconds) + 5.0);
        }
    }
}

void TestGraphScene::sceneJoinsStrokes_data()
{
    const Rows<double, double> row; // pixelRatio, pixelsPerSample
    for (const double ratio : {1.0, 1.5, 2.0}) {
        for (const double pixels : {0.003, 0.09, 0.4, 0.77, 1.3, 7.0})
            row(qPrintable(QString::asprintf("%g at %g", pixels, ratio)), ratio, pixels);
    }
}

void TestGraphScene::sceneJoinsStrokes()
{
    const auto [pixelRatio, pixelsPerSample] = fetchRow<double, double>();
    Graph graph;
    graph.setTraceCount(1);
    graph.setSize(400.0, 200.0);
    unsigned noise = 1;
    double level = 0.0;
    for (int i = 0; i * pixelsPerSample < 300.0; ++i) {
        noise = noise * 1664525U + 1013904223U;
        level += noise >> 31 != 0U ? 1.0 : -0.7;
        graph.trace(0).append(i, level);
    }
    graph.setWindow(0.0, graph.plotWidth() / pixelsPerSample);

    // The interval covered in each pixel column by strokes and sloping lines together.
    std::map<int, std::pair<double, double>> reached;
    const auto reach = [&](double x, double y) { // x in framebuffer pixels
        auto& interval = *reached.try_emplace(static_cast<int>(std::floor(x)), y, y).first;
        interval.second = {std::min(interval.second.first, y), std::max(interval.second.second, y)};
    };
    const std::vector<QLineF> lines = linesOf(graph, pixelRatio);
    for (const QLineF& line : lines) {
        if (line.dx() == 0.0) { // vertical: as wide as the trace
            const double width = std::max(1.0, std::round(1.4 * pixelRatio));
            for (double px = 0.0; px < width; px += 1.0) {
                for (const double y : {line.y1(), line.y2()})
                    reach(line.x1() * pixelRatio + px - (width - 1.0) / 2.0, y);
            }
            continue;
        }
        // One pixel wide: covers the pixels whose centre it passes, except the last.
        const double begin = line.x1() * pixelRatio;
        const double end = line.x2() * pixelRatio;
        for (double x = std::ceil(begin - 0.5) + 0.5; x < end; x += 1.0) {
            for (const double side : {-0.5, 0.5})
                reach(x, line.pointAt((x + side - begin) / (end - begin)).y());
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

void TestGraphScene::switchesTakePartsAway_data()
{
    const Rows<bool GraphSettings::*> row;
    row("grid", &GraphSettings::hasGrid);
    row("cursor", &GraphSettings::hasCursor);
    row("legend", &GraphSettings::hasLegend);
    row("events", &GraphSettings::hasEvents);
}

void TestGraphScene::switchesTakePartsAway()
{
    const auto [flag] = fetchRow<bool GraphSettings::*>();
    Graph graph = prepared();
    graph.setSize(900.0, 400.0);
    graph.moveCursor(50.0);
    graph.addEventLine({77, 70.0});
    const auto parts = [&] {
        const QList<std::pair<QString, QString>> texts{{"cursor", cursorText(50.0, 0.0)},
                                                       {"legend", legendText(graph, 0, 50.0)},
                                                       {"events", "77"}};
        QSet<QString> found;
        const GraphScene scene = buildScene(graph, GraphInput(graph));
        for (const GraphScene::Text& text : scene.texts) {
            for (const auto& [part, content] : texts) {
                if (text.text == content)
                    found << part;
            }
        }
        for (const GraphScene::Figure& figure : scene.figures) {
            const float* const ends = scene.vertices.data() + 2 * figure.first;
            if (figure.isStippled)
                found << "grid";
            else if (figure.count == 2 && ends[0] == ends[2])
                found << QStringLiteral("%1 at %2").arg(figure.color.name()).arg(ends[0]);
        }
        return found;
    };
    QSet<QString> expected{"grid", "cursor", "legend", "events"};
    const QString event = QStringLiteral("#009999 at %1").arg(graph.xOf(70.0));
    const QString cursor = QStringLiteral("#808080 at %1").arg(graph.xOf(50.0));
    expected << event << cursor;
    QCOMPARE(parts(), expected);
    graph.editSettings().*flag = false;
    const QString part = QTest::currentDataTag();
    expected.remove(part);
    if (part == "events")
        expected.remove(event);
    if (part == "cursor")
        expected.remove(cursor);
    QCOMPARE(parts(), expected);
}

void TestGraphScene::textsKeepApart_data()
{
    const Rows<int, bool, double, int> row; // traces, isSplit, fontScale, missing in the legend
    row("a few bands", 4, true, 1.0, 0);
    row("bands lower than two lines", 20, true, 1.0, 0);
    row("bands lower than a line", 40, true, 1.0, 20);
    row("one scale", 40, false, 1.0, 20);
}

void TestGraphScene::textsKeepApart()
{
    const auto [traces, isSplit, fontScale, left] = fetchRow<int, bool, double, int>();
    Graph graph;
    graph.setTraceCount(traces);
    graph.editSettings().isSplit = isSplit;
    const GraphMetrics metrics{16.0 * fontScale, 7.3 * fontScale};
    graph.setMetrics(metrics);
    graph.setSize(900.0, 400.0);
    for (int i = 0; i < traces; ++i) {
        graph.setName(i, QStringLiteral("%1 ").arg(i) + QString(i % 2 == 0 ? 5 : 200, 'x'), "unit");
        for (const double seconds : {0.0, 50.0, 100.0})
            graph.trace(i).append(seconds, seconds);
    }
    graph.moveCursor(60.0);
    graph.setMarkers(0.0, 80.0);
    for (int i = 0; i < 60; ++i)
        graph.addEventLine({1000 + i, 1.7 * i});
    graph.setWindow(0.0, 100.0);
    const GraphScene scene = buildScene(graph, GraphInput(graph));
    std::vector<QRectF> inPlot;
    int alone = 0;                                 // texts of the cursor and of events
    std::map<double, std::vector<QRectF>> columns; // by x
    int values = 0;
    QStringList more;
    for (const GraphScene::Text& text : scene.texts) {
        const double width = static_cast<double>(text.text.size()) * metrics.characterWidth;
        const bool isRight = text.alignment.testFlag(Qt::AlignRight);
        const QRectF box(isRight ? text.x - width : text.x, text.y - metrics.lineHeight / 2.0,
                         width, metrics.lineHeight);
        QVERIFY2(box.left() >= 0.0 && box.right() <= graph.width() + 1.0, qPrintable(text.text));
        QVERIFY2(box.bottom() <= graph.height() + 1.0, qPrintable(text.text));
        for (const QRectF& other : columns[text.x])
            QVERIFY2(isRight || !box.adjusted(0.0, 0.1, 0.0, -0.1).intersects(other),
                     qPrintable(text.text));
        columns[text.x].push_back(box);
        const bool isEvent = text.color == QColor(0, 153, 153);
        alone += isEvent || text.text == cursorText(60.0, 0.0);
        if (box.left() > graph.plotLeft() && box.top() > Graph::bottomMargin - 1.0) {
            const auto isNear = [&](const QRectF& other) {
                return box.adjusted(0.0, 0.1, 0.0, -0.1).intersects(other);
            };
            QVERIFY2(std::ranges::none_of(inPlot, isNear), qPrintable(text.text));
            inPlot.push_back(box);
        }
        values += text.text.endsWith("[unit]   50.00");
        if (text.text.startsWith("..."))
            more << text.text;
    }
    QVERIFY2(alone > 1, qPrintable(QString::number(alone)));
    QCOMPARE(values, traces - left);
    QCOMPARE(more.isEmpty(), left == 0);
}

void TestGraphScene::cornersTellTheExtremes()
{
    Graph graph = prepared();
    graph.trace(0) = traceOf({{0, 9, 1}, {49, 900, 1}, {51, 3, 1}, {70, 7, 1}, {99, 4, 1}});
    graph.setWindow(50.0, 100.0); // 900 is before, though a line leads there
    const auto corners = [&] { return textsOf(buildScene(graph, GraphInput(graph))).filter("m"); };
    QVERIFY(corners().contains("max 7.00") && corners().contains("min 3.00"));
    graph.setWindow(80.0, 90.0); // between two samples
    QVERIFY(corners().contains("max 7.00") && corners().contains("min 4.00"));
    for (const double start : {-50.0, 100.0}) { // nothing is in sight
        graph.setWindow(start, start + 40.0);
        QCOMPARE(corners().filter("max").size(), 0);
    }
    graph.setWindow(50.0, 100.0);
    graph.setSize(graph.width(), 60.0); // no room for two lines
    QCOMPARE(corners().filter("max").size(), 0);
}

void TestGraphScene::tracesAreToldApart_data()
{
    // trace, background, whether there is a casing, part of the line in another tone
    const Rows<int, QColor, bool, double> row;
    row("red on black", 0, Qt::black, false, 0.0);
    row("blue on black", 2, Qt::black, true, 0.0);
    row("blue on white", 2, Qt::white, false, 0.0);
    row("green on white", 1, Qt::white, true, 0.0);
    row("the seventh", 6, Qt::black, false, 0.5);
    row("the ninth", 8, Qt::black, true, 0.5);
    row("the thirteenth", 12, Qt::black, false, 1.0 / 3.0);
}

void TestGraphScene::tracesAreToldApart()
{
    const auto [index, background, isCased, part] = fetchRow<int, QColor, bool, double>();
    for (const double spacing : {0.05, 50.0}) { // strokes side by side, and a line
        Graph graph = prepared();
        graph.editSettings().background = background;
        graph.editSettings().hasLegend = false;
        graph.setTraceCount(13);
        for (double seconds = 0.0; seconds <= 100.0; seconds += spacing)
            graph.trace(index).append(seconds, 5.0);
        graph.rebuild();
        const TraceStyle style = styleOf(graph.trace(index), background);
        QCOMPARE(style.casing.has_value(), isCased);
        QCOMPARE(style.isDashed(), part > 0.0);
        QVERIFY(!isCased || contrastOf(*style.casing, background) >= 7.0);
        QVERIFY(part == 0.0 || contrastOf(style.dash, style.color) > 1.5);
        const GraphScene scene = buildScene(graph, GraphInput(graph));
        double plain = 0.0; // pixels, or strokes
        double dashes = 0.0;
        for (const GraphScene::Figure& figure : scene.figures) {
            if (figure.width != TraceLines::width || figure.color == style.casing)
                continue;
            double& tone = part > 0.0 && figure.color == style.dash ? dashes : plain;
            for (int i = figure.first; i + 1 < figure.first + figure.count; i += 2)
                tone += std::max(scene.vertices[2 * i + 2] - scene.vertices[2 * i], 1.0F);
        }
        QVERIFY2(plain + dashes > 320.0, qPrintable(QString::number(plain + dashes))); // no gaps
        QVERIFY2(std::abs(dashes / (plain + dashes) - part) < 0.03,
                 qPrintable(QString::number(dashes)));
    }
}

void TestGraphScene::timeLabels_data()
{
    const Rows<double, QString, QString> row; // span, first line, second line
    row("seconds", 6.0, "0:00:14 0:00:16 0:00:18", "");
    row("halves", 2.0, "0:00:13 0:00:13 0:00:14 0:00:14", ".0 .5 .0 .5");
    row("hundredths", 0.2, "0:00:12 0:00:12 0:00:13 0:00:13", ".90 .95 .00 .05");
}

void TestGraphScene::timeLabels()
{
    const auto [span, seconds, fractions] = fetchRow<double, QString, QString>();
    Graph graph = prepared();
    graph.setWindow(span < 1.0 ? 12.88 : 12.9, 12.9 + span);
    const QStringList texts = textsOf(buildScene(graph, GraphInput(graph)));
    QCOMPARE(texts.filter(QRegularExpression("^0:00:")).join(' '), seconds);
    QCOMPARE(texts.filter(QRegularExpression("^[.]")).join(' '), fractions);
    for (double width = 230.0; width < 700.0; width += 30.0) {
        graph.setSize(width, 200.0);
        for (const double scale : {1.0, 2.2, 4.7, 9.9, 300.0}) {
            graph.setWindow(1000.0, 1000.0 + span * scale);
            const auto labels = textsOf(buildScene(graph, GraphInput(graph)))
                                    .filter(QRegularExpression("^0:[0-9]+:"));
            QVERIFY2(labels.size() >= 2, qPrintable(QString::number(width)));
        }
    }
}

void TestGraphScene::zoomedMarkersTintNoData()
{
    const QColor tint(255, 255, 0, 77);
    Graph graph = prepared();
    GraphInput input(graph);
    graph.setMarkers(60.0, 40.0);
    const auto tinted = [&] { return widthOf(buildScene(graph, input), tint) / 2.0; };
    QCOMPARE(tinted(), 80.0); // a fifth of 400 pixels
    graph.showMarkers();
    QCOMPARE(graph.window(), (TimeRange{40.0, 60.0}));
    QCOMPARE(tinted(), 0.0);
    graph.setWindow(0.0, 100.0);
    QCOMPARE(tinted(), 320.0); // outside
    input.keyPress(Qt::Key_M, {});
    QCOMPARE(tinted(), 200.0);
}

void TestGraphScene::dragTextsStayInSight()
{
    Graph graph = prepared();
    graph.setName(0, "A trace", "");
    GraphInput input(graph);
    const auto areaOf = [&](const QString& start) {
        const GraphScene scene = buildScene(graph, input);
        const GraphScene::Text& text = scene.texts.back(); // above all others
        const double width = graph.metrics().widthOf(text.text);
        return text.text.startsWith(start) ? QRectF(text.x, text.y - 8.0, width, 16.0) : QRectF();
    };
    input.mousePress(Qt::LeftButton, placeOf(graph, 10.0, 50.0), {});
    for (const double seconds : {50.0, 99.0, 110.0}) {
        input.mouseMove(placeOf(graph, seconds, 1.0), {});
        QVERIFY(graph.plot().contains(areaOf("dt = ")));
    }
    input.mouseRelease(Qt::LeftButton);
    QVERIFY(areaOf("dt = ").isEmpty());
    input.mousePress(Qt::LeftButton, {10.0, 50.0}, {});
    const GraphScene scene = buildScene(graph, input);
    const QRectF name = areaOf("A trace");
    for (const GraphScene::Text& text : scene.texts) // of the value axis
        QVERIFY(text.text == "A trace" || text.y < name.top() - 4.0 ||
                text.y > name.bottom() + 4.0 || text.x > name.right());
}

void TestGraphScene::thresholdLines()
{
    Profile profile;
    QVERIFY(loadProfile(profile, threshold("T", {"val='10' color='#ff8800' state='WARNING'",
                                                 "val='90' color='#ff0000' state='LIMIT'"}) +
                                     device({"name='a' id='1' dataType='FLOAT' thresholdId='T'"})));
    DataSet dataSet;
    for (const double seconds : {0.0, 50.0, 100.0})
        add(dataSet.messages, 1, seconds, floats(static_cast<float>(seconds) * 0.5F));
    Graph graph = prepared();
    graph.editSettings().yMaximum = 50.0;
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
    QCOMPARE(linesAt(),
             QStringLiteral("#ff8800 %1").arg(graph.scaleOf(0).yOf(10.0))); // 90: outside
    graph.editSettings().hasThresholds = false;
    QCOMPARE(linesAt(), "");
}

void TestGraphScene::legendTexts()
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
    QCOMPARE(legendText(graph, 0, 25.0), "Lamp   FAIL"); // all 32 bits, as in the data table
    QCOMPARE(legendText(graph, 0, 35.0), "Lamp   ---");
    QCOMPARE(legendText(graph, 1, 15.0), "Count   1"); // only bit fields have labels
    QCOMPARE(legendText(graph, 2, 15.0), "Heat   ---");
    QCOMPARE(legendText(graph, 3, 5.0), "NoName [-]   ---");
    QCOMPARE(legendText(graph, 0, 15.0, 12), "Lamp   ON");
    graph.trace(0).name = "A long name of a lamp";
    QCOMPARE(legendText(graph, 0, 15.0, 16), QStringLiteral("A long nam\u2026   ON"));
    graph.setVisible(2, false);
    const auto between = [&](double left, double right) {
        graph.setMarkers(right, left); // they need not be in order
        return markerTableOf(graph).text().split('\n');
    };
    QCOMPARE(between(0.0, 15.0).mid(0, 4),
             (QStringList{"Markers at 00:00:00.000 and 00:00:15.000, dt = 15.000 s",
                          "Trace\tUnit\tLeft\tRight\tDifference\tMin\tMax\tMean",
                          "A long name of a lamp\t\t0\tON\t1\t0\tON\t0.50",
                          "Count\t\t0\t1\t1\t0\t1\t0.50"}));
    QCOMPARE(between(11.0, 15.0)[3], "Count\t\t1\t1\t0\t---\t---\t---");
    QCOMPARE(between(25.0, 35.0)[2], "A long name of a lamp\t\tFAIL\t---\t---\tON\tON\t1.00");
    QCOMPARE(cursorText(3661.25, 1.2345), "01:01:01.250/1.23");
    QCOMPARE(timeTickText(3661.9), "1:01:01");
    QCOMPARE(timeTickText(-61.0), "-0:01:01");
}

void TestGraphScene::decimalsFollowTheRange_data()
{
    const Rows<int, float, QString> row; // precision, extent of the values above 0.00025, text
    row("three are enough", 6, 10.0F, "0.000");
    row("the range needs more", 6, 0.001F, "0.00025");
    row("the parameter has no more", 4, 0.001F, "0.0002");
    row("a flat one", 6, 0.0F, "0.000250");
    row("fewer", 1, 0.001F, "0.0");
}

void TestGraphScene::decimalsFollowTheRange()
{
    const auto [precision, extent, text] = fetchRow<int, float, QString>();
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
    QCOMPARE(valueText(graph, 0, 0.000249999), text);
}

QTEST_GUILESS_MAIN(TestGraphScene)
#include "tst_graphscene.moc"
