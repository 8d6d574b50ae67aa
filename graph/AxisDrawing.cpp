#include "graph/AxisDrawing.h"

#include "base/NumberText.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double longTick = 8.0;
constexpr double shortTick = 4.0;
constexpr double besideTick = 3.0;    ///< of a label
constexpr double valueSpacing = 28.0; ///< least distance of labels
constexpr float gridWidth = 1.2F;
constexpr int gridAlpha = 178; ///< 0.7 of 255

void beginGrid(ScenePen& pen, const Graph& graph)
{
    pen.begin(GraphScene::Kind::Lines, withAlpha(graph.settings().gridColor, gridAlpha), gridWidth)
        .isStippled = true;
}

/// Decimals that tell neighbouring labels apart.
int neededDecimals(const std::vector<double>& ticks, int decimals)
{
    if (ticks.size() < 2)
        return decimals;
    constexpr int most = 9;
    const double step = std::log10(ticks[1] - ticks[0]);
    const int needed = static_cast<int>(-std::floor(step + 1e-9));
    return std::min(std::max(needed, decimals), most);
}

} // namespace

void drawMargins(ScenePen& pen, const Graph& graph)
{
    const QRectF plot = graph.plot();
    const QColor& color = graph.settings().labelBackground;
    const double right = graph.width();
    pen.quad({0.0, 0.0, right, plot.top()}, color);
    pen.quad({0.0, plot.top(), plot.left(), plot.height()}, color);
    if (plot.right() < right)
        pen.quad({plot.right(), plot.top(), right - plot.right(), plot.height()}, color);
    if (plot.bottom() < graph.height())
        pen.quad({0.0, plot.bottom(), right, graph.height() - plot.bottom()}, color);
}

void drawTimeAxis(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    const QRectF& plot = layout.plot();
    const std::vector<GraphTick>& ticks = layout.timeTicks();
    if (graph.settings().hasGrid) {
        beginGrid(pen, graph);
        for (const GraphTick& tick : ticks) {
            if (!tick.isMajor)
                continue;
            pen.vertex(graph.xOf(tick.value), plot.top());
            pen.vertex(graph.xOf(tick.value), plot.bottom());
        }
        pen.end();
    }
    const QColor& color = graph.settings().labelColor;
    pen.begin(GraphScene::Kind::Lines, color);
    for (const GraphTick& tick : ticks) {
        pen.vertex(graph.xOf(tick.value), plot.top());
        pen.vertex(graph.xOf(tick.value), plot.top() - (tick.isMajor ? longTick : shortTick));
    }
    pen.end();
    const double y = std::max(Graph::bottomMargin / 2.0 - 2.0, pen.metrics().lineHeight / 2.0);
    const TimeLabels& labels = layout.timeLabels();
    // A tick at a whole second may be the least bit before it.
    const double rounding = 0.1 * std::pow(10.0, -labels.decimals);
    for (const double time : labels.times)
        pen.text(graph.xOf(time) + besideTick, y, Qt::AlignLeft,
                 timeTickText(time + std::copysign(rounding, time)), color);
}

void drawFractions(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    const TimeLabels& labels = layout.timeLabels();
    if (labels.decimals == 0)
        return;
    const double y = layout.plot().top() + pen.metrics().lineHeight / 2.0;
    for (const double time : labels.times)
        pen.plateText(graph.xOf(time) + besideTick, y, Qt::AlignLeft,
                      fractionText(time, labels.decimals), graph.settings().labelColor);
}

void drawValueAxis(ScenePen& pen, const Graph& graph, const GraphScale& scale, int decimals)
{
    const double left = graph.plotLeft();
    const double line = pen.metrics().lineHeight;
    const std::vector<double> ticks =
        valueTicks(scale.lower, scale.upper, scale.height, std::max(valueSpacing, 1.5 * line));
    if (graph.settings().hasGrid) {
        beginGrid(pen, graph);
        for (const double tick : ticks) {
            pen.vertex(left, scale.yOf(tick));
            pen.vertex(graph.plotRight(), scale.yOf(tick));
        }
        pen.end();
    }
    const QColor& color = graph.settings().labelColor;
    pen.begin(GraphScene::Kind::Lines, color);
    for (const double tick : ticks) {
        pen.vertex(left - shortTick, scale.yOf(tick));
        pen.vertex(left, scale.yOf(tick));
    }
    pen.end();
    const int shown = neededDecimals(ticks, decimals);
    for (const double tick : ticks) {
        // Where bands meet, only the lower band's label is shown.
        const double y = scale.yOf(tick);
        if (scale.offset > Graph::bottomMargin && y < scale.offset + line / 2.0)
            continue;
        pen.text(left - shortTick - 2.0, std::min(y, graph.height() - line / 2.0), Qt::AlignRight,
                 fixedText(tick, shown), color);
    }
}

} // namespace KOLT
