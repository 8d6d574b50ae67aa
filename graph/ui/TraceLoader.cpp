#include "graph/ui/TraceLoader.h"

#include "graph/ui/WidgetGraphBase.h"

namespace KOLT {

namespace {

constexpr std::chrono::milliseconds stepBudget(15);
constexpr int repaintMilliseconds = 100;

} // namespace

TraceLoader::TraceLoader(WidgetGraphBase& graph, QObject* parent)
    : QObject(parent)
    , m_graph(graph)
    , m_feeder(graph.editGraph())
{
    connect(&m_timer, &QTimer::timeout, this, &TraceLoader::step);
}

void TraceLoader::begin(const Profile& profile,
                        const std::vector<const ProfileParameter*>& parameters,
                        const DataSet& dataSet)
{
    m_feeder.begin(profile, parameters, dataSet);
    m_sinceRepaint.start();
    m_timer.start(0);
}

void TraceLoader::cancel()
{
    m_feeder.cancel();
    m_timer.stop();
    emit signalProgress();
}

void TraceLoader::step()
{
    const bool isDone = m_feeder.feed(stepBudget);
    if (isDone)
        m_timer.stop();
    if (isDone || m_sinceRepaint.elapsed() > repaintMilliseconds) {
        m_graph.refresh();
        m_sinceRepaint.start();
    }
    emit signalProgress();
}

} // namespace KOLT
