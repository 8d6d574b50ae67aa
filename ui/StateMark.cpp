#include "ui/StateMark.h"

#include "ui/LookColors.h"
#include "ui/PaintedIcon.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <utility>

namespace KOLT {

namespace {

constexpr int iconPixels = 16;
constexpr qreal badgePixels = 9.0;
constexpr qreal dotPixels = 5.0;

void drawMark(QPainter& painter, StateMark mark, const QRectF& place)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(lookColor(Tone::Panel), 1.0));
    switch (mark) {
    case StateMark::None:
        break;
    case StateMark::Good: {
        QRectF dot(0.0, 0.0, dotPixels, dotPixels);
        dot.moveCenter(place.center());
        painter.setBrush(lookColor(Tone::Good));
        painter.drawEllipse(dot);
        break;
    }
    case StateMark::Warning:
        painter.setBrush(lookColor(Tone::Doubtful));
        painter.drawPolygon(QPolygonF(
            {{place.center().x(), place.top()}, place.bottomRight(), place.bottomLeft()}));
        break;
    case StateMark::Limit:
        painter.setBrush(lookColor(Tone::Wrong));
        painter.drawPolygon(QPolygonF({{place.center().x(), place.top()},
                                       {place.right(), place.center().y()},
                                       {place.center().x(), place.bottom()},
                                       {place.left(), place.center().y()}}));
        break;
    }
}

/// An icon that is drawn on a square of 16 units.
template <typename Draw>
QIcon drawnIcon(Draw&& draw)
{
    return paintedIcon([draw = std::forward<Draw>(draw)](QPainter& painter, const QRect& place) {
        const qreal scale = std::min(place.width(), place.height()) / qreal(iconPixels);
        painter.translate(QRectF(place).center() - QPointF(iconPixels, iconPixels) * scale / 2);
        painter.scale(scale, scale);
        draw(painter);
    });
}

} // namespace

QIcon markIcon(StateMark mark)
{
    return drawnIcon([mark](QPainter& painter) {
        QRectF place(0.0, 0.0, badgePixels + 2.0, badgePixels + 2.0);
        place.moveCenter({iconPixels / 2.0, iconPixels / 2.0});
        drawMark(painter, mark, place);
    });
}

QIcon markedIcon(const QIcon& icon, StateMark mark)
{
    if (mark == StateMark::None)
        return icon;
    return drawnIcon([icon, mark](QPainter& painter) {
        icon.paint(&painter, QRect(0, 0, iconPixels, iconPixels));
        constexpr qreal corner = iconPixels - badgePixels - 0.5;
        drawMark(painter, mark, {corner, corner, badgePixels, badgePixels});
    });
}

} // namespace KOLT
