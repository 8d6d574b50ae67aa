#pragma once

#include <QPointF>

#include <array>
#include <span>
#include <vector>

namespace Zinc2D {

/// Indices of three points.
using Triangle = std::array<std::size_t, 3>;

/// Cuts a polygon into triangles. Its points are in clockwise order with y downwards. Edges should
/// not cross; if they do, part of the area may be missing. Takes O(points) for convex polygons,
/// else usually O(points²); of more than 2000 points only convex polygons are cut.
std::vector<Triangle> triangulate(std::span<const QPointF> points);

} // namespace Zinc2D
