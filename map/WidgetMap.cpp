#include "map/WidgetMap.h"

#include "app/base/Diagnostics.h"
#include "app/settings/DataPaths.h"
#include "app/settings/SettingsStore.h"
#include "libs/tusk/Timer.h"

#include <QCoreApplication>
#include <QFile>
#include <QOpenGLContext>

#include <cmath>

namespace KOLT {

namespace {

constexpr int repaintMilliseconds = 20;
constexpr double idleSeconds = 1.0;
constexpr int samples = 4;
constexpr GLenum multisample = 0x809D; ///< GL_MULTISAMPLE, unknown to GL ES
constexpr double edge = 5.0;
constexpr double scaleBarPixels = 140.0;
constexpr double textHeight = 18.0;

bool isNetworkEnabled = true;

QString subFolder(const char* name)
{
    return QFile::decodeName(DataPaths::instance().dataPath()) + QLatin1String(name);
}

} // namespace

WidgetMap::WidgetMap(MapViewState& state, QWidget* parent)
    : QOpenGLWidget(parent)
    , m_state(state)
    , m_camera(state)
    , m_clock(TUSK::Misc::Timer::getTime)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_AcceptTouchEvents);
    grabGesture(Qt::PinchGesture);
    QSurfaceFormat smooth = format();
    smooth.setSamples(samples);
    setFormat(smooth);
    setToolTip(hint());
    m_map.setTileDirectory(subFolder("/tiles/"));
    m_map.setTerrainPath(subFolder("/terrain/"));
    m_map.setProjection(1);
    m_map.setUserAgent("KOLT/" + QCoreApplication::applicationVersion().toUtf8() +
                       " (debriefing viewer for aircraft engine recordings)");
    m_map.tiles().setNetworkEnabled(isNetworkEnabled &&
                                    qEnvironmentVariableIsEmpty("KOLT_OFFLINE"));
    loadSettings();
    connect(&m_map, &Tessa::TessaMap::changed, this, [this] { m_isDirty = true; });
    connect(&m_map, &Tessa::TessaMap::message, this, &WidgetMap::signalMessage);
    m_resizeTimer.setSingleShot(true);
    connect(&m_resizeTimer, &QTimer::timeout, this, &WidgetMap::slotTimeoutResize);
    connect(&m_repaintTimer, &QTimer::timeout, this, &WidgetMap::slotTimeout);
    m_repaintTimer.start(repaintMilliseconds);
}

WidgetMap::~WidgetMap()
{
    if (context() != nullptr)
        disconnect(context(), nullptr, this, nullptr);
    releaseGl();
}

void WidgetMap::setNetworkEnabled(bool isEnabled)
{
    isNetworkEnabled = isEnabled;
}

QString WidgetMap::hint()
{
    return tr("Left button: move the map; with Shift: zoom. Wheel or double click: zoom about the "
              "pointer.\nArrow keys, + and -: move and zoom. F: whole flight. Ctrl+S: hill "
              "shading.\nClick on the track: go to that moment.");
}

void WidgetMap::loadSettings()
{
    m_map.setTileServer(QString::fromUtf8(SettingsStore::instance().getText("TileServer")));
    m_isDirty = true;
}

void WidgetMap::setAircraft(const AircraftTrack::Record& aircraft)
{
    if (aircraft != m_aircraft)
        m_isFollowWaiting = false;
    m_aircraft = aircraft;
    m_state.needsRepaint = true;
}

void WidgetMap::setTrack(const std::vector<TrackPoint>* track, std::vector<TrackGap> gaps)
{
    m_track = track;
    m_gaps = std::move(gaps);
    m_isTrackPending = true;
    if (m_painter != nullptr || track == nullptr)
        buildTrack();
    m_state.needsRepaint = true;
}

void WidgetMap::buildTrack()
{
    m_isTrackPending = false;
    m_line = m_track != nullptr ? TrackLine(*m_track, std::move(m_gaps)) : TrackLine();
    m_line.setValues(m_colors.values, m_colors.scale);
}

void WidgetMap::setColors(TrackColors colors)
{
    m_colors = std::move(colors);
    m_line.setValues(m_colors.values, m_colors.scale);
    m_state.needsRepaint = true;
}

void WidgetMap::setMarks(std::vector<MapMark> marks)
{
    m_marks = std::move(marks);
    m_state.needsRepaint = true;
}

void WidgetMap::setUnitSystem(UnitSystem system)
{
    m_unitSystem = system;
    m_state.needsRepaint = true;
}

void WidgetMap::fitTrack()
{
    m_isFitPending = true;
    m_state.needsRepaint = true;
}

void WidgetMap::releaseGl()
{
    if (context() == nullptr)
        return;
    makeCurrent(); // what they hold belongs to the context
    m_painter.reset();
    m_map.releaseGl();
    doneCurrent();
}

void WidgetMap::initializeGL()
{
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &WidgetMap::releaseGl,
            Qt::UniqueConnection);
    if (m_frameCount > 0) // the context was lost, and its surface with it
        m_resizeTimer.start(repaintMilliseconds);
}

void WidgetMap::resizeGL(int width, int height)
{
    m_camera.setWindowSize(width, height);
    m_map.setWindowSize(width * devicePixelRatioF(), height * devicePixelRatioF());
    m_map.setVisibleRange(m_state.width, m_state.height);
}

void WidgetMap::stepView()
{
    if (m_isFitPending && !m_isTrackPending) {
        m_isFitPending = false;
        if (!m_line.isEmpty()) {
            m_camera.fit(m_line.bounds());
            m_isFollowWaiting = true;
        }
    }
    if (m_keys.any()) {
        m_camera.stepKeys(m_keys);
        m_isDirty = true;
    }
    const SettingsStore& settings = SettingsStore::instance();
    m_state.contrast = settings.getDouble("MapShadingContrast", 1.0);
    m_state.brightness = settings.getDouble("MapShadingBrightness", 1.0);
    m_state.factor = settings.getDouble("MapShadingFactor", 0.5);
    if (!m_isFollowWaiting)
        m_camera.follow(aircraftPlace());
    m_camera.stepAnimations();
}

void WidgetMap::applyView()
{
    m_map.setVisibleRange(m_state.width, m_state.height);
    m_map.setBrightness(1.0);
    m_map.setPosition(m_state.latitude, m_state.longitude, 0.0);
    m_map.setLightDirection(m_state.lightDirection[0], m_state.lightDirection[1],
                            m_state.lightDirection[2]);
    m_map.setShadingStrength(m_state.contrast, m_state.brightness, m_state.factor);
    m_map.setShading(m_state.isShaded);
    m_map.setMapType(0);
}

void WidgetMap::paintGL()
{
    const double ratio = devicePixelRatioF();
    m_camera.setWindowSize(width(), height());
    m_map.setWindowSize(width() * ratio, height() * ratio);
    if (m_isTrackPending)
        buildTrack();
    stepView();
    if (m_painter == nullptr || m_painter->pixelRatio() != ratio)
        m_painter = std::make_unique<MapPainter>(width(), height(), ratio);
    QOpenGLFunctions* const gl = context()->functions();
    gl->glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    gl->glClear(GL_COLOR_BUFFER_BIT);
    if (!context()->isOpenGLES())
        gl->glEnable(multisample);
    applyView();
    const bool isDrawn = m_map.render();
    m_painter->begin(width(), height());
    if (isDrawn)
        drawOverlays();
    if (m_map.nrLoadingTiles() > 0)
        m_isDirty = true; // held keys may have set it already
    ++m_frameCount;
}

void WidgetMap::drawOverlays()
{
    const Tessa::Globe globe = m_map.globe();
    m_painter->drawTrack(globe, m_line, !m_colors.isEmpty());
    m_painter->drawMarks(globe, m_marks);
    double x = 0.0;
    double y = 0.0;
    if (!m_line.isEmpty() && m_map.latLong2Window(m_aircraft[0], m_aircraft[1], x, y))
        m_painter->drawAircraft({x / devicePixelRatioF(), y / devicePixelRatioF()}, m_aircraft[4]);
    const ScaleBar bar = ScaleBar::choose(m_state.metresPerPixel,
                                          std::min(scaleBarPixels, width() / 3.0), m_unitSystem);
    // In a narrow map there is no room for both beside each other.
    const double attribution = m_painter->textWidth(m_map.attribution()) + 2.0 * edge;
    const double bottom =
        bar.pixels + attribution + 6.0 * edge < width() ? edge : 2.0 * edge + textHeight;
    m_painter->drawScaleBar(bar, bottom);
    m_painter->drawLegend(m_colors, bottom);
    m_painter->drawText(width() - edge - 3.0, edge + textHeight / 2.0, m_map.attribution(), true);
    if (m_map.isOffline())
        m_painter->drawText(width() - edge - 3.0, 1.5 * textHeight + 2.0 * edge, tr("offline"),
                            true);
}

QRectF WidgetMap::attributionRect() const
{
    if (m_painter == nullptr)
        return {};
    const double textWidth = m_painter->textWidth(m_map.attribution()) + 6.0;
    return {width() - edge - textWidth, height() - edge - textHeight, textWidth, textHeight};
}

void WidgetMap::slotTimeout()
{
    if (!isVisible())
        return;
    const double now = m_clock();
    if (!m_isDirty && !m_state.needsRepaint && !m_state.isRangeAnimated &&
        !m_state.isPositionAnimated && now - m_lastRepaint <= idleSeconds)
        return;
    m_lastRepaint = now;
    m_isDirty = false;
    m_state.needsRepaint = false;
    update();
}

void WidgetMap::slotTimeoutResize()
{
    resize(width() + 1, height());
}

void WidgetMap::hideEvent(QHideEvent* event)
{
    m_map.tiles().setWanted({}); // nobody looks at them
    QOpenGLWidget::hideEvent(event);
}

} // namespace KOLT
