#include "map/ui/WidgetMap.h"

#include "base/Diagnostics.h"
#include "libs/tusk/misc/Timer.h"

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

} // namespace

WidgetMap::WidgetMap(MapViewState& state, const MapSettings& settings, QWidget* parent)
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
    m_map.setProjection(1);
    setSettings(settings);
    connect(&m_map, &Tessa::TessaMap::changed, this, [this] { m_isDirty = true; });
    connect(&m_map, &Tessa::TessaMap::message, this, &WidgetMap::signalMessage);
    m_pickTimer.setSingleShot(true);
    connect(&m_pickTimer, &QTimer::timeout, this, [this] { emit signalTime(m_pickedSeconds); });
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

QString WidgetMap::hint()
{
    return tr("Left button: move the map; with Shift: zoom. Wheel or double click: zoom about the "
              "pointer.\nArrow keys, + and -: move and zoom. F: whole flight. Ctrl+S: hill "
              "shading.\nClick on the track or on a mark: go to that moment.");
}

void WidgetMap::setSettings(const MapSettings& settings)
{
    m_settings = settings;
    m_map.setTileDirectory(settings.tileDirectory);
    m_map.setTerrainPath(settings.terrainDirectory);
    m_map.setUserAgent(settings.userAgent);
    m_map.tiles().setNetworkEnabled(settings.isNetworkEnabled);
    m_map.setTileServer(settings.tileServer);
    m_map.refreshTerrain();
    m_isDirty = true;
}

void WidgetMap::setAircraft(const AircraftTrack::Record& aircraft)
{
    if (aircraft != m_aircraft)
        m_state.isFollowWaiting = false;
    m_aircraft = aircraft;
    m_state.needsRepaint = true;
}

void WidgetMap::setTrack(const std::vector<TrackPoint>* track, std::vector<TrackGap> gaps)
{
    m_pickTimer.stop(); // what was clicked on is gone
    m_track = track;
    m_gaps = std::move(gaps);
    m_isTrackPending = true;
    m_line = {}; // refers to the former track
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

void WidgetMap::showWholeTrack()
{
    const bool wasFollowing = m_camera.endFollowing();
    fitTrack();
    tellModeEnded(wasFollowing);
}

void WidgetMap::releaseGl()
{
    if (context() == nullptr)
        return;
    makeCurrent(); // both hold objects of the context
    m_painter.reset();
    m_map.releaseGl();
    doneCurrent();
}

void WidgetMap::initializeGL()
{
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &WidgetMap::releaseGl,
            Qt::UniqueConnection);
    if (m_frameCount > 0) // the context was lost together with its surface
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
        if (!m_line.isEmpty())
            m_camera.fit(m_line.bounds());
    }
    if (m_keys.any()) {
        m_camera.stepKeys(m_keys);
        m_isDirty = true;
    }
    m_state.contrast = m_settings.shadingContrast;
    m_state.brightness = m_settings.shadingBrightness;
    m_state.factor = m_settings.shadingFactor;
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
        makePainter(ratio);
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

void WidgetMap::makePainter(double ratio)
{
    m_painter = std::make_unique<MapPainter>(width(), height(), ratio);
    if (!m_painter->isReady())
        emit signalMessage(tr("Track and texts of the map cannot be drawn with this graphics "
                              "driver."));
}

void WidgetMap::drawOverlays()
{
    const Tessa::Globe globe = m_map.globe();
    m_painter->drawTrack(globe, m_line, !m_colors.isEmpty());
    m_painter->drawMarks(globe, m_marks);
    Tessa::WindowPoint place;
    if (!m_line.isEmpty() &&
        m_map.latLong2Window(m_aircraft.latitude, m_aircraft.longitude, place.x, place.y))
        m_painter->drawAircraft({place.x / devicePixelRatioF(), place.y / devicePixelRatioF()},
                                m_aircraft.heading);
    const ScaleBar bar = ScaleBar::choose(m_state.metresPerPixel,
                                          std::min(scaleBarPixels, width() / 3.0), m_unitSystem);
    // In a narrow map the scale bar goes above the attribution.
    const QStringList lines = attributionLines();
    const double attribution = attributionRect().width() + 2.0 * edge;
    const double bottom =
        bar.pixels + attribution + 6.0 * edge < width() ? edge : 2.0 * edge + textHeight;
    m_painter->drawScaleBar(bar, bottom);
    m_painter->drawLegend(m_colors, bottom);
    double y = edge + textHeight / 2.0;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line, y += textHeight)
        m_painter->drawText(width() - edge - 3.0, y, *line, true);
    if (m_map.isOffline())
        m_painter->drawText(width() - edge - 3.0, y + edge, tr("offline"), true);
}

QStringList WidgetMap::attributionLines() const
{
    const QString whole = m_map.attribution();
    const auto fits = [this](const QString& line) {
        return m_painter->textWidth(line) + 2.0 * edge + 6.0 <= width();
    };
    qsizetype end = whole.size();
    while (end > 0 && !fits(whole.left(end)))
        end = whole.lastIndexOf(QLatin1Char(' '), end - 1);
    if (end <= 0 || end == whole.size())
        return {whole};
    return {whole.left(end), whole.mid(end + 1)};
}

QRectF WidgetMap::attributionRect() const
{
    if (m_painter == nullptr)
        return {};
    double textWidth = 0.0;
    const QStringList lines = attributionLines();
    for (const QString& line : lines)
        textWidth = std::max(textWidth, m_painter->textWidth(line) + 6.0);
    const double rows = textHeight * static_cast<double>(lines.size());
    return {width() - edge - textWidth, height() - edge - rows, textWidth, rows};
}

void WidgetMap::slotTimeout()
{
    // A splitter may leave the map no room without hiding it.
    const bool isSeen = isVisible() && !visibleRegion().isEmpty();
    if (m_isSeen && !isSeen) { // no tiles are needed any more
        m_map.tiles().setVisible({});
        m_map.tiles().setWanted({});
    }
    m_isSeen = isSeen;
    if (!isSeen)
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

void WidgetMap::showEvent(QShowEvent* event)
{
    m_map.refreshTerrain(); // there may be new files
    QOpenGLWidget::showEvent(event);
}

} // namespace KOLT
