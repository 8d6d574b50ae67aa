#pragma once

#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/layout/Canvas.h"
#include "libs/zinc/view/ViewModel.h"

#include <algorithm>
#include <optional>

namespace Zinc2D {

/// The current value of a property.
Value evaluate(const PropertyValue& property, const VariableTable& variables);

/// The current value as a colour; `fallback` if it is none.
Argb colorOf(const PropertyValue& property, const VariableTable& variables, Argb fallback);

/// The current properties of an element or a part.
///
/// A property that the file does not give, or whose expression is not set, has its default.
class Properties
{
public:
    Properties(const Element& element, const VariableTable& variables)
        : m_element(element)
        , m_variables(variables)
    {
    }

    ElementType type() const { return m_element.type; }

    bool has(Property property) const { return m_element.find(property) != nullptr; }

    std::optional<double> number(Property property) const;

    double number(Property property, double fallback) const
    {
        return number(property).value_or(fallback);
    }

    bool isTrue(Property property) const { return number(property, 0.0) != 0.0; }

    /// True by default; false while `visible` is given but not set.
    bool isVisible() const { return !has(Property::Visible) || isTrue(Property::Visible); }

    /// For parts, includes their opacity; elements fade as a whole.
    Argb color(Property property, Argb fallback) const;

    double opacity() const { return std::clamp(number(Property::Opacity, 1.0), 0.0, 1.0); }

    /// Empty if there is none. Numbers are formatted with "%g".
    QString text(Property property) const;

    /// Empty if there is none or it is invalid.
    std::optional<NumberFormat> format(Property property) const;

    /// X, Y, Width and Height.
    QRectF area() const;
    QPointF place() const;
    /// Empty while any of them is not set.
    std::vector<QPointF> points() const;

    /// Whether one of these properties is given but not set.
    bool isMissing(std::initializer_list<Property> needed) const;

    const std::vector<Element>& parts() const { return m_element.parts; }

    Properties of(const Element& part) const { return {part, m_variables}; }

    /// The first visible case that applies to the value; null if none does.
    const Element* activeCase(const std::optional<double>& value) const;

    /// The number of the first property if the file gives it, else of the second.
    std::optional<double> shown(Property digits, Property value) const
    {
        return number(has(digits) ? digits : value);
    }

    /// The value in the element's format; dashes if there is no value.
    QString formatted(const std::optional<double>& value) const;

private:
    const Element& m_element;
    const VariableTable& m_variables;
};

} // namespace Zinc2D
