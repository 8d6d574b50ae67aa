#pragma once

#include "graph/Graph.h"

#include <QPointF>

#include <optional>
#include <variant>
#include <vector>

namespace KOLT {

/// What the user did; the widget sends each as a signal.
struct CursorReport
{
    double seconds = 0.0;
    double value = 0.0;
};

struct CursorFinishedReport
{
};

struct MarkersReport
{
    TimeRange markers;
};

/// The window left the automatic mode.
struct ManualModeReport
{
};

struct TraceMovedReport
{
    int trace = 0;
    int row = 0; ///< where it was dropped
};

using GraphReport = std::variant<CursorReport, CursorFinishedReport, MarkersReport,
                                 ManualModeReport, TraceMovedReport>;

/// What the widget has to do after an input.
struct GraphResponse
{
    /// Change of the user's hold on the cursor.
    enum class Hold {
        Unchanged,
        Timed, ///< ends after a few seconds
        Open,  ///< lasts until a release
        Ended
    };

    std::vector<GraphReport> reports; ///< in the order in which to send them
    bool isHandled = true;            ///< if false, the key belongs to the base class
    bool needsRepaint = false;
    Hold hold = Hold::Unchanged;
    bool hasZoomed = false;   ///< the user changed the span
    bool hasMeasured = false; ///< the markers are where the user wants them
    std::optional<int> recalculations =
        std::nullopt; ///< start the recalculation timer, with this many repeats
};

/// Applies key, mouse and wheel input to the graph. Positions are pixels from the top left, as in
/// Qt's events.
class GraphInput
{
public:
    explicit GraphInput(Graph& graph)
        : m_graph(graph)
    {
    }

    /// First and last time of the data, for the keys F, Home and End.
    void setExtent(double first, double last) { m_extent = {first, last}; }

    GraphResponse keyPress(int key, Qt::KeyboardModifiers modifiers);
    GraphResponse mousePress(Qt::MouseButton button, const QPointF& place,
                             Qt::KeyboardModifiers modifiers);
    GraphResponse mouseMove(const QPointF& place, Qt::KeyboardModifiers modifiers);
    GraphResponse mouseRelease(Qt::MouseButton button);
    /// Zooms about the time at x, as the window may have moved since the last mouse move.
    GraphResponse wheel(int angleDelta, double x, Qt::KeyboardModifiers modifiers);

    /// The note whose flag is at a place.
    const NoteMark* noteAt(const QPointF& place) const
    {
        return m_graph.noteAt({place.x(), yOf(place)});
    }

    bool isMeasuring() const { return m_isLeftHeld && !m_dragged; }

    std::optional<int> hoveredTrace() const { return m_hovered; }

    std::optional<int> draggedTrace() const { return m_dragged; }

    /// Of the rows in view.
    int targetRow() const { return m_targetRow; }

    /// How far the dragged label has moved up, in pixels.
    double dragOffset() const { return m_dragOffset; }

private:
    struct Pan
    {
        double x = 0.0;
        TimeRange window;
    };

    void placeCursor(const QPointF& place);
    void holdForAWhile(GraphResponse& response);
    std::optional<int> handleAt(const QPointF& place) const;

    double yOf(const QPointF& place) const { return m_graph.height() - place.y(); }

    void beginPan(double x);
    void endPan();
    void pan(double x, GraphResponse& response);

    CursorReport cursor() const { return {m_graph.cursor().time, m_graph.cursor().value}; }

    MarkersReport markers() const { return {m_graph.markers()}; }

    bool moveCursorByKey(int key, double pixels);
    GraphResponse goTo(double seconds);

    Graph& m_graph;
    TimeRange m_extent; ///< of the data
    bool m_isLeftHeld = false;
    bool m_isMiddleHeld = false;
    std::optional<Pan> m_pan;
    std::optional<int> m_hovered;
    std::optional<int> m_dragged; ///< trace
    int m_targetRow = 0;
    double m_pressY = 0.0;
    double m_dragOffset = 0.0;
};

} // namespace KOLT
