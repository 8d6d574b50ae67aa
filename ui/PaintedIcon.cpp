#include "ui/PaintedIcon.h"

#include "ui/LookColors.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

namespace KOLT {

namespace {

/// Device pixels per unit of the painter.
qreal ratioOf(const QPainter& painter)
{
    return painter.deviceTransform().m11();
}

/// As the style greys other icons.
QPixmap greyed(const QPixmap& pixmap)
{
    QStyleOption option;
    option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(QIcon::Disabled, pixmap, &option);
}

class PaintedIconEngine : public QIconEngine
{
public:
    explicit PaintedIconEngine(DrawIcon draw)
        : m_draw(std::move(draw))
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        if (mode == QIcon::Disabled) {
            const QSize pixels = (QSizeF(rect.size()) * ratioOf(*painter)).toSize();
            painter->drawPixmap(rect, pixmap(pixels, mode, state));
            return;
        }
        painter->save();
        m_draw(*painter, rect);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        m_draw(painter, QRect(QPoint(0, 0), size));
        painter.end();
        return mode == QIcon::Disabled ? greyed(pixmap) : pixmap;
    }

    QIconEngine* clone() const override { return new PaintedIconEngine(m_draw); }

private:
    DrawIcon m_draw;
};

/// The drawing with the tones of the current look in place of the light ones.
QByteArray recolored(QByteArray drawing)
{
    if (currentLook() == Look::Light)
        return drawing;
    constexpr qsizetype digits = 6;
    const auto inks = lookTones().subspan(static_cast<std::size_t>(Tone::InkAccent));
    for (qsizetype at = drawing.indexOf('#'); at >= 0; at = drawing.indexOf('#', at + 1)) {
        const QColor light(QLatin1String(drawing.mid(at, digits + 1)));
        const auto ink = std::ranges::find(inks, light.rgb(), &LookTone::light);
        if (ink != inks.end())
            drawing.replace(at, digits + 1, QColor(ink->dark).name().toLatin1());
    }
    return drawing;
}

QPixmap drawn(const QString& name, const QSize& pixels)
{
    const QString key = QStringLiteral("icon %1 %2 %3x%4")
                            .arg(name)
                            .arg(static_cast<int>(currentLook()))
                            .arg(pixels.width())
                            .arg(pixels.height());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return pixmap;
    QByteArray drawing = recolored(file.readAll());
    QBuffer buffer(&drawing);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(pixels);
    pixmap = QPixmap::fromImageReader(&reader);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

} // namespace

QIcon paintedIcon(DrawIcon draw)
{
    return QIcon(new PaintedIconEngine(std::move(draw)));
}

QIcon lookIcon(const QString& name)
{
    return paintedIcon([name](QPainter& painter, const QRect& place) {
        const int side = std::min(place.width(), place.height()); // all icons are square
        QRect square(0, 0, side, side);
        square.moveCenter(place.center());
        painter.drawPixmap(square,
                           drawn(name, (QSizeF(square.size()) * ratioOf(painter)).toSize()));
    });
}

} // namespace KOLT
