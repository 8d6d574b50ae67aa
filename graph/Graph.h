#pragma once

#include "graph/GraphTrace.h"
#include "profile/ProfileParameter.h"

#include <algorithm>
#include <vector>

namespace KOLT {

enum class CursorMode : int {
    Floating = 0,
    Center = 1, ///< the window is kept centred on the replay's time
    End = 2     ///< the window is kept so that the replay's time lies a tenth before its end
};

/// What the user can set; colours as "#rrggbb" elsewhere.
struct GraphSettings
{
    double timeSpan = 60.0; ///< seconds
    bool isSplit = true;    ///< each trace in a band of its own
    bool isAutomatic = true;
    CursorMode cursorMode = CursorMode::Center;
    QColor background{0x00, 0x00, 0x00};
    bool hasGrid = true;
    QColor gridColor{0xff, 0x66, 0x66};
    QColor labelColor{0x00, 0x00, 0x00};
    QColor labelBackground{0xbb, 0xbb, 0xbb};
    bool hasCursor = true;
    bool hasLegend = true;
    bool isAutoscaled = true;
    double yMinimum = -100.0;
    double yMaximum = 100.0;
    bool hasThresholds = true;
    bool hasStatistic = true;
    bool hasEvents = true;
};

/// What a trace is of, where it comes from a profile.
struct TraceSource
{
    const ProfileParameter* parameter = nullptr; ///< null for a bare trace
    double factor = 1.0; ///< from metric to shown values: value * factor + offset
    double offset = 0.0;
    int decimals = 0; ///< that the visible range needs; set by rebuilding

    /// Whether it is the same apart from how it is shown.
    bool isSame(const TraceSource& other) const
    {
        return parameter == other.parameter && factor == other.factor && offset == other.offset;
    }
};

struct EventLine
{
    int number = 0;
    double seconds = 0.0;
};

/// Of the fixed-pitch font of all texts, in pixels.
struct GraphMetrics
{
    double rowHeight = 16.0;
    double characterWidth = 7.3;
};

/// The oscilloscope without its drawing: traces, the visible window, scales, cursor and markers, in
/// pixels with the origin at the lower left corner.
///
/// Indices out of range are ignored. Public data may be changed freely; call rebuild() when the
/// window, the layout or the samples changed.
class Graph
{
public:
    static constexpr int maxTraces = 50;
    /// Room for the value axis and the handles; a large font takes more, see plotLeft().
    static constexpr double leftMargin = 74.0;
    static constexpr double rightMargin = 8.0;
    static constexpr double bottomMargin = 20.0;
    static constexpr double edge = 0.1; ///< of the span: where the replay moves the window on

    Graph() { setTraceCount(6); }

    GraphSettings settings;
    double windowStart = 0.0;
    double windowEnd = 60.0;
    double cursorTime = 0.0;
    double cursorValue = 0.0;
    double pointerTime = 0.0; ///< under the mouse
    double markerLeft = 0.0;
    double markerRight = 0.0;
    bool isCursorHeld = false; ///< by the user; the replay does not move it
    bool mayPan = true;
    bool isPanned = false; ///< by the user, right now
    int selectedTrace = 0; ///< in whose band the cursor is

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

    /// In any order; what has no time is left out.
    void setEventLines(std::vector<EventLine> lines);
    void addEventLine(const EventLine& line);

    /// By ascending time.
    const std::vector<EventLine>& eventLines() const { return m_eventLines; }

    /// At most one for each column of pixels, the first of those that share it. Costs O(columns),
    /// whatever their number.
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

    /// Seconds of one pixel of the plot.
    double pixelSeconds() const { return span() / m_plotWidth; }

    double xOf(double seconds) const
    {
        return m_plotLeft + (seconds - windowStart) * m_plotWidth / span();
    }

    double timeAt(double x) const { return windowStart + (x - m_plotLeft) * span() / m_plotWidth; }

    /// In the band of the trace, or in the common scale when traces are not split.
    double yOf(int trace, double value) const;
    double valueAt(int trace, double y) const;

    /// The trace whose band holds the height; 0 when none does. The last visible trace has the
    /// bottom band.
    int traceAt(double y) const;
    /// Height of a row of the legend handles, which stand in display order from the top.
    double rowHeight() const;

    /// The replay's clock. With the cursor held by the user nothing moves, and while the user pans
    /// the window stays. True when the window moved and the columns were rebuilt.
    bool setCursorTime(double seconds);
    /// Moves the window to where the mode wants the cursor in it; true when it did.
    bool followCursor();
    /// Keeps the window's end in automatic mode, its start otherwise.
    void setTimeSpan(double seconds);
    void setWindow(double start, double end);

    /// Lays out the bands, rebuilds the columns of the visible traces and scales.
    void rebuild();

    /// Of the trace's values in texts: those of the trace, more where the visible range needs them
    /// and the parameter has them.
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
