#pragma once

#include <QScrollBar>

namespace KOLT {

class WidgetGraphBase;

/// Scrolls the bands of a graph that has no room for all of them, whole bands at a time. The time
/// axis stays in view. Page Up and Page Down scroll too while the graph has the focus.
class BandScroll : public QScrollBar
{
    Q_OBJECT

public:
    explicit BandScroll(WidgetGraphBase& graph, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();

    WidgetGraphBase& m_graph;
};

} // namespace KOLT
