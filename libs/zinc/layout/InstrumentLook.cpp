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

std::vector<ScaleRange> rangesOf(const Properties& instrument, const Dial& dial)
{
    std::vector<ScaleRange> ranges;
    for (const Element& part : instrument.parts()) {
        const Properties range = instrument.of(part);
        if (part.type != ElementType::Range || !range.isVisible())
            continue;
        const std::optional<double> from = range.number(Property::From);
        const std::optional<double> to = range.number(Property::To);
        const auto extent = from && to ? dial.extent(*from, *to) : std::nullopt;
        if (extent)
            ranges.push_back(
                {extent->first, extent->second, range.color(Property::Color, Palette::normal)});
    }
    return ranges;
}

std::vector<ScaleMark> marksOf(const Properties& instrument, const Dial& dial)
{
    std::vector<ScaleMark> marks;
    for (const Element& part : instrument.parts()) {
        const Properties mark = instrument.of(part);
        const std::optional<double> at = mark.number(Property::At);
        if (part.type == ElementType::Mark && at && mark.isVisible() && dial.isUsable())
            marks.push_back({*at, dial.place(*at), mark.color(Property::Color, Palette::limit)});
    }
    return marks;
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
    canvas.text(at, digits.text, {digits.size, Weight::Bold, digits.align, color});
}

QString tickLabel(const Properties& element, double value)
{
    const NumberFormat format = element.format(Property::LabelFormat).value_or(NumberFormat());
    return format.apply(value / element.number(Property::LabelScale, 1.0));
}

} // namespace Zinc2D
