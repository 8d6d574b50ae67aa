#include "graph/GraphScene.h"

#include "graph/GraphTexts.h"
#include "graph/GraphTicks.h"
#include "graph/ScenePen.h"
#include "graph/TraceDrawing.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double longTick = 8.0;
constexpr double shortTick = 4.0;
constexpr double valueSpacing = 28.0;
constexpr double legendHeight = 16.0;
constexpr double characterWidth = 7.3; ///< of the fixed-pitch font, for the plates behind texts
constexpr int plateAlpha = 170;
constexpr double handleX = 10.0;
constexpr float gridWidth = 1.2F;
constexpr int gridAlpha = 178; ///< 0.7
constexpr QColor markerColor(255, 255, 0, 77);
constexpr QColor eventColor(0, 153, 153);
constexpr QColor dragColor(0, 255, 255);
constexpr QColor hoverColor(255, 128, 0);
constexpr QColor cursorColor(128, 128, 128);
constexpr QColor panelColor(255, 255, 255, 215);

QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

/// Puts the parts of a frame together.
class SceneBuilder
{
public:
    SceneBuilder(const Graph& graph, const GraphInput& input, double pixelRatio)
        : m_graph(graph)
        , m_input(input)
        , m_pixelRatio(pixelRatio)
        , m_plot(Graph::leftMargin, Graph::bottomMargin, graph.plotWidth(), graph.plotHeight())
    {
    }

    GraphScene build()
    {
        const GraphSettings& settings = m_graph.settings;
        // The plot is by far the larger part, and clearing costs less than filling.
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
        // Below the traces: a plate must not hide any of them.
        if (settings.hasLegend)
            legend(visible);
        for (const int index : visible)
            band(index);
        markers();
        events();
        if (settings.hasCursor)
            cursor();
        if (settings.hasStatistic)
            statistic(visible);
        handles(visible);
        return std::move(m_scene); // the builder is used up
    }

private:
    void margins()
    {
        const QColor& color = m_graph.settings.labelBackground;
        const double right = m_graph.width();
        m_pen.quad({0.0, 0.0, right, m_plot.top()}, color);
        m_pen.quad({0.0, m_plot.top(), m_plot.left(), m_plot.height()}, color);
        if (m_plot.right() < right)
            m_pen.quad({m_plot.right(), m_plot.top(), right - m_plot.right(), m_plot.height()},
                       color);
        if (m_plot.bottom() < m_graph.height())
            m_pen.quad({0.0, m_plot.bottom(), right, m_graph.height() - m_plot.bottom()}, color);
    }

    void text(double x, double y, Qt::Alignment alignment, const QString& content,
              const QColor& color)
    {
        m_scene.texts.push_back({x, y, alignment, content, color});
    }

    /// A text in the plot, on a plate that keeps it legible above the grid.
    void plotText(double x, double y, Qt::Alignment alignment, const QString& content,
                  const QColor& color)
    {
        const double width = static_cast<double>(content.size()) * characterWidth;
        const double left = alignment.testFlag(Qt::AlignRight) ? x - width : x;
        m_pen.quad({left - 2.0, y - legendHeight / 2.0, width + 4.0, legendHeight},
                   withAlpha(m_graph.settings.background, plateAlpha));
        text(x, y, alignment, content, legible(color));
    }

    /// Dark colours are lightened on a dark plot, and pale ones darkened on a pale one.
    QColor legible(const QColor& color) const
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

    QRectF bandRect(int index) const
    {
        const GraphTrace& trace = m_graph.trace(index);
        return m_graph.settings.isSplit
                   ? QRectF(m_plot.left(), trace.bandOffset, m_plot.width(), trace.bandHeight)
                   : m_plot;
    }

    void valueAxis(const QRectF& area, double lower, double upper, int decimals,
                   const QColor& color)
    {
        const std::vector<double> ticks = valueTicks(lower, upper, area.height(), valueSpacing);
        const auto yOf = [&](double value) {
            return area.top() + (value - lower) * area.height() / (upper - lower);
        };
        if (m_graph.settings.hasGrid) {
            GraphScene::Figure& grid =
                m_pen.begin(GraphScene::Kind::Lines,
                            withAlpha(m_graph.settings.gridColor, gridAlpha / 2), gridWidth);
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
        for (const double tick : ticks)
            text(
                area.left() - shortTick - 2.0,
                std::min(yOf(tick), m_graph.height() - legendHeight / 2.0), Qt::AlignRight,
                QString::asprintf("%.*f", ticks.size() >= 2 ? std::min(needed, 9) : decimals, tick),
                color);
    }

    void timeGrid()
    {
        const std::vector<GraphTick> ticks =
            timeTicks(m_graph.windowStart, m_graph.windowEnd, m_graph.plotWidth());
        if (m_graph.settings.hasGrid) {
            GraphScene::Figure& grid =
                m_pen.begin(GraphScene::Kind::Lines,
                            withAlpha(m_graph.settings.gridColor, gridAlpha), gridWidth);
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
            m_pen.vertex(m_graph.xOf(tick.value),
                         m_plot.top() - (tick.isMajor ? longTick : shortTick));
        }
        m_pen.end();
        for (const GraphTick& tick : ticks) {
            if (tick.isMajor)
                text(m_graph.xOf(tick.value) + 3.0, Graph::bottomMargin / 2.0 - 2.0, Qt::AlignLeft,
                     timeTickText(tick.value), m_graph.settings.labelColor);
        }
    }

    void band(int index)
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
        if (m_graph.settings.isSplit && m_graph.settings.hasLegend)
            scaleLabel(index, area);
        drawTrace(m_scene, m_graph, index, area, m_pixelRatio);
    }

    /// The ends of the band's scale, where the legend leaves room for it.
    void scaleLabel(int index, const QRectF& area)
    {
        const GraphTrace& trace = m_graph.trace(index);
        const QString label = scaleText(m_graph, index);
        const QString beside = legendText(m_graph, index, m_graph.cursorTime);
        constexpr double apart = 40.0;
        if (static_cast<double>(label.size() + beside.size()) * characterWidth + apart <
            area.width())
            plotText(area.right() - 4.0, area.bottom() - legendHeight / 2.0, Qt::AlignRight, label,
                     trace.color);
    }

    void thresholds(int index, const QRectF& area)
    {
        const TraceSource& source = m_graph.source(index);
        if (source.parameter == nullptr || source.parameter->threshold == nullptr)
            return;
        for (const ThresholdStep& step : source.parameter->threshold->steps) {
            const double y = m_graph.yOf(index, step.value * source.factor + source.offset);
            if (y > area.top() && y < area.bottom())
                m_pen.line(area.left(), y, area.right(), y,
                           withAlpha(QColor(step.grade.color), 160));
        }
    }

    void markers()
    {
        const double left =
            std::clamp(m_graph.xOf(std::min(m_graph.markerLeft, m_graph.markerRight)),
                       m_plot.left(), m_plot.right());
        const double right =
            std::clamp(m_graph.xOf(std::max(m_graph.markerLeft, m_graph.markerRight)),
                       m_plot.left(), m_plot.right());
        if (right > left)
            m_pen.quad({left, m_plot.top(), right - left, m_plot.height()}, markerColor);
        if (m_input.isMeasuring()) {
            const int index = m_graph.selectedTrace;
            text(m_graph.xOf(m_graph.cursorTime) + 5.0,
                 m_graph.yOf(index, m_graph.cursorValue) + 5.0 + legendHeight / 2.0, Qt::AlignLeft,
                 QStringLiteral("dt = %1 s").arg(m_graph.markerRight - m_graph.markerLeft),
                 legible(Qt::black));
        }
    }

    void events()
    {
        for (const EventLine& event : m_graph.eventLines) {
            const double x = m_graph.xOf(event.seconds);
            if (x < m_plot.left() || x > m_plot.right())
                continue;
            m_pen.line(x, m_plot.top(), x, m_plot.bottom(), withAlpha(eventColor, 102));
            text(x + 5.0, m_plot.bottom() - 15.0, Qt::AlignLeft, QString::number(event.number),
                 eventColor);
        }
    }

    void cursor()
    {
        const double x = m_graph.xOf(m_graph.cursorTime);
        if (x < m_plot.left() || x > m_plot.right())
            return;
        const QColor color = legible(cursorColor);
        m_pen.line(x, m_plot.top(), x, m_plot.bottom(), color);
        const double y = m_graph.yOf(m_graph.selectedTrace, m_graph.cursorValue);
        const QRectF area =
            m_graph.hasTrace(m_graph.selectedTrace) ? bandRect(m_graph.selectedTrace) : m_plot;
        if (y >= area.top() && y <= area.bottom())
            m_pen.line(m_plot.left(), y, m_plot.right(), y, withAlpha(color, 120));
        const QString label = cursorText(m_graph.cursorTime, m_graph.cursorValue);
        const double width = static_cast<double>(label.size()) * characterWidth;
        const bool isRight = x + 10.0 + width > m_plot.right();
        // In a narrow plot neither side has room: it then begins at the plot's edge.
        const double begin = isRight ? std::max(x - 5.0 - width, m_plot.left() + 2.0) : x + 5.0;
        text(begin, m_plot.top() + legendHeight / 2.0, Qt::AlignLeft, label, color);
    }

    void legend(const std::vector<int>& visible)
    {
        double y = m_plot.bottom() - legendHeight / 2.0;
        for (const int index : visible) {
            const GraphTrace& trace = m_graph.trace(index);
            if (m_graph.settings.isSplit)
                y = trace.bandOffset + trace.bandHeight - legendHeight / 2.0;
            m_pen.quad({m_plot.left() + 6.0, y - 4.0, 8.0, 8.0}, trace.color);
            plotText(m_plot.left() + 18.0, y, Qt::AlignLeft,
                     legendText(m_graph, index, m_graph.cursorTime), trace.color);
            y -= legendHeight;
        }
    }

    void statistic(const std::vector<int>& visible)
    {
        const double from = std::min(m_graph.markerLeft, m_graph.markerRight);
        const double to = std::max(m_graph.markerLeft, m_graph.markerRight);
        if (!(to > from) || visible.empty())
            return;
        QStringList lines{
            QCoreApplication::translate("KOLT::GraphScene", "Between the markers: min, max, mean")};
        for (const int index : visible)
            lines << statisticText(m_graph, index, from, to);
        const double height = legendHeight * static_cast<double>(lines.size()) + 8.0;
        constexpr double width = 330.0;
        const QRectF panel(m_plot.right() - width - 8.0, m_plot.top() + legendHeight + 8.0, width,
                           height);
        m_pen.quad(panel, panelColor);
        double y = panel.bottom() - 4.0 - legendHeight / 2.0;
        for (const QString& content : lines) {
            text(panel.left() + 8.0, y, Qt::AlignLeft, content, Qt::black);
            y -= legendHeight;
        }
    }

    void handles(const std::vector<int>& visible)
    {
        const double height = m_graph.rowHeight();
        double middle = m_graph.height() - height * 0.5;
        for (const int index : visible) {
            const bool isHovered = m_input.hoveredTrace() == index;
            const QColor color = isHovered ? hoverColor : QColor(Qt::black);
            for (const double dy : {-4.0, 0.0, 4.0})
                m_pen.line(handleX - 5.0, middle + dy, handleX + 5.0, middle + dy, color, 2.0F);
            if (m_input.draggedTrace() == index)
                text(handleX + 10.0, middle + m_input.dragOffset(), Qt::AlignLeft,
                     m_graph.trace(index).name, m_graph.settings.labelColor);
            middle -= height;
        }
        if (m_input.draggedTrace()) {
            const double y = m_graph.height() - height * m_input.targetRow();
            m_pen.line(m_plot.left(), y, m_plot.right(), y, dragColor, 5.0F);
        }
    }

    const Graph& m_graph;
    const GraphInput& m_input;
    double m_pixelRatio;
    QRectF m_plot; ///< top is its lower edge, as y goes up
    GraphScene m_scene;
    ScenePen m_pen{m_scene};
};

} // namespace

GraphScene buildScene(const Graph& graph, const GraphInput& input, double pixelRatio)
{
    return SceneBuilder(graph, input, pixelRatio).build();
}

} // namespace KOLT
