#pragma once

#include "graph/Graph.h"

#include <QPointF>

#include <optional>
#include <vector>

namespace KOLT {

/// One report of a user action, to be sent as a signal of the widget.
struct GraphSignal
{
    enum class Kind { Cursor, MoveCursorFinished, Marker, ManMode, MoveParameter };

    Kind kind = Kind::Cursor;
    double first = 0.0;  ///< time, left marker, or index of the dragged trace
    double second = 0.0; ///< value, right marker, or target row

    bool operator==(const GraphSignal&) const = default;
};

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

    std::vector<GraphSignal> reports; ///< in the order in which to send them
    bool isHandled = true;            ///< if false, the key belongs to the base class
    bool needsRepaint = false;
    Hold hold = Hold::Unchanged;
    bool hasZoomed = false; ///< the user changed the span
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
    void setExtent(double first, double last)
    {
        m_first = first;
        m_last = last;
    }

    GraphResponse keyPress(int key, Qt::KeyboardModifiers modifiers);
    GraphResponse mousePress(Qt::MouseButton button, const QPointF& place,
                             Qt::KeyboardModifiers modifiers);
    GraphResponse mouseMove(const QPointF& place, Qt::KeyboardModifiers modifiers);
    GraphResponse mouseRelease(Qt::MouseButton button);
    /// Zooms about the time at x, as the window may have moved since the last mouse move.
    GraphResponse wheel(int angleDelta, double x, Qt::KeyboardModifiers modifiers);

    bool isMeasuring() const { return m_isLeftHeld && !m_dragged; }

    std::optional<int> hoveredTrace() const { return m_hovered; }

    std::optional<int> draggedTrace() const { return m_dragged; }

    int targetRow() const { return m_targetRow; }

    /// How far the dragged label has moved up, in pixels.
    double dragOffset() const { return m_dragOffset; }

private:
    struct Pan
    {
        double x = 0.0;
        double start = 0.0;
        double end = 0.0;
    };

    void placeCursor(const QPointF& place);
    void holdForAWhile(GraphResponse& response);
    void moveNearerMarker(double seconds);
    std::optional<int> handleAt(const QPointF& place) const;
    void beginPan(double x);
    void endPan();
    void pan(double x, GraphResponse& response);
    GraphSignal cursor() const;
    GraphSignal markers() const;
    bool moveCursorByKey(int key, double pixels);
    GraphResponse goTo(double seconds);

    Graph& m_graph;
    double m_first = 0.0;
    double m_last = 0.0;
    bool m_isLeftHeld = false;
    bool m_isMiddleHeld = false;
    std::optional<Pan> m_pan;
    std::optional<int> m_hovered;
    std::optional<int> m_dragged;
    int m_targetRow = 0;
    double m_pressY = 0.0;
    double m_dragOffset = 0.0;
};

} // namespace KOLT
