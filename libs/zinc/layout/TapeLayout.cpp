#include "libs/zinc/layout/TapeLayout.h"

#include "libs/zinc/layout/InstrumentLook.h"

#include <algorithm>
#include <array>

namespace Zinc2D {

namespace {

constexpr double usualLabelSize = 16.0;
constexpr double majorLength = 0.22; ///< relative to the tape's breadth
constexpr double minorLength = 0.12;
constexpr double tickThickness = 2.0;
constexpr double rangeBreadth = 0.08;
constexpr double windowHeight = 1.3; ///< relative to the digits' size
constexpr double notch = 0.3;
constexpr double edgeThickness = 1.5;

/// The moving scale, with the current value in the middle.
struct Scale
{
    QRectF area;
    bool isVertical = true;
    Dial dial;

    double breadth() const { return isVertical ? area.width() : area.height(); }

    /// `across` is measured from the edge with the ticks: the right or the upper one.
    QPointF point(double along, double across) const
    {
        return isVertical ? QPointF(area.right() - across, along)
                          : QPointF(along, area.top() + across);
    }
};

Scale scaleOf(const Properties& tape, double value)
{
    Scale scale;
    scale.area = tape.area();
    scale.isVertical = tape.text(Property::Orientation) != QStringLiteral("horizontal");
    const double half = tape.number(Property::Span, Dial::unset) / 2.0;
    scale.dial = {value - half, value + half,
                  scale.isVertical ? scale.area.bottom() : scale.area.left(),
                  scale.isVertical ? -scale.area.height() : scale.area.width()};
    return scale;
}

void drawTick(const Scale& scale, double value, double length, Argb color, double thickness,
              Canvas& canvas)
{
    const double along = scale.dial.place(value);
    canvas.line(scale.point(along, 0.0), scale.point(along, length * scale.breadth()), color,
                thickness);
}

void drawParts(const Properties& tape, const Scale& scale, Canvas& canvas)
{
    for (const ScaleRange& range : rangesOf(tape, scale.dial))
        canvas.rectangle(
            QRectF(scale.point(range.start, 0.0),
                   scale.point(range.start + range.length, rangeBreadth * scale.breadth()))
                .normalized(),
            range.color);
    for (const ScaleMark& mark : marksOf(tape, scale.dial)) {
        if (mark.value > scale.dial.min && mark.value < scale.dial.max)
            drawTick(scale, mark.value, 2.0 * majorLength, mark.color, 2.0 * tickThickness, canvas);
    }
}

void drawScale(const Properties& tape, const Scale& scale, Canvas& canvas)
{
    drawParts(tape, scale, canvas);
    for (const double value : scale.dial.ticks(tape.number(Property::Minor, 0.0)))
        drawTick(scale, value, minorLength, Palette::minorTick, 0.75 * tickThickness, canvas);
    const double size = tape.number(Property::LabelSize, usualLabelSize);
    for (const double value : scale.dial.ticks(tape.number(Property::Major, 0.0))) {
        drawTick(scale, value, majorLength, Palette::tick, tickThickness, canvas);
        const double away = majorLength * scale.breadth() + 0.5 * size;
        canvas.text(
            scale.point(scale.dial.place(value), away + (scale.isVertical ? 0.0 : 0.3) * size),
            tickLabel(tape, value),
            {size, Weight::Normal, scale.isVertical ? Align::Right : Align::Center, Palette::tick});
    }
}

/// The window with the number; its notch points at the scale.
void drawWindow(const Properties& tape, const Scale& scale, const std::optional<double>& value,
                Canvas& canvas)
{
    const QString text = tape.formatted(tape.shown(Property::Digits, Property::Value));
    const double size = tape.number(Property::Size, 1.5 * usualLabelSize);
    const double half = windowHeight * size / 2.0;
    const QPointF middle = scale.area.center();
    const double depth = notch * size;
    std::array<QPointF, 7> outline;
    if (scale.isVertical) {
        const double left = scale.area.left();
        const double right = scale.area.right() - minorLength * scale.breadth();
        outline = {QPointF(left, middle.y() - half),
                   {right - depth, middle.y() - half},
                   {right - depth, middle.y() - depth},
                   {right, middle.y()},
                   {right - depth, middle.y() + depth},
                   {right - depth, middle.y() + half},
                   {left, middle.y() + half}};
    } else {
        const double wide = digitsWidth(text, size) / 2.0;
        const double top = scale.area.top() + minorLength * scale.breadth();
        outline = {QPointF(middle.x() - wide, scale.area.bottom()),
                   {middle.x() - wide, top + depth},
                   {middle.x() - depth, top + depth},
                   {middle.x(), top},
                   {middle.x() + depth, top + depth},
                   {middle.x() + wide, top + depth},
                   {middle.x() + wide, scale.area.bottom()}};
    }
    canvas.polygon(outline, Palette::well);
    canvas.polyline(outline, Palette::white, edgeThickness, Path::Closed);
    const QPointF place(outline[0].x() / 2.0 + outline[5].x() / 2.0,
                        outline[1].y() / 2.0 + outline[6].y() / 2.0);
    drawDigits(
        canvas, place,
        {text, size, value ? stateOf(tape) : 0, tape.color(Property::Color, Palette::white)});
}

} // namespace

void layoutTape(const Properties& tape, Canvas& canvas)
{
    const std::optional<double> value = tape.number(Property::Value);
    const Scale scale = scaleOf(tape, value.value_or(0.0));
    if (scale.area.isEmpty())
        return;
    canvas.rectangle(scale.area, tape.color(Property::Background, Palette::track));
    if (value) {
        canvas.clip(scale.area);
        drawScale(tape, scale, canvas);
        canvas.clip({});
    }
    drawWindow(tape, scale, value, canvas);
}

} // namespace Zinc2D
