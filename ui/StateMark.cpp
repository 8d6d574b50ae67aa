#include "ui/StateMark.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

namespace KOLT {

namespace {

constexpr int iconPixels = 16;
constexpr qreal badgePixels = 9.0;
constexpr qreal dotPixels = 5.0;
constexpr QColor goodColor(0x2e, 0x8b, 0x57);
constexpr QColor warningColor(0xe0, 0x92, 0x00);
constexpr QColor limitColor(0xd3, 0x2f, 0x2f);

void drawMark(QPainter& painter, StateMark mark, const QRectF& place)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 1.0));
    switch (mark) {
    case StateMark::None:
        break;
    case StateMark::Good: {
        QRectF dot(0.0, 0.0, dotPixels, dotPixels);
        dot.moveCenter(place.center());
        painter.setBrush(goodColor);
        painter.drawEllipse(dot);
        break;
    }
    case StateMark::Warning:
        painter.setBrush(warningColor);
        painter.drawPolygon(QPolygonF(
            {{place.center().x(), place.top()}, place.bottomRight(), place.bottomLeft()}));
        break;
    case StateMark::Limit:
        painter.setBrush(limitColor);
        painter.drawPolygon(QPolygonF({{place.center().x(), place.top()},
                                       {place.right(), place.center().y()},
                                       {place.center().x(), place.bottom()},
                                       {place.left(), place.center().y()}}));
        break;
    }
}

/// An icon of 16 pixels for screens of all scale factors.
template <typename Draw>
QIcon drawnIcon(Draw&& draw)
{
    QIcon result;
    for (const int ratio : {1, 2, 3}) {
        QPixmap pixmap(iconPixels * ratio, iconPixels * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        draw(painter);
        painter.end();
        result.addPixmap(pixmap);
    }
    return result;
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
    return drawnIcon([&](QPainter& painter) {
        icon.paint(&painter, QRect(0, 0, iconPixels, iconPixels));
        constexpr qreal corner = iconPixels - badgePixels - 0.5;
        drawMark(painter, mark, {corner, corner, badgePixels, badgePixels});
    });
}

} // namespace KOLT
