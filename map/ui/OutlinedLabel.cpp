#include "map/ui/OutlinedLabel.h"

#include <QPainter>
#include <QPainterPath>

namespace KOLT {

namespace {

constexpr double outlinePixels = 1.5; ///< on each side of a stroke
constexpr int lightEnough = 80;       ///< grey value from which on the outline is dark
constexpr QColor darkOutline(0, 0, 0);
constexpr QColor lightOutline(255, 255, 255);

} // namespace

OutlinedLabel::OutlinedLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setTextColor(m_color);
}

void OutlinedLabel::setTextColor(const QColor& color)
{
    m_color = color;
    const QString style =
        QStringLiteral("QLabel {color: %1; font-weight: bold;}").arg(color.name());
    if (styleSheet() != style) // setting one is expensive
        setStyleSheet(style);
}

void OutlinedLabel::paintEvent(QPaintEvent* /*event*/)
{
    const Look look{text(), size(), font(), m_color, alignment(), devicePixelRatioF()};
    if (look != m_look) {
        m_look = look;
        m_picture = QPixmap(size() * look.ratio);
        m_picture.setDevicePixelRatio(look.ratio);
        m_picture.fill(Qt::transparent);
        drawText();
    }
    QPainter(this).drawPixmap(0, 0, m_picture);
}

void OutlinedLabel::drawText()
{
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetricsF metrics(font());
    const QRectF area = contentsRect();
    const QString shown = metrics.elidedText(text(), Qt::ElideRight, area.width());
    const double space = area.width() - metrics.horizontalAdvance(shown);
    const double left = alignment().testFlag(Qt::AlignRight)     ? area.left() + space
                        : alignment().testFlag(Qt::AlignHCenter) ? area.left() + space / 2.0
                                                                 : area.left();
    QPainterPath path;
    path.addText(left, area.center().y() + (metrics.ascent() - metrics.descent()) / 2.0, font(),
                 shown);
    const bool isLight = qGray(m_color.rgb()) >= lightEnough;
    painter.strokePath(path, QPen(isLight ? darkOutline : lightOutline, 2.0 * outlinePixels,
                                  Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, m_color);
}

} // namespace KOLT
