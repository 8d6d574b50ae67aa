#pragma once

#include "graph/GraphTrace.h"
#include "profile/ProfileParameter.h"

#include <algorithm>
#include <vector>

namespace KOLT {

enum class CursorMode : int {
    Floating = 0,
    Center = 1, ///< the window stays centred on the replay time
    End = 2     ///< the window moves so that the replay time is a tenth of the span before its end
};

/// The user's settings for the graph.
struct GraphSettings
{
    double timeSpan = 60.0;  ///< seconds
    bool isSplit = true;     ///< each trace has its own band; otherwise all share one scale
    bool isAutomatic = true; ///< a new span keeps the window's end rather than its start
    CursorMode cursorMode = CursorMode::Center;
    QColor background{0x00, 0x00, 0x00};
    bool hasGrid = true;
    QColor gridColor{0xff, 0x66, 0x66};
    QColor labelColor{0x00, 0x00, 0x00};
    QColor labelBackground{0xbb, 0xbb, 0xbb};
    bool hasCursor = true;
    bool hasLegend = true;
    bool isAutoscaled = true;
    double yMinimum = -100.0; ///< the scale without autoscale
    double yMaximum = 100.0;
    bool hasThresholds = true;
    bool hasStatistic = true;
    bool hasEvents = true;
};

/// Where a trace's values come from.
struct TraceSource
{
    const ProfileParameter* parameter = nullptr; ///< null for a trace without a parameter
    double factor = 1.0;                         ///< shown value = metric value * factor + offset
    double offset = 0.0;
    int decimals = 0; ///< needed to read the visible range; set by Graph::rebuild()

    /// Whether both yield the same values; the decimals do not matter.
    bool isSame(const TraceSource& other) const
    {
        return parameter == other.parameter && factor == other.factor && offset == other.offset;
    }
};

/// A numbered event, drawn as an upright line.
struct EventLine
{
    int number = 0;
    double seconds = 0.0;
};

/// Metrics in pixels of the fixed-pitch font used for all texts.
struct GraphMetrics
{
    double rowHeight = 16.0;
    double characterWidth = 7.3;
};

/// The state of the oscilloscope, without drawing or input: traces, visible time window, scales,
/// cursor and markers. Coordinates are pixels with the origin at the lower left corner.
///
/// Setters ignore indices out of range. Public members may be changed freely; call rebuild() after
/// a change of the window, the layout or the samples.
class Graph
{
public:
    static constexpr int maxTraces = 50;
    /// Least room for the value axis and the handles; large fonts need more, see plotLeft().
    static constexpr double leftMargin = 74.0;
    static constexpr double rightMargin = 8.0;
    static constexpr double bottomMargin = 20.0;
    static constexpr double edge = 0.1; ///< part of the span at which the replay pages the window

    Graph() { setTraceCount(6); }

    GraphSettings settings;
    double windowStart = 0.0;
    double windowEnd = 60.0;
    double cursorTime = 0.0;
    double cursorValue = 0.0;
    double pointerTime = 0.0; ///< time under the mouse
    double markerLeft = 0.0;
    double markerRight = 0.0;
    bool isCursorHeld = false; ///< the user has the cursor; the replay does not move it
    bool mayPan = true;
    bool isPanned = false; ///< the user is panning
    int selectedTrace = 0; ///< the trace whose band the cursor is in

    /// Destroys all traces and makes 1 to 50 new ones.
    void setTraceCount(int count);

    int traceCount() const { return static_cast<int>(m_traces.size()); }

    GraphTrace& trace(int index) { return m_traces[static_cast<std::size_t>(index)]; }

    const GraphTrace& trace(int index) const { return m_traces[static_cast<std::size_t>(index)]; }

    TraceSource& source(int index) { return m_sources[static_cast<std::size_t>(index)]; }

    const TraceSource& source(int index) const
    {
        return m_sources[static_cast<std::size_t>(index)];
    }

    bool hasTrace(int index) const { return index >= 0 && index < traceCount(); }

    void setName(int index, const QString& name, const QString& unit);
    /// Hiding drops the trace's samples.
    void setVisible(int index, bool isVisible);
    std::vector<int> visibleTraces() const;

    /// Lines may come in any order; those whose time is not finite are dropped.
    void setEventLines(std::vector<EventLine> lines);
    void addEventLine(const EventLine& line);

    /// In ascending order of time.
    const std::vector<EventLine>& eventLines() const { return m_eventLines; }

    /// The event lines within the window, at most one per pixel column: the first of those that
    /// share it. O(columns * log events).
    std::vector<EventLine> eventsInSight() const;

    /// Size of the widget in pixels.
    void setSize(double width, double height);

    void setMetrics(const GraphMetrics& metrics);

    const GraphMetrics& metrics() const { return m_metrics; }

    double width() const { return m_width; }

    double height() const { return m_height; }

    double plotWidth() const { return m_plotWidth; }

    double plotHeight() const { return m_plotHeight; }

    double plotLeft() const { return m_plotLeft; }

    double plotRight() const { return m_plotLeft + m_plotWidth; }

    double span() const { return windowEnd - windowStart; }

    /// Seconds covered by one pixel of the plot.
    double pixelSeconds() const { return span() / m_plotWidth; }

    double xOf(double seconds) const
    {
        return m_plotLeft + (seconds - windowStart) * m_plotWidth / span();
    }

    double timeAt(double x) const { return windowStart + (x - m_plotLeft) * span() / m_plotWidth; }

    /// On the scale of the trace's band when traces are split, on the common scale otherwise.
    double yOf(int trace, double value) const;
    double valueAt(int trace, double y) const;

    /// The trace whose band contains y, 0 if there is none. The last visible trace has the bottom
    /// band.
    int traceAt(double y) const;
    /// Height of one band, and of the row of its handle. Rows are in display order from the top.
    double rowHeight() const;

    /// Moves the cursor to the replay time. Does nothing while the user holds the cursor; leaves
    /// the window alone while the user pans. True if the window moved and the columns were rebuilt.
    bool setCursorTime(double seconds);
    /// Moves the window to where the cursor mode wants it; true if it did.
    bool followCursor();
    /// Keeps the window's end in automatic mode, its start otherwise.
    void setTimeSpan(double seconds);
    /// Ignores windows that are not finite, empty or far beyond any recording.
    void setWindow(double start, double end);

    /// Lays out the bands, rebuilds the columns of the visible traces and scales them.
    void rebuild();

    /// Decimals of the trace's values in texts: more than the trace's own where the visible range
    /// needs them and the parameter has them.
    int shownDecimals(int index) const
    {
        return std::max(trace(index).decimals, source(index).decimals);
    }

    double commonLower() const { return m_commonLower; }

    double commonUpper() const { return m_commonUpper; }

private:
    void layOutBands();
    void scale();
    int neededDecimals(int trace, const std::optional<std::pair<double, double>>& range) const;
    double lowerOf(int trace) const;
    double upperOf(int trace) const;
    double offsetOf(int trace) const;
    double bandHeightOf(int trace) const;

    std::vector<GraphTrace> m_traces;
    std::vector<TraceSource> m_sources;
    std::vector<EventLine> m_eventLines;
    double m_width = 0.0;
    double m_height = 0.0;
    GraphMetrics m_metrics;
    double m_plotLeft = leftMargin;
    double m_plotWidth = 10.0;
    double m_plotHeight = 0.0;
    double m_commonLower = -0.5;
    double m_commonUpper = 1.5;
};

} // namespace KOLT
