#pragma once

#include "libs/tusk/gl/MeshVertex.h"
#include "libs/zinc/layout/DrawList.h"

#include <QPointF>

#include <span>
#include <vector>

namespace Zinc2D {

/// Maps view units to framebuffer pixels, both from the upper left corner.
struct PixelMap
{
    double scale = 1.0;
    QPointF offset;

    QPointF map(const QPointF& point) const { return offset + scale * point; }

    bool operator==(const PixelMap&) const = default;
};

/// Adds the triangles of a fill or stroke, in pixels from the upper left. Edges are antialiased:
/// the alpha falls to 0 within half a pixel on either side. Axis-parallel rectangles and lines are
/// snapped to whole pixels instead, where they are sharp. Shapes beyond 1e5 pixels are left out.
void addMesh(const DrawCommand& command, std::span<const QPointF> points, const PixelMap& map,
             std::vector<TUSK::OpenGL::MeshVertex>& vertices);

} // namespace Zinc2D
