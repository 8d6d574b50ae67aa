#include "graph/SceneBuilder.h"

#include "graph/GraphScene.h"
#include "graph/GraphTexts.h"
#include "graph/GraphTicks.h"
#include "graph/TraceDrawing.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double longTick = 8.0;
constexpr double shortTick = 4.0;
constexpr double valueSpacing = 28.0; ///< least distance of labels
constexpr int plateAlpha = 170;
constexpr float gridWidth = 1.2F;
constexpr int gridAlpha = 178; ///< 0.7 of 255

} // namespace

GraphScene SceneBuilder::build()
{
    const GraphSettings& settings = m_graph.settings;
    // Clear to the plot's colour and fill the margins, as filling the larger plot costs more.
    m_scene.clearColor = settings.background;
    margins();
    if (!settings.isSplit)
        valueAxis(m_plot, m_graph.commonLower(), m_graph.commonUpper(), 0, settings.labelColor);
    timeGrid();
    const std::vector<int> visible = m_graph.visibleTraces();
    std::size_t columns = 0;
    for (const int index : visible)
        columns += m_graph.trace(index).columns().size();
    m_scene.vertices.reserve(4096 + 4 * columns);
    if (settings.hasStatistic)
        layOutStatistic(visible);
    layOutCursor();
    layOutEvents();
    // Before the traces, so that a plate hides none of them.
    if (settings.hasLegend)
        legend(visible);
    eventNumbers();
    for (const int index : visible)
        band(index);
    markers();
    events();
    if (settings.hasCursor)
        cursor();
    for (const auto& [place, color] : m_swatches) // above the marker band, which would tint them
        m_pen.quad(place, color);
    if (settings.hasStatistic)
        statistic();
    handles(visible);
    return std::move(m_scene); // build() is called once
}

void SceneBuilder::margins()
{
    const QColor& color = m_graph.settings.labelBackground;
    const double right = m_graph.width();
    m_pen.quad({0.0, 0.0, right, m_plot.top()}, color);
    m_pen.quad({0.0, m_plot.top(), m_plot.left(), m_plot.height()}, color);
    if (m_plot.right() < right)
        m_pen.quad({m_plot.right(), m_plot.top(), right - m_plot.right(), m_plot.height()}, color);
    if (m_plot.bottom() < m_graph.height())
        m_pen.quad({0.0, m_plot.bottom(), right, m_graph.height() - m_plot.bottom()}, color);
}

void SceneBuilder::plotText(double x, double y, Qt::Alignment alignment, const QString& content,
                            const QColor& color)
{
    const double width = widthOf(content);
    const double left = alignment.testFlag(Qt::AlignRight) ? x - width : x;
    const QRectF& plate = m_plates.emplace_back(left - 2.0, y - m_row / 2.0, width + 4.0, m_row);
    m_pen.quad(plate, plateColor());
    text(x, y, alignment, content, legible(color));
}

QColor SceneBuilder::plateColor() const
{
    return withAlpha(m_graph.settings.background, plateAlpha);
}

QColor SceneBuilder::legible(const QColor& color) const
{
    constexpr int nearest = 110; ///< difference in lightness
    const int ground = m_graph.settings.background.lightness();
    if (std::abs(color.lightness() - ground) >= nearest)
        return color;
    QColor result = color.toHsl();
    const int lightness = ground < 128 ? ground + nearest + 40 : ground - nearest;
    result.setHsl(result.hslHue(), result.hslSaturation(), std::clamp(lightness, 0, 255));
    return result;
}

QRectF SceneBuilder::bandRect(int index) const
{
    const GraphTrace& trace = m_graph.trace(index);
    return m_graph.settings.isSplit
               ? QRectF(m_plot.left(), trace.bandOffset, m_plot.width(), trace.bandHeight)
               : m_plot;
}

void SceneBuilder::valueAxis(const QRectF& area, double lower, double upper, int decimals,
                             const QColor& color)
{
    const std::vector<double> ticks =
        valueTicks(lower, upper, area.height(), std::max(valueSpacing, 1.5 * m_row));
    const auto yOf = [&](double value) {
        return area.top() + (value - lower) * area.height() / (upper - lower);
    };
    if (m_graph.settings.hasGrid) {
        GraphScene::Figure& grid = m_pen.begin(
            GraphScene::Kind::Lines, withAlpha(m_graph.settings.gridColor, gridAlpha), gridWidth);
        grid.isStippled = true;
        for (const double tick : ticks) {
            m_pen.vertex(area.left(), yOf(tick));
            m_pen.vertex(area.right(), yOf(tick));
        }
        m_pen.end();
    }
    m_pen.begin(GraphScene::Kind::Lines, color);
    for (const double tick : ticks) {
        m_pen.vertex(area.left() - shortTick, yOf(tick));
        m_pen.vertex(area.left(), yOf(tick));
    }
    m_pen.end();
    // More decimals where the range is small.
    int needed = decimals;
    if (ticks.size() >= 2)
        needed = std::max(
            needed,
            std::clamp(static_cast<int>(-std::floor(std::log10(ticks[1] - ticks[0]) + 1e-9)), 0,
                       9));
    for (const double tick : ticks) {
        // Where bands meet, only the lower band's label is shown.
        if (area.top() > m_plot.top() && yOf(tick) < area.top() + m_row / 2.0)
            continue;
        text(area.left() - shortTick - 2.0, std::min(yOf(tick), m_graph.height() - m_row / 2.0),
             Qt::AlignRight,
             QString::asprintf("%.*f", ticks.size() >= 2 ? std::min(needed, 9) : decimals, tick),
             color);
    }
}

void SceneBuilder::timeGrid()
{
    const std::vector<GraphTick> ticks =
        timeTicks(m_graph.windowStart, m_graph.windowEnd, m_graph.plotWidth());
    if (m_graph.settings.hasGrid) {
        GraphScene::Figure& grid = m_pen.begin(
            GraphScene::Kind::Lines, withAlpha(m_graph.settings.gridColor, gridAlpha), gridWidth);
        grid.isStippled = true;
        for (const GraphTick& tick : ticks) {
            if (!tick.isMajor)
                continue;
            m_pen.vertex(m_graph.xOf(tick.value), m_plot.top());
            m_pen.vertex(m_graph.xOf(tick.value), m_plot.bottom());
        }
        m_pen.end();
    }
    m_pen.begin(GraphScene::Kind::Lines, m_graph.settings.labelColor);
    for (const GraphTick& tick : ticks) {
        m_pen.vertex(m_graph.xOf(tick.value), m_plot.top());
        m_pen.vertex(m_graph.xOf(tick.value), m_plot.top() - (tick.isMajor ? longTick : shortTick));
    }
    m_pen.end();
    double taken = 0.0; // right end of the label before
    for (const GraphTick& tick : ticks) {
        const double x = m_graph.xOf(tick.value) + 3.0;
        const QString label = timeTickText(tick.value);
        if (!tick.isMajor || x < taken || x + widthOf(label) > m_graph.width())
            continue;
        text(x, std::max(Graph::bottomMargin / 2.0 - 2.0, m_row / 2.0), Qt::AlignLeft, label,
             m_graph.settings.labelColor);
        taken = x + widthOf(label);
    }
}

void SceneBuilder::band(int index)
{
    const GraphTrace& trace = m_graph.trace(index);
    const QRectF area = bandRect(index);
    if (m_graph.settings.isSplit) {
        valueAxis(area, trace.lower, trace.upper, std::min(trace.decimals, 3),
                  m_graph.settings.labelColor);
        m_pen.line(area.left(), area.top(), area.right(), area.top(),
                   withAlpha(m_graph.settings.gridColor, 120));
    }
    if (m_graph.settings.hasThresholds)
        thresholds(index, area);
    if (hasLegendInBands())
        scaleLabel(index, area);
    drawTrace(m_scene, m_graph, index, area, m_pixelRatio);
}

void SceneBuilder::scaleLabel(int index, const QRectF& area)
{
    const GraphTrace& trace = m_graph.trace(index);
    const QString label = scaleText(m_graph, index);
    constexpr double apart = 40.0;
    const double y = topOfTexts(area) - m_row / 2.0;
    double beside = isCursorRow(y) ? m_cursorWidth : 0.0;
    if (m_graph.settings.hasLegend)
        beside += widthOf(legendText(m_graph, index, m_graph.cursorTime)) + apart;
    if (widthOf(label) + beside < area.width())
        plotText(area.right() - 4.0, y, Qt::AlignRight, label, trace.color);
}

void SceneBuilder::thresholds(int index, const QRectF& area)
{
    const TraceSource& source = m_graph.source(index);
    if (source.parameter == nullptr || source.parameter->threshold == nullptr)
        return;
    for (const ThresholdStep& step : source.parameter->threshold->steps) {
        const double y = m_graph.yOf(index, step.value * source.factor + source.offset);
        if (y > area.top() && y < area.bottom())
            m_pen.line(area.left(), y, area.right(), y, withAlpha(QColor(step.grade.color), 160));
    }
}

} // namespace KOLT
