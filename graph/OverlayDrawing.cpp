#include "graph/OverlayDrawing.h"

#include "graph/GraphTexts.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr QColor markerColor(255, 255, 0, 77);
constexpr QColor eventColor(0, 153, 153);
constexpr QColor noteColor(145, 80, 200);
constexpr QColor dragColor(0, 255, 255);
constexpr QColor hoverColor(255, 128, 0);
constexpr QColor cursorColor(128, 128, 128);

/// Left end of the cursor's text beside x in the lowest line of texts.
double beginOfCursorText(const ScenePen& pen, const QRectF& line, double x, double width)
{
    const double right = x + 5.0;
    const double left = x - 5.0 - width;
    const auto fits = [&](double begin) {
        return begin >= line.left() + 2.0 && begin + width + 5.0 <= line.right();
    };
    double beyond = line.left() + 2.0; // right end of the lowest band's legend
    for (const QRectF& plate : pen.plates()) {
        if (plate.intersects(line) && plate.left() < line.center().x())
            beyond = std::max(beyond, plate.right() + 2.0);
    }
    for (const double begin : {right, left, beyond}) {
        if (fits(begin) && pen.isFree({begin, line.top(), width, line.height()}))
            return begin;
    }
    // If neither side has room, the text starts at the plot's edge.
    return fits(right) ? right : std::max(left, line.left() + 2.0);
}

} // namespace

void drawMarkers(ScenePen& pen, const Graph& graph)
{
    const QRectF plot = graph.plot();
    const auto xOf = [&](double seconds) {
        return std::clamp(graph.xOf(seconds), plot.left(), plot.right());
    };
    const TimeRange markers = graph.markers().ordered();
    const auto mark = [&](double left, double right) {
        if (right > left)
            pen.quad({left, plot.top(), right - left, plot.height()}, markerColor);
    };
    if (!graph.isMarkedOutside()) {
        mark(xOf(markers.start), xOf(markers.end));
        return;
    }
    mark(plot.left(), xOf(markers.start));
    mark(xOf(markers.end), plot.right());
}

void drawDistance(ScenePen& pen, const Graph& graph, const GraphInput& input)
{
    if (!input.isMeasuring())
        return;
    const GraphCursor& cursor = graph.cursor();
    const QRectF plot = graph.plot();
    const double half = pen.metrics().lineHeight / 2.0;
    const QString label = QStringLiteral("dt = %1 s").arg(graph.markers().length());
    const double width = pen.metrics().widthOf(label) + 5.0;
    const double place = graph.xOf(cursor.time);
    double x = place + 5.0;
    if (x + width > plot.right()) // on the other side; the pointer may be outside the plot
        x = std::min(place - 5.0, plot.right()) - width;
    const double y = graph.scaleOf(cursor.trace).yOf(cursor.value) + 5.0 + half;
    pen.topText(std::max(x, plot.left() + 2.0),
                std::clamp(y, plot.top() + half, std::max(plot.bottom() - half, plot.top() + half)),
                label, pen.legible(Qt::black), graph.settings().background);
}

void drawEventNumbers(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    const QRectF& plot = layout.plot();
    const GraphMetrics& metrics = pen.metrics();
    const double y = layout.eventNumberY();
    double taken = plot.left(); // right end of the number before
    for (const EventLine& event : layout.events()) {
        const double left = graph.xOf(event.seconds) + 5.0;
        if (left < taken)
            continue;
        const QString number = QString::number(event.number);
        const QRectF box(left, y - metrics.lineHeight / 2.0, metrics.widthOf(number),
                         metrics.lineHeight);
        if (box.right() > plot.right() || !pen.isFree(box))
            continue;
        pen.plate(box);
        pen.text(left, y, Qt::AlignLeft, number, eventColor);
        taken = box.right() + metrics.characterWidth;
    }
}

void drawEventLines(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    pen.begin(GraphScene::Kind::Lines, withAlpha(eventColor, 102));
    for (const EventLine& event : layout.events()) {
        const double x = graph.xOf(event.seconds);
        pen.vertex(x, layout.plot().top());
        pen.vertex(x, layout.plot().bottom());
    }
    pen.end();
}

void drawNotes(ScenePen& pen, const Graph& graph)
{
    const std::vector<const NoteMark*> notes = graph.notesInSight();
    const QColor color = pen.legible(noteColor);
    pen.begin(GraphScene::Kind::Lines, withAlpha(color, 150)).isStippled = true;
    for (const NoteMark* const note : notes) {
        const double x = graph.xOf(note->seconds);
        pen.vertex(x, graph.plot().top());
        pen.vertex(x, graph.plot().bottom());
    }
    pen.end();
    for (const NoteMark* const note : notes) {
        const QRectF flag = graph.flagOf(*note); // a pennant
        pen.begin(GraphScene::Kind::Quads, color);
        pen.vertex(flag.right(), flag.top());
        pen.vertex(flag.right(), flag.bottom());
        pen.vertex(flag.left(), flag.center().y());
        pen.vertex(flag.left(), flag.center().y());
        pen.end();
    }
}

void drawCursor(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    const QRectF& plot = layout.plot();
    const GraphCursor& cursor = graph.cursor();
    const double x = graph.xOf(cursor.time);
    if (x < plot.left() || x > plot.right())
        return;
    const QColor color = pen.legible(cursorColor);
    pen.line(x, plot.top(), x, plot.bottom(), color);
    const double y = graph.scaleOf(cursor.trace).yOf(cursor.value);
    const QRectF band = layout.bandOf(cursor.trace).intersected(plot); // empty if out of view
    if (!band.isEmpty() && y >= band.top() && y <= band.bottom())
        pen.line(plot.left(), y, plot.right(), y, withAlpha(color, 120));
}

void drawCursorText(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    const QRectF& plot = layout.plot();
    const GraphCursor& cursor = graph.cursor();
    const double x = graph.xOf(cursor.time);
    if (x < plot.left() || x > plot.right())
        return;
    const QString label = cursorText(cursor.time, cursor.value);
    const QRectF line(plot.left(), layout.bottomOfTexts(plot), plot.width(),
                      pen.metrics().lineHeight);
    pen.topText(beginOfCursorText(pen, line, x, pen.metrics().widthOf(label)), line.center().y(),
                label, pen.legible(cursorColor), pen.plateColor());
}

void drawHandles(ScenePen& pen, const Graph& graph, const GraphInput& input)
{
    int row = 0;
    QPointF dragged; // where the dragged trace's name is
    for (const int index : graph.tracesInView()) {
        const QPointF handle = graph.handleOf(row++);
        const QColor color = input.hoveredTrace() == index ? hoverColor : QColor(Qt::black);
        for (const double dy : {-4.0, 0.0, 4.0})
            pen.line(handle.x() - 5.0, handle.y() + dy, handle.x() + 5.0, handle.y() + dy, color,
                     2.0F);
        if (input.draggedTrace() == index)
            dragged = handle + QPointF(10.0, input.dragOffset());
    }
    if (input.draggedTrace()) {
        const double y = graph.topOfRow(input.targetRow());
        pen.line(graph.plotLeft(), y, graph.plotRight(), y, dragColor, 5.0F);
        pen.topText(dragged.x(), dragged.y(), graph.trace(*input.draggedTrace()).name,
                    graph.settings().labelColor, graph.settings().labelBackground);
    }
}

} // namespace KOLT
