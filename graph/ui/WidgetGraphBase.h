#pragma once

#include "graph/GraphScene.h"

#include <QElapsedTimer>
#include <QOpenGLWidget>
#include <QTimer>

namespace KOLT {

/// The oscilloscope as a widget: forwards events to the graph's input, tells what the user did, and
/// draws the scene. What draws the figures differs between the two classes derived from it.
class WidgetGraphBase : public QOpenGLWidget
{
    Q_OBJECT

public:
    const Graph& graph() const { return m_graph; }

    void setSettings(const GraphSettings& settings);
    void setTraceCount(int count);
    /// The traces were made or filled: scales and shows them. First and last moment of the data.
    void setExtent(double first, double last);

    /// For whoever fills the traces; call setExtent() or refresh() afterwards.
    Graph& editGraph() { return m_graph; }

    /// Rebuilds the columns and repaints.
    void refresh();

    /// The replay's time. Nothing moves while the user holds the cursor.
    void setCursorTime(double seconds);

    /// How long a key holds the cursor.
    int holdMilliseconds() const { return m_cursorTimer.interval(); }

    void setHoldMilliseconds(int milliseconds) { m_cursorTimer.setInterval(milliseconds); }

    /// Ends the user's hold on the cursor without telling it.
    void releaseCursor();
    void setTimeSpan(double seconds);
    /// Puts the window where the cursor's mode wants it.
    void followCursor();
    void setWindow(double start, double end);
    void addEventLine(int number, double seconds);
    void setEventLines(std::vector<EventLine> lines);
    void clearEventLines();

    /// Name, shown range and colour do not depend on the drawing; this does.
    static QString hint();

signals:
    void signalCursor(float seconds, double value);
    void signalMoveCursorFinished();
    void signalMarker(float left, float right);
    void signalManMode();
    void signalMoveParameter(int trace, int row);
    /// The user's hold on the cursor ended: the replay has it again.
    void signalCursorReleased();
    /// The user chose another span by wheel or key.
    void signalZoomed();

protected:
    explicit WidgetGraphBase(QWidget* parent);

    /// Draws the scene; the context is current.
    virtual void drawScene(const GraphScene& scene, double pixelRatio) = 0;

    void resizeGL(int width, int height) override;
    void paintGL() override;
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
    void measureFont();
    void startRecalculation(int milliseconds, int repeats);

    Graph m_graph;
    GraphInput m_input{m_graph};
    QTimer m_repaintTimer;
    QTimer m_recalcTimer;
    QTimer m_cursorTimer;
    int m_recalcRepeats = 0;
    QTimer m_followTimer;    ///< runs for a while after a repaint that the time asked for
    bool m_hasMoved = false; ///< since the last repaint
    QElapsedTimer m_sinceRepaint;
};

} // namespace KOLT
