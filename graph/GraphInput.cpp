#include "graph/GraphInput.h"

#include "graph/WindowPlacing.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr double farStep = 10.0;       ///< pixels, with Shift
constexpr double handleReach = 1500.0; ///< squared distance in pixels
constexpr double zoomIn = 0.9;
constexpr double zoomOut = 1.1111111111111112;
constexpr int wheelRepeats = 3;

} // namespace

void GraphInput::placeCursor(const QPointF& place)
{
    m_graph.placeCursor(m_graph.timeAt(place.x()), yOf(place));
}

/// A timer ends this hold, unless the middle button is down too: then its release does.
void GraphInput::holdForAWhile(GraphResponse& response)
{
    m_graph.holdCursor();
    if (!m_isMiddleHeld)
        response.hold = GraphResponse::Hold::Timed;
}

bool GraphInput::moveCursorByKey(int key, double pixels)
{
    // Horizontal steps are pixels of the widget's whole width, not of the plot's.
    const double seconds = m_graph.window().length() / std::max(m_graph.width(), 1.0) * pixels;
    const GraphCursor& cursor = m_graph.cursor();
    const double y = m_graph.scaleOf(cursor.trace).yOf(cursor.value);
    switch (key) {
    case Qt::Key_Left:
        m_graph.moveCursor(cursor.time - seconds);
        return true;
    case Qt::Key_Right:
        m_graph.moveCursor(cursor.time + seconds);
        return true;
    case Qt::Key_Up:
        m_graph.placeCursor(cursor.time, y + pixels);
        return true;
    case Qt::Key_Down:
        m_graph.placeCursor(cursor.time, y - pixels);
        return true;
    default:
        return false;
    }
}

GraphResponse GraphInput::goTo(double seconds)
{
    const double half = m_graph.window().length() / 2.0;
    m_graph.moveCursor(seconds);
    m_graph.setWindow(seconds - half, seconds + half);
    GraphResponse response{{cursor()}};
    response.needsRepaint = true;
    return response;
}

GraphResponse GraphInput::keyPress(int key, Qt::KeyboardModifiers modifiers)
{
    const double pixels = modifiers.testFlag(Qt::ShiftModifier) ? farStep : 1.0;
    GraphResponse response;
    response.needsRepaint = true;
    if (moveCursorByKey(key, pixels)) {
        holdForAWhile(response);
        response.reports.emplace_back(cursor());
        return response;
    }
    const TimeRange window = m_graph.window();
    switch (key) {
    case Qt::Key_F:
        m_graph.editSettings().isAutomatic = false;
        if (const auto whole = wholeWindow(m_extent))
            m_graph.setWindow(whole->start, whole->end);
        m_graph.editSettings().timeSpan = m_graph.window().length();
        m_graph.editSettings().isWhole = true;
        response.hasZoomed = true;
        response.reports.emplace_back(ManualModeReport());
        return response;
    case Qt::Key_Home:
        return goTo(m_extent.start);
    case Qt::Key_End:
        return goTo(m_extent.end);
    case Qt::Key_M:
        m_graph.setMarkers(window.start + window.length() / 4.0,
                           window.end - window.length() / 4.0);
        response.reports.emplace_back(markers());
        response.hasMeasured = true;
        return response;
    default:
        response.isHandled = false;
        return response;
    }
}

std::optional<int> GraphInput::handleAt(const QPointF& place) const
{
    std::optional<int> found;
    int row = 0;
    for (const int index : m_graph.tracesInView()) {
        const QPointF offset = QPointF(place.x(), yOf(place)) - m_graph.handleOf(row++);
        if (QPointF::dotProduct(offset, offset) < handleReach)
            found = index;
    }
    return found;
}

GraphResponse GraphInput::mousePress(Qt::MouseButton button, const QPointF& place,
                                     Qt::KeyboardModifiers modifiers)
{
    GraphResponse response;
    const double seconds = m_graph.timeAt(place.x());
    switch (button) {
    case Qt::LeftButton:
        m_isLeftHeld = true;
        m_dragged = handleAt(place);
        if (m_dragged) {
            // Dragging a handle leaves cursor and markers alone.
            m_pressY = place.y();
            m_dragOffset = 0.0;
            // The handle's own row rather than the pointer's: handles of low rows overlap.
            const std::vector<int> rows = m_graph.tracesInView();
            m_targetRow = static_cast<int>(std::ranges::find(rows, *m_dragged) - rows.begin());
        } else if (const NoteMark* const note = noteAt(place)) {
            m_isLeftHeld = false; // the markers stay, whatever follows
            holdForAWhile(response);
            m_graph.moveCursor(note->seconds);
            response.reports.emplace_back(cursor());
        } else if (modifiers.testFlag(Qt::ShiftModifier)) {
            m_graph.moveNearerMarker(seconds);
            response.reports.emplace_back(markers());
            beginPan(place.x());
        } else if (modifiers.testFlag(Qt::ControlModifier)) {
            holdForAWhile(response);
            placeCursor(place);
            response.reports.emplace_back(cursor());
        } else {
            m_graph.setMarkers(seconds, seconds);
            response.reports.emplace_back(markers());
        }
        break;
    case Qt::MiddleButton:
        m_isMiddleHeld = true;
        m_graph.holdCursor();
        response.hold = GraphResponse::Hold::Open;
        placeCursor(place);
        response.reports.emplace_back(cursor());
        break;
    case Qt::RightButton:
        beginPan(place.x());
        break;
    default:
        response.isHandled = false;
        return response;
    }
    response.needsRepaint = true;
    return response;
}

void GraphInput::beginPan(double x)
{
    m_pan = Pan{x, m_graph.window()};
    m_graph.beginPan();
}

void GraphInput::endPan()
{
    m_pan.reset();
    m_graph.endPan();
}

void GraphInput::pan(double x, GraphResponse& response)
{
    m_graph.editSettings().isAutomatic = false;
    const double shift = (m_pan->x - x) * m_graph.pixelSeconds();
    m_graph.setWindow(m_pan->window.start + shift, m_pan->window.end + shift);
    response.reports.emplace_back(ManualModeReport());
    response.needsRepaint = true;
}

GraphResponse GraphInput::mouseMove(const QPointF& place, Qt::KeyboardModifiers modifiers)
{
    GraphResponse response;
    if (m_dragged) {
        m_targetRow = m_graph.rowAt(yOf(place));
        m_dragOffset = m_pressY - place.y();
        response.needsRepaint = true;
        return response;
    }
    const std::optional<int> hovered = handleAt(place);
    response.needsRepaint = hovered != m_hovered;
    m_hovered = hovered;
    const bool isControl = modifiers.testFlag(Qt::ControlModifier);
    if (m_isLeftHeld && !isControl) {
        placeCursor(place);
        m_graph.moveNearerMarker(m_graph.timeAt(place.x()));
        response.needsRepaint = true;
        response.reports.insert(response.reports.end(), {markers(), cursor(), markers()});
    } else if (m_isMiddleHeld || m_isLeftHeld) {
        if (m_isLeftHeld)
            holdForAWhile(response);
        placeCursor(place);
        response.needsRepaint = true;
        response.reports.emplace_back(cursor());
    }
    if (m_pan)
        pan(place.x(), response);
    return response;
}

GraphResponse GraphInput::mouseRelease(Qt::MouseButton button)
{
    GraphResponse response;
    response.needsRepaint = true;
    switch (button) {
    case Qt::LeftButton:
        if (m_dragged)
            response.reports.emplace_back(
                TraceMovedReport{*m_dragged, m_graph.firstRow() + m_targetRow});
        m_dragged.reset();
        m_dragOffset = 0.0;
        m_graph.orderMarkers();
        m_isLeftHeld = false;
        response.hasMeasured = true;
        endPan();
        break;
    case Qt::MiddleButton:
        m_isMiddleHeld = false;
        m_graph.releaseCursor();
        response.hold = GraphResponse::Hold::Ended;
        response.reports.emplace_back(CursorFinishedReport());
        break;
    case Qt::RightButton:
        m_graph.rebuild();
        response.recalculations = 0;
        endPan();
        break;
    default:
        response.isHandled = false;
        break;
    }
    return response;
}

GraphResponse GraphInput::wheel(int angleDelta, double x, Qt::KeyboardModifiers modifiers)
{
    GraphResponse response;
    if (modifiers.testFlag(Qt::ShiftModifier) || angleDelta == 0) // turned sideways
        return response;
    const double factor = angleDelta >= 1 ? zoomIn : zoomOut;
    const double h = m_graph.timeAt(x);
    const TimeRange window = m_graph.window();
    m_graph.setWindow(h - (h - window.start) * factor, h - (h - window.end) * factor);
    m_graph.editSettings().timeSpan = m_graph.window().length();
    m_graph.editSettings().isWhole = false;
    response.needsRepaint = true;
    response.hasZoomed = true;
    response.recalculations = wheelRepeats;
    return response;
}

} // namespace KOLT
