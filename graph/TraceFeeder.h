#pragma once

#include "graph/Graph.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

#include <chrono>
#include <deque>
#include <vector>

namespace KOLT {

/// Fills a trace of the graph with the samples of a parameter, in the profile's unit system.
///
/// A sample is marked as coming after a gap when it lies more than three times the usual spacing
/// of its series, and at least 1 s, behind the one before. Infinite values count as no number. The
/// trace reads its times from the data set, which must stay until the trace is cleared; traces of
/// one message share what is known about them.
void feedTrace(Graph& graph, int index, const Profile& profile, const ProfileParameter& parameter,
               const DataSet& dataSet);

/// Fills all traces of a graph, some of them at a time, so that the window stays alive over long
/// recordings.
class TraceFeeder
{
public:
    explicit TraceFeeder(Graph& graph)
        : m_graph(graph)
    {
    }

    /// Makes a trace for each parameter, 1 to Graph::maxTraces of them, in this order. What was fed
    /// before from the same samples in the same unit is kept, and so is the selection; the other
    /// traces are empty until feed() fills them. Nothing given here may go before cancel().
    void begin(const Profile& profile, const std::vector<const ProfileParameter*>& parameters,
               const DataSet& dataSet);

    void cancel() { m_pending.clear(); }

    /// Fills one trace, and further ones until the time is up. True when none is left.
    bool feed(std::chrono::milliseconds budget);

    bool isDone() const { return m_pending.empty(); }

    std::size_t total() const { return m_total; } ///< traces to fill, as begin() found

    std::size_t filled() const { return m_total - m_pending.size(); }

private:
    Graph& m_graph;
    const Profile* m_profile = nullptr;
    const DataSet* m_dataSet = nullptr;
    std::deque<int> m_pending; ///< traces to fill
    std::size_t m_total = 0;
};

} // namespace KOLT
