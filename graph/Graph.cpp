#include "graph/Graph.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double roomAround = 0.05; ///< margin above and below, as a part of the range

/// The range with a margin on both sides; a flat trace is centred.
std::pair<double, double> withRoom(double lowest, double highest)
{
    const double extent = highest - lowest;
    if (!std::isfinite(extent))
        return {-1.0, 1.0};
    if (extent <= 0.0) {
        const double half = std::max(std::abs(lowest) * roomAround, 1.0);
        return {lowest - half, lowest + half};
    }
    return {lowest - extent * roomAround, highest + extent * roomAround};
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
        trace(i).color = GraphTrace::defaultColor(i);
    selectedTrace = 0;
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

void Graph::setEventLines(std::vector<EventLine> lines)
{
    std::erase_if(lines, [](const EventLine& line) { return !std::isfinite(line.seconds); });
    std::ranges::stable_sort(lines, {}, &EventLine::seconds);
    m_eventLines = std::move(lines);
}

void Graph::addEventLine(const EventLine& line)
{
    if (std::isfinite(line.seconds))
        m_eventLines.insert(
            std::ranges::upper_bound(m_eventLines, line.seconds, {}, &EventLine::seconds), line);
}

std::vector<EventLine> Graph::eventsInSight() const
{
    const auto columnOf = [this](const EventLine& line) { return std::floor(xOf(line.seconds)); };
    std::vector<EventLine> found;
    auto line = std::ranges::lower_bound(m_eventLines, windowStart, {}, &EventLine::seconds);
    while (line != m_eventLines.end() && line->seconds <= windowEnd) {
        found.push_back(*line);
        line = std::ranges::upper_bound(line, m_eventLines.end(), columnOf(*line), {}, columnOf);
    }
    return found;
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

double Graph::lowerOf(int index) const
{
    return settings.isSplit ? trace(index).lower : m_commonLower;
}

double Graph::upperOf(int index) const
{
    return settings.isSplit ? trace(index).upper : m_commonUpper;
}

double Graph::offsetOf(int index) const
{
    return settings.isSplit ? trace(index).bandOffset : bottomMargin;
}

double Graph::bandHeightOf(int index) const
{
    return settings.isSplit ? trace(index).bandHeight : m_plotHeight;
}

double Graph::yOf(int index, double value) const
{
    return offsetOf(index) +
           (value - lowerOf(index)) * bandHeightOf(index) / (upperOf(index) - lowerOf(index));
}

double Graph::valueAt(int index, double y) const
{
    const double height = bandHeightOf(index);
    if (height <= 0.0)
        return lowerOf(index);
    return lowerOf(index) + (y - offsetOf(index)) * (upperOf(index) - lowerOf(index)) / height;
}

int Graph::traceAt(double y) const
{
    const double height = rowHeight();
    double offset = bottomMargin;
    for (int i = traceCount() - 1; i >= 0; --i) {
        if (!trace(i).isVisible)
            continue;
        if (y >= offset && y < offset + height)
            return i;
        offset += height;
    }
    return 0;
}

double Graph::rowHeight() const
{
    const auto visible =
        std::ranges::count_if(m_traces, [](const GraphTrace& trace) { return trace.isVisible; });
    return m_plotHeight / static_cast<double>(std::max<std::ptrdiff_t>(visible, 1));
}

bool Graph::setCursorTime(double seconds)
{
    if (isCursorHeld)
        return false;
    cursorTime = seconds;
    return !isPanned && followCursor();
}

bool Graph::followCursor()
{
    if (settings.cursorMode == CursorMode::Floating)
        return false;
    const bool isAtEnd = settings.cursorMode == CursorMode::End;
    const double start = cursorTime - span() * (isAtEnd ? 1.0 - edge : 0.5);
    setWindow(start, start + span());
    return true;
}

void Graph::setTimeSpan(double seconds)
{
    settings.timeSpan = seconds;
    if (settings.isAutomatic)
        setWindow(windowEnd - seconds, windowEnd);
    else
        setWindow(windowStart, windowStart + seconds);
}

void Graph::setWindow(double start, double end)
{
    // Outside these limits doubles lack the resolution.
    constexpr double shortest = 1e-6;
    constexpr double longest = 1e10;
    if (!std::isfinite(start) || !std::isfinite(end) || end - start < shortest ||
        std::max(std::abs(start), std::abs(end)) > longest)
        return;
    windowStart = start;
    windowEnd = end;
    rebuild();
}

void Graph::layOutBands()
{
    const double height = rowHeight();
    double offset = bottomMargin;
    for (int i = traceCount() - 1; i >= 0; --i) {
        if (!trace(i).isVisible)
            continue;
        trace(i).bandOffset = offset;
        trace(i).bandHeight = height;
        offset += height;
    }
}

void Graph::rebuild()
{
    layOutBands();
    for (GraphTrace& trace : m_traces) {
        if (trace.isVisible)
            trace.rebuild(windowStart, windowEnd, pixelSeconds());
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
    const auto common = ordered(settings.yMinimum, settings.yMaximum);
    RangePyramid::Range all;
    for (int i = 0; i < traceCount(); ++i) {
        GraphTrace& trace = m_traces[static_cast<std::size_t>(i)];
        std::tie(trace.lower, trace.upper) = common;
        const auto range = trace.isVisible ? trace.visibleRange() : std::nullopt;
        source(i).decimals = neededDecimals(i, range);
        if (!settings.isAutoscaled || !range)
            continue;
        std::tie(trace.lower, trace.upper) = withRoom(range->first, range->second);
        all.add(range->first);
        all.add(range->second);
    }
    std::tie(m_commonLower, m_commonUpper) =
        settings.isAutoscaled && !all.isEmpty() ? withRoom(all.lowest, all.highest) : common;
}

} // namespace KOLT
