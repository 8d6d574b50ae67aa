#pragma once

#include "graph/GraphScene.h"

#include <QElapsedTimer>
#include <QOpenGLWidget>
#include <QTimer>

#include <functional>

namespace KOLT {

/// The oscilloscope widget: passes events to GraphInput, emits what the user did as signals, and
/// schedules repaints. Derived classes draw the scene.
class WidgetGraphBase : public QOpenGLWidget
{
    Q_OBJECT

public:
    const Graph& graph() const { return m_graph; }

    void setSettings(const GraphSettings& settings);

    /// For changing the settings or filling traces; call setExtent() or refresh() afterwards.
    Graph& editGraph() { return m_graph; }

    void setTraceCount(int count);
    /// First and last time of the data. Call after the traces were made or filled: rescales and
    /// repaints.
    void setExtent(double first, double last);

    /// Rebuilds the columns and repaints.
    void refresh();

    /// Sets the replay time. Ignored while the user holds the cursor.
    void setCursorTime(double seconds);

    /// How long a key press holds the cursor.
    int holdMilliseconds() const { return m_cursorTimer.interval(); }

    void setHoldMilliseconds(int milliseconds) { m_cursorTimer.setInterval(milliseconds); }

    /// Ends the user's hold on the cursor without a signal.
    void releaseCursor();
    void setTimeSpan(double seconds);
    /// Moves the window to where the cursor mode wants it.
    void followCursor();
    void setWindow(double start, double end);
    void addEventLine(int number, double seconds);
    void setEventLines(std::vector<EventLine> lines);
    void clearEventLines();
    /// What a tool tip tells of the event lines from..to; empty where there are none.
    void setEventTip(std::function<QString(double from, double to)> tip);

    /// Notes to mark; a tool tip tells their texts.
    void setNotes(std::vector<NoteMark> notes);

    /// See Graph::setLeastBand().
    void setLeastBand(double lines);
    void setFirstRow(int row);

    /// Whether the user is moving the markers.
    bool isMeasuring() const { return m_input.isMeasuring(); }

    /// Tool tip that explains mouse and keys.
    static QString hint();

signals:
    void signalCursor(float seconds, double value);
    void signalMoveCursorFinished();
    void signalMarker(float left, float right);
    void signalManMode();
    void signalMoveParameter(int trace, int row);
    /// The user's hold on the cursor ended; it follows the replay again.
    void signalCursorReleased();
    /// The user changed the span by wheel or key; the settings have it.
    void signalZoomed();
    /// The user has set the markers: the button is released.
    void signalMeasured();
    /// Other bands are in view, or more or fewer.
    void signalRows();

protected:
    explicit WidgetGraphBase(QWidget* parent);

    /// Draws the scene; the context is current.
    virtual void drawScene(const GraphScene& scene, double pixelRatio) = 0;

    void resizeGL(int width, int height) override;
    void paintGL() override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private slots:
    void slotTimeout();
    void slotTimeoutRecalc();
    void slotTimeoutCursor();
    void slotTimeoutFollow();

private:
    void act(const GraphResponse& response);
    void send(const CursorReport& report);
    void send(const CursorFinishedReport& report);
    void send(const MarkersReport& report);
    void send(const ManualModeReport& report);
    void send(const TraceMovedReport& report);
    void measureFont();
    void reportRows();
    QString tipAt(const QPointF& place) const;
    void startRecalculation(int milliseconds, int repeats);

    /// What decides which bands are in view.
    struct Rows
    {
        int first = 0;
        int inView = 0;
        int all = 0;

        bool operator==(const Rows&) const = default;
    };

    Graph m_graph;
    GraphInput m_input{m_graph};
    QTimer m_repaintTimer;
    QTimer m_recalcTimer;
    QTimer m_cursorTimer;
    int m_recalcRepeats = 0;
    QTimer m_followTimer;    ///< limits how often setCursorTime() repaints
    bool m_hasMoved = false; ///< since the last repaint
    QElapsedTimer m_sinceRepaint;
    std::function<QString(double, double)> m_eventTip;
    Rows m_rows; ///< as last reported
    std::vector<GraphScene::ScaleLabel> m_scaleLabels;
};

} // namespace KOLT
