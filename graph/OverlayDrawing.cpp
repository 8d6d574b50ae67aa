#include "graph/OverlayDrawing.h"

#include "graph/GraphTexts.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr QColor markerColor(255, 255, 0, 77);
constexpr QColor eventColor(0, 153, 153);
constexpr QColor dragColor(0, 255, 255);
constexpr QColor hoverColor(255, 128, 0);
constexpr QColor cursorColor(128, 128, 128);

/// Left end of the cursor's text beside its line at x.
double beginOfCursorText(const ScenePen& pen, const QRectF& plot, double x, double width)
{
    const double line = pen.metrics().lineHeight;
    const double right = x + 5.0;
    const double left = x - 5.0 - width;
    const auto fits = [&](double begin) {
        return begin >= plot.left() + 2.0 && begin + width + 5.0 <= plot.right();
    };
    double beyond = plot.left(); // right end of the lowest band's legend
    for (const QRectF& plate : pen.plates()) {
        if (plate.top() < plot.top() + line && plate.left() < plot.center().x())
            beyond = std::max(beyond, plate.right() + 2.0);
    }
    for (const double begin : {right, left, beyond}) {
        if (fits(begin) && pen.isFree({begin, plot.top(), width, line}))
            return begin;
    }
    // If neither side has room, the text starts at the plot's edge.
    return fits(right) ? right : std::max(left, plot.left() + 2.0);
}

} // namespace

void drawMarkers(ScenePen& pen, const Graph& graph, const GraphInput& input)
{
    const QRectF plot = graph.plot();
    const auto xOf = [&](double seconds) {
        return std::clamp(graph.xOf(seconds), plot.left(), plot.right());
    };
    const TimeRange markers = graph.markers().ordered();
    const QRectF area(QPointF(xOf(markers.start), plot.top()),
                      QPointF(xOf(markers.end), plot.bottom()));
    if (area.width() > 0.0) {
        pen.quad(area, markerColor);
        // Texts keep their plate.
        for (const QRectF& plate : pen.plates()) {
            if (plate.intersects(area))
                pen.quad(plate.intersected(area), pen.plateColor());
        }
    }
    if (input.isMeasuring()) {
        const GraphCursor& cursor = graph.cursor();
        pen.text(graph.xOf(cursor.time) + 5.0,
                 graph.scaleOf(cursor.trace).yOf(cursor.value) + 5.0 +
                     pen.metrics().lineHeight / 2.0,
                 Qt::AlignLeft, QStringLiteral("dt = %1 s").arg(graph.markers().length()),
                 pen.legible(Qt::black));
    }
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
    const QRectF band = layout.bandOf(cursor.trace);
    if (y >= band.top() && y <= band.bottom())
        pen.line(plot.left(), y, plot.right(), y, withAlpha(color, 120));
    const QString label = cursorText(cursor.time, cursor.value);
    pen.text(beginOfCursorText(pen, plot, x, pen.metrics().widthOf(label)),
             plot.top() + pen.metrics().lineHeight / 2.0, Qt::AlignLeft, label, color);
}

void drawHandles(ScenePen& pen, const Graph& graph, const GraphInput& input)
{
    int row = 0;
    for (const int index : graph.visibleTraces()) {
        const QPointF handle = graph.handleOf(row++);
        const QColor color = input.hoveredTrace() == index ? hoverColor : QColor(Qt::black);
        for (const double dy : {-4.0, 0.0, 4.0})
            pen.line(handle.x() - 5.0, handle.y() + dy, handle.x() + 5.0, handle.y() + dy, color,
                     2.0F);
        if (input.draggedTrace() == index)
            pen.text(handle.x() + 10.0, handle.y() + input.dragOffset(), Qt::AlignLeft,
                     graph.trace(index).name, graph.settings().labelColor);
    }
    if (input.draggedTrace()) {
        const double y = graph.topOfRow(input.targetRow());
        pen.line(graph.plotLeft(), y, graph.plotRight(), y, dragColor, 5.0F);
    }
}

} // namespace KOLT
