#include "libs/zinc/layout/GaugeLayout.h"

#include "libs/zinc/layout/InstrumentLook.h"

#include <algorithm>
#include <array>

namespace Zinc2D {

namespace {

// Dimensions relative to the radius
constexpr double ringWidth = 0.085;
constexpr double majorLength = 0.15;
constexpr double minorLength = 0.10;
constexpr double majorThickness = 0.018;
constexpr double minorThickness = 0.010;
constexpr double labelRadius = 0.715;
constexpr double labelSize = 0.14;
constexpr double digitsSize = 0.36;
constexpr double digitsPlace = 0.60; ///< below the centre
constexpr double namePlace = 0.89;
constexpr double needleTip = 0.97;
constexpr double needleShoulder = 0.62;
constexpr double needleTail = 0.05;
constexpr double needleWidth = 0.030; ///< half the width
constexpr double needleRim = 0.016;
constexpr double hubRadius = 0.085;
constexpr double markLength = 0.035; ///< beyond each edge of the ring
constexpr double markThickness = 0.034;

struct Face
{
    QPointF center;
    double radius = 0.0;
    double ring = 0.0; ///< width of the coloured ring
    Dial dial;
};

Face faceOf(const Properties& gauge)
{
    Face face;
    face.center = gauge.place();
    face.radius = gauge.number(Property::Radius, 0.0);
    face.ring = gauge.number(Property::Thickness, ringWidth * face.radius);
    face.dial = {gauge.number(Property::Min, Dial::unset), gauge.number(Property::Max, Dial::unset),
                 gauge.number(Property::Start, -120.0), gauge.number(Property::Sweep, 240.0)};
    return face;
}

void drawRing(const Properties& gauge, const Face& face, Canvas& canvas)
{
    const double radius = face.radius - face.ring / 2.0;
    canvas.arc(face.center, radius, face.dial.start, face.dial.length, Palette::track, face.ring);
    for (const ScaleRange& range : rangesOf(gauge, face.dial))
        canvas.arc(face.center, radius, range.start, range.length, range.color, face.ring);
}

/// A line from the edge of the dial inwards.
void drawTick(const Face& face, double value, double length, Argb color, double thickness,
              Canvas& canvas)
{
    const double angle = face.dial.place(value);
    canvas.line(onCircle(face.center, face.radius, angle),
                onCircle(face.center, face.radius * (1.0 - length), angle), color,
                face.radius * thickness);
}

void drawScale(const Properties& gauge, const Face& face, Canvas& canvas)
{
    for (const double value : face.dial.ticks(gauge.number(Property::Minor, 0.0)))
        drawTick(face, value, minorLength, Palette::minorTick, minorThickness, canvas);
    const double size = gauge.number(Property::LabelSize, labelSize * face.radius);
    for (const double value : face.dial.ticks(gauge.number(Property::Major, 0.0))) {
        drawTick(face, value, majorLength, Palette::tick, majorThickness, canvas);
        canvas.text(onCircle(face.center, face.radius * labelRadius, face.dial.place(value)),
                    tickLabel(gauge, value), {size, Weight::Normal, Align::Center, Palette::tick});
    }
    const double beyond = markLength * face.radius;
    for (const ScaleMark& mark : marksOf(gauge, face.dial))
        canvas.line(onCircle(face.center, face.radius + beyond, mark.place),
                    onCircle(face.center, face.radius - face.ring - beyond, mark.place), mark.color,
                    markThickness * face.radius);
}

void drawNeedle(const Face& face, double value, Argb color, Canvas& canvas)
{
    const double angle = face.dial.place(value);
    const QPointF axis = onCircle({}, 1.0, angle);
    const auto point = [&](double along, double aside) {
        return face.center + face.radius * QPointF(along * axis.x() - aside * axis.y(),
                                                   along * axis.y() + aside * axis.x());
    };
    const std::array<QPointF, 5> outline{
        point(needleTip, 0.0), point(needleShoulder, needleWidth), point(-needleTail, needleWidth),
        point(-needleTail, -needleWidth), point(needleShoulder, -needleWidth)};
    canvas.polyline(outline, Palette::well, 2.0 * needleRim * face.radius, Path::Closed);
    canvas.polygon(outline, color);
    canvas.circle(face.center, hubRadius * face.radius, Palette::track);
    canvas.circleLine(face.center, hubRadius * face.radius, Palette::edge, needleRim * face.radius);
}

} // namespace

void layoutGauge(const Properties& gauge, Canvas& canvas)
{
    const Face face = faceOf(gauge);
    if (!(face.radius > 0.0))
        return;
    drawRing(gauge, face, canvas);
    drawScale(gauge, face, canvas);
    const std::optional<double> value = gauge.number(Property::Value);
    const int state = value ? stateOf(gauge) : 0;
    if (value && face.dial.isUsable())
        drawNeedle(face, *value, gauge.color(Property::Color, Palette::white), canvas);
    const QPointF below(0.0, face.radius);
    if (gauge.has(Property::Format))
        drawDigits(canvas, face.center + digitsPlace * below,
                   {gauge.formatted(gauge.shown(Property::Digits, Property::Value)),
                    gauge.number(Property::Size, digitsSize * face.radius), state});
    const QString unit = gauge.text(Property::Unit);
    const QString name = gauge.text(Property::Label);
    const double size = gauge.number(Property::LabelSize, labelSize * face.radius);
    canvas.text(face.center + namePlace * below,
                unit.isEmpty() || name.isEmpty() ? name + unit : name + u' ' + unit,
                {size, Weight::Normal, Align::Center, Palette::label});
}

} // namespace Zinc2D
