#pragma once

#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/layout/Canvas.h"
#include "libs/zinc/view/ViewModel.h"

#include <algorithm>
#include <optional>

namespace Zinc2D {

/// What a property is now.
Value evaluate(const PropertyValue& property, const VariableTable& variables);

/// A value as a colour.
Argb colorOf(const PropertyValue& property, const VariableTable& variables, Argb fallback);

/// The properties of an element, or of a part of it, as they are now.
///
/// One that the file does not give, or whose expression yields nothing, has its default.
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

    bool isTrue(Property property, bool fallback = false) const
    {
        return number(property, fallback ? 1.0 : 0.0) != 0.0;
    }

    /// Unless the file tells otherwise, and not while that has no value.
    bool isVisible() const { return !has(Property::Visible) || isTrue(Property::Visible); }

    /// Of parts with their opacity; elements fade as a whole.
    Argb color(Property property, Argb fallback) const;

    double opacity() const { return std::clamp(number(Property::Opacity, 1.0), 0.0, 1.0); }

    /// Empty where there is none. A number is written as short as it can be.
    QString text(Property property) const;

    /// Nothing where there is none or it is broken.
    std::optional<NumberFormat> format(Property property) const;

    /// X, Y, Width and Height.
    QRectF area() const;
    QPointF place() const;
    /// None at all while one of them has no place.
    std::vector<QPointF> points() const;

    /// Whether a number that the element cannot do without has no value at the moment.
    bool isMissing(std::initializer_list<Property> needed) const;

    const std::vector<Element>& parts() const { return m_element.parts; }

    Properties of(const Element& part) const { return {part, m_variables}; }

    /// The first visible case that applies to the value; null when none does.
    const Element* activeCase(const std::optional<double>& value) const;

    /// The number to be shown where the first property tells it, else that of the second.
    std::optional<double> shown(Property digits, Property value) const
    {
        return number(has(digits) ? digits : value);
    }

    /// The value in the element's format, with dashes where there is none.
    QString formatted(const std::optional<double>& value) const;

private:
    const Element& m_element;
    const VariableTable& m_variables;
};

} // namespace Zinc2D
