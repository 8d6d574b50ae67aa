#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "map/MapCamera.h"

#include <QObject>
#include <QPointF>

class QGestureEvent;
class QKeyEvent;
class QMouseEvent;
class QNativeGestureEvent;
class QWheelEvent;
class QWidget;

namespace KOLT {

/// Turns the user's input on the map (mouse, keys, wheel, touch) into movements of the camera and
/// into signals.
class MapInput : public QObject
{
    Q_OBJECT

public:
    /// All three must outlive this.
    MapInput(QWidget& map, MapViewState& state, MapCamera& camera);

    /// True when the event needs no further handling.
    bool handle(QEvent& event);

    const MapKeys& heldKeys() const { return m_keys; }

    /// A position in the widget as the camera counts it.
    Tessa::WindowPoint windowPoint(const QPointF& position) const;

signals:
    /// The view may have changed.
    void changed();
    /// Follow mode has ended, or the shading was switched.
    void modeChanged();
    /// The pointer moves without a button.
    void hovered(const QPointF& position);
    /// A click with the left button; may turn out to be the first of a double click.
    void clicked(const QPointF& position);
    void doubleClicked();
    void wholeTrackRequested();

private:
    bool pressKey(const QKeyEvent& event);
    bool releaseKey(const QKeyEvent& event);
    bool setHeld(int key, bool isHeld);
    void pressMouse(const QMouseEvent& event);
    void moveMouse(const QMouseEvent& event);
    void releaseMouse(const QMouseEvent& event);
    void doubleClick(const QMouseEvent& event);
    void turnWheel(QWheelEvent& event);
    void pinch(double factor, const QPointF& position);
    void handleNativeGesture(const QNativeGestureEvent& event);
    bool handleGesture(QGestureEvent& event);
    void tellFollowEnded(bool hasEnded);

    QWidget& m_map;
    MapViewState& m_state;
    MapCamera& m_camera;
    MapKeys m_keys;
    QPointF m_pressPosition;
    bool m_isLeftHeld = false;
    bool m_isClick = false; ///< neither a drag nor a second click so far
};

} // namespace KOLT
