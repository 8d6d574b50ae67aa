#include "libs/zinc/layout/InstrumentLook.h"

namespace Zinc2D {

namespace {

constexpr double digitAdvance = 0.64; ///< relative to the font size, for common fonts
constexpr double pointAdvance = 0.34;
constexpr double fieldPadding = 0.18;
constexpr double fieldHeight = 1.12;

} // namespace

int stateOf(const Properties& element, Property property)
{
    const double state = element.number(property, 0.0);
    return state >= 2.0 ? 2 : state >= 1.0 ? 1 : 0;
}

Argb stateColor(int state, Argb normal)
{
    return state == 2 ? Palette::limit : state == 1 ? Palette::warning : normal;
}

double digitsWidth(const QString& text, double size)
{
    double width = 2.0 * fieldPadding;
    for (const QChar character : text)
        width += character == u'.' || character == u' ' ? pointAdvance : digitAdvance;
    return width * size;
}

void drawDigits(Canvas& canvas, const QPointF& place, const Digits& digits)
{
    const double padding = fieldPadding * digits.size;
    QPointF at = place;
    if (digits.align == Align::Right)
        at.rx() -= padding;
    else if (digits.align == Align::Left)
        at.rx() += padding;
    if (digits.state > 0) {
        const double width = digitsWidth(digits.text, digits.size);
        const double height = fieldHeight * digits.size;
        const double left = digits.align == Align::Right    ? place.x() - width
                            : digits.align == Align::Center ? place.x() - width / 2.0
                                                            : place.x();
        canvas.rectangle({left, place.y() - height / 2.0, width, height},
                         stateColor(digits.state, Palette::none), digits.size * 0.12);
    }
    const Argb color = digits.state == 2   ? Palette::white
                       : digits.state == 1 ? Palette::onWarning
                                           : digits.color;
    canvas.text(at, digits.text, {digits.size, true, digits.align, color});
}

QString tickLabel(const Properties& element, double value)
{
    const NumberFormat format = element.format(Property::LabelFormat).value_or(NumberFormat());
    return format.apply(value / element.number(Property::LabelScale, 1.0));
}

} // namespace Zinc2D
