#pragma once

#include "graph/GraphScene.h"

class QPainter;

namespace KOLT {

/// Draws a scene of this size without OpenGL, from the painter's origin, with the painter's font.
void paintScene(QPainter& painter, const GraphScene& scene, const QSizeF& size);

} // namespace KOLT
