#include "export/ui/WidgetColorButton.h"

#include <QColorDialog>
#include <QPainter>

namespace KOLT {

namespace {

constexpr QSize swatchSize(32, 14);

} // namespace

WidgetColorButton::WidgetColorButton(QWidget* parent)
    : QPushButton(parent)
{
    setAutoDefault(false);
    setIconSize(swatchSize);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip(tr("Choose another color"));
    connect(this, &QPushButton::clicked, this, &WidgetColorButton::choose);
}

void WidgetColorButton::setColor(const QColor& color)
{
    m_color = color;
    QPixmap swatch(swatchSize * devicePixelRatioF());
    swatch.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&swatch);
    painter.fillRect(QRect(QPoint(), swatchSize), palette().color(QPalette::Mid));
    painter.fillRect(QRect(QPoint(), swatchSize).adjusted(1, 1, -1, -1), color);
    painter.end();
    setIcon(swatch);
}

void WidgetColorButton::choose()
{
    const QColor color = QColorDialog::getColor(m_color, this);
    if (color.isValid())
        setColor(color);
}

} // namespace KOLT
