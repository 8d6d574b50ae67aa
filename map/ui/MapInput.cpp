#include "map/ui/MapInput.h"

#include "base/Diagnostics.h"

#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>
#include <QWidget>

namespace KOLT {

namespace {

constexpr double clickReach = 4.0;      ///< pixels that the pointer may move during a click
constexpr double pixelsPerDegree = 2.0; ///< for touch pads that report angles only
constexpr int angleSteps = 8;           ///< wheel angle units per degree

bool isShadingKey(const QKeyEvent& event)
{
    return event.key() == Qt::Key_S && event.modifiers() == Qt::ControlModifier;
}

} // namespace

MapInput::MapInput(QWidget& map, MapViewState& state, MapCamera& camera)
    : m_map(map)
    , m_state(state)
    , m_camera(camera)
{
}

bool MapInput::handle(QEvent& event)
{
    switch (event.type()) {
    case QEvent::ShortcutOverride: {
        // While the map has the focus, its key takes precedence over the window's shortcut.
        const bool isOwn = isShadingKey(static_cast<const QKeyEvent&>(event));
        if (isOwn)
            event.accept();
        return isOwn;
    }
    case QEvent::KeyPress:
        return pressKey(static_cast<const QKeyEvent&>(event));
    case QEvent::KeyRelease:
        return releaseKey(static_cast<const QKeyEvent&>(event));
    case QEvent::FocusOut:
        m_keys = {}; // the releases will go to another widget
        return false;
    case QEvent::Leave:
        m_map.unsetCursor();
        return false;
    case QEvent::MouseButtonPress:
        pressMouse(static_cast<const QMouseEvent&>(event));
        return true;
    case QEvent::MouseMove:
        moveMouse(static_cast<const QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonRelease:
        releaseMouse(static_cast<const QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonDblClick:
        doubleClick(static_cast<const QMouseEvent&>(event));
        return true;
    case QEvent::Wheel:
        turnWheel(static_cast<QWheelEvent&>(event));
        return true;
    case QEvent::NativeGesture:
        handleNativeGesture(static_cast<const QNativeGestureEvent&>(event));
        return true;
    case QEvent::Gesture:
        return handleGesture(static_cast<QGestureEvent&>(event));
    default:
        return false;
    }
}

Tessa::WindowPoint MapInput::windowPoint(const QPointF& position) const
{
    return {position.x(), m_map.height() - position.y()};
}

bool MapInput::setHeld(int key, bool isHeld)
{
    switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift
        m_keys.zoomIn = isHeld;
        return true;
    case Qt::Key_Minus:
        m_keys.zoomOut = isHeld;
        return true;
    case Qt::Key_Up:
        m_keys.up = isHeld;
        return true;
    case Qt::Key_Down:
        m_keys.down = isHeld;
        return true;
    case Qt::Key_Left:
        m_keys.left = isHeld;
        return true;
    case Qt::Key_Right:
        m_keys.right = isHeld;
        return true;
    default:
        return false;
    }
}

bool MapInput::pressKey(const QKeyEvent& event)
{
    if (isShadingKey(event)) {
        m_state.isShaded = !m_state.isShaded;
        emit modeChanged();
    } else if (event.key() == Qt::Key_F && event.modifiers() == Qt::NoModifier) {
        emit wholeTrackRequested();
    } else if (!setHeld(event.key(), true)) {
        return false;
    }
    emit changed();
    return true;
}

bool MapInput::releaseKey(const QKeyEvent& event)
{
    if (!event.isAutoRepeat())
        m_keys = {};
    return true;
}

void MapInput::tellFollowEnded(bool hasEnded)
{
    if (hasEnded)
        emit modeChanged();
}

void MapInput::pressMouse(const QMouseEvent& event)
{
    m_camera.press(windowPoint(event.position()));
    m_pressPosition = event.position();
    m_isClick = event.button() == Qt::LeftButton;
    if (event.button() == Qt::LeftButton)
        m_isLeftHeld = true;
    m_map.setCursor(Qt::ClosedHandCursor);
}

void MapInput::moveMouse(const QMouseEvent& event)
{
    emit changed();
    if (!m_isLeftHeld) {
        if (event.buttons() == Qt::NoButton)
            emit hovered(event.position());
        return;
    }
    if ((event.position() - m_pressPosition).manhattanLength() > clickReach)
        m_isClick = false;
    const Tessa::WindowPoint point = windowPoint(event.position());
    if (event.modifiers().testFlag(Qt::ShiftModifier))
        m_camera.dragZoomTo(point);
    else if (!m_isClick)
        tellFollowEnded(m_camera.dragTo(point));
}

void MapInput::releaseMouse(const QMouseEvent& event)
{
    m_map.setCursor(Qt::ArrowCursor);
    if (event.button() != Qt::LeftButton)
        return;
    const bool isClick = m_isLeftHeld && m_isClick;
    m_isLeftHeld = false;
    m_isClick = false;
    m_camera.release();
    emit changed();
    if (isClick)
        emit clicked(event.position());
}

void MapInput::doubleClick(const QMouseEvent& event)
{
    m_isClick = false;
    if (event.button() != Qt::LeftButton)
        return;
    emit doubleClicked();
    m_camera.doubleClick(windowPoint(event.position()));
    emit changed();
}

void MapInput::turnWheel(QWheelEvent& event)
{
    const QPoint global = event.globalPosition().toPoint();
    const QPoint position = event.position().toPoint();
    Diagnostics::print("wheelEvent phase %d\n", static_cast<int>(event.phase()));
    Diagnostics::print("wheelEvent globalPos %d %d\n", global.x(), global.y());
    Diagnostics::print("wheelEvent pos %d %d\n", position.x(), position.y());
    Diagnostics::print("wheelEvent pixelDelta %d %d\n", event.pixelDelta().x(),
                       event.pixelDelta().y());
    Diagnostics::print("wheelEvent angleDelta %d %d\n", event.angleDelta().x(),
                       event.angleDelta().y());
    Diagnostics::print("wheelEvent mouseButtons 0x%x\n",
                       static_cast<unsigned>(event.buttons().toInt()));
    Diagnostics::print("wheelEvent inverted %d\n", event.inverted() ? 1 : 0);
    event.accept();
    emit changed();
    // Some platforms report no phases for touch pads.
    const bool isTouchPad = event.pointingDevice() != nullptr &&
                            event.pointingDevice()->type() == QInputDevice::DeviceType::TouchPad;
    if (event.phase() == Qt::NoScrollPhase && !isTouchPad) {
        if (event.angleDelta().y() != 0)
            m_camera.wheel(windowPoint(event.position()), event.angleDelta().y());
        return;
    }
    QPointF way = event.pixelDelta();
    if (way.isNull())
        way = QPointF(event.angleDelta()) / angleSteps * pixelsPerDegree;
    if (!way.isNull())
        tellFollowEnded(m_camera.pan(way.x(), -way.y()));
}

void MapInput::pinch(double factor, const QPointF& position)
{
    m_camera.pinch(windowPoint(position), factor);
    emit changed();
}

void MapInput::handleNativeGesture(const QNativeGestureEvent& event)
{
    Diagnostics::print("Gesture %d value %f\n", static_cast<int>(event.gestureType()),
                       event.value());
    switch (event.gestureType()) {
    case Qt::BeginNativeGesture:
        Diagnostics::print("BEGIN %d\n", static_cast<int>(event.gestureType()));
        break;
    case Qt::EndNativeGesture:
        Diagnostics::print("END %d\n", static_cast<int>(event.gestureType()));
        break;
    case Qt::ZoomNativeGesture: // the value is the factor minus 1
        pinch(1.0 + event.value(), event.position());
        break;
    default:
        break;
    }
}

bool MapInput::handleGesture(QGestureEvent& event)
{
    const auto* const pinched = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
    if (pinched == nullptr)
        return false;
    m_isClick = false;
    if (pinched->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged))
        pinch(pinched->scaleFactor(), m_map.mapFromGlobal(pinched->centerPoint()));
    event.accept();
    return true;
}

} // namespace KOLT
