#include "libs/tessamap/basemap/BaseMap.h"

#include "libs/tessamap/globe/Mercator.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace Tessa {

namespace {

constexpr int lastCoarseZoom = 2;
/// Around the tile, in pixels; hides ends of lines and sides of clipped rings.
constexpr double margin = 4.0;
/// Points closer to each other than this, in pixels, are merged.
constexpr double tolerance = 0.3;

QColor landColor()
{
    return QColor(240, 237, 226);
}

/// A tile to paint and its place in the world.
struct View
{
    QPainter& painter;
    QRectF area; ///< of the tile with its margin, in Mercator coordinates
    QPointF corner;
    double pixels; ///< per unit of Mercator coordinates

    QPointF toTile(const QPointF& point) const { return (point - corner) * pixels; }
};

/// Calls paint(shift) for each visible copy of the line: itself and one world to the east and west.
template <typename Paint>
void forCopies(const BaseMapData::Line& line, const QRectF& area, Paint paint)
{
    const QRectF& bounds = line.bounds;
    for (const double shift : {-1.0, 0.0, 1.0}) {
        // Not QRectF::intersects(): it is false for empty rectangles, which straight lines have.
        if (bounds.left() + shift <= area.right() && bounds.right() + shift >= area.left() &&
            bounds.top() <= area.bottom() && bounds.bottom() >= area.top())
            paint(shift);
    }
}

bool isFar(const QPointF& a, const QPointF& b)
{
    return std::abs(a.x() - b.x()) + std::abs(a.y() - b.y()) > tolerance;
}

void addRing(QPainterPath& path, const View& view, const BaseMapData::Line& ring, double shift)
{
    std::vector<QPointF> points = ring.points;
    if (ring.isPolar) {
        points.emplace_back(points.back().x(), ring.bounds.bottom());
        points.emplace_back(points.front().x(), ring.bounds.bottom());
    }
    points = clippedRing(points, view.area.translated(-shift, 0.0));
    if (points.size() < 3)
        return;
    const QPointF move(shift, 0.0);
    QPolygonF polygon;
    for (const QPointF& point : points) {
        const QPointF place = view.toTile(point + move);
        if (polygon.isEmpty() || isFar(place, polygon.last()))
            polygon.append(place);
    }
    path.addPolygon(polygon);
    path.closeSubpath();
}

void paintLand(const View& view, const std::vector<BaseMapData::Line>& rings)
{
    // One path for all, so that land cut at 180 degrees shows no seam.
    QPainterPath land;
    QPainterPath ice;
    for (const BaseMapData::Line& ring : rings)
        forCopies(ring, view.area,
                  [&](double shift) { addRing(ring.isIce ? ice : land, view, ring, shift); });
    view.painter.fillPath(land, landColor());
    view.painter.fillPath(ice, BaseMap::iceColor());
}

/// Whether the edge is a cut along 180 degrees, which is no coast.
bool isCut(const QPointF& a, const QPointF& b)
{
    return a.x() == b.x() && a.x() == std::round(a.x());
}

bool isInSight(const QPointF& a, const QPointF& b, const QRectF& area)
{
    return std::min(a.x(), b.x()) <= area.right() && std::max(a.x(), b.x()) >= area.left() &&
           std::min(a.y(), b.y()) <= area.bottom() && std::max(a.y(), b.y()) >= area.top();
}

void addRuns(QPainterPath& path, const View& view, const std::vector<QPointF>& points, double shift)
{
    const QRectF area = view.area.translated(-shift, 0.0);
    const QPointF move(shift, 0.0);
    bool isRunning = false;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const QPointF& from = points[i - 1];
        const QPointF& to = points[i];
        if (!isInSight(from, to, area) || isCut(from, to)) {
            if (isRunning)
                path.lineTo(view.toTile(from + move));
            isRunning = false;
            continue;
        }
        if (!isRunning)
            path.moveTo(view.toTile(from + move));
        isRunning = true;
        const QPointF place = view.toTile(to + move);
        if (i + 1 == points.size() || isFar(place, path.currentPosition()))
            path.lineTo(place);
    }
}

void paintLines(const View& view, const std::vector<BaseMapData::Line>& lines, const QColor& color)
{
    QPainterPath path;
    for (const BaseMapData::Line& line : lines)
        forCopies(line, view.area, [&](double shift) { addRuns(path, view, line.points, shift); });
    // Cosmetic pens of one pixel need no outlines: 4 ms instead of 40.
    QPen pen(color, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    pen.setCosmetic(true);
    view.painter.strokePath(path, pen);
}

void paintGraticule(const View& view, int zoom)
{
    const double step = zoom < 2 ? 30.0 : 10.0;
    view.painter.setPen(QPen(QColor(70, 105, 140, 46), 1.0));
    for (double longitude = -180.0; longitude <= 180.0; longitude += step) {
        const double x = view.toTile({Mercator::x(longitude), 0.0}).x();
        view.painter.drawLine(QPointF(x, 0.0), QPointF(x, BaseMap::tileSize));
    }
    for (double latitude = -90.0 + step; latitude < 90.0; latitude += step) {
        const double y = view.toTile({0.0, Mercator::y(latitude)}).y();
        view.painter.drawLine(QPointF(0.0, y), QPointF(BaseMap::tileSize, y));
    }
}

} // namespace

QColor BaseMap::waterColor()
{
    return QColor(176, 205, 222);
}

QColor BaseMap::iceColor()
{
    return QColor(247, 249, 251);
}

TileId BaseMap::covering(const TileId& tile)
{
    return tile.zoom <= maxZoom ? tile : tile.ancestor(tile.zoom - maxZoom);
}

QImage BaseMap::paint(const TileId& tile)
{
    QImage image(tileSize, tileSize, QImage::Format_RGB32);
    image.fill(waterColor());
    if (!tile.isValid() || tile.zoom > maxZoom)
        return image.convertToFormat(QImage::Format_RGBA8888);
    if (!m_data)
        m_data = BaseMapData::embedded();
    const BaseMapData::Layer& layer = tile.zoom <= lastCoarseZoom ? m_data->coarse : m_data->fine;

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = 1.0 / TileId::count(tile.zoom);
    const double edge = margin / tileSize * side;
    const QPointF corner(tile.x * side, tile.y * side);
    const View view{painter, QRectF(corner, QSizeF(side, side)).adjusted(-edge, -edge, edge, edge),
                    corner, tileSize / side};
    paintGraticule(view, tile.zoom);
    paintLand(view, layer.land);
    if (tile.zoom > lastCoarseZoom)
        paintLines(view, layer.borders, QColor(176, 163, 150));
    paintLines(view, layer.land, QColor(122, 156, 180));
    painter.end();
    return std::move(image).convertToFormat(QImage::Format_RGBA8888);
}

} // namespace Tessa
