#include "graph/PlotLayout.h"

#include "graph/GraphTexts.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr double eventDepth = 15.0; ///< of an event's number below the plot's top
constexpr double aroundCursorText = 15.0;

} // namespace

PlotLayout::PlotLayout(const Graph& graph)
    : m_graph(graph)
    , m_line(graph.metrics().lineHeight)
    , m_plot(graph.plot())
    , m_traces(graph.tracesInView())
    , m_ticks(KOLT::timeTicks(graph.window().start, graph.window().end, graph.plotWidth()))
    , m_labels(timeLabelsOf(m_ticks, graph.window().start, graph.pixelSeconds(),
                            graph.width() - graph.plotLeft(), graph.metrics().characterWidth))
{
    // Kept even while events or the cursor are out of sight, so that texts do not jump.
    const GraphSettings& settings = graph.settings();
    if (settings.hasEvents && !graph.eventLines().empty()) {
        m_events = graph.eventsInSight();
        m_strip = std::max(eventDepth, m_line / 2.0) + m_line / 2.0;
    }
    if (settings.hasCursor)
        m_cursorWidth =
            graph.metrics().widthOf(cursorText(graph.cursor().time, graph.cursor().value)) +
            aroundCursorText;
}

QRectF PlotLayout::bandOf(int trace) const
{
    const GraphScale& scale = m_graph.scaleOf(trace);
    return {m_plot.left(), scale.offset, m_plot.width(), scale.height};
}

bool PlotLayout::hasLegendInBands() const
{
    return m_graph.settings().isSplit && m_graph.bandHeight() >= m_line;
}

bool PlotLayout::hasTwoLines(const QRectF& area) const
{
    return topOfTexts(area) - bottomOfTexts(area) >= 2.0 * m_line;
}

bool PlotLayout::hasStrip(double height) const
{
    return height >= m_strip + 2.0 * m_line;
}

double PlotLayout::eventNumberY() const
{
    // Beside the legend if bands are too low for a strip.
    const bool isStrip = hasStrip(hasLegendInBands() ? m_graph.bandHeight() : m_plot.height());
    return m_plot.bottom() + m_line / 2.0 - (isStrip ? m_strip : m_line);
}

double PlotLayout::topOfTexts(const QRectF& area) const
{
    const bool isTop = area.bottom() > m_plot.bottom() - 1.0;
    return isTop && hasStrip(area.height()) ? area.bottom() - m_strip : area.bottom();
}

double PlotLayout::bottomOfTexts(const QRectF& area) const
{
    return std::max(area.top(), m_plot.top() + (m_labels.decimals > 0 ? m_line : 0.0));
}

double PlotLayout::cursorWidthAt(double y) const
{
    return y < bottomOfTexts(m_plot) + 1.5 * m_line ? m_cursorWidth : 0.0;
}

std::size_t PlotLayout::rowsBelow(double y, std::size_t rows) const
{
    const double height = y - bottomOfTexts(m_plot) - (m_cursorWidth > 0.0 ? m_line : 0.0);
    const auto lines = static_cast<std::size_t>(std::max(height / m_line, 1.0));
    return rows <= lines ? rows : lines - 1;
}

} // namespace KOLT
