#pragma once

#include "graph/PlotLayout.h"
#include "graph/ScenePen.h"

namespace KOLT {

/// The colour square of a trace in the legend.
struct LegendSwatch
{
    QRectF area;
    QColor color;
};

/// Names and values of the visible traces. Returns the swatches, which lie above the traces.
std::vector<LegendSwatch> drawLegend(ScenePen& pen, const Graph& graph, const PlotLayout& layout);

/// Both ends of a band's scale, if the legend leaves room for them.
void drawScaleLabel(ScenePen& pen, const Graph& graph, const PlotLayout& layout, int trace);

/// The panel of the statistic, in place of the texts below it.
void drawStatistic(ScenePen& pen, const PlotLayout& layout);

} // namespace KOLT
