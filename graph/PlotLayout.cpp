#include "graph/PlotLayout.h"

#include "graph/GraphTexts.h"

#include <QCoreApplication>

#include <algorithm>
#include <span>

namespace KOLT {

namespace {

constexpr double eventDepth = 15.0; ///< of an event's number below the plot's top
constexpr double aroundCursorText = 15.0;

} // namespace

PlotLayout::PlotLayout(const Graph& graph)
    : m_graph(graph)
    , m_line(graph.metrics().lineHeight)
    , m_plot(graph.plot())
    , m_visible(graph.visibleTraces())
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
    if (settings.hasStatistic && graph.markers().ordered().length() > 0.0 && !m_visible.empty())
        layOutPanel();
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

bool PlotLayout::hasStrip(double height) const
{
    return height > m_strip + 1.5 * m_line;
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

double PlotLayout::cursorWidthAt(double y) const
{
    return y < m_plot.top() + 1.5 * m_line ? m_cursorWidth : 0.0;
}

double PlotLayout::rightOfTexts(double y) const
{
    const bool isBeside = y + m_line / 2.0 > m_panel.top() && y - m_line / 2.0 < m_panel.bottom();
    return (isBeside ? m_panel.left() - panelPadding : m_plot.right()) - cursorWidthAt(y);
}

std::size_t PlotLayout::rowsBelow(double y, std::size_t rows) const
{
    return fitting(rows, y - m_plot.top() - (m_cursorWidth > 0.0 ? m_line : 0.0));
}

std::size_t PlotLayout::fitting(std::size_t rows, double height) const
{
    const auto lines = static_cast<std::size_t>(std::max(height / m_line, 1.0));
    return rows <= lines ? rows : lines - 1;
}

QString PlotLayout::moreText(std::size_t count)
{
    const int n = static_cast<int>(count);
    return QCoreApplication::translate("KOLT::GraphScene", "... and %n more", nullptr, n);
}

void PlotLayout::layOutPanel()
{
    const GraphMetrics& metrics = m_graph.metrics();
    QString heading =
        QCoreApplication::translate("KOLT::GraphScene", "Between the markers: min, max, mean");
    if (metrics.widthOf(heading) > m_plot.width() - 4.0 * panelPadding)
        heading = heading.section(QStringLiteral(": "), -1);
    m_panelLines = {heading};
    // The panel lies above the line of the cursor's text.
    const double height = m_plot.height() - 2.0 * m_line - 3.0 * panelPadding;
    const std::size_t shown = fitting(m_visible.size(), height);
    const int longest = std::max(metrics.charactersIn(m_plot.width() / 2.0 - 3.0 * panelPadding),
                                 static_cast<int>(heading.size()));
    const TimeRange markers = m_graph.markers().ordered();
    for (const int index : std::span(m_visible).first(shown))
        m_panelLines << statisticText(m_graph, index, markers.start, markers.end, longest);
    if (shown < m_visible.size())
        m_panelLines << moreText(m_visible.size() - shown);
    double width = 0.0;
    for (const QString& line : m_panelLines)
        width = std::max(width, metrics.widthOf(line) + 2.0 * panelPadding);
    m_panel = {m_plot.right() - width - panelPadding, m_plot.top() + m_line + panelPadding, width,
               m_line * static_cast<double>(m_panelLines.size()) + panelPadding};
}

} // namespace KOLT
