// Mouse, keys, wheel and touch on the map.

#include "base/Diagnostics.h"
#include "map/ui/WidgetMap.h"

#include <QApplication>
#include <QDesktopServices>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QToolTip>
#include <QWheelEvent>

namespace KOLT {

namespace {

constexpr double clickReach = 4.0;      ///< pixels that the pointer may move during a click
constexpr double pickReach = 10.0;      ///< pixels around the track
constexpr double pixelsPerDegree = 2.0; ///< for touch pads that report angles only
constexpr int angleSteps = 8;           ///< wheel angle units per degree

} // namespace

bool WidgetMap::setHeld(int key, bool isHeld)
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

void WidgetMap::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_S && event->modifiers() == Qt::ControlModifier) {
        m_state.isShaded = !m_state.isShaded;
        emit signalUpdateMode();
    } else if (event->key() == Qt::Key_F && event->modifiers() == Qt::NoModifier) {
        showWholeTrack();
    } else if (!setHeld(event->key(), true)) {
        QOpenGLWidget::keyPressEvent(event);
        return;
    }
    m_isDirty = true;
}

void WidgetMap::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat())
        return;
    m_keys = {};
}

void WidgetMap::focusOutEvent(QFocusEvent* event)
{
    m_keys = {}; // the releases will go to another widget
    QOpenGLWidget::focusOutEvent(event);
}

void WidgetMap::leaveEvent(QEvent* event)
{
    unsetCursor();
    QOpenGLWidget::leaveEvent(event);
}

void WidgetMap::tellModeEnded(bool hasEnded)
{
    if (hasEnded)
        emit signalUpdateMode();
}

void WidgetMap::mousePressEvent(QMouseEvent* event)
{
    m_camera.press(windowPoint(event->position()));
    m_pressPosition = event->position();
    m_isClick = event->button() == Qt::LeftButton;
    if (event->button() == Qt::LeftButton)
        m_isLeftHeld = true;
    setCursor(Qt::ClosedHandCursor);
}

void WidgetMap::mouseMoveEvent(QMouseEvent* event)
{
    m_isDirty = true;
    const Tessa::WindowPoint point = windowPoint(event->position());
    if (!m_isLeftHeld && event->buttons() != Qt::NoButton)
        return;
    if (!m_isLeftHeld) {
        setCursor(attributionRect().contains(event->position()) ? Qt::PointingHandCursor
                                                                : Qt::ArrowCursor);
        return;
    }
    if ((event->position() - m_pressPosition).manhattanLength() > clickReach)
        m_isClick = false;
    if (event->modifiers().testFlag(Qt::ShiftModifier))
        m_camera.dragZoomTo(point);
    else if (!m_isClick)
        tellModeEnded(m_camera.dragTo(point));
}

void WidgetMap::mouseReleaseEvent(QMouseEvent* event)
{
    setCursor(Qt::ArrowCursor);
    if (event->button() != Qt::LeftButton)
        return;
    const bool isPick = m_isLeftHeld && m_isClick;
    m_isLeftHeld = false;
    m_isClick = false;
    m_camera.release();
    m_isDirty = true;
    if (isPick)
        pick(event->position());
}

void WidgetMap::pick(const QPointF& position)
{
    if (attributionRect().contains(position)) {
        QDesktopServices::openUrl(m_map.attributionLink());
        return;
    }
    const Tessa::Globe globe = m_camera.globe();
    const Tessa::WindowPoint click = windowPoint(position);
    if (const MapMark* const mark = markAt(m_marks, globe, click))
        m_pickedSeconds = mark->seconds;
    else if (const auto point = m_line.nearestPoint(globe, click, pickReach))
        m_pickedSeconds = (*m_track)[*point].seconds();
    else
        return;
    // A second click may follow: a double click only zooms.
    m_pickTimer.start(QApplication::doubleClickInterval());
}

void WidgetMap::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_isClick = false;
    if (event->button() != Qt::LeftButton)
        return;
    m_pickTimer.stop();
    m_camera.doubleClick(windowPoint(event->position()));
    m_isDirty = true;
}

void WidgetMap::wheelEvent(QWheelEvent* event)
{
    const QPoint global = event->globalPosition().toPoint();
    const QPoint position = event->position().toPoint();
    Diagnostics::print("wheelEvent phase %d\n", static_cast<int>(event->phase()));
    Diagnostics::print("wheelEvent globalPos %d %d\n", global.x(), global.y());
    Diagnostics::print("wheelEvent pos %d %d\n", position.x(), position.y());
    Diagnostics::print("wheelEvent pixelDelta %d %d\n", event->pixelDelta().x(),
                       event->pixelDelta().y());
    Diagnostics::print("wheelEvent angleDelta %d %d\n", event->angleDelta().x(),
                       event->angleDelta().y());
    Diagnostics::print("wheelEvent mouseButtons 0x%x\n",
                       static_cast<unsigned>(event->buttons().toInt()));
    Diagnostics::print("wheelEvent inverted %d\n", event->inverted() ? 1 : 0);
    event->accept();
    m_isDirty = true;
    // Some platforms report no phases for touch pads.
    const bool isTouchPad = event->pointingDevice() != nullptr &&
                            event->pointingDevice()->type() == QInputDevice::DeviceType::TouchPad;
    if (event->phase() == Qt::NoScrollPhase && !isTouchPad) {
        if (event->angleDelta().y() != 0)
            m_camera.wheel(windowPoint(event->position()), event->angleDelta().y());
        return;
    }
    QPointF way = event->pixelDelta();
    if (way.isNull())
        way = QPointF(event->angleDelta()) / angleSteps * pixelsPerDegree;
    if (!way.isNull())
        tellModeEnded(m_camera.pan(way.x(), -way.y()));
}

void WidgetMap::pinch(double factor, const QPointF& position)
{
    m_camera.pinch(windowPoint(position), factor);
    m_isDirty = true;
}

void WidgetMap::nativeGesture(const QNativeGestureEvent& event)
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

bool WidgetMap::gesture(QGestureEvent& event)
{
    const auto* const pinched = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
    if (pinched == nullptr)
        return false;
    m_isClick = false;
    if (pinched->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged))
        pinch(pinched->scaleFactor(), mapFromGlobal(pinched->centerPoint()));
    event.accept();
    return true;
}

bool WidgetMap::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // While the map has the focus, its key takes precedence over the window's shortcut.
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.key() == Qt::Key_S && key.modifiers() == Qt::ControlModifier) {
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        if (const MapMark* const mark =
                markAt(m_marks, m_camera.globe(), windowPoint(help.pos()))) {
            QToolTip::showText(help.globalPos(), mark->text, this);
            return true;
        }
    }
    if (event->type() == QEvent::NativeGesture) {
        nativeGesture(static_cast<const QNativeGestureEvent&>(*event));
        return true;
    }
    if (event->type() == QEvent::Gesture && gesture(static_cast<QGestureEvent&>(*event)))
        return true;
    return QOpenGLWidget::event(event);
}

} // namespace KOLT
