#pragma once

#include "graph/PlotLayout.h"
#include "graph/ScenePen.h"

namespace KOLT {

/// Names and values of the traces in view; in bands also both ends of the scale, if there is room,
/// and in the right corners the lowest and highest value in the window.
void drawLegend(ScenePen& pen, const Graph& graph, const PlotLayout& layout);

} // namespace KOLT
