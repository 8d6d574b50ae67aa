#pragma once

#include "analysis/FaultFinder.h"
#include "analysis/TimeStrip.h"

#include <QWidget>

namespace KOLT {

/// One line of the fault matrix: class and name of a fault, its state at the current time, how
/// often it occurred, and a strip over the data set with the times in which it was set.
///
/// A click in the strip reports its moment; Left and Right go to the occurrence before and after.
class WidgetErrorTime : public QWidget
{
    Q_OBJECT

public:
    /// Where the parts lie. The name gets what it needs, but at most a third of the width or so.
    struct Layout
    {
        QRect errorClass;
        QRect name;
        QRect state;
        QRect count;
        QRect strip;
    };

    static Layout layoutFor(const QSize& size, int nameWidth);

    /// The history must outlive the widget. Times of the strip's ends in seconds.
    WidgetErrorTime(const FaultHistory& history, double first, double last, int nameWidth,
                    QWidget* parent = nullptr);

    const FaultHistory& history() const { return m_history; }

    /// Moves the line of the current time; repaints only when it reaches another pixel or state.
    void setTime(double seconds);

    QSize sizeHint() const override;

signals:
    void signalTime(double seconds);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    TimeStrip strip() const;
    void reportAt(int x);
    void paintClass(QPainter& painter) const;
    void paintState(QPainter& painter) const;
    void paintStrip(QPainter& painter) const;

    const FaultHistory& m_history;
    double m_first;
    double m_last;
    int m_nameWidth;
    double m_seconds = 0.0;
    Layout m_layout;
    std::vector<PixelRun> m_runs; ///< of the strip at its present width
};

} // namespace KOLT
