#include "libs/zinc/view/PropertyReader.h"

#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/view/ViewSchema.h"

#include <QColor>
#include <QFileInfo>

#include <algorithm>

namespace Zinc2D {

PropertyReader::PropertyReader(ViewFile& file, VariableTable& variables)
    : m_file(file)
    , m_variables(variables)
{
}

std::vector<PropertyValue> PropertyReader::read(const ElementInfo& info,
                                                const Attributes& attributes)
{
    std::vector<PropertyValue> properties;
    for (const Attribute& attribute : attributes) {
        const PropertyInfo* const property = propertyInfo(attribute.name);
        if (property == nullptr || !takes(info, attribute.name)) {
            m_file.reportUnknown(attribute);
            continue;
        }
        if (std::optional<PropertyValue> value = readProperty(*property, attribute)) {
            value->property = property->property;
            properties.push_back(std::move(*value));
        }
    }
    return properties;
}

std::optional<PropertyValue> PropertyReader::readProperty(const PropertyInfo& info,
                                                          const Attribute& attribute)
{
    PropertyValue value;
    switch (info.kind) {
    case PropertyKind::Number:
    case PropertyKind::Color:
        return readExpression(attribute, info.kind);
    case PropertyKind::Points:
        readPoints(attribute, value);
        return value;
    case PropertyKind::File:
        value.isLiteral = true;
        value.text = readFile(attribute);
        return value.text.isEmpty() ? std::nullopt : std::optional(value);
    default:
        return attribute.value.startsWith(u'=') ? readExpression(attribute, info.kind)
                                                : readLiteral(info, attribute);
    }
}

PropertyValue PropertyReader::readExpression(const Attribute& attribute, PropertyKind kind)
{
    const qsizetype skipped =
        kind == PropertyKind::Number || kind == PropertyKind::Color ? 0 : 1; // the "="
    PropertyValue value;
    auto compiled = compileExpression(attribute.value.mid(skipped), m_variables);
    if (const auto* const error = std::get_if<ExpressionError>(&compiled)) {
        m_file.report(attribute, error->message, skipped + error->offset);
        return value;
    }
    auto& expression = std::get<Expression>(compiled);
    if (!fits(expression, attribute, kind))
        return value;
    const Value constant = expression.evaluate(m_variables);
    if (expression.variables().empty() && !constant.isText()) {
        value.constant = constant;
    } else {
        markUsed(expression, attribute);
        value.expressions.push_back(std::move(expression));
    }
    return value;
}

/// Reports an expression that can never yield a usable type.
bool PropertyReader::fits(const Expression& expression, const Attribute& attribute,
                          PropertyKind kind)
{
    const auto yields = [&](ValueTypes wanted) { return (expression.types() & wanted) != 0; };
    switch (kind) {
    case PropertyKind::Color:
        return areColors(expression, attribute);
    case PropertyKind::Number:
        if (yields(numberType))
            return true;
        m_file.report(attribute, QStringLiteral("a number is expected here"));
        return false;
    default:
        if (yields(kind == PropertyKind::Text ? numberType | textType : textType))
            return true;
        m_file.report(attribute, QStringLiteral("a text is expected here"));
        return false;
    }
}

bool PropertyReader::areColors(const Expression& expression, const Attribute& attribute)
{
    for (const int slot : expression.variables()) {
        const QString& name = m_variables.name(slot);
        if (m_variables.isDefined(slot) || !QColor::isValidColor(name))
            continue;
        m_file.report(attribute,
                      QStringLiteral("\"%1\" is not a colour here: write %2, or define it")
                          .arg(name, QColor(name).name(QColor::HexArgb)));
        return false;
    }
    if ((expression.types() & colorType) != 0)
        return true;
    m_file.report(attribute, QStringLiteral("a colour is expected here, such as #00c853"));
    return false;
}

std::optional<PropertyValue> PropertyReader::readLiteral(const PropertyInfo& info,
                                                         const Attribute& attribute)
{
    PropertyValue value;
    value.isLiteral = true;
    value.text = attribute.value;
    if (info.kind == PropertyKind::Keyword && !holdsWord(info.words, value.text)) {
        m_file.report(attribute, QStringLiteral("\"%1\" is none of: %2")
                                     .arg(value.text, QLatin1StringView(info.words.data())));
        return {};
    }
    if (info.kind == PropertyKind::Format) {
        qsizetype offset = 0;
        const std::optional<NumberFormat> format = NumberFormat::parse(value.text, &offset);
        if (!format) {
            m_file.report(attribute, QStringLiteral("this is not a number format"), offset);
            return {};
        }
        value.format = *format;
    }
    return value;
}

QString PropertyReader::readFile(const Attribute& attribute)
{
    const QString path = m_file.absolutePath(attribute.value);
    if (QFileInfo(path).isFile())
        return path;
    m_file.report(attribute, QStringLiteral("there is no file \"%1\"").arg(attribute.value));
    return {};
}

void PropertyReader::readPoints(const Attribute& attribute, PropertyValue& value)
{
    auto compiled = compilePoints(attribute.value, m_variables);
    if (const auto* const error = std::get_if<ExpressionError>(&compiled)) {
        m_file.report(attribute, error->message, error->offset);
        return;
    }
    value.expressions = std::move(std::get<std::vector<Expression>>(compiled));
    for (const Expression& expression : value.expressions)
        markUsed(expression, attribute);
}

void PropertyReader::define(const QString& name, const Attribute& value)
{
    auto compiled = compileExpression(value.value, m_variables);
    if (const auto* const error = std::get_if<ExpressionError>(&compiled)) {
        m_file.report(value, error->message, error->offset);
        return;
    }
    if (m_variables.isDefined(name)) {
        m_file.report(QStringLiteral("\"%1\" is already defined").arg(name));
        return;
    }
    auto& expression = std::get<Expression>(compiled);
    const int slot = m_variables.slot(name);
    // Earlier uses were compiled, and type-checked, with the name as a plain variable.
    if (m_used.contains(slot) || std::ranges::count(expression.variables(), slot) > 0) {
        m_file.report(QStringLiteral("\"%1\" is used before it is defined").arg(name));
        return;
    }
    markUsed(expression, value);
    m_variables.define(name, std::move(expression));
}

void PropertyReader::markUsed(const Expression& expression, const Attribute& attribute)
{
    for (const int slot : expression.variables()) {
        if (m_used.contains(slot))
            continue;
        m_used.insert(slot);
        m_uses.push_back({slot, attribute});
    }
}

std::vector<VariableUse> PropertyReader::undefinedVariables() const
{
    std::vector<VariableUse> found;
    for (const Use& use : m_uses) {
        const QString& name = m_variables.name(use.slot);
        if (!m_variables.isDefined(use.slot))
            found.push_back(
                {name, m_file.diagnostic(use.attribute,
                                         QStringLiteral("there is no variable \"%1\"").arg(name))});
    }
    return found;
}

} // namespace Zinc2D
