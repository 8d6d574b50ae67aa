#include "graph/ui/WidgetGraphBase.h"

#include "graph/GraphTexts.h"
#include "ui/PlainToolTip.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace KOLT {

namespace {

constexpr int repaintMilliseconds = 30;
constexpr int recalcMilliseconds = 50;
constexpr int resizeMilliseconds = 100;
constexpr int cursorMilliseconds = 5000;
constexpr double leastLineHeight = 16.0; ///< pixels
constexpr double repaintThreshold = 0.7; ///< as a part of the time that one pixel covers

} // namespace

WidgetGraphBase::WidgetGraphBase(QWidget* parent)
    : QOpenGLWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Graph"));
    setMinimumSize(160, 80);
    QFont bold = font();
    bold.setFamily(QStringLiteral("monospace"));
    bold.setStyleHint(QFont::TypeWriter);
    bold.setWeight(QFont::Bold);
    setFont(bold);
    measureFont();
    setToolTip(hint());
    m_graph.editSettings().background = Qt::white;
    m_graph.editSettings().gridColor = QColor::fromRgbF(1.0F, 0.3F, 0.3F);
    m_graph.editSettings().labelBackground = QColor::fromRgbF(0.8F, 0.8F, 0.8F);
    m_recalcTimer.setSingleShot(true);
    m_cursorTimer.setSingleShot(true);
    m_followTimer.setSingleShot(true);
    m_cursorTimer.setInterval(cursorMilliseconds);
    connect(&m_repaintTimer, &QTimer::timeout, this, &WidgetGraphBase::slotTimeout);
    connect(&m_followTimer, &QTimer::timeout, this, &WidgetGraphBase::slotTimeoutFollow);
    connect(&m_recalcTimer, &QTimer::timeout, this, &WidgetGraphBase::slotTimeoutRecalc);
    connect(&m_cursorTimer, &QTimer::timeout, this, &WidgetGraphBase::slotTimeoutCursor);
    m_repaintTimer.start(repaintMilliseconds);
    m_sinceRepaint.start();
}

QString WidgetGraphBase::hint()
{
    return tr("Left button: markers and cursor. Shift+left: the nearer marker, and pan. Ctrl+left "
              "or middle button: cursor.\nRight button: pan. Wheel: zoom. Arrow keys: move the "
              "cursor (with Shift farther).\nF: whole flight. Home, End: its ends. M: markers "
              "around the middle.\nDrag a handle at the left edge to move its trace.");
}

void WidgetGraphBase::measureFont()
{
    const QFontMetricsF metrics(font());
    m_graph.setMetrics({std::max(leastLineHeight, std::ceil(metrics.height())),
                        metrics.horizontalAdvance(QLatin1Char('0'))});
}

void WidgetGraphBase::changeEvent(QEvent* event)
{
    QOpenGLWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    measureFont();
    refresh();
}

void WidgetGraphBase::setSettings(const GraphSettings& settings)
{
    m_graph.editSettings() = settings;
    refresh();
}

void WidgetGraphBase::setTraceCount(int count)
{
    m_graph.setTraceCount(count);
}

void WidgetGraphBase::setExtent(double first, double last)
{
    m_input.setExtent(first, last);
    refresh();
}

void WidgetGraphBase::refresh()
{
    m_graph.rebuild();
    reportRows();
    update();
}

void WidgetGraphBase::setLeastBand(double lines)
{
    m_graph.setLeastBand(lines);
    refresh();
}

void WidgetGraphBase::setFirstRow(int row)
{
    m_graph.setFirstRow(row);
    refresh();
}

void WidgetGraphBase::reportRows()
{
    const Rows rows{m_graph.firstRow(), m_graph.rowsInView(),
                    static_cast<int>(m_graph.visibleTraces().size())};
    if (std::exchange(m_rows, rows) != rows)
        emit signalRows();
}

bool WidgetGraphBase::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(tipAt(static_cast<const QHelpEvent*>(event)->pos()));
    return QOpenGLWidget::event(event);
}

QString WidgetGraphBase::tipAt(const QPointF& place) const
{
    const QPointF point(place.x(), m_graph.height() - place.y());
    for (const auto& [area, trace] : m_scaleLabels) {
        if (area.contains(point) && m_graph.hasTrace(trace))
            return scaleTip(m_graph, trace);
    }
    if (const NoteMark* const note = m_input.noteAt(place))
        return plainToolTip(note->text);
    constexpr double closePixels = 3.0;
    if (m_eventTip && m_graph.settings().hasEvents && m_graph.plot().contains(point)) {
        const QString tip = m_eventTip(m_graph.timeAt(point.x() - closePixels),
                                       m_graph.timeAt(point.x() + closePixels));
        if (!tip.isEmpty())
            return tip;
    }
    return hint();
}

void WidgetGraphBase::setCursorTime(double seconds)
{
    m_graph.setCursorTime(seconds);
    // Repaint even if the cursor moves by less than a pixel: the legend's values change.
    m_hasMoved = true;
    if (!m_followTimer.isActive())
        slotTimeoutFollow();
}

void WidgetGraphBase::releaseCursor()
{
    m_cursorTimer.stop();
    m_graph.releaseCursor();
}

void WidgetGraphBase::setTimeSpan(double seconds)
{
    m_graph.setTimeSpan(seconds);
    startRecalculation(recalcMilliseconds, 3);
    update();
}

void WidgetGraphBase::followCursor()
{
    m_graph.followCursor();
    update();
}

void WidgetGraphBase::setWindow(double start, double end)
{
    m_graph.setWindow(start, end);
    update();
}

void WidgetGraphBase::addEventLine(int number, double seconds)
{
    m_graph.addEventLine({number, seconds});
    update();
}

void WidgetGraphBase::setEventLines(std::vector<EventLine> lines)
{
    m_graph.setEventLines(std::move(lines));
    update();
}

void WidgetGraphBase::setEventTip(std::function<QString(double from, double to)> tip)
{
    m_eventTip = std::move(tip);
}

void WidgetGraphBase::setNotes(std::vector<NoteMark> notes)
{
    m_graph.setNotes(std::move(notes));
    update();
}

void WidgetGraphBase::clearEventLines()
{
    setEventLines({});
}

void WidgetGraphBase::resizeGL(int width, int height)
{
    m_graph.setSize(width, height);
    m_graph.rebuild();
}

void WidgetGraphBase::resizeEvent(QResizeEvent* event)
{
    QOpenGLWidget::resizeEvent(event);
    m_graph.setSize(event->size().width(), event->size().height());
    reportRows();
    startRecalculation(resizeMilliseconds, 0);
}

void WidgetGraphBase::paintGL()
{
    const GraphScene scene = buildScene(m_graph, m_input, devicePixelRatioF());
    drawScene(scene, devicePixelRatioF());
    m_scaleLabels = scene.scaleLabels;
    m_hasMoved = false;
    m_sinceRepaint.restart();
}

void WidgetGraphBase::startRecalculation(int milliseconds, int repeats)
{
    m_recalcRepeats = repeats;
    m_recalcTimer.start(milliseconds);
}

void WidgetGraphBase::slotTimeout()
{
    if (!isVisible() || !m_hasMoved)
        return;
    if (static_cast<double>(m_sinceRepaint.elapsed()) / 1000.0 >
        repaintThreshold * m_graph.pixelSeconds())
        update();
}

void WidgetGraphBase::slotTimeoutRecalc()
{
    refresh();
    if (m_recalcRepeats-- >= 1)
        m_recalcTimer.start(recalcMilliseconds);
}

void WidgetGraphBase::slotTimeoutCursor()
{
    releaseCursor();
    emit signalCursorReleased();
}

void WidgetGraphBase::slotTimeoutFollow()
{
    if (!isVisible() || !m_hasMoved)
        return;
    update();
    m_followTimer.start(repaintMilliseconds);
}

void WidgetGraphBase::act(const GraphResponse& response)
{
    if (response.hold == GraphResponse::Hold::Timed)
        m_cursorTimer.start();
    else if (response.hold != GraphResponse::Hold::Unchanged)
        m_cursorTimer.stop();
    if (response.recalculations && !m_recalcTimer.isActive())
        startRecalculation(recalcMilliseconds, *response.recalculations);
    if (response.needsRepaint)
        update();
    for (const GraphReport& report : response.reports)
        std::visit([this](const auto& each) { send(each); }, report);
    if (response.hasZoomed)
        emit signalZoomed();
    if (response.hasMeasured)
        emit signalMeasured();
    if (response.hold == GraphResponse::Hold::Ended)
        emit signalCursorReleased();
}

void WidgetGraphBase::send(const CursorReport& report)
{
    emit signalCursor(static_cast<float>(report.seconds), report.value);
}

void WidgetGraphBase::send(const CursorFinishedReport& /*report*/)
{
    emit signalMoveCursorFinished();
}

void WidgetGraphBase::send(const MarkersReport& report)
{
    emit signalMarker(static_cast<float>(report.markers.start),
                      static_cast<float>(report.markers.end));
}

void WidgetGraphBase::send(const ManualModeReport& /*report*/)
{
    emit signalManMode();
}

void WidgetGraphBase::send(const TraceMovedReport& report)
{
    emit signalMoveParameter(report.trace, report.row);
}

void WidgetGraphBase::keyPressEvent(QKeyEvent* event)
{
    const GraphResponse response = m_input.keyPress(event->key(), event->modifiers());
    if (response.isHandled)
        act(response);
    else
        QOpenGLWidget::keyPressEvent(event);
}

void WidgetGraphBase::mousePressEvent(QMouseEvent* event)
{
    act(m_input.mousePress(event->button(), event->position(), event->modifiers()));
}

void WidgetGraphBase::mouseMoveEvent(QMouseEvent* event)
{
    act(m_input.mouseMove(event->position(), event->modifiers()));
}

void WidgetGraphBase::mouseReleaseEvent(QMouseEvent* event)
{
    act(m_input.mouseRelease(event->button()));
}

void WidgetGraphBase::wheelEvent(QWheelEvent* event)
{
    act(m_input.wheel(event->angleDelta().y(), event->position().x(), event->modifiers()));
    event->accept();
}

} // namespace KOLT
