#include "libs/zinc/layout/ElementLayout.h"

#include "libs/zinc/layout/BarLayout.h"
#include "libs/zinc/layout/GaugeLayout.h"
#include "libs/zinc/layout/InstrumentLook.h"
#include "libs/zinc/layout/LampLayout.h"
#include "libs/zinc/layout/TapeLayout.h"

namespace Zinc2D {

namespace {

constexpr double usualThickness = 2.0;
constexpr double usualTextSize = 20.0;

/// Draws the area and the outline of a shape with the given functions.
template <typename Fill, typename Line>
void layoutArea(const Properties& element, Fill&& fill, Line&& line)
{
    // A shape without any colour is white rather than invisible.
    const bool hasStroke = element.has(Property::Stroke);
    fill(element.color(Property::Fill, hasStroke ? Palette::none : Palette::white));
    if (hasStroke)
        line(element.color(Property::Stroke, Palette::none),
             element.number(Property::Thickness, usualThickness));
}

void layoutLine(const Properties& element, Canvas& canvas)
{
    canvas.line(element.place(),
                {element.number(Property::X2, 0.0), element.number(Property::Y2, 0.0)},
                element.color(Property::Color, Palette::white),
                element.number(Property::Thickness, usualThickness));
}

void layoutPolyline(const Properties& element, Canvas& canvas)
{
    canvas.polyline(element.points(), element.color(Property::Color, Palette::white),
                    element.number(Property::Thickness, usualThickness),
                    element.isTrue(Property::Closed) ? Path::Closed : Path::Open);
}

void layoutPolygon(const Properties& element, Canvas& canvas)
{
    const std::vector<QPointF> points = element.points();
    layoutArea(
        element, [&](Argb color) { canvas.polygon(points, color); },
        [&](Argb color, double thickness) {
            canvas.polyline(points, color, thickness, Path::Closed);
        });
}

void layoutRectangle(const Properties& element, Canvas& canvas)
{
    const double corner = element.number(Property::Corner, 0.0);
    layoutArea(
        element, [&](Argb color) { canvas.rectangle(element.area(), color, corner); },
        [&](Argb color, double thickness) {
            canvas.frame(element.area(), color, thickness, corner);
        });
}

void layoutCircle(const Properties& element, Canvas& canvas)
{
    const double radius = element.number(Property::Radius, 0.0);
    layoutArea(
        element, [&](Argb color) { canvas.circle(element.place(), radius, color); },
        [&](Argb color, double thickness) {
            canvas.circleLine(element.place(), radius, color, thickness);
        });
}

/// An arc, or a ring segment as an arc of the ring's width.
void layoutArc(const Properties& element, Canvas& canvas)
{
    double radius = element.number(Property::Radius, 0.0);
    double thickness = element.number(Property::Thickness, usualThickness);
    Argb color = element.color(Property::Color, Palette::white);
    if (element.type() == ElementType::Ring) {
        const double inner = element.number(Property::Inner, 0.0);
        thickness = radius - inner;
        radius = (radius + inner) / 2.0;
        color = element.color(Property::Fill, Palette::white);
    }
    canvas.arc(element.place(), radius, element.number(Property::Start, 0.0),
               element.number(Property::Sweep, 0.0), color, thickness);
}

void layoutShape(const Properties& element, Canvas& canvas)
{
    switch (element.type()) {
    case ElementType::Line:
        return layoutLine(element, canvas);
    case ElementType::Polyline:
        return layoutPolyline(element, canvas);
    case ElementType::Polygon:
        return layoutPolygon(element, canvas);
    case ElementType::Rectangle:
        return layoutRectangle(element, canvas);
    case ElementType::Circle:
        return layoutCircle(element, canvas);
    case ElementType::Arc:
    case ElementType::Ring:
        return layoutArc(element, canvas);
    case ElementType::Image:
        return canvas.image(element.area(), element.text(Property::File));
    default:
        return;
    }
}

} // namespace

void layoutElement(const Properties& element, Canvas& canvas)
{
    if (!element.isVisible() ||
        element.isMissing({Property::X, Property::Y, Property::X2, Property::Y2, Property::Width,
                           Property::Height, Property::Radius, Property::Inner, Property::Start,
                           Property::Sweep}))
        return;
    switch (element.type()) {
    case ElementType::Text:
        return layoutText(element, canvas);
    case ElementType::Gauge:
        return layoutGauge(element, canvas);
    case ElementType::Bar:
        return layoutBar(element, canvas);
    case ElementType::Lamp:
        return layoutLamp(element, canvas);
    case ElementType::Annunciator:
        return layoutAnnunciator(element, canvas);
    case ElementType::Tape:
        return layoutTape(element, canvas);
    default:
        return layoutShape(element, canvas);
    }
}

void layoutText(const Properties& element, Canvas& canvas)
{
    const std::optional<double> value = element.number(Property::Value);
    const bool hasValue = element.has(Property::Value);
    QString text = hasValue ? element.formatted(value) : element.text(Property::Text);
    Argb color = element.color(Property::Color, Palette::white);
    if (!element.parts().empty()) {
        const Element* const active = element.activeCase(value);
        if (active != nullptr) {
            color = element.of(*active).color(Property::Color, color);
            text = element.of(*active).text(Property::Text);
        } else if (value && !element.has(Property::Format) && element.has(Property::Text)) {
            text = element.text(Property::Text);
        }
    }
    const QString align = element.text(Property::Align);
    canvas.text(
        element.place(), text,
        {element.number(Property::Size, usualTextSize),
         element.text(Property::Weight) == QStringLiteral("bold") ? Weight::Bold : Weight::Normal,
         align == QStringLiteral("center")  ? Align::Center
         : align == QStringLiteral("right") ? Align::Right
                                            : Align::Left,
         color});
}

} // namespace Zinc2D
