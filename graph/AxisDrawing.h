#pragma once

#include "graph/PlotLayout.h"
#include "graph/ScenePen.h"

namespace KOLT {

/// Fills everything around the plot.
void drawMargins(ScenePen& pen, const Graph& graph);

/// Grid lines, ticks and labels of the time axis.
void drawTimeAxis(ScenePen& pen, const Graph& graph, const PlotLayout& layout);

/// What the labels of the time axis lack below a second, above the axis.
void drawFractions(ScenePen& pen, const Graph& graph, const PlotLayout& layout);

/// Grid lines, ticks and labels of a value axis. Labels have the decimals, or more if the range is
/// small.
void drawValueAxis(ScenePen& pen, const Graph& graph, const GraphScale& scale, int decimals);

} // namespace KOLT
