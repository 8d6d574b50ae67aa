#pragma once

#include <QPointF>

#include <array>
#include <span>
#include <vector>

namespace Zinc2D {

/// Indices of its corners.
using Triangle = std::array<std::size_t, 3>;

/// Cuts the area of a polygon into triangles. Points go clockwise as seen with y downwards and the
/// edges should not cross; where they do, some of the area may be missing. Convex ones cost
/// O(points), others up to O(points²); of more than 2000 points only convex ones are cut.
std::vector<Triangle> triangulate(std::span<const QPointF> points);

} // namespace Zinc2D
