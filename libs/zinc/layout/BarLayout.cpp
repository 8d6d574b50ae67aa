#include "libs/zinc/layout/BarLayout.h"

#include "libs/zinc/layout/InstrumentLook.h"

#include <algorithm>
#include <span>
#include <vector>

namespace Zinc2D {

namespace {

constexpr double usualLabelSize = 16.0;
constexpr double usualDigitsSize = 24.0;
constexpr double tickThickness = 1.5;
constexpr double markThickness = 3.0;
constexpr double markOverhang = 3.0;
constexpr double rangeStrip = 4.0; ///< beside a filled bar
constexpr double stripGap = 2.0;
constexpr double unitRoom = 2.9; ///< relative to the label size
constexpr double lineGap = 0.45; ///< between pointer and words, relative to the label size

/// Geometry of a bar. Positions are given along its axis and across it.
struct Track
{
    QRectF area;
    bool isVertical = false;
    bool hasPointers = true;
    Dial dial;
    double labelSize = 0.0;
    double pointerLength = 0.0;

    /// From the top of a vertical bar to the middle of its name. A pointer may stick out there.
    double labelGap() const { return (hasPointers ? 1.4 : 1.1) * labelSize; }

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

/// The properties of one of the two values that a bar can show.
struct Side
{
    Property value;
    Property digits;
    Property state;
};

constexpr Side sides[] = {{Property::Value, Property::Digits, Property::State},
                          {Property::Value2, Property::Digits2, Property::State2}};

std::span<const Side> sidesOf(const Properties& bar)
{
    return std::span(sides).first(bar.has(Property::Value2) ? 2 : 1);
}

Track trackOf(const Properties& bar)
{
    Track track;
    track.area = bar.area();
    const QString orientation = bar.text(Property::Orientation);
    track.isVertical = orientation.isEmpty() ? track.area.height() > track.area.width()
                                             : orientation == QStringLiteral("vertical");
    track.dial = {bar.number(Property::Min, Dial::unset), bar.number(Property::Max, Dial::unset),
                  track.isVertical ? track.area.bottom() : track.area.left(),
                  track.isVertical ? -track.area.height() : track.area.width()};
    track.hasPointers = bar.text(Property::Look) != QStringLiteral("fill");
    track.labelSize = bar.number(Property::LabelSize, usualLabelSize);
    track.pointerLength = 0.85 * track.labelSize;
    return track;
}

void drawRanges(const Properties& bar, const Track& track, double across, double breadth,
                Canvas& canvas)
{
    for (const ScaleRange& range : rangesOf(bar, track.dial))
        canvas.rectangle(track.box(range.start, range.length, across, breadth), range.color);
}

void drawMarks(const Properties& bar, const Track& track, Canvas& canvas)
{
    for (const ScaleMark& mark : marksOf(bar, track.dial))
        canvas.line(track.point(mark.place, -markOverhang),
                    track.point(mark.place, track.breadth() + markOverhang), mark.color,
                    markThickness);
}

void drawTicks(const Properties& bar, const Track& track, Canvas& canvas)
{
    const double breadth = track.breadth();
    for (const double value : track.dial.ticks(bar.number(Property::Minor, 0.0))) {
        const double along = track.dial.place(value);
        canvas.line(track.point(along, breadth / 2.0), track.point(along, breadth),
                    Palette::minorTick, 1.0);
    }
    const bool hasLowerPointer = track.hasPointers && bar.has(Property::Value2);
    const double away = breadth + (hasLowerPointer ? track.pointerLength : 0.0);
    for (const double value : track.dial.ticks(bar.number(Property::Major, 0.0))) {
        const double along = track.dial.place(value);
        canvas.line(track.point(along, 0.0), track.point(along, breadth), Palette::well,
                    tickThickness);
        if (!bar.has(Property::LabelFormat))
            continue;
        const double gap = (track.isVertical ? 0.4 : 0.8) * track.labelSize;
        canvas.text(track.point(along, away + gap), tickLabel(bar, value),
                    {0.85 * track.labelSize, Weight::Normal,
                     track.isVertical ? Align::Left : Align::Center, Palette::label});
    }
}

/// One pointer for each value: the first above or left of the bar, the second below or right.
void drawPointers(const Properties& bar, const Track& track, Canvas& canvas)
{
    const double overlap = 0.35 * track.breadth();
    const double length = track.pointerLength + overlap;
    for (const Side& side : sidesOf(bar)) {
        const std::optional<double> value = bar.number(side.value);
        if (!value || !track.dial.isUsable())
            continue;
        const bool isFirst = side.value == Property::Value;
        const QPointF tip =
            track.point(track.dial.place(*value), isFirst ? overlap : track.breadth() - overlap);
        const double direction = (isFirst ? 0.0 : 180.0) + (track.isVertical ? 0.0 : 90.0);
        canvas.pointer(tip, length + 2.0, length + 3.0, direction, Palette::well);
        canvas.pointer(
            tip, length, length, direction,
            stateColor(stateOf(bar, side.state), bar.color(Property::Color, Palette::white)));
    }
}

/// Fills the bar from its start to the value. Two values get half of the breadth each.
void drawFill(const Properties& bar, const Track& track, Canvas& canvas)
{
    const std::span<const Side> shown = sidesOf(bar);
    const double breadth = shown.size() > 1 ? (track.breadth() - stripGap) / 2.0 : track.breadth();
    double across = 0.0;
    for (const Side& side : shown) {
        const double start = track.dial.start;
        canvas.rectangle(track.box(start, track.dial.length, across, breadth), Palette::track);
        const std::optional<double> value = bar.number(side.value);
        if (value && track.dial.isUsable())
            canvas.rectangle(
                track.box(start, track.dial.place(*value) - start, across, breadth),
                stateColor(stateOf(bar, side.state), bar.color(Property::Color, Palette::normal)));
        across += breadth + stripGap;
    }
    drawRanges(bar, track, track.breadth() + stripGap, rangeStrip, canvas);
}

/// Name, unit and numbers of a bar. All numbers get the same width, so that they stay in place
/// when the digits change.
struct Words
{
    QString name;
    QString unit;
    std::vector<Digits> numbers;
    double room = 0.0; ///< width of each number
};

Words wordsOf(const Properties& bar, const Track& track)
{
    Words words{bar.text(Property::Label), bar.text(Property::Unit), {}, 0.0};
    if (!bar.has(Property::Format))
        return words;
    const double size = bar.number(Property::Size, usualDigitsSize);
    words.room = digitsWidth(bar.formatted(bar.number(Property::Max)), size);
    for (const Side& side : sidesOf(bar)) {
        const std::optional<double> value = bar.shown(side.digits, side.value);
        const QString text = bar.formatted(value);
        words.room = std::max(words.room, digitsWidth(text, size));
        words.numbers.push_back({text, size, value ? stateOf(bar, side.state) : 0, Palette::white,
                                 track.isVertical ? Align::Center : Align::Right});
    }
    return words;
}

/// The name above the bar, the numbers and then the unit below.
void drawVerticalWords(const Words& words, const Track& track, Canvas& canvas)
{
    const Canvas::TextLook look{track.labelSize, Weight::Normal, Align::Center, Palette::label};
    const double middle = track.area.center().x();
    canvas.text({middle, track.area.top() - track.labelGap()}, words.name, look);
    double x = middle - words.room * (static_cast<double>(words.numbers.size()) - 1.0) / 2.0;
    double y = track.area.bottom();
    for (const Digits& number : words.numbers) {
        y = track.area.bottom() + 0.85 * number.size;
        drawDigits(canvas, {x, y}, number);
        x += words.room;
    }
    canvas.text({middle, y + 1.3 * track.labelSize}, words.unit, look);
}

/// All in one line above the bar: the name at the left, numbers and unit at the right.
void drawHorizontalWords(const Words& words, const Track& track, Canvas& canvas)
{
    const Canvas::TextLook look{track.labelSize, Weight::Normal, Align::Left, Palette::label};
    const double size =
        words.numbers.empty() ? 0.0 : std::max(track.labelSize, words.numbers.front().size);
    const double y =
        track.area.top() - track.pointerLength - lineGap * track.labelSize - size / 2.0;
    canvas.text({track.area.left(), y}, words.name, look);
    canvas.text({track.area.right() - (unitRoom - 0.25) * track.labelSize, y}, words.unit, look);
    double right = track.area.right() - (words.unit.isEmpty() ? 0.0 : unitRoom * track.labelSize);
    for (auto number = words.numbers.rbegin(); number != words.numbers.rend(); ++number) {
        drawDigits(canvas, {right, y}, *number);
        right -= words.room;
    }
}

} // namespace

void layoutBar(const Properties& bar, Canvas& canvas)
{
    const Track track = trackOf(bar);
    if (track.area.isEmpty())
        return;
    if (!track.hasPointers) {
        drawFill(bar, track, canvas);
    } else {
        canvas.rectangle(track.area, Palette::track);
        drawRanges(bar, track, 0.0, track.breadth(), canvas);
    }
    drawTicks(bar, track, canvas);
    drawMarks(bar, track, canvas);
    if (track.hasPointers)
        drawPointers(bar, track, canvas);
    const Words words = wordsOf(bar, track);
    if (track.isVertical)
        drawVerticalWords(words, track, canvas);
    else
        drawHorizontalWords(words, track, canvas);
}

} // namespace Zinc2D
