#pragma once

#include "libs/tessamap/drawing/TessaMap.h"
#include "map/MapCamera.h"
#include "map/MapContent.h"
#include "map/MapSettings.h"
#include "map/ui/MapInput.h"
#include "map/ui/MapPainter.h"

#include <QOpenGLWidget>
#include <QTimer>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QHelpEvent;

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
    /// What lies on top of the map, in its coordinates: fitting leaves the track visible. A view
    /// that was fitted and not changed since is fitted again, as when the map is resized.
    void setCovered(std::vector<QRectF> covered);
    /// Shows the whole track on the user's request, which ends follow mode.
    void showWholeTrack();

    /// Seconds since an unspecified start.
    using Clock = std::function<double()>;

    /// For tests.
    void setClock(Clock clock) { m_clock = std::move(clock); }

    Tessa::TessaMap& map() { return m_map; }

    const TrackLine& track() const { return m_content.line(); }

    int frameCount() const { return m_frameCount; }

    static QString hint();

signals:
    /// The user ended follow mode by moving the map, or switched the shading.
    void signalUpdateMode();
    /// The user clicked on a mark or on the track: the time of that place. Sent when the double
    /// click time has passed without a second click.
    void signalTime(double seconds);
    /// At the scale of the view there are no tiles, or there are some again.
    void signalTilesLacking(bool areLacking);
    /// A message for the status bar.
    void signalMessage(const QString& text);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private slots:
    void slotTimeout();
    void slotTimeoutResize();

private:
    void releaseGl();
    void stepView();
    void stepFit();
    void tellLack();
    void refit();
    void applyView();
    void makePainter(double ratio);
    void drawOverlays();
    QRectF attributionRect() const;
    void hover(const QPointF& position);
    void click(const QPointF& position);
    bool showMarkHint(const QHelpEvent& event);

    MapViewState& m_state;
    MapSettings m_settings;
    MapCamera m_camera;
    MapInput m_input;
    Clock m_clock;
    Tessa::TessaMap m_map;
    std::unique_ptr<MapPainter> m_painter; ///< null before the first frame
    MapContent m_content;
    UnitSystem m_unitSystem = UnitSystem::Metric;
    bool m_isFitPending = false;
    std::optional<std::array<double, 3>> m_fittedView; ///< latitude, longitude, width
    std::vector<QRectF> m_covered;
    bool m_areTilesLacking = false;
    bool m_isDirty = true;
    bool m_isSeen = false;
    double m_lastRepaint = 0.0;
    int m_frameCount = 0;
    QTimer m_repaintTimer;
    QTimer m_resizeTimer;
    QTimer m_clickTimer; ///< runs until no second click can follow
    double m_clickedSeconds = 0.0;
};

} // namespace KOLT
