#pragma once

#include "graph/TraceFeeder.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace KOLT {

class WidgetGraphBase;

/// Fills the traces of a graph in steps of a few milliseconds, so that the window stays responsive,
/// and repaints it meanwhile.
class TraceLoader : public QObject
{
    Q_OBJECT

public:
    explicit TraceLoader(WidgetGraphBase& graph, QObject* parent = nullptr);

    /// See TraceFeeder::begin(). The first step is up to the caller.
    void begin(const Profile& profile, const std::vector<const ProfileParameter*>& parameters,
               const DataSet& dataSet);
    void cancel();
    void step();

    bool isActive() const { return m_timer.isActive(); }

    const TraceFeeder& feeder() const { return m_feeder; }

signals:
    /// After each step.
    void signalProgress();

private:
    WidgetGraphBase& m_graph;
    TraceFeeder m_feeder;
    QTimer m_timer;
    QElapsedTimer m_sinceRepaint;
};

} // namespace KOLT
