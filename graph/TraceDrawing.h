#pragma once

#include "graph/GraphScene.h"

namespace KOLT {

/// Adds the lines of a trace to a scene, clipped to `area`: an upright stroke for each column, over
/// all that its samples reach, joined to its neighbours, so that a spike of one sample stays
/// visible at every zoom. No line leads across missing data. `pixelRatio` as for buildScene().
void drawTrace(GraphScene& scene, const Graph& graph, int trace, const QRectF& area,
               double pixelRatio);

} // namespace KOLT
