#pragma once

#include "libs/tessamap/drawing/TessaMap.h"
#include "map/AircraftTrack.h"
#include "map/MapCamera.h"
#include "map/MapMarks.h"
#include "map/MapSettings.h"
#include "map/TrackColors.h"
#include "map/TrackLine.h"
#include "map/ui/MapPainter.h"

#include <QOpenGLWidget>
#include <QTimer>

#include <functional>
#include <memory>

class QGestureEvent;
class QNativeGestureEvent;

namespace KOLT {

/// The moving map: the globe's tiles, the flight's track, the aircraft, marks and the map's
/// attribution. Shares its view state with the page that owns both.
///
/// A frame is drawn when something has changed, at most every 20 ms, and otherwise once a second.
class WidgetMap : public QOpenGLWidget
{
    Q_OBJECT

public:
    WidgetMap(MapViewState& state, const MapSettings& settings, QWidget* parent = nullptr);
    ~WidgetMap() override;

    void setSettings(const MapSettings& settings);

    void setAircraft(const AircraftTrack::Record& aircraft);

    /// The track must stay valid until the next call; null for none. Before the first frame its
    /// line is not built yet, but in that frame.
    void setTrack(const std::vector<TrackPoint>* track, std::vector<TrackGap> gaps);

    /// Empty colours draw the track in one colour.
    void setColors(TrackColors colors);
    void setMarks(std::vector<MapMark> marks);
    void setUnitSystem(UnitSystem system);

    /// Shows the whole track. Follow mode is suspended until the aircraft moves.
    void fitTrack();
    /// Shows the whole track on the user's request, which ends follow mode.
    void showWholeTrack();

    /// Seconds since an unspecified start.
    using Clock = std::function<double()>;

    /// For tests.
    void setClock(Clock clock) { m_clock = std::move(clock); }

    Tessa::TessaMap& map() { return m_map; }

    const TrackLine& track() const { return m_line; }

    int frameCount() const { return m_frameCount; }

    static QString hint();

signals:
    /// The user ended follow mode by moving the map, or switched the shading.
    void signalUpdateMode();
    /// The user clicked on a mark or on the track: the time of that place. Sent when the double
    /// click time has passed without a second click.
    void signalTime(double seconds);
    /// A message for the status bar.
    void signalMessage(const QString& text);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;

private slots:
    void slotTimeout();
    void slotTimeoutResize();

private:
    void releaseGl();
    void buildTrack();
    void stepView();
    void applyView();
    void makePainter(double ratio);
    void drawOverlays();

    Tessa::LatLong aircraftPlace() const { return {m_aircraft.latitude, m_aircraft.longitude}; }

    Tessa::WindowPoint windowPoint(const QPointF& position) const
    {
        return {position.x(), height() - position.y()};
    }

    /// Two lines when the map is too narrow for one.
    QStringList attributionLines() const;
    QRectF attributionRect() const;
    bool setHeld(int key, bool isHeld);
    void pick(const QPointF& position);
    void tellModeEnded(bool hasEnded);
    void pinch(double factor, const QPointF& position);
    void nativeGesture(const QNativeGestureEvent& event);
    bool gesture(QGestureEvent& event);

    MapViewState& m_state;
    MapSettings m_settings;
    MapCamera m_camera;
    Clock m_clock;
    Tessa::TessaMap m_map;
    std::unique_ptr<MapPainter> m_painter; ///< from the first frame on
    AircraftTrack::Record m_aircraft;
    const std::vector<TrackPoint>* m_track = nullptr;
    std::vector<TrackGap> m_gaps;
    bool m_isTrackPending = false;
    bool m_isFitPending = false;
    TrackLine m_line;
    TrackColors m_colors;
    std::vector<MapMark> m_marks;
    UnitSystem m_unitSystem = UnitSystem::Metric;

    MapKeys m_keys;
    QPointF m_pressPosition;
    bool m_isLeftHeld = false;
    bool m_isClick = false; ///< neither a drag nor a second click so far
    bool m_isDirty = true;
    bool m_isSeen = false;
    double m_lastRepaint = 0.0;
    int m_frameCount = 0;
    QTimer m_repaintTimer;
    QTimer m_resizeTimer;
    QTimer m_pickTimer;
    double m_pickedSeconds = 0.0;
};

} // namespace KOLT
