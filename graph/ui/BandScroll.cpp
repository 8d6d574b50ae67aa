#include "graph/ui/BandScroll.h"

#include "graph/ui/WidgetGraphBase.h"

#include <QKeyEvent>
#include <QSignalBlocker>

namespace KOLT {

namespace {

constexpr double leastLines = 2.5; ///< of a band: a text at the top, one at the bottom, and a gap

} // namespace

BandScroll::BandScroll(WidgetGraphBase& graph, QWidget* parent)
    : QScrollBar(Qt::Vertical, parent)
    , m_graph(graph)
{
    setAccessibleName(tr("Traces in view"));
    connect(&graph, &WidgetGraphBase::signalRows, this, &BandScroll::follow);
    connect(this, &QScrollBar::valueChanged, &graph, &WidgetGraphBase::setFirstRow);
    graph.installEventFilter(this);
    graph.setLeastBand(leastLines);
    follow();
}

void BandScroll::follow()
{
    const Graph& graph = m_graph.graph();
    const QSignalBlocker blocker(this);
    setPageStep(graph.rowsInView());
    setRange(0, static_cast<int>(graph.visibleTraces().size()) - graph.rowsInView());
    setValue(graph.firstRow());
    setVisible(maximum() > 0);
}

bool BandScroll::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && maximum() > 0) {
        const int key = static_cast<const QKeyEvent*>(event)->key();
        if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            triggerAction(key == Qt::Key_PageUp ? SliderPageStepSub : SliderPageStepAdd);
            return true;
        }
    }
    return QScrollBar::eventFilter(watched, event);
}

} // namespace KOLT
