#pragma once

#include "libs/zinc/expression/Expression.h"
#include "libs/zinc/view/NumberFormat.h"
#include "libs/zinc/view/ViewSource.h"

#include <QSet>
#include <QSizeF>
#include <QString>

#include <vector>

/// What was read from a view file (docs/formats/view.md).
namespace Zinc2D {

enum class ElementType {
    Group,
    Line,
    Polyline,
    Polygon,
    Rectangle,
    Circle,
    Arc,
    Ring,
    Text,
    Image,
    Gauge,
    Bar,
    Lamp,
    Annunciator,
    Tape,
    // Parts of these
    Range,
    Mark,
    Case,
    Message
};

constexpr bool isPart(ElementType type)
{
    return type >= ElementType::Range;
}

enum class Property {
    Align,
    At,
    Background,
    Closed,
    Color,
    Corner,
    Dashes,
    Digits,
    Digits2,
    File,
    Fill,
    Format,
    From,
    Height,
    Inner,
    Label,
    LabelFormat,
    LabelScale,
    LabelSize,
    Look,
    Major,
    Max,
    Min,
    Minor,
    Opacity,
    Orientation,
    Points,
    Priority,
    Radius,
    Rotate,
    Rows,
    Scale,
    Size,
    Span,
    Start,
    State,
    State2,
    Stroke,
    Sweep,
    Text,
    Thickness,
    To,
    Unit,
    Value,
    Value2,
    Visible,
    Weight,
    When,
    Width,
    X,
    X2,
    Y,
    Y2
};

/// A property that the file gives: a constant, a literal text, or what an expression yields.
struct PropertyValue
{
    Property property = Property::X;
    bool isLiteral = false; ///< `text`, and for formats `format`
    QString text;
    NumberFormat format;
    Value constant;                      ///< where it is neither literal nor has expressions
    std::vector<Expression> expressions; ///< one; for points two for each
};

struct Element
{
    ElementType type = ElementType::Group;
    int parent = -1; ///< index of the group that it lies in
    std::vector<PropertyValue> properties;
    std::vector<Element> parts; ///< ranges, marks, cases, messages

    const PropertyValue* find(Property property) const;
};

/// A variable that the view does not define itself, and what to tell when nobody sets it.
struct VariableUse
{
    QString name;
    Diagnostic unknown; ///< where it is used first
};

/// A whole view. Elements stand in the order of the file, groups before what is in them.
struct ViewModel
{
    QSizeF size;
    PropertyValue background; ///< colour behind everything
    QString fontFamily;
    std::vector<QString> fontFiles;
    std::vector<Element> elements;
    std::vector<VariableUse> variables;
    QSet<QString> optionalVariables; ///< nobody has to set them
};

} // namespace Zinc2D
