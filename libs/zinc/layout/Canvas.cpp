#include "libs/zinc/layout/Canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Zinc2D {

namespace {

constexpr double radians = std::numbers::pi / 180.0;
constexpr double roughness = 0.05; ///< largest distance of a chord from its circle, in view units
constexpr int mostSegments = 360;

int segments(double radius, double sweep)
{
    const double ratio = std::clamp(1.0 - roughness / std::max(radius, roughness), -1.0, 1.0);
    const double step = 2.0 * std::acos(ratio) / radians;
    const double count = std::ceil(std::abs(sweep) / std::max(step, 1.0));
    return static_cast<int>(std::clamp(count, 2.0, static_cast<double>(mostSegments)));
}

void addArc(std::vector<QPointF>& points, const QPointF& center, double radius, double start,
            double sweep)
{
    const int count = segments(radius, sweep);
    const double step = sweep / count * radians;
    const double cosine = std::cos(step);
    const double sine = std::sin(step);
    QPointF arm = onCircle({}, radius, start);
    points.reserve(points.size() + static_cast<std::size_t>(count) + 1);
    for (int i = 0; i <= count; ++i) {
        points.push_back(center + arm);
        arm = {arm.x() * cosine - arm.y() * sine, arm.x() * sine + arm.y() * cosine};
    }
}

std::vector<QPointF> outline(const QRectF& area, double corner)
{
    const double most = std::min(area.width(), area.height()) / 2.0;
    const double radius = std::clamp(corner, 0.0, std::max(most, 0.0));
    if (radius <= 0.0)
        return {area.topLeft(), area.topRight(), area.bottomRight(), area.bottomLeft()};
    std::vector<QPointF> points;
    const QRectF inner = area.adjusted(radius, radius, -radius, -radius);
    addArc(points, inner.topRight(), radius, 0.0, 90.0);
    addArc(points, inner.bottomRight(), radius, 90.0, 90.0);
    addArc(points, inner.bottomLeft(), radius, 180.0, 90.0);
    addArc(points, inner.topLeft(), radius, 270.0, 90.0);
    return points;
}

std::vector<QPointF> fullCircle(const QPointF& center, double radius)
{
    std::vector<QPointF> points;
    addArc(points, center, radius, 0.0, 360.0);
    points.pop_back(); // the same as the first
    return points;
}

} // namespace

Argb faded(Argb color, double opacity)
{
    const double alpha = std::clamp((color >> 24) * opacity, 0.0, 255.0);
    return (static_cast<Argb>(std::lround(alpha)) << 24) | (color & 0xFFFFFFU);
}

QPointF onCircle(const QPointF& center, double radius, double angle)
{
    return {center.x() + radius * std::sin(angle * radians),
            center.y() - radius * std::cos(angle * radians)};
}

DrawCommand& Canvas::add(DrawCommand::Kind kind, Argb color, std::span<const QPointF> points)
{
    DrawCommand& command = m_list.commands.emplace_back();
    command.kind = kind;
    command.color = faded(color, m_placement.opacity);
    command.firstPoint = m_list.points.size();
    command.pointCount = points.size();
    command.clip = m_clip;
    for (const QPointF& point : points)
        m_list.points.push_back(m_placement.transform.map(point));
    return command;
}

void Canvas::polygon(std::span<const QPointF> points, Argb fill)
{
    if (points.size() >= 3 && (fill >> 24) != 0)
        add(DrawCommand::Kind::Fill, fill, points);
}

void Canvas::polyline(std::span<const QPointF> points, Argb color, double thickness, Path path)
{
    if (points.size() < 2 || !(thickness > 0.0) || (color >> 24) == 0)
        return;
    DrawCommand& command = add(DrawCommand::Kind::Stroke, color, points);
    command.thickness = thickness * m_placement.scale;
    command.path = path;
}

void Canvas::line(const QPointF& from, const QPointF& to, Argb color, double thickness)
{
    const QPointF points[] = {from, to};
    polyline(points, color, thickness);
}

void Canvas::rectangle(const QRectF& area, Argb fill, double corner)
{
    if (!area.isEmpty())
        polygon(outline(area, corner), fill);
}

void Canvas::frame(const QRectF& area, Argb color, double thickness, double corner)
{
    if (!area.isEmpty())
        polyline(outline(area, corner), color, thickness, Path::Closed);
}

void Canvas::circle(const QPointF& center, double radius, Argb fill)
{
    if (radius > 0.0)
        polygon(fullCircle(center, radius), fill);
}

void Canvas::circleLine(const QPointF& center, double radius, Argb color, double thickness)
{
    if (radius > 0.0)
        polyline(fullCircle(center, radius), color, thickness, Path::Closed);
}

void Canvas::arc(const QPointF& center, double radius, double start, double sweep, Argb color,
                 double thickness)
{
    if (!(radius > 0.0) || sweep == 0.0)
        return;
    if (std::abs(sweep) >= 360.0) {
        circleLine(center, radius, color, thickness);
        return;
    }
    std::vector<QPointF> points;
    addArc(points, center, radius, start, sweep);
    polyline(points, color, thickness);
}

void Canvas::pointer(const QPointF& tip, double length, double width, double direction, Argb fill)
{
    QTransform turn;
    turn.translate(tip.x(), tip.y());
    turn.rotate(direction);
    const QPointF points[] = {tip, turn.map(QPointF(-length, width / 2.0)),
                              turn.map(QPointF(-length, -width / 2.0))};
    polygon(points, fill);
}

void Canvas::text(const QPointF& place, const QString& text, const TextLook& look)
{
    if (text.isEmpty() || !(look.size > 0.0) || (look.color >> 24) == 0)
        return;
    DrawCommand& command = add(DrawCommand::Kind::Text, look.color, std::span(&place, 1));
    command.text = text;
    command.size = look.size * m_placement.scale;
    command.weight = look.weight;
    command.align = look.align;
    command.angle = m_placement.angle;
}

void Canvas::image(const QRectF& area, const QString& path)
{
    const QPointF corners[] = {area.topLeft(), area.topRight(), area.bottomRight(),
                               area.bottomLeft()};
    add(DrawCommand::Kind::Image, 0xFFFFFFFFU, corners).text = path;
}

void Canvas::clip(const QRectF& area)
{
    m_clip = -1;
    if (area.isEmpty())
        return;
    m_clip = static_cast<int>(m_list.clips.size());
    m_list.clips.push_back(m_placement.transform.mapRect(area));
}

} // namespace Zinc2D
