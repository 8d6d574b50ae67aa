#pragma once

#include "analysis/NoteMark.h"
#include "graph/GraphSettings.h"
#include "graph/GraphTrace.h"
#include "profile/ProfileParameter.h"

#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <vector>

namespace KOLT {

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
    double lineHeight = 16.0;
    double characterWidth = 7.3;

    double widthOf(const QString& text) const
    {
        return static_cast<double>(text.size()) * characterWidth;
    }

    /// Number of characters that fit into a width.
    int charactersIn(double width) const
    {
        return static_cast<int>(std::max(width / characterWidth, 0.0));
    }
};

/// Two times in seconds on the unit's counter.
struct TimeRange
{
    double start = 0.0;
    double end = 0.0;

    double length() const { return end - start; }

    TimeRange ordered() const { return {std::min(start, end), std::max(start, end)}; }

    bool operator==(const TimeRange&) const = default;
};

struct GraphCursor
{
    double time = 0.0;
    double value = 0.0;
    int trace = 0;       ///< the selected trace: the one whose band the cursor is in
    bool isHeld = false; ///< by the user; the replay does not move it
};

/// The state of the oscilloscope, without drawing or input: traces, visible time window, scales,
/// cursor and markers. Coordinates are pixels with the origin at the lower left corner.
///
/// Functions ignore indices of traces that are out of range.
class Graph
{
public:
    static constexpr int maxTraces = 50;
    /// Least room for the value axis and the handles; large fonts need more, see plotLeft().
    static constexpr double leftMargin = 74.0;
    static constexpr double rightMargin = 8.0;
    static constexpr double bottomMargin = 20.0;
    /// Where the replay pages the window, as a part of its length from either end.
    static constexpr double pagingEdge = 0.1;

    Graph() { setTraceCount(6); }

    const GraphSettings& settings() const { return m_settings; }

    /// For changing them; call rebuild() afterwards.
    GraphSettings& editSettings() { return m_settings; }

    /// Destroys all traces and makes 1 to 50 new ones.
    void setTraceCount(int count);

    int traceCount() const { return static_cast<int>(m_traces.size()); }

    /// For filling it; call rebuild() afterwards.
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

    /// Notes may come in any order; those whose time is not finite are dropped.
    void setNotes(std::vector<NoteMark> notes);

    /// In ascending order of time.
    const std::vector<NoteMark>& notes() const { return m_notes; }

    /// The notes within the window, at most one per pixel column; none if they are switched off.
    std::vector<const NoteMark*> notesInSight() const;

    /// The flag of a note hangs from the plot's upper edge, to the left of its moment.
    QRectF flagOf(const NoteMark& note) const;
    /// The note whose flag is at a point; null if there is none.
    const NoteMark* noteAt(const QPointF& point) const;

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

    /// y points up: top() is the lower edge.
    QRectF plot() const { return {m_plotLeft, bottomMargin, m_plotWidth, m_plotHeight}; }

    /// Seconds covered by one pixel of the plot.
    double pixelSeconds() const { return m_window.length() / m_plotWidth; }

    double xOf(double seconds) const
    {
        return m_plotLeft + (seconds - m_window.start) * m_plotWidth / m_window.length();
    }

    double timeAt(double x) const
    {
        return m_window.start + (x - m_plotLeft) * m_window.length() / m_plotWidth;
    }

    /// The scale of the trace's band when traces are split, the common one otherwise.
    const GraphScale& scaleOf(int trace) const
    {
        return m_settings.isSplit ? this->trace(trace).scale : m_commonScale;
    }

    const GraphScale& commonScale() const { return m_commonScale; }

    /// Bands get at least as many lines of text; those without room are scrolled. 0: all are shown.
    void setLeastBand(double lines) { m_leastBand = lines; }

    /// How many of the visible traces have room for their band, and the first one shown.
    int rowsInView() const;
    int firstRow() const;

    /// Call rebuild() afterwards.
    void setFirstRow(int row) { m_firstRow = row; }

    /// Scrolls as far as needed to bring the trace's band into view. Call rebuild() afterwards.
    void bringIntoView(int trace);
    /// The visible traces whose bands are in view.
    std::vector<int> tracesInView() const;

    /// Height of a band. Each trace in view also has a row of this height for its handle, in
    /// display order from the top of the widget.
    double bandHeight() const;
    /// The trace whose band contains y, 0 if there is none. The last visible trace has the bottom
    /// band.
    int traceAt(double y) const;
    /// Centre of the handle in a row.
    QPointF handleOf(int row) const;
    double topOfRow(int row) const;
    int rowAt(double y) const;

    /// The visible time.
    const TimeRange& window() const { return m_window; }

    /// Ignores windows that are not finite, empty or far beyond any recording.
    void setWindow(double start, double end);
    /// Keeps the window's end in automatic mode, its start otherwise.
    void setTimeSpan(double seconds);

    /// While the user pans, the replay does not move the window.
    void beginPan() { m_isPanned = true; }

    void endPan() { m_isPanned = false; }

    const GraphCursor& cursor() const { return m_cursor; }

    /// Moves the cursor to the replay time, unless the user holds it, and the window with it as the
    /// cursor mode says; in the mode "Floating" the window pages when the time comes near its ends.
    void setCursorTime(double seconds);
    /// Moves the window to where the modes "Center" and "End" want it.
    void followCursor();

    /// Moves the cursor for the user, in time only.
    void moveCursor(double seconds) { m_cursor.time = seconds; }

    /// Moves the cursor for the user; when traces are split, this selects the trace at the height.
    void placeCursor(double seconds, double y);

    void holdCursor() { m_cursor.isHeld = true; }

    void releaseCursor() { m_cursor.isHeld = false; }

    void selectTrace(int index) { m_cursor.trace = index; }

    /// Left and right marker; not ordered while the user moves them.
    const TimeRange& markers() const { return m_markers; }

    void setMarkers(double left, double right)
    {
        m_markers = {left, right};
        m_isMarkedOutside = false;
    }

    /// Sets the window to the markers; until they move, what is outside them is marked, as the band
    /// between them would tint the whole plot.
    void showMarkers();

    bool isMarkedOutside() const { return m_isMarkedOutside; }

    void orderMarkers() { m_markers = m_markers.ordered(); }

    void moveNearerMarker(double seconds);

    /// Lays out the bands, rebuilds the columns of the visible traces and scales them.
    void rebuild();

    /// Decimals of the trace's values in texts: more than the trace's own where the visible range
    /// needs them and the parameter has them.
    int shownDecimals(int index) const
    {
        return std::max(trace(index).decimals, source(index).decimals);
    }

private:
    int visibleCount() const;
    /// Of the last visible trace's band; below the plot if the bands are scrolled.
    double bottomOfBands() const;
    void layOutBands();
    void scale();
    int neededDecimals(int trace, const std::optional<std::pair<double, double>>& range) const;

    GraphSettings m_settings;
    std::vector<GraphTrace> m_traces;
    std::vector<TraceSource> m_sources;
    std::vector<EventLine> m_eventLines;
    std::vector<NoteMark> m_notes;
    TimeRange m_window{0.0, 60.0};
    bool m_isPanned = false;
    GraphCursor m_cursor;
    TimeRange m_markers;
    bool m_isMarkedOutside = false;
    double m_leastBand = 0.0; ///< in lines of text
    int m_firstRow = 0;
    double m_width = 0.0;
    double m_height = 0.0;
    GraphMetrics m_metrics;
    double m_plotLeft = leftMargin;
    double m_plotWidth = 10.0;
    double m_plotHeight = 0.0;
    GraphScale m_commonScale;
};

} // namespace KOLT
