#include "libs/zinc/drawing/Triangulation.h"

#include <algorithm>
#include <numeric>

namespace Zinc2D {

namespace {

constexpr std::size_t mostPoints = 2000;

/// Positive if a, b, c turn clockwise.
double turn(const QPointF& a, const QPointF& b, const QPointF& c)
{
    return (b.x() - a.x()) * (c.y() - b.y()) - (b.y() - a.y()) * (c.x() - b.x());
}

bool isConvex(std::span<const QPointF> points)
{
    // A star also turns clockwise everywhere, but more than once around.
    int directionChanges = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const QPointF& a = points[i];
        const QPointF& b = points[(i + 1) % points.size()];
        const QPointF& c = points[(i + 2) % points.size()];
        if (turn(a, b, c) < 0.0)
            return false;
        if ((b.x() < a.x()) != (c.x() < b.x()))
            ++directionChanges;
    }
    return directionChanges <= 2;
}

bool isInside(const QPointF& point, const QPointF& a, const QPointF& b, const QPointF& c)
{
    return turn(a, b, point) >= 0.0 && turn(b, c, point) >= 0.0 && turn(c, a, point) >= 0.0;
}

} // namespace

std::vector<Triangle> triangulate(std::span<const QPointF> points)
{
    std::vector<Triangle> triangles;
    if (points.size() < 3)
        return triangles;
    if (isConvex(points)) {
        for (std::size_t i = 1; i + 1 < points.size(); ++i)
            triangles.push_back({0, i, i + 1});
        return triangles;
    }
    if (points.size() > mostPoints)
        return triangles;
    std::vector<std::size_t> left(points.size());
    std::iota(left.begin(), left.end(), std::size_t{0});
    // Ear clipping: cuts off convex corners that contain no other point.
    std::size_t at = 0;
    std::size_t failures = 0;
    while (left.size() > 3 && failures < left.size()) {
        const std::size_t count = left.size();
        const std::size_t before = left[(at + count - 1) % count];
        const std::size_t here = left[at % count];
        const std::size_t after = left[(at + 1) % count];
        const auto isOther = [&](std::size_t i) {
            return points[i] != points[before] && points[i] != points[here] &&
                   points[i] != points[after];
        };
        const bool isEar = turn(points[before], points[here], points[after]) > 0.0 &&
                           std::ranges::none_of(left, [&](std::size_t i) {
                               return isOther(i) && isInside(points[i], points[before],
                                                             points[here], points[after]);
                           });
        if (isEar) {
            triangles.push_back({before, here, after});
            left.erase(left.begin() + static_cast<std::ptrdiff_t>(at % count));
            failures = 0;
        } else {
            ++failures;
            ++at;
        }
        at %= left.size();
    }
    if (left.size() == 3)
        triangles.push_back({left[0], left[1], left[2]});
    return triangles;
}

} // namespace Zinc2D
