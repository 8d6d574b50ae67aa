#include "graph/Graph.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double marginAround = 0.05; ///< margin above and below, as a part of the range

/// The range with a margin on both sides; a flat trace is centred.
std::pair<double, double> withMargin(double lowest, double highest)
{
    const double extent = highest - lowest;
    if (!std::isfinite(extent))
        return {-1.0, 1.0};
    if (extent <= 0.0) {
        const double half = std::max(std::abs(lowest) * marginAround, 1.0);
        return {lowest - half, lowest + half};
    }
    return {lowest - extent * marginAround, highest + extent * marginAround};
}

/// Both ends in ascending order and apart: an empty scale would divide by zero.
std::pair<double, double> ordered(double lower, double upper)
{
    if (lower > upper)
        std::swap(lower, upper);
    return lower < upper ? std::pair(lower, upper) : std::pair(lower - 1.0, upper + 1.0);
}

} // namespace

void Graph::setTraceCount(int count)
{
    const int wanted = std::clamp(count, 1, maxTraces);
    m_traces.clear();
    m_traces.resize(static_cast<std::size_t>(wanted));
    m_sources.assign(m_traces.size(), {});
    for (int i = 0; i < wanted; ++i)
        trace(i).setStyle(i);
    m_cursor.trace = 0;
}

void Graph::setName(int index, const QString& name, const QString& unit)
{
    if (!hasTrace(index))
        return;
    trace(index).name = name;
    trace(index).unit = unit;
}

void Graph::setVisible(int index, bool isVisible)
{
    if (!hasTrace(index))
        return;
    trace(index).isVisible = isVisible;
    if (!isVisible)
        trace(index).clear();
}

std::vector<int> Graph::visibleTraces() const
{
    std::vector<int> visible;
    for (int i = 0; i < traceCount(); ++i) {
        if (trace(i).isVisible)
            visible.push_back(i);
    }
    return visible;
}

void Graph::setSize(double width, double height)
{
    m_width = width;
    m_height = height;
    m_plotWidth = std::max(width - m_plotLeft - rightMargin, 1.0);
    m_plotHeight = std::max(height - bottomMargin, 1.0);
    layOutBands();
}

void Graph::setMetrics(const GraphMetrics& metrics)
{
    constexpr double labelCharacters = 7.0;
    constexpr double besideLabels = 23.0; // for handles and ticks
    m_metrics = metrics;
    m_plotLeft =
        std::max(leftMargin, std::ceil(besideLabels + labelCharacters * metrics.characterWidth));
    setSize(m_width, m_height);
}

int Graph::visibleCount() const
{
    return static_cast<int>(
        std::ranges::count_if(m_traces, [](const GraphTrace& trace) { return trace.isVisible; }));
}

int Graph::rowsInView() const
{
    const int all = std::max(visibleCount(), 1);
    const double least = m_leastBand * m_metrics.lineHeight;
    if (!m_settings.isSplit || !(least > 0.0) || m_plotHeight >= all * least)
        return all;
    return std::max(static_cast<int>(m_plotHeight / least), 1);
}

int Graph::firstRow() const
{
    return std::clamp(m_firstRow, 0, std::max(visibleCount() - rowsInView(), 0));
}

void Graph::bringIntoView(int index)
{
    const std::vector<int> visible = visibleTraces();
    const auto row = static_cast<int>(std::ranges::find(visible, index) - visible.begin());
    if (row < static_cast<int>(visible.size()))
        m_firstRow = std::clamp(firstRow(), row - rowsInView() + 1, row);
}

std::vector<int> Graph::tracesInView() const
{
    const std::vector<int> visible = visibleTraces();
    const auto first = visible.begin() + firstRow();
    return {first, first + std::min(rowsInView(), static_cast<int>(visible.size()))};
}

double Graph::bandHeight() const
{
    return m_plotHeight / rowsInView();
}

double Graph::bottomOfBands() const
{
    return bottomMargin + (firstRow() + rowsInView() - std::max(visibleCount(), 1)) * bandHeight();
}

int Graph::traceAt(double y) const
{
    const double height = bandHeight();
    double offset = bottomOfBands();
    for (int i = traceCount() - 1; i >= 0; --i) {
        if (!trace(i).isVisible)
            continue;
        if (y >= offset && y < offset + height)
            return i;
        offset += height;
    }
    return 0;
}

QPointF Graph::handleOf(int row) const
{
    constexpr double handleX = 10.0;
    return {handleX, topOfRow(row) - bandHeight() / 2.0};
}

double Graph::topOfRow(int row) const
{
    return m_height - bandHeight() * row;
}

int Graph::rowAt(double y) const
{
    return static_cast<int>((m_height - y) / bandHeight());
}

void Graph::setCursorTime(double seconds)
{
    if (m_cursor.isHeld)
        return;
    m_cursor.time = seconds;
    if (m_isPanned)
        return;
    if (m_settings.cursorMode != CursorMode::Floating) {
        followCursor();
        return;
    }
    const double edge = m_window.length() * pagingEdge;
    const double rest = m_window.length() * (1.0 - pagingEdge);
    if (seconds < m_window.start + edge)
        setWindow(seconds - edge, seconds + rest);
    else if (seconds > m_window.end - edge)
        setWindow(seconds - rest, seconds + edge);
}

void Graph::followCursor()
{
    if (m_settings.cursorMode == CursorMode::Floating)
        return;
    const bool isAtEnd = m_settings.cursorMode == CursorMode::End;
    const double length = m_window.length();
    const double start = m_cursor.time - length * (isAtEnd ? 1.0 - pagingEdge : 0.5);
    setWindow(start, start + length);
}

void Graph::placeCursor(double seconds, double y)
{
    m_cursor.time = seconds;
    if (m_settings.isSplit)
        m_cursor.trace = traceAt(y);
    m_cursor.value = scaleOf(m_cursor.trace).valueAt(y);
}

void Graph::moveNearerMarker(double seconds)
{
    const double middle = (m_markers.start + m_markers.end) / 2.0;
    (seconds < middle ? m_markers.start : m_markers.end) = seconds;
    m_isMarkedOutside = false;
}

void Graph::showMarkers()
{
    const TimeRange markers = m_markers.ordered();
    setWindow(markers.start, markers.end);
    m_isMarkedOutside = m_window == markers;
}

void Graph::setTimeSpan(double seconds)
{
    m_settings.timeSpan = seconds;
    if (m_settings.isAutomatic)
        setWindow(m_window.end - seconds, m_window.end);
    else
        setWindow(m_window.start, m_window.start + seconds);
}

void Graph::setWindow(double start, double end)
{
    // Outside these limits doubles lack the resolution.
    constexpr double shortest = 1e-6;
    constexpr double longest = 1e10;
    if (!std::isfinite(start) || !std::isfinite(end) || end - start < shortest ||
        std::max(std::abs(start), std::abs(end)) > longest)
        return;
    m_window = {start, end};
    rebuild();
}

void Graph::layOutBands()
{
    const double height = bandHeight();
    double offset = bottomOfBands();
    for (int i = traceCount() - 1; i >= 0; --i) {
        if (!trace(i).isVisible)
            continue;
        trace(i).scale.offset = offset;
        trace(i).scale.height = height;
        offset += height;
    }
    m_commonScale.offset = bottomMargin;
    m_commonScale.height = m_plotHeight;
}

void Graph::rebuild()
{
    layOutBands();
    for (GraphTrace& trace : m_traces) {
        if (trace.isVisible)
            trace.rebuild(m_window.start, m_window.end, pixelSeconds());
    }
    scale();
}

int Graph::neededDecimals(int index, const std::optional<std::pair<double, double>>& range) const
{
    constexpr int figures = 3; // significant digits of the range
    const ProfileParameter* const parameter = source(index).parameter;
    if (parameter == nullptr || parameter->rule != DecodingRule::Float || !range)
        return 0;
    double extent = range->second - range->first;
    if (!(extent > 0.0)) // flat: the value decides
        extent = std::abs(range->first);
    if (!(extent > 0.0) || !std::isfinite(extent))
        return 0;
    const int needed = figures - 1 - static_cast<int>(std::floor(std::log10(extent)));
    return std::min(needed, parameter->precision);
}

void Graph::scale()
{
    const auto fixed = ordered(m_settings.yMinimum, m_settings.yMaximum);
    RangePyramid::Range all;
    for (int i = 0; i < traceCount(); ++i) {
        GraphScale& own = trace(i).scale;
        std::tie(own.lower, own.upper) = fixed;
        const auto range = trace(i).isVisible ? trace(i).visibleRange() : std::nullopt;
        source(i).decimals = neededDecimals(i, range);
        if (!m_settings.isAutoscaled || !range)
            continue;
        std::tie(own.lower, own.upper) = withMargin(range->first, range->second);
        all.add(range->first);
        all.add(range->second);
    }
    std::tie(m_commonScale.lower, m_commonScale.upper) =
        m_settings.isAutoscaled && !all.isEmpty() ? withMargin(all.lowest, all.highest) : fixed;
}

} // namespace KOLT
