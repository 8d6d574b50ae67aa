#pragma once

#include "graph/Graph.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

#include <QHash>

#include <chrono>
#include <deque>
#include <vector>

namespace KOLT {

/// Fills a trace of the graph with the samples of a parameter, in the profile's unit system.
///
/// A sample follows a gap if it is more than three times the usual spacing of its series, and at
/// least 1 s, later than the one before. Infinite values become NaN. Samples whose times do not
/// ascend are sorted by time. The trace reads its times from the data set, which must stay alive
/// until the trace is cleared; traces of one message share their times.
void feedTrace(Graph& graph, int index, const Profile& profile, const ProfileParameter& parameter,
               const DataSet& dataSet);

/// As feedTrace(), with the samples within a time only, which it copies: O(those samples) where
/// times ascend.
void feedTraceWithin(Graph& graph, int index, const Profile& profile,
                     const ProfileParameter& parameter, const DataSet& dataSet,
                     const TimeRange& range);

/// Fills all traces of a graph in short steps, so that the window stays responsive during long
/// recordings.
class TraceFeeder
{
public:
    explicit TraceFeeder(Graph& graph)
        : m_graph(graph)
    {
    }

    /// Makes one trace per parameter, 1 to Graph::maxTraces, in this order. Traces already filled
    /// from the same samples in the same unit are kept, and so is the selected trace; the others
    /// are empty until feed() fills them. Parameters keep their colour when the order changes. The
    /// arguments must stay alive until cancel().
    void begin(const Profile& profile, const std::vector<const ProfileParameter*>& parameters,
               const DataSet& dataSet);

    void cancel() { m_pending.clear(); }

    /// Fills one trace, then more until the time is up. True when all are filled.
    bool feed(std::chrono::milliseconds budget);

    bool isDone() const { return m_pending.empty(); }

    std::size_t total() const { return m_total; } ///< traces that begin() left to fill

    std::size_t filled() const { return m_total - m_pending.size(); }

private:
    std::vector<int> stylesOf(const std::vector<const ProfileParameter*>& parameters);

    Graph& m_graph;
    const Profile* m_profile = nullptr;
    const DataSet* m_dataSet = nullptr;
    std::deque<int> m_pending; ///< traces to fill
    std::size_t m_total = 0;
    QHash<QString, int> m_styles; ///< of the parameters by full name
};

} // namespace KOLT
