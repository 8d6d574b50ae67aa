#include "analysis/ui/PositionSlider.h"

#include <QMouseEvent>
#include <QStyleOptionSlider>

namespace KOLT {

void PositionSlider::mousePressEvent(QMouseEvent* event)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto part = [&](QStyle::SubControl control) {
        return style()->subControlRect(QStyle::CC_Slider, &option, control, this);
    };
    const QRect handle = part(QStyle::SC_SliderHandle);
    const QPoint place = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !handle.contains(place)) {
        const QRect groove = part(QStyle::SC_SliderGroove);
        const int first = groove.left() + handle.width() / 2;
        setSliderPosition(QStyle::sliderValueFromPosition(minimum(), maximum(), place.x() - first,
                                                          groove.width() - handle.width()));
    }
    QSlider::mousePressEvent(event); // the handle is below the pointer now
}

} // namespace KOLT
