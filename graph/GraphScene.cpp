#include "graph/GraphScene.h"

#include "graph/AxisDrawing.h"
#include "graph/LegendDrawing.h"
#include "graph/OverlayDrawing.h"
#include "graph/TraceDrawing.h"

#include <algorithm>

namespace KOLT {

namespace {

void drawThresholds(ScenePen& pen, const Graph& graph, int index, const QRectF& area)
{
    const TraceSource& source = graph.source(index);
    if (source.parameter == nullptr || source.parameter->threshold == nullptr)
        return;
    for (const ThresholdStep& step : source.parameter->threshold->steps) {
        const double y = graph.scaleOf(index).yOf(step.value * source.factor + source.offset);
        if (y > area.top() && y < area.bottom())
            pen.line(area.left(), y, area.right(), y, withAlpha(QColor(step.grade.color), 160));
    }
}

/// One trace with what belongs to its band.
void drawBand(ScenePen& pen, const Graph& graph, const PlotLayout& layout, int index,
              double pixelRatio)
{
    const GraphTrace& trace = graph.trace(index);
    const QRectF area = layout.bandOf(index);
    if (graph.settings().isSplit) {
        drawValueAxis(pen, graph, trace.scale, std::min(trace.decimals, 3));
        pen.line(area.left(), area.top(), area.right(), area.top(),
                 withAlpha(graph.settings().gridColor, 120));
    }
    if (graph.settings().hasThresholds)
        drawThresholds(pen, graph, index, area);
    drawTrace(pen, graph, index, area, pixelRatio);
}

void reserveVertices(GraphScene& scene, const Graph& graph, const PlotLayout& layout)
{
    constexpr std::size_t besideTraces = 4096;
    std::size_t columns = 0;
    for (const int index : layout.traces())
        columns += graph.trace(index).columns().size();
    scene.vertices.reserve(besideTraces + 4 * columns);
}

} // namespace

GraphScene buildScene(const Graph& graph, const GraphInput& input, double pixelRatio)
{
    const GraphSettings& settings = graph.settings();
    const PlotLayout layout(graph);
    GraphScene scene;
    reserveVertices(scene, graph, layout);
    ScenePen pen(scene, graph);
    // Clear to the plot's colour and fill the margins, as filling the larger plot costs more.
    scene.clearColor = settings.background;
    drawMargins(pen, graph);
    if (!settings.isSplit)
        drawValueAxis(pen, graph, graph.commonScale(), 0);
    drawTimeAxis(pen, graph, layout);
    for (const int index : layout.traces())
        drawBand(pen, graph, layout, index, pixelRatio);
    drawMarkers(pen, graph);
    drawEventLines(pen, graph, layout);
    if (settings.hasCursor)
        drawCursor(pen, graph, layout);
    // The plates are translucent: a text over a trace of its colour is legible, and the trace seen.
    drawLegend(pen, graph, layout);
    drawFractions(pen, graph, layout);
    drawEventNumbers(pen, graph, layout);
    drawNotes(pen, graph);
    if (settings.hasCursor)
        drawCursorText(pen, graph, layout);
    drawDistance(pen, graph, input);
    drawHandles(pen, graph, input);
    return scene;
}

} // namespace KOLT
