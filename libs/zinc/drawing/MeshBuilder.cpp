#include "libs/zinc/drawing/MeshBuilder.h"

#include "libs/zinc/drawing/PixelSnap.h"
#include "libs/zinc/drawing/Triangulation.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Zinc2D {

namespace {

using TUSK::OpenGL::MeshVertex;

constexpr double feather = 0.5;   ///< pixels on either side of an edge
constexpr double mostMiter = 3.0; ///< miter limit, in line widths
constexpr double farthest = 1e5;  ///< pixels
constexpr double tiniest = 1e-9;

double length(const QPointF& vector)
{
    return std::hypot(vector.x(), vector.y());
}

/// Unit normal to the left of the direction; (0, 0) if the points coincide.
QPointF normal(const QPointF& from, const QPointF& to)
{
    const QPointF way = to - from;
    const double size = length(way);
    return size < tiniest ? QPointF() : QPointF(way.y(), -way.x()) / size;
}

/// Offset of the corner between two edges when both move by 1 along their normals.
QPointF miter(const QPointF& first, const QPointF& second)
{
    const QPointF sum = first + second;
    const double square = QPointF::dotProduct(sum, sum);
    if (square < tiniest)
        return first.isNull() ? second : first;
    return sum * std::min(2.0 / square, mostMiter / std::sqrt(square));
}

class Mesh
{
public:
    Mesh(Argb color, std::vector<MeshVertex>& vertices)
        : m_color(color)
        , m_vertices(vertices)
    {
    }

    /// `strength` scales the alpha of the colour.
    struct Corner
    {
        QPointF place;
        double strength = 1.0;
    };

    void triangle(const Corner& a, const Corner& b, const Corner& c)
    {
        for (const Corner* corner : {&a, &b, &c})
            m_vertices.push_back(vertex(*corner));
    }

    void quad(const Corner& a, const Corner& b, const Corner& c, const Corner& d)
    {
        triangle(a, b, c);
        triangle(a, c, d);
    }

private:
    MeshVertex vertex(const Corner& corner) const
    {
        const auto alpha = static_cast<Argb>(std::lround((m_color >> 24) * corner.strength));
        return {static_cast<float>(corner.place.x()), static_cast<float>(corner.place.y()), 0.0F,
                0.0F, TUSK::OpenGL::rgbaOf((m_color & 0xFFFFFFU) | alpha << 24)};
    }

    Argb m_color;
    std::vector<MeshVertex>& m_vertices;
};

double signedArea(std::span<const QPointF> points)
{
    double area = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const QPointF& next = points[(i + 1) % points.size()];
        area += points[i].x() * next.y() - next.x() * points[i].y();
    }
    return area / 2.0;
}

/// Removes consecutive points that coincide.
void dropRepeated(std::vector<QPointF>& points, Path path)
{
    const auto isSame = [](const QPointF& a, const QPointF& b) { return length(a - b) < 1e-4; };
    points.erase(std::unique(points.begin(), points.end(), isSame), points.end());
    while (path == Path::Closed && points.size() > 1 && isSame(points.front(), points.back()))
        points.pop_back();
}

std::vector<QPointF> miters(std::span<const QPointF> points, Path path)
{
    const bool isClosed = path == Path::Closed;
    const std::size_t count = points.size();
    std::vector<QPointF> result(count);
    for (std::size_t i = 0; i < count; ++i) {
        const bool hasBefore = isClosed || i > 0;
        const bool hasAfter = isClosed || i + 1 < count;
        const QPointF before =
            hasBefore ? normal(points[(i + count - 1) % count], points[i]) : QPointF();
        const QPointF after = hasAfter ? normal(points[i], points[(i + 1) % count]) : QPointF();
        result[i] = !hasBefore ? after : !hasAfter ? before : miter(before, after);
    }
    return result;
}

void addFill(std::vector<QPointF> points, Mesh& mesh)
{
    if (snapRectangle(points)) {
        mesh.quad({points[0]}, {points[1]}, {points[2]}, {points[3]});
        return;
    }
    dropRepeated(points, Path::Closed);
    if (points.size() < 3)
        return;
    if (signedArea(points) < 0.0)
        std::ranges::reverse(points);
    const std::vector<QPointF> outwards = miters(points, Path::Closed);
    std::vector<QPointF> inner = points;
    for (std::size_t i = 0; i < points.size(); ++i)
        inner[i] -= feather * outwards[i];
    for (const Triangle& corners : triangulate(points))
        mesh.triangle({inner[corners[0]]}, {inner[corners[1]]}, {inner[corners[2]]});
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::size_t next = (i + 1) % points.size();
        mesh.quad({inner[i]}, {inner[next]}, {points[next] + feather * outwards[next], 0.0},
                  {points[i] + feather * outwards[i], 0.0});
    }
}

/// Half the width of a stroke where it is opaque and where its edge has faded, and its alpha.
struct StrokeEdges
{
    double inner = 0.0;
    double outer = 0.0;
    double strength = 1.0;
};

/// The antialiased end of a line; `way` points outwards.
void addCap(const QPointF& end, const QPointF& side, const QPointF& way, const StrokeEdges& edges,
            Mesh& mesh)
{
    const auto& [inner, outer, strength] = edges;
    const QPointF beyond = end + feather * way;
    const QPointF before = end - feather * way;
    mesh.quad({before + inner * side, strength}, {before - inner * side, strength},
              {beyond - inner * side, 0.0}, {beyond + inner * side, 0.0});
    for (const double sign : {-1.0, 1.0})
        mesh.triangle({before + sign * inner * side, strength}, {beyond + sign * inner * side, 0.0},
                      {before + sign * outer * side, 0.0});
}

void addStroke(std::vector<QPointF> points, double width, Path path, Mesh& mesh)
{
    width = snapStroke(points, width, path);
    dropRepeated(points, path);
    if (points.size() < 2)
        return;
    // A line thinner than a pixel is drawn a pixel wide and paler.
    const StrokeEdges edges{std::max(width / 2.0 - feather, 0.0),
                            std::max(width / 2.0, feather) + feather, std::min(width, 1.0)};
    const auto& [inner, outer, strength] = edges;
    const std::vector<QPointF> sides = miters(points, path);
    std::vector<QPointF> along = points;
    const bool isClosed = path == Path::Closed;
    if (!isClosed) { // the antialiased ends take half a pixel of the line
        const auto pull = [](QPointF& end, const QPointF& next) {
            const QPointF way = next - end;
            end += way * std::min(feather / length(way), 0.5);
        };
        pull(along.front(), points[1]);
        pull(along.back(), points[points.size() - 2]);
    }
    const std::size_t count = isClosed ? points.size() : points.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t next = (i + 1) % points.size();
        const QPointF& a = along[i];
        const QPointF& b = along[next];
        if (inner > 0.0)
            mesh.quad({a + inner * sides[i], strength}, {b + inner * sides[next], strength},
                      {b - inner * sides[next], strength}, {a - inner * sides[i], strength});
        for (const double sign : {-1.0, 1.0})
            mesh.quad({a + sign * inner * sides[i], strength},
                      {b + sign * inner * sides[next], strength},
                      {b + sign * outer * sides[next], 0.0}, {a + sign * outer * sides[i], 0.0});
    }
    if (isClosed)
        return;
    const auto wayOf = [](const QPointF& from, const QPointF& to) {
        return (to - from) / length(to - from);
    };
    addCap(points.front(), sides.front(), wayOf(points[1], points[0]), edges, mesh);
    addCap(points.back(), sides.back(), wayOf(points[points.size() - 2], points.back()), edges,
           mesh);
}

} // namespace

void addMesh(const DrawCommand& command, std::span<const QPointF> points, const PixelMap& map,
             std::vector<MeshVertex>& vertices)
{
    std::vector<QPointF> mapped;
    mapped.reserve(points.size());
    for (const QPointF& point : points)
        mapped.push_back(map.map(point));
    const bool isDrawable = std::ranges::all_of(mapped, [](const QPointF& point) {
        return std::abs(point.x()) < farthest && std::abs(point.y()) < farthest;
    });
    const double width = command.thickness * map.scale;
    if (!isDrawable || width > farthest)
        return;
    Mesh mesh(command.color, vertices);
    if (command.kind == DrawCommand::Kind::Fill)
        addFill(std::move(mapped), mesh);
    else
        addStroke(std::move(mapped), width, command.path, mesh);
}

} // namespace Zinc2D
