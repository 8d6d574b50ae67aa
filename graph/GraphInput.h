#pragma once

#include "graph/Graph.h"

#include <QPointF>

#include <optional>
#include <vector>

namespace KOLT {

/// What the user did to the graph that others have to know, in the order in which it is told.
struct GraphSignal
{
    enum class Kind { Cursor, MoveCursorFinished, Marker, ManMode, MoveParameter };

    Kind kind = Kind::Cursor;
    double first = 0.0;  ///< time, left marker, or index of the dragged trace
    double second = 0.0; ///< value, right marker, or target row

    bool operator==(const GraphSignal&) const = default;
};

/// What follows from an input, for the widget to do.
struct GraphResponse
{
    /// What becomes of the user's hold on the cursor.
    enum class Hold {
        Unchanged,
        Timed, ///< the replay gets it back after a while
        Open,  ///< it stays the user's until a release
        Ended
    };

    std::vector<GraphSignal> reports;
    bool isHandled = true; ///< otherwise the key is somebody else's
    bool needsRepaint = false;
    Hold hold = Hold::Unchanged;
    bool hasZoomed = false; ///< the user chose another span
    std::optional<int> recalculations =
        std::nullopt; ///< start the timer that rebuilds, with so many repeats
};

/// Turns keys, mouse and wheel into changes of the graph. Positions are pixels from the top left,
/// as events have them.
class GraphInput
{
public:
    explicit GraphInput(Graph& graph)
        : m_graph(graph)
    {
    }

    /// First and last moment of the data, for the keys that go there.
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
    /// Zooms about the time at x: the window may have moved since the last mouse move.
    GraphResponse wheel(int angleDelta, double x, Qt::KeyboardModifiers modifiers);

    bool isMeasuring() const { return m_isLeftHeld && !m_dragged; }

    std::optional<int> hoveredTrace() const { return m_hovered; }

    std::optional<int> draggedTrace() const { return m_dragged; }

    int targetRow() const { return m_targetRow; }

    /// How far up the dragged label was moved, in pixels.
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
