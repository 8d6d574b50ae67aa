#pragma once

#include "graph/ScenePen.h"

namespace KOLT {

/// Adds the lines of a trace to a scene, clipped to `area`. Each column becomes a vertical stroke
/// from its lowest to its highest value, joined to its neighbours, so that a spike of one sample is
/// visible at every zoom. No line crosses missing data. `pixelRatio` as for buildScene().
void drawTrace(ScenePen& pen, const Graph& graph, int trace, const QRectF& area, double pixelRatio);

} // namespace KOLT
