#include "export/KmlIcons.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPolygonF>

namespace KOLT {

namespace {

constexpr int pixels = 64;
constexpr double edge = 4.0;

void drawDot(QPainter& painter)
{
    constexpr double margin = 12.0; // smaller than the others, as there are many
    painter.drawEllipse(QRectF(margin, margin, pixels - 2 * margin, pixels - 2 * margin));
}

void drawDiamond(QPainter& painter)
{
    constexpr double middle = pixels / 2.0;
    painter.drawPolygon(QPolygonF(
        {{middle, edge}, {pixels - edge, middle}, {middle, pixels - edge}, {edge, middle}}));
}

void drawTriangle(QPainter& painter)
{
    painter.drawPolygon(
        QPolygonF({{pixels / 2.0, edge}, {pixels - edge, pixels - 6.0}, {edge, pixels - 6.0}}));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(29, 22, 6, 20), 2, 2);
    painter.drawEllipse(QRectF(28.5, 45, 7, 7));
}

} // namespace

const char* iconAddress(KmlIcon icon)
{
    switch (icon) {
    case KmlIcon::Warning:
        return "http://maps.google.com/mapfiles/kml/shapes/open-diamond.png";
    case KmlIcon::Limit:
        return "http://maps.google.com/mapfiles/kml/shapes/caution.png";
    case KmlIcon::Dot:
        break;
    }
    return "http://maps.google.com/mapfiles/kml/shapes/shaded_dot.png";
}

const char* iconName(KmlIcon icon)
{
    switch (icon) {
    case KmlIcon::Warning:
        return "icons/warning.png";
    case KmlIcon::Limit:
        return "icons/limit.png";
    case KmlIcon::Dot:
        break;
    }
    return "icons/dot.png";
}

QByteArray iconPicture(KmlIcon icon, const QColor& color)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, edge, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(color);
    switch (icon) {
    case KmlIcon::Dot:
        drawDot(painter);
        break;
    case KmlIcon::Warning:
        drawDiamond(painter);
        break;
    case KmlIcon::Limit:
        drawTriangle(painter);
        break;
    }
    painter.end();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

} // namespace KOLT
