#include "libs/zinc/drawing/PixelSnap.h"

#include <algorithm>
#include <cmath>

namespace Zinc2D {

namespace {

bool isNear(double a, double b)
{
    return std::abs(a - b) < 1e-6;
}

bool isLevelRectangle(std::span<const QPointF> corners)
{
    return corners.size() == 4 && isNear(corners[0].y(), corners[1].y()) &&
           isNear(corners[1].x(), corners[2].x()) && isNear(corners[2].y(), corners[3].y()) &&
           isNear(corners[3].x(), corners[0].x());
}

/// Centre of a line whose edges are then on the boundaries of pixels.
double snapped(double middle, double width)
{
    const double half = std::max(std::round(width), 1.0) / 2.0;
    return std::round(middle - half) + half;
}

} // namespace

bool snapRectangle(std::span<QPointF> corners)
{
    if (!isLevelRectangle(corners))
        return false;
    for (QPointF& corner : corners)
        corner = {std::round(corner.x()), std::round(corner.y())};
    const double width = corners[1].x() - corners[0].x();
    const double height = corners[3].y() - corners[0].y();
    if (width == 0.0) {
        corners[1].rx() += 1.0;
        corners[2].rx() += 1.0;
    }
    if (height == 0.0) {
        corners[2].ry() += 1.0;
        corners[3].ry() += 1.0;
    }
    return true;
}

double snapStroke(std::span<QPointF> points, double width, Path path)
{
    const double whole = std::max(std::round(width), 1.0);
    if (isLevelRectangle(points) && path == Path::Closed) {
        for (QPointF& point : points)
            point = {snapped(point.x(), width), snapped(point.y(), width)};
        return whole;
    }
    if (points.size() != 2 || path == Path::Closed)
        return width;
    if (isNear(points[0].y(), points[1].y()))
        points[0].ry() = points[1].ry() = snapped(points[0].y(), width);
    else if (isNear(points[0].x(), points[1].x()))
        points[0].rx() = points[1].rx() = snapped(points[0].x(), width);
    else
        return width;
    return whole;
}

} // namespace Zinc2D
