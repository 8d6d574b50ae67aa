#include "libs/zinc/layout/Properties.h"

#include <algorithm>

namespace Zinc2D {

Value evaluate(const PropertyValue& property, const VariableTable& variables)
{
    if (property.isLiteral)
        return Value(&property.text);
    return property.expressions.empty() ? property.constant
                                        : property.expressions.front().evaluate(variables);
}

Argb colorOf(const PropertyValue& property, const VariableTable& variables, Argb fallback)
{
    const Value value = evaluate(property, variables);
    if (!value.isNumber() || !(value.number() >= 0.0) || value.number() > 4294967295.0)
        return fallback;
    return static_cast<Argb>(value.number());
}

std::optional<double> Properties::number(Property property) const
{
    const PropertyValue* const found = m_element.find(property);
    const Value value = found != nullptr ? evaluate(*found, m_variables) : Value();
    return value.isNumber() ? std::optional(value.number()) : std::nullopt;
}

Argb Properties::color(Property property, Argb fallback) const
{
    const PropertyValue* const found = m_element.find(property);
    const Argb color = found != nullptr ? colorOf(*found, m_variables, fallback) : fallback;
    return isPart(type()) ? faded(color, opacity()) : color;
}

QString Properties::text(Property property) const
{
    const PropertyValue* const found = m_element.find(property);
    const Value value = found != nullptr ? evaluate(*found, m_variables) : Value();
    return value.isNumber() ? NumberFormat().apply(value.number()) : value.text();
}

std::optional<NumberFormat> Properties::format(Property property) const
{
    const PropertyValue* const found = m_element.find(property);
    if (found == nullptr)
        return {};
    if (found->isLiteral)
        return found->format;
    const QString text = evaluate(*found, m_variables).text();
    return text.isEmpty() ? std::nullopt : NumberFormat::parse(text);
}

QRectF Properties::area() const
{
    return {number(Property::X, 0.0), number(Property::Y, 0.0), number(Property::Width, 0.0),
            number(Property::Height, 0.0)};
}

QPointF Properties::place() const
{
    return {number(Property::X, 0.0), number(Property::Y, 0.0)};
}

std::vector<QPointF> Properties::points() const
{
    const PropertyValue* const found = m_element.find(Property::Points);
    std::vector<QPointF> points;
    if (found == nullptr)
        return points;
    for (std::size_t i = 0; i + 1 < found->expressions.size(); i += 2) {
        const Value x = found->expressions[i].evaluate(m_variables);
        const Value y = found->expressions[i + 1].evaluate(m_variables);
        if (!x.isNumber() || !y.isNumber())
            return {}; // leaving out one point would change the shape
        points.emplace_back(x.number(), y.number());
    }
    return points;
}

bool Properties::isMissing(std::initializer_list<Property> needed) const
{
    return std::ranges::any_of(
        needed, [this](Property property) { return has(property) && !number(property); });
}

const Element* Properties::activeCase(const std::optional<double>& value) const
{
    for (const Element& part : m_element.parts) {
        if (part.type != ElementType::Case)
            continue;
        const Properties properties = of(part);
        const std::optional<double> own = properties.number(Property::Value);
        const bool applies = (own && own == value) || properties.isTrue(Property::When);
        if (applies && properties.isVisible())
            return &part;
    }
    return nullptr;
}

QString Properties::formatted(const std::optional<double>& value) const
{
    const NumberFormat format = this->format(Property::Format).value_or(NumberFormat());
    if (value)
        return format.apply(*value);
    return has(Property::Dashes) ? text(Property::Dashes) : format.dashes();
}

} // namespace Zinc2D
