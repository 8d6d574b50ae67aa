#include "libs/zinc/view/ViewSchema.h"

#include <QString>

#include <algorithm>
#include <array>

namespace Zinc2D {

namespace {

using enum PropertyKind;

constexpr auto properties = std::to_array<PropertyInfo>({
    {"align", Property::Align, Keyword, "left center right"},
    {"at", Property::At, Number},
    {"background", Property::Background, Color},
    {"closed", Property::Closed, Number},
    {"color", Property::Color, Color},
    {"corner", Property::Corner, Number},
    {"dashes", Property::Dashes, Text},
    {"digits", Property::Digits, Number},
    {"digits2", Property::Digits2, Number},
    {"file", Property::File, File},
    {"fill", Property::Fill, Color},
    {"format", Property::Format, Format},
    {"from", Property::From, Number},
    {"height", Property::Height, Number},
    {"inner", Property::Inner, Number},
    {"label", Property::Label, Text},
    {"labelFormat", Property::LabelFormat, Format},
    {"labelScale", Property::LabelScale, Number},
    {"labelSize", Property::LabelSize, Number},
    {"look", Property::Look, Keyword, "pointer fill"},
    {"major", Property::Major, Number},
    {"max", Property::Max, Number},
    {"min", Property::Min, Number},
    {"minor", Property::Minor, Number},
    {"opacity", Property::Opacity, Number},
    {"orientation", Property::Orientation, Keyword, "vertical horizontal"},
    {"points", Property::Points, Points},
    {"priority", Property::Priority, Number},
    {"radius", Property::Radius, Number},
    {"rotate", Property::Rotate, Number},
    {"rows", Property::Rows, Number},
    {"scale", Property::Scale, Number},
    {"size", Property::Size, Number},
    {"span", Property::Span, Number},
    {"start", Property::Start, Number},
    {"state", Property::State, Number},
    {"state2", Property::State2, Number},
    {"stroke", Property::Stroke, Color},
    {"sweep", Property::Sweep, Number},
    {"text", Property::Text, Text},
    {"thickness", Property::Thickness, Number},
    {"to", Property::To, Number},
    {"unit", Property::Unit, Text},
    {"value", Property::Value, Number},
    {"value2", Property::Value2, Number},
    {"visible", Property::Visible, Number},
    {"weight", Property::Weight, Keyword, "normal bold"},
    {"when", Property::When, Number},
    {"width", Property::Width, Number},
    {"x", Property::X, Number},
    {"x2", Property::X2, Number},
    {"y", Property::Y, Number},
    {"y2", Property::Y2, Number},
});

constexpr auto elements = std::to_array<ElementInfo>({
    {"group", ElementType::Group, "", "x y rotate scale"},
    {"line", ElementType::Line, "x y x2 y2", "color thickness"},
    {"polyline", ElementType::Polyline, "points", "color thickness closed"},
    {"polygon", ElementType::Polygon, "points", "fill stroke thickness"},
    {"rectangle", ElementType::Rectangle, "x y width height", "corner fill stroke thickness"},
    {"circle", ElementType::Circle, "x y radius", "fill stroke thickness"},
    {"arc", ElementType::Arc, "x y radius start sweep", "color thickness"},
    {"ring", ElementType::Ring, "x y radius inner start sweep", "fill"},
    {"text", ElementType::Text, "x y", "text value format dashes size weight align color", "case"},
    {"image", ElementType::Image, "x y width height file", ""},
    {"gauge", ElementType::Gauge, "x y radius value min max",
     "start sweep major minor labelFormat labelScale labelSize format digits dashes label unit "
     "size state "
     "thickness color",
     "range steps mark"},
    {"bar", ElementType::Bar, "x y width height value min max",
     "value2 orientation look major minor labelFormat labelScale labelSize format digits digits2 "
     "dashes label unit size state state2 color",
     "range steps mark"},
    {"lamp", ElementType::Lamp, "x y width height value",
     "text size corner color background stroke", "case"},
    {"annunciator", ElementType::Annunciator, "x y width height", "rows size color background",
     "message"},
    {"tape", ElementType::Tape, "x y width height value span",
     "orientation major minor labelFormat labelScale labelSize format digits dashes size state "
     "color "
     "background",
     "range steps mark"},
    {"range", ElementType::Range, "from to color", ""},
    {"steps", ElementType::Steps, "of", "or factor"},
    {"mark", ElementType::Mark, "at color", ""},
    {"case", ElementType::Case, "", "value when text color background"},
    {"message", ElementType::Message, "when text", "color background priority"},
});

constexpr std::string_view everywhere = "visible opacity";

QLatin1StringView latin(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

template <typename Infos>
auto* find(const Infos& infos, QStringView name)
{
    const auto* const found =
        std::ranges::find_if(infos, [name](const auto& info) { return latin(info.name) == name; });
    return found == infos.end() ? nullptr : found;
}

} // namespace

const PropertyInfo* propertyInfo(QStringView name)
{
    return find(properties, name);
}

const ElementInfo* elementInfo(QStringView name)
{
    return find(elements, name);
}

bool holdsWord(std::string_view words, QStringView word)
{
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (latin(words.substr(0, end)) == word)
            return true;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

bool takes(const ElementInfo& element, QStringView attribute)
{
    return holdsWord(element.required, attribute) || holdsWord(element.optional, attribute) ||
           holdsWord(everywhere, attribute);
}

} // namespace Zinc2D
