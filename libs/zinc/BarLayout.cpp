#include "libs/zinc/Dial.h"
#include "libs/zinc/ElementLayout.h"
#include "libs/zinc/InstrumentLook.h"

#include <algorithm>

namespace Zinc2D {

namespace {

constexpr double usualLabelSize = 16.0;
constexpr double tickThickness = 1.5;
constexpr double markThickness = 3.0;
constexpr double markOverhang = 3.0;
constexpr double rangeStrip = 4.0; ///< beside a filled bar
constexpr double stripGap = 2.0;
constexpr double unitRoom = 2.9; ///< of the label's size
constexpr double lineGap = 0.45; ///< of the label's size, between pointer and words

/// A bar along one axis, with everything measured along and across it.
struct Track
{
    QRectF area;
    bool isVertical = false;
    Dial dial;
    double labelSize = 0.0;
    double pointerLength = 0.0;

    double breadth() const { return isVertical ? area.width() : area.height(); }

    QPointF point(double along, double across) const
    {
        return isVertical ? QPointF(area.x() + across, along) : QPointF(along, area.y() + across);
    }

    QRectF box(double along, double length, double across, double breadth) const
    {
        return QRectF(point(along, across), point(along + length, across + breadth)).normalized();
    }
};

Track trackOf(const Properties& bar)
{
    Track track;
    track.area = bar.area();
    const QString orientation = bar.text(Property::Orientation);
    track.isVertical = orientation.isEmpty() ? track.area.height() > track.area.width()
                                             : orientation == QStringLiteral("vertical");
    track.dial = {bar.number(Property::Min, 0.0), bar.number(Property::Max, 0.0),
                  track.isVertical ? track.area.bottom() : track.area.left(),
                  track.isVertical ? -track.area.height() : track.area.width()};
    track.labelSize = bar.number(Property::LabelSize, usualLabelSize);
    track.pointerLength = 0.85 * track.labelSize;
    return track;
}

void drawRanges(const Properties& bar, const Track& track, double across, double breadth,
                Canvas& canvas)
{
    for (const Element& part : bar.parts()) {
        const Properties range = bar.of(part);
        if (part.type != ElementType::Range || !range.isVisible())
            continue;
        const std::optional<double> from = range.number(Property::From);
        const std::optional<double> to = range.number(Property::To);
        const auto extent = from && to ? track.dial.extent(*from, *to) : std::nullopt;
        if (extent)
            canvas.rectangle(track.box(extent->first, extent->second, across, breadth),
                             range.color(Property::Color, Palette::normal));
    }
}

void drawMarks(const Properties& bar, const Track& track, Canvas& canvas)
{
    for (const Element& part : bar.parts()) {
        const Properties mark = bar.of(part);
        const std::optional<double> at = mark.number(Property::At);
        if (part.type != ElementType::Mark || !at || !mark.isVisible())
            continue;
        const double along = track.dial.place(*at);
        canvas.line(track.point(along, -markOverhang),
                    track.point(along, track.breadth() + markOverhang),
                    mark.color(Property::Color, Palette::limit), markThickness);
    }
}

void drawTicks(const Properties& bar, const Track& track, bool isDual, Canvas& canvas)
{
    const double breadth = track.breadth();
    for (const double value : track.dial.ticks(bar.number(Property::Minor, 0.0))) {
        const double along = track.dial.place(value);
        canvas.line(track.point(along, breadth / 2.0), track.point(along, breadth),
                    Palette::minorTick, 1.0);
    }
    const double away = breadth + (isDual ? track.pointerLength : 0.0);
    for (const double value : track.dial.ticks(bar.number(Property::Major, 0.0))) {
        const double along = track.dial.place(value);
        canvas.line(track.point(along, 0.0), track.point(along, breadth), Palette::well,
                    tickThickness);
        if (!bar.has(Property::LabelFormat))
            continue;
        const double gap = (track.isVertical ? 0.4 : 0.8) * track.labelSize;
        canvas.text(track.point(along, away + gap), tickLabel(bar, value),
                    {0.85 * track.labelSize, false, track.isVertical ? Align::Left : Align::Center,
                     Palette::label});
    }
}

/// A pointer on each side: the first value above or at the left, the second below or at the right.
void drawPointers(const Properties& bar, const Track& track, int state, Canvas& canvas)
{
    const Argb color = stateColor(state, bar.color(Property::Color, Palette::white));
    const double overlap = 0.35 * track.breadth();
    const auto draw = [&](Property property, double across, double direction) {
        const std::optional<double> value = bar.number(property);
        if (!value)
            return;
        const QPointF tip = track.point(track.dial.place(*value), across);
        const double length = track.pointerLength + overlap;
        canvas.pointer(tip, length + 2.0, length + 3.0, direction, Palette::well);
        canvas.pointer(tip, length, length, direction, color);
    };
    draw(Property::Value, overlap, track.isVertical ? 0.0 : 90.0);
    draw(Property::Value2, track.breadth() - overlap, track.isVertical ? 180.0 : 270.0);
}

/// Filled from its beginning up to the value; for two values each fills a half of its own.
void drawFill(const Properties& bar, const Track& track, int state, Canvas& canvas)
{
    const bool isDual = bar.has(Property::Value2);
    const double breadth = isDual ? (track.breadth() - stripGap) / 2.0 : track.breadth();
    const Argb color = stateColor(state, bar.color(Property::Color, Palette::normal));
    const auto draw = [&](Property property, double across) {
        canvas.rectangle(track.box(track.dial.start, track.dial.length, across, breadth),
                         Palette::track);
        const std::optional<double> value = bar.number(property);
        if (value)
            canvas.rectangle(track.box(track.dial.start,
                                       track.dial.place(*value) - track.dial.start, across,
                                       breadth),
                             color);
    };
    draw(Property::Value, 0.0);
    if (isDual)
        draw(Property::Value2, breadth + stripGap);
    drawRanges(bar, track, track.breadth() + stripGap, rangeStrip, canvas);
}

void drawWordsBeside(const Properties& bar, const Track& track, const Digits& first,
                     const Digits* second, Canvas& canvas)
{
    const QString name = bar.text(Property::Label);
    const QString unit = bar.text(Property::Unit);
    const Canvas::TextLook look{track.labelSize, false, Align::Left, Palette::label};
    Canvas::TextLook unitLook = look;
    if (track.isVertical) {
        const double middle = track.area.center().x();
        unitLook.align = Align::Center;
        canvas.text({middle, track.area.top() - 1.1 * track.labelSize}, name, unitLook);
        const double y = track.area.bottom() + 0.85 * first.size;
        const double aside = second != nullptr ? digitsWidth(first.text, first.size) / 2.0 : 0.0;
        drawDigits(canvas, {middle - aside, y}, first);
        if (second != nullptr)
            drawDigits(canvas, {middle + aside, y}, *second);
        canvas.text({middle, y + 0.7 * first.size + 0.5 * track.labelSize}, unit, unitLook);
        return;
    }
    const double height = std::max(track.labelSize, first.size);
    const double y =
        track.area.top() - track.pointerLength - lineGap * track.labelSize - height / 2.0;
    canvas.text({track.area.left(), y}, name, look);
    canvas.text({track.area.right() - (unitRoom - 0.25) * track.labelSize, y}, unit, unitLook);
    double right = track.area.right() - (unit.isEmpty() ? 0.0 : unitRoom * track.labelSize);
    for (const Digits* digits : {second, &first}) {
        if (digits == nullptr)
            continue;
        drawDigits(canvas, {right, y}, *digits);
        right -= digitsWidth(digits->text, digits->size) + 0.1 * digits->size;
    }
}

void drawWords(const Properties& bar, const Track& track, int state, bool isDual, Canvas& canvas)
{
    const Align align = track.isVertical ? Align::Center : Align::Right;
    Digits first{{}, bar.number(Property::Size, usualLabelSize * 1.5), 0, Palette::white, align};
    Digits second = first;
    if (bar.has(Property::Format)) {
        const auto fill = [&](Digits& digits, Property property) {
            const std::optional<double> value = bar.number(property);
            digits.text = bar.formatted(value);
            digits.state = value ? state : 0;
        };
        fill(first, Property::Value);
        fill(second, Property::Value2);
    }
    drawWordsBeside(bar, track, first, isDual ? &second : nullptr, canvas);
}

} // namespace

void layoutBar(const Properties& bar, Canvas& canvas)
{
    const Track track = trackOf(bar);
    if (track.area.isEmpty())
        return;
    const int state = stateOf(bar);
    const bool isDual = bar.has(Property::Value2);
    if (bar.text(Property::Look) == QStringLiteral("fill")) {
        drawFill(bar, track, state, canvas);
        drawTicks(bar, track, false, canvas);
        drawMarks(bar, track, canvas);
    } else {
        canvas.rectangle(track.area, Palette::track);
        drawRanges(bar, track, 0.0, track.breadth(), canvas);
        drawTicks(bar, track, isDual, canvas);
        drawMarks(bar, track, canvas);
        drawPointers(bar, track, state, canvas);
    }
    drawWords(bar, track, state, isDual, canvas);
}

} // namespace Zinc2D
