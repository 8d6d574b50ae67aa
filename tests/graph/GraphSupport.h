#pragma once

#include "graph/Graph.h"

#include <QPointF>

#include <tuple>
#include <vector>

/// Helpers shared by the tests of the graph.
namespace KOLT::Test {

/// A trace of (time, value, mark) samples.
inline GraphTrace traceOf(const std::vector<std::tuple<double, double, int>>& samples)
{
    GraphTrace trace;
    for (const auto& [time, value, mark] : samples)
        trace.append(time, value, SampleMark(mark));
    return trace;
}

/// A plot of 400 by 200 pixels over 0 to 100 s, with two bands of 0 to 10.
inline Graph prepared()
{
    Graph graph;
    graph.setTraceCount(2);
    graph.editSettings().isAutoscaled = false;
    graph.editSettings().yMinimum = 0.0;
    graph.editSettings().yMaximum = 10.0;
    graph.setSize(Graph::leftMargin + 400.0 + Graph::rightMargin, 200.0 + Graph::bottomMargin);
    graph.setWindow(0.0, 100.0);
    return graph;
}

inline QPointF placeOf(const Graph& graph, double seconds, double yFromTop)
{
    return {graph.xOf(seconds), yFromTop};
}

} // namespace KOLT::Test
