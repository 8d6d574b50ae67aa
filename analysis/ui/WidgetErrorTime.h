#pragma once

#include "analysis/FaultListModel.h"
#include "analysis/TimeStrip.h"

#include <QWidget>

#include <optional>

namespace KOLT {

/// One line of the fault matrix: class and name of a fault, its state at the current time, the
/// number of occurrences, and a strip over the data set with the times in which it was set.
///
/// The time under the pointer is shown in the strip. A click there reports that moment; the keys
/// Left and Right report the start of the occurrence before and after the current time.
class WidgetErrorTime : public QWidget
{
    Q_OBJECT

public:
    /// Where the parts lie.
    struct Layout
    {
        QRect errorClass;
        QRect name;
        QRect state;
        QRect count;
        QRect strip;
    };

    /// The name gets `nameWidth` pixels, but at most 35 % of the width.
    static Layout layoutFor(const QSize& size, int nameWidth);

    /// The history must outlive the widget. `first` and `last` are the times of the strip's ends.
    WidgetErrorTime(const FaultHistory& history, double first, double last, int nameWidth,
                    QWidget* parent = nullptr);

    const FaultHistory& history() const { return m_history; }

    /// Moves the line of the current time; repaints only if its pixel or the state changes.
    void setTime(double seconds);

    QSize sizeHint() const override;

signals:
    void signalTime(double seconds);
    /// The moment that was reported last belongs to this occurrence.
    void signalPicked(const KOLT::FaultEntry& occurrence);
    void signalShowInGraph(const KOLT::GraphTarget& target);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void reportAt(int x);
    void setPointer(std::optional<int> x);
    /// The occurrence that is meant at the current time: the one that it is in, the one before, or
    /// the first. Null if there is none.
    const FaultInterval* currentInterval() const;
    void showInGraph(const FaultInterval* interval);
    void paintClass(QPainter& painter) const;
    void paintState(QPainter& painter) const;
    void paintStrip(QPainter& painter) const;
    void paintPointer(QPainter& painter) const;

    const FaultHistory& m_history;
    int m_nameWidth;
    double m_seconds;
    Layout m_layout;
    TimeStrip m_strip;            ///< across the layout's strip
    std::vector<PixelRun> m_runs; ///< of m_strip
    std::optional<int> m_pointer; ///< x of the mouse pointer in the strip
};

} // namespace KOLT
