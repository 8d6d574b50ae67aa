#include "analysis/ui/PositionSlider.h"

#include <QMouseEvent>
#include <QStyleOptionSlider>

namespace KOLT {

PositionSlider::Travel PositionSlider::travel() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto part = [&](QStyle::SubControl control) {
        return style()->subControlRect(QStyle::CC_Slider, &option, control, this);
    };
    const QRect groove = part(QStyle::SC_SliderGroove);
    const int handle = part(QStyle::SC_SliderHandle).width();
    return {groove.left() + handle / 2, groove.width() - handle + 1};
}

void PositionSlider::mousePressEvent(QMouseEvent* event)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect handle =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    const QPoint place = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !handle.contains(place)) {
        const auto [first, width] = travel();
        setSliderPosition(
            QStyle::sliderValueFromPosition(minimum(), maximum(), place.x() - first, width - 1));
    }
    QSlider::mousePressEvent(event); // the handle is below the pointer now
}

} // namespace KOLT
