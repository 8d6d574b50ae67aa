#include "map/ui/WidgetMap.h"

#include "libs/tusk/misc/Timer.h"
#include "ui/PlainToolTip.h"

#include <QApplication>
#include <QDesktopServices>
#include <QHelpEvent>
#include <QOpenGLContext>
#include <QToolTip>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int repaintMilliseconds = 20;
constexpr double idleSeconds = 1.0;
constexpr int samples = 4;
constexpr GLenum multisample = 0x809D; ///< GL_MULTISAMPLE, unknown to GL ES
constexpr double scaleBarPixels = 140.0;

} // namespace

WidgetMap::WidgetMap(MapViewState& state, const MapSettings& settings, QWidget* parent)
    : QOpenGLWidget(parent)
    , m_state(state)
    , m_camera(state)
    , m_input(*this, state, m_camera)
    , m_clock(TUSK::Misc::Timer::getTime)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Map"));
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
    connect(&m_input, &MapInput::changed, this, [this] { m_isDirty = true; });
    connect(&m_input, &MapInput::modeChanged, this, &WidgetMap::signalUpdateMode);
    connect(&m_input, &MapInput::hovered, this, &WidgetMap::hover);
    connect(&m_input, &MapInput::clicked, this, &WidgetMap::click);
    connect(&m_input, &MapInput::doubleClicked, &m_clickTimer, &QTimer::stop);
    connect(&m_input, &MapInput::wholeTrackRequested, this, &WidgetMap::showWholeTrack);
    m_clickTimer.setSingleShot(true);
    connect(&m_clickTimer, &QTimer::timeout, this, [this] { emit signalTime(m_clickedSeconds); });
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
    if (aircraft != m_content.aircraft)
        m_state.isFollowWaiting = false;
    m_content.aircraft = aircraft;
    m_state.needsRepaint = true;
}

void WidgetMap::setTrack(const std::vector<TrackPoint>* track, std::vector<TrackGap> gaps)
{
    m_clickTimer.stop(); // what was clicked on is gone
    m_content.setTrack(track, std::move(gaps));
    if (m_painter != nullptr)
        m_content.buildLine();
    m_state.needsRepaint = true;
}

void WidgetMap::setColors(TrackColors colors)
{
    m_content.setColors(std::move(colors));
    m_state.needsRepaint = true;
}

void WidgetMap::setMarks(std::vector<MapMark> marks)
{
    m_content.marks = std::move(marks);
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

void WidgetMap::setCovered(std::vector<QRectF> covered)
{
    if (covered == m_covered)
        return;
    m_covered = std::move(covered);
    refit();
}

void WidgetMap::refit()
{
    const bool isMoving = m_state.isRangeAnimated || m_state.isPositionAnimated ||
                          (m_state.follow != 0 && !m_state.isFollowWaiting);
    if (!isMoving && m_fittedView == std::array{m_state.latitude, m_state.longitude, m_state.width})
        fitTrack();
}

void WidgetMap::showWholeTrack()
{
    const bool wasFollowing = m_camera.endFollowing();
    fitTrack();
    if (wasFollowing)
        emit signalUpdateMode();
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
    refit();
    m_camera.setWindowSize(width, height);
    m_map.setWindowSize(width * devicePixelRatioF(), height * devicePixelRatioF());
    m_map.setVisibleRange(m_state.width, m_state.height);
}

void WidgetMap::stepFit()
{
    if (!m_isFitPending)
        return;
    m_isFitPending = false;
    if (m_content.line().isEmpty())
        return;
    m_camera.fit(m_content.line().bounds(), m_covered);
    m_fittedView = {m_state.latitude, m_state.longitude, m_state.width};
}

void WidgetMap::stepView()
{
    stepFit();
    if (m_input.heldKeys().any()) {
        m_camera.stepKeys(m_input.heldKeys());
        m_isDirty = true;
    }
    m_state.contrast = m_settings.shadingContrast;
    m_state.brightness = m_settings.shadingBrightness;
    m_state.factor = m_settings.shadingFactor;
    m_camera.follow({m_content.aircraft.latitude, m_content.aircraft.longitude});
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
    m_content.buildLine();
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
    if (const auto start = m_content.start(); start && m_map.lacksTiles())
        m_painter->drawBackdrop(m_camera.globe(), *start,
                                {m_map.attribution(), m_unitSystem, size(), m_covered});
    m_painter->drawTrack(globe, m_content.line());
    m_painter->drawMarks(globe, m_content.marks);
    const AircraftTrack::Record& aircraft = m_content.aircraft;
    if (!m_content.line().isEmpty())
        m_painter->drawAircraft(globe, {aircraft.latitude, aircraft.longitude}, aircraft.heading);
    const double longestBar = std::min(scaleBarPixels, width() / 3.0);
    m_painter->labels().draw({ScaleBar::choose(m_state.metresPerPixel, longestBar, m_unitSystem),
                              m_content.colors(), m_map.attribution(),
                              m_map.isOffline() && !m_map.lacksTiles() ? tr("offline") : QString()},
                             width());
}

void WidgetMap::tellLack()
{
    if (m_areTilesLacking == m_map.lacksTiles())
        return;
    m_areTilesLacking = m_map.lacksTiles();
    emit signalTilesLacking(m_areTilesLacking);
}

QRectF WidgetMap::attributionRect() const
{
    return m_painter != nullptr ? m_painter->labels().attributionRect(m_map.attribution(), width())
                                : QRectF();
}

void WidgetMap::hover(const QPointF& position)
{
    const auto [x, y] = m_input.windowPoint(position);
    setCursor(attributionRect().contains(x, y) ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void WidgetMap::click(const QPointF& position)
{
    const Tessa::WindowPoint point = m_input.windowPoint(position);
    if (attributionRect().contains(point.x, point.y)) {
        QDesktopServices::openUrl(m_map.attributionLink());
    } else if (const auto seconds = m_content.secondsAt(m_camera.globe(), point)) {
        m_clickedSeconds = *seconds;
        // A second click may follow: a double click only zooms.
        m_clickTimer.start(QApplication::doubleClickInterval());
    }
}

bool WidgetMap::showMarkHint(const QHelpEvent& event)
{
    const MapMark* const mark =
        m_content.markAt(m_camera.globe(), m_input.windowPoint(event.pos()));
    if (mark != nullptr)
        QToolTip::showText(event.globalPos(), plainToolTip(mark->text), this);
    return mark != nullptr;
}

bool WidgetMap::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && showMarkHint(static_cast<const QHelpEvent&>(*event)))
        return true;
    return (isEnabled() && m_input.handle(*event)) || QOpenGLWidget::event(event);
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
    tellLack();
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
