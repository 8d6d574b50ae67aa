#include "ui/TrustMark.h"

#include "ui/LookColors.h"
#include "ui/PaintedIcon.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace KOLT {

namespace {

constexpr qreal units = 16.0; ///< a mark is drawn on a square of this size
constexpr QPointF center(8.0, 8.0);

QPen linePen(const QColor& color, qreal width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void drawNote(QPainter& painter)
{
    painter.setPen(linePen(lookColor(Tone::Note), 1.5));
    painter.drawEllipse(center, 5.0, 5.0);
    painter.setBrush(lookColor(Tone::Note));
    painter.drawEllipse(center, 1.0, 1.0);
}

void drawDoubtful(QPainter& painter)
{
    painter.setPen(linePen(lookColor(Tone::Doubtful), 2.0));
    painter.setBrush(lookColor(Tone::Doubtful));
    painter.drawPolygon(QPolygonF({{8.0, 2.5}, {14.0, 13.0}, {2.0, 13.0}}));
    painter.setPen(linePen(Qt::black, 1.8));
    painter.drawLine(QPointF(8.0, 6.0), QPointF(8.0, 9.0));
    painter.drawPoint(QPointF(8.0, 11.8));
}

void drawWrong(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(lookColor(Tone::Wrong));
    painter.drawEllipse(center, 7.0, 7.0);
    painter.setPen(linePen(Qt::white, 2.2));
    painter.drawLine(QPointF(5.4, 5.4), QPointF(10.6, 10.6));
    painter.drawLine(QPointF(5.4, 10.6), QPointF(10.6, 5.4));
}

void drawMark(QPainter& painter, const QRect& place, TrustMark mark)
{
    const qreal scale = std::min(place.width(), place.height()) / units;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(place).center() - center * scale);
    painter.scale(scale, scale);
    painter.setBrush(Qt::NoBrush);
    if (mark == TrustMark::Note)
        drawNote(painter);
    else if (mark == TrustMark::Doubtful)
        drawDoubtful(painter);
    else
        drawWrong(painter);
}

} // namespace

QIcon trustIcon(TrustMark mark)
{
    if (mark == TrustMark::None)
        return {};
    return paintedIcon(
        [mark](QPainter& painter, const QRect& place) { drawMark(painter, place, mark); });
}

} // namespace KOLT
