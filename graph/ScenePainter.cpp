#include "graph/ScenePainter.h"

#include <QLineF>
#include <QPainter>
#include <QPolygonF>

namespace KOLT {

namespace {

QPolygonF pointsOf(const GraphScene& scene, const GraphScene::Figure& figure, double height)
{
    QPolygonF points;
    points.reserve(figure.count);
    for (int i = figure.first; i < figure.first + figure.count; ++i) {
        const auto at = static_cast<std::size_t>(2 * i);
        points << QPointF(static_cast<double>(scene.vertices[at]),
                          height - static_cast<double>(scene.vertices[at + 1]));
    }
    return points;
}

void paintFigure(QPainter& painter, const GraphScene& scene, const GraphScene::Figure& figure,
                 double height)
{
    constexpr int corners = 4;
    const QPolygonF points = pointsOf(scene, figure, height);
    painter.setRenderHint(QPainter::Antialiasing, figure.kind == GraphScene::Kind::Strip);
    QPen pen(figure.color, static_cast<double>(figure.width));
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::BevelJoin);
    if (figure.isStippled)
        pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
    switch (figure.kind) {
    case GraphScene::Kind::Quads:
        painter.setPen(Qt::NoPen);
        painter.setBrush(figure.color);
        for (qsizetype i = 0; i + corners <= points.size(); i += corners)
            painter.drawConvexPolygon(points.constData() + i, corners);
        break;
    case GraphScene::Kind::Lines:
        for (qsizetype i = 0; i + 1 < points.size(); i += 2)
            painter.drawLine(points[i], points[i + 1]);
        break;
    case GraphScene::Kind::Strip:
        painter.drawPolyline(points);
        break;
    }
}

} // namespace

void paintScene(QPainter& painter, const GraphScene& scene, const QSizeF& size)
{
    painter.save();
    const double height = size.height();
    painter.fillRect(QRectF(QPointF(), size), scene.clearColor);
    for (const GraphScene::Figure& figure : scene.figures) {
        const QRectF& clip = figure.clip; // y points up
        painter.save();
        if (!clip.isEmpty()) // within that of the caller
            painter.setClipRect(
                QRectF(clip.left(), height - clip.bottom(), clip.width(), clip.height()),
                Qt::IntersectClip);
        paintFigure(painter, scene, figure, height);
        painter.restore();
    }
    for (const GraphScene::Text& text : scene.texts) {
        const bool isRight = text.alignment.testFlag(Qt::AlignRight);
        const double y = height - text.y;
        painter.setPen(text.color);
        painter.drawText(QRectF(isRight ? text.x - size.width() : text.x, y - height / 2.0,
                                size.width(), height),
                         Qt::AlignVCenter | Qt::TextSingleLine |
                             (isRight ? Qt::AlignRight : Qt::AlignLeft),
                         text.text);
    }
    painter.restore();
}

} // namespace KOLT
