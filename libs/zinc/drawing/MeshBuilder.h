#pragma once

#include "libs/tusk/gl/MeshVertex.h"
#include "libs/zinc/layout/DrawList.h"

#include <QPointF>

#include <span>
#include <vector>

namespace Zinc2D {

/// From the view's units to pixels of the framebuffer, both from the upper left corner.
struct PixelMap
{
    double scale = 1.0;
    QPointF offset;

    QPointF map(const QPointF& point) const { return offset + scale * point; }

    bool operator==(const PixelMap&) const = default;
};

/// Triangles of a fill or stroke, in pixels from the upper left. Edges are smooth: half a pixel on
/// either side of them the alpha falls to 0. Level edges of rectangles and level lines go to whole
/// pixels, where they are sharp. What is larger than 1e5 pixels is left out.
void addMesh(const DrawCommand& command, std::span<const QPointF> points, const PixelMap& map,
             std::vector<TUSK::OpenGL::MeshVertex>& vertices);

} // namespace Zinc2D
