#include "graph/GraphInput.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr double farStep = 10.0; ///< pixels, with Shift
constexpr double handleX = 10.0;
constexpr double handleReach = 1500.0; ///< squared distance in pixels
constexpr double zoomIn = 0.9;
constexpr double zoomOut = 1.1111111111111112;
constexpr int wheelRepeats = 3;
constexpr double fitMargin = 0.1; ///< on each side, as a part of the data's length

} // namespace

GraphSignal GraphInput::cursor() const
{
    return {GraphSignal::Kind::Cursor, m_graph.cursorTime, m_graph.cursorValue};
}

GraphSignal GraphInput::markers() const
{
    return {GraphSignal::Kind::Marker, m_graph.markerLeft, m_graph.markerRight};
}

void GraphInput::placeCursor(const QPointF& place)
{
    const double y = m_graph.height() - place.y();
    m_graph.cursorTime = m_graph.timeAt(place.x());
    if (m_graph.settings.isSplit)
        m_graph.selectedTrace = m_graph.traceAt(y);
    m_graph.cursorValue = m_graph.valueAt(m_graph.selectedTrace, y);
}

/// A timer ends this hold, unless the middle button is down too: then its release does.
void GraphInput::holdForAWhile(GraphResponse& response)
{
    m_graph.isCursorHeld = true;
    if (!m_isMiddleHeld)
        response.hold = GraphResponse::Hold::Timed;
}

void GraphInput::moveNearerMarker(double seconds)
{
    const double middle = (m_graph.markerLeft + m_graph.markerRight) / 2.0;
    (seconds < middle ? m_graph.markerLeft : m_graph.markerRight) = seconds;
}

bool GraphInput::moveCursorByKey(int key, double pixels)
{
    // Horizontal steps are pixels of the widget's whole width, not of the plot's.
    const double seconds = m_graph.span() / std::max(m_graph.width(), 1.0) * pixels;
    double up = 0.0;
    switch (key) {
    case Qt::Key_Left:
        m_graph.cursorTime -= seconds;
        return true;
    case Qt::Key_Right:
        m_graph.cursorTime += seconds;
        return true;
    case Qt::Key_Up:
        up = pixels;
        break;
    case Qt::Key_Down:
        up = -pixels;
        break;
    default:
        return false;
    }
    const double y = m_graph.yOf(m_graph.selectedTrace, m_graph.cursorValue) + up;
    if (m_graph.settings.isSplit)
        m_graph.selectedTrace = m_graph.traceAt(y);
    m_graph.cursorValue = m_graph.valueAt(m_graph.selectedTrace, y);
    return true;
}

GraphResponse GraphInput::goTo(double seconds)
{
    const double half = m_graph.span() / 2.0;
    m_graph.cursorTime = seconds;
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
        response.reports.push_back(cursor());
        return response;
    }
    const double length = m_last - m_first;
    switch (key) {
    case Qt::Key_F:
        m_graph.settings.isAutomatic = false;
        m_graph.setWindow(m_first - length * fitMargin, m_last + length * fitMargin);
        response.hasZoomed = true;
        response.reports.push_back({GraphSignal::Kind::ManMode});
        return response;
    case Qt::Key_Home:
        return goTo(m_first);
    case Qt::Key_End:
        return goTo(m_last);
    case Qt::Key_M:
        m_graph.markerLeft = m_graph.windowStart + m_graph.span() / 4.0;
        m_graph.markerRight = m_graph.windowEnd - m_graph.span() / 4.0;
        response.reports.push_back(markers());
        return response;
    default:
        response.isHandled = false;
        return response;
    }
}

std::optional<int> GraphInput::handleAt(const QPointF& place) const
{
    std::optional<int> found;
    const double height = m_graph.rowHeight();
    double middle = height * 0.5;
    for (const int index : m_graph.visibleTraces()) {
        const double dx = place.x() - handleX;
        const double dy = place.y() - middle;
        if (dx * dx + dy * dy < handleReach)
            found = index;
        middle += height;
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
            const std::vector<int> rows = m_graph.visibleTraces();
            m_targetRow = static_cast<int>(std::ranges::find(rows, *m_dragged) - rows.begin());
        } else if (modifiers.testFlag(Qt::ShiftModifier)) {
            moveNearerMarker(seconds);
            response.reports.push_back(markers());
            beginPan(place.x());
        } else if (modifiers.testFlag(Qt::ControlModifier)) {
            holdForAWhile(response);
            placeCursor(place);
            response.reports.push_back(cursor());
        } else {
            m_graph.markerLeft = seconds;
            m_graph.markerRight = seconds;
            response.reports.push_back(markers());
        }
        break;
    case Qt::MiddleButton:
        m_isMiddleHeld = true;
        m_graph.isCursorHeld = true;
        response.hold = GraphResponse::Hold::Open;
        placeCursor(place);
        response.reports.push_back(cursor());
        break;
    case Qt::RightButton:
        if (m_graph.mayPan)
            beginPan(place.x());
        break;
    default:
        response.isHandled = false;
        return response;
    }
    response.needsRepaint = true;
    return response;
}

/// While the user pans, the replay does not move the window.
void GraphInput::beginPan(double x)
{
    m_pan = Pan{x, m_graph.windowStart, m_graph.windowEnd};
    m_graph.isPanned = true;
}

void GraphInput::endPan()
{
    m_pan.reset();
    m_graph.isPanned = false;
}

void GraphInput::pan(double x, GraphResponse& response)
{
    m_graph.settings.isAutomatic = false;
    const double shift = (m_pan->x - x) * m_graph.pixelSeconds();
    m_graph.setWindow(m_pan->start + shift, m_pan->end + shift);
    response.reports.push_back({GraphSignal::Kind::ManMode});
    response.needsRepaint = true;
}

GraphResponse GraphInput::mouseMove(const QPointF& place, Qt::KeyboardModifiers modifiers)
{
    GraphResponse response;
    m_graph.pointerTime = m_graph.timeAt(place.x());
    if (m_dragged) {
        m_targetRow = static_cast<int>(place.y() / m_graph.rowHeight());
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
        moveNearerMarker(m_graph.pointerTime);
        response.needsRepaint = true;
        response.reports.insert(response.reports.end(), {markers(), cursor(), markers()});
    } else if (m_isMiddleHeld || m_isLeftHeld) {
        if (m_isLeftHeld)
            holdForAWhile(response);
        placeCursor(place);
        response.needsRepaint = true;
        response.reports.push_back(cursor());
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
            response.reports.push_back({GraphSignal::Kind::MoveParameter,
                                        static_cast<double>(*m_dragged),
                                        static_cast<double>(m_targetRow)});
        m_dragged.reset();
        m_dragOffset = 0.0;
        if (m_graph.markerLeft > m_graph.markerRight)
            std::swap(m_graph.markerLeft, m_graph.markerRight);
        m_isLeftHeld = false;
        endPan();
        break;
    case Qt::MiddleButton:
        m_isMiddleHeld = false;
        m_graph.isCursorHeld = false;
        response.hold = GraphResponse::Hold::Ended;
        response.reports.push_back({GraphSignal::Kind::MoveCursorFinished});
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
    m_graph.pointerTime = m_graph.timeAt(x);
    if (modifiers.testFlag(Qt::ShiftModifier) || angleDelta == 0) // turned sideways
        return response;
    const double factor = angleDelta >= 1 ? zoomIn : zoomOut;
    const double h = m_graph.pointerTime;
    m_graph.setWindow(h - (h - m_graph.windowStart) * factor, h - (h - m_graph.windowEnd) * factor);
    response.needsRepaint = true;
    response.hasZoomed = true;
    response.recalculations = wheelRepeats;
    return response;
}

} // namespace KOLT
