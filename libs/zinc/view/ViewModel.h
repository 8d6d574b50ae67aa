#pragma once

#include "libs/zinc/expression/Expression.h"
#include "libs/zinc/view/NumberFormat.h"
#include "libs/zinc/view/ViewSource.h"

#include <QSet>
#include <QSizeF>
#include <QString>

#include <vector>

/// The contents of a view file (docs/formats/view.md).
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
    // Only inside other elements
    Range,
    Steps, ///< becomes ranges when it is read
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

/// A property given in the file: a constant, a literal text, or an expression.
struct PropertyValue
{
    Property property = Property::X;
    bool isLiteral = false; ///< the value is `text`, for formats also `format`
    QString text;
    NumberFormat format;
    Value constant;                      ///< if it is neither literal nor has expressions
    std::vector<Expression> expressions; ///< one, or x and y of each point
};

struct Element
{
    ElementType type = ElementType::Group;
    int parent = -1; ///< index of its group in ViewModel::elements; -1: none
    std::vector<PropertyValue> properties;
    std::vector<Element> parts; ///< ranges, marks, cases, messages

    const PropertyValue* find(Property property) const;
};

/// A variable that the view uses without defining it, and the report if nobody sets it.
struct VariableUse
{
    QString name;
    Diagnostic unknown; ///< points at its first use
};

/// Another view file, for pages of another shape.
struct ViewAlternative
{
    double below = 0.0; ///< for pages whose width / height is less than this; 0: any
    double above = 0.0; ///< and more than this
    QString file;       ///< absolute path
};

/// The file for a page of this width / height: of several the narrowest. Empty if there is none.
QString fileFor(const std::vector<ViewAlternative>& alternatives, double aspect);

/// A whole view. Elements are in file order, so that a group comes before its contents.
struct ViewModel
{
    QSizeF size;
    PropertyValue background; ///< colour behind everything
    QString fontFamily;
    std::vector<QString> fontFiles;
    std::vector<ViewAlternative> alternatives;
    std::vector<Element> elements;
    std::vector<VariableUse> variables;
    QSet<QString> optionalVariables; ///< not reported when nobody sets them
};

} // namespace Zinc2D
