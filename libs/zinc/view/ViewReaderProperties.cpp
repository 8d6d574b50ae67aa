#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/view/ViewReader.h"
#include "libs/zinc/view/ViewSchema.h"

#include <QColor>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Zinc2D {

bool ViewReader::hasRequired(const ElementInfo& info, const Attributes& attributes)
{
    const QString required =
        QString::fromLatin1(info.required.data(), static_cast<qsizetype>(info.required.size()));
    for (const QString& name : required.split(u' ', Qt::SkipEmptyParts)) {
        if (std::ranges::count(attributes, name, &Attribute::name) == 0) {
            reportTag(QStringLiteral("\"%1\" is missing").arg(name));
            return false;
        }
    }
    return true;
}

void ViewReader::readProperties(const ElementInfo& info, const Attributes& attributes,
                                Element& element)
{
    for (const Attribute& attribute : attributes) {
        const PropertyInfo* const property = propertyInfo(attribute.name);
        if (property == nullptr || !takes(info, attribute.name)) {
            report(attribute.offset, QStringLiteral("\"%1\" has no attribute \"%2\"")
                                         .arg(QLatin1StringView(info.name.data()), attribute.name));
            continue;
        }
        if (std::optional<PropertyValue> value = readProperty(*property, attribute)) {
            value->property = property->property;
            element.properties.push_back(std::move(*value));
        }
    }
}

std::optional<PropertyValue> ViewReader::readProperty(const PropertyInfo& info,
                                                      const Attribute& attribute)
{
    PropertyValue value;
    switch (info.kind) {
    case PropertyKind::Number:
    case PropertyKind::Color:
        compile(attribute, info.kind, value);
        return value;
    case PropertyKind::Points:
        readPoints(attribute, value);
        return value;
    case PropertyKind::File:
        return readFile(attribute, value) ? std::optional(value) : std::nullopt;
    default:
        break;
    }
    if (attribute.value.startsWith(u'=')) {
        compile(attribute, info.kind, value);
        return value;
    }
    value.isLiteral = true;
    value.text = attribute.value;
    const bool isGood = info.kind == PropertyKind::Keyword  ? readWord(info, attribute, value)
                        : info.kind == PropertyKind::Format ? readFormat(attribute, value)
                                                            : true;
    return isGood ? std::optional(value) : std::nullopt;
}

void ViewReader::compile(const Attribute& attribute, PropertyKind kind, PropertyValue& value)
{
    const qsizetype skipped =
        kind == PropertyKind::Number || kind == PropertyKind::Color ? 0 : 1; // the "="
    auto compiled = compileExpression(attribute.value.mid(skipped), m_variables);
    if (const auto* const error = std::get_if<ExpressionError>(&compiled)) {
        reportIn(attribute, skipped + error->offset, error->message);
        return; // it stays without a value
    }
    auto& expression = std::get<Expression>(compiled);
    if (!fits(expression, attribute, kind))
        return;
    const Value constant = expression.evaluate(m_variables);
    if (expression.variables().empty() && !constant.isText()) {
        value.constant = constant;
        return;
    }
    markUsed(expression, attribute);
    value.expressions.push_back(std::move(expression));
}

/// Reports an expression that can never yield a usable type.
bool ViewReader::fits(const Expression& expression, const Attribute& attribute, PropertyKind kind)
{
    const ValueTypes types = expression.types();
    if (kind == PropertyKind::Color) {
        for (const int slot : expression.variables()) {
            const QString& name = m_variables.name(slot);
            if (m_variables.isDefined(slot) || !QColor::isValidColor(name))
                continue;
            reportIn(attribute, 0,
                     QStringLiteral("\"%1\" is not a colour here: write %2, or define it")
                         .arg(name, QColor(name).name(QColor::HexArgb)));
            return false;
        }
        if ((types & colorType) == 0)
            reportIn(attribute, 0, QStringLiteral("a colour is expected here, such as #00c853"));
        return (types & colorType) != 0;
    }
    const bool isNumber = kind == PropertyKind::Number;
    const bool isText = kind == PropertyKind::Keyword || kind == PropertyKind::Format;
    const ValueTypes wanted = isNumber ? numberType : isText ? textType : numberType | textType;
    if ((types & wanted) != 0)
        return true;
    reportIn(attribute, 0,
             isNumber ? QStringLiteral("a number is expected here")
                      : QStringLiteral("a text is expected here"));
    return false;
}

bool ViewReader::readWord(const PropertyInfo& info, const Attribute& attribute,
                          PropertyValue& value)
{
    if (holdsWord(info.words, value.text))
        return true;
    reportIn(attribute, 0,
             QStringLiteral("\"%1\" is none of: %2")
                 .arg(value.text, QLatin1StringView(info.words.data())));
    return false;
}

bool ViewReader::readFormat(const Attribute& attribute, PropertyValue& value)
{
    qsizetype offset = 0;
    const std::optional<NumberFormat> format = NumberFormat::parse(value.text, &offset);
    if (!format) {
        reportIn(attribute, offset, QStringLiteral("this is not a number format"));
        return false;
    }
    value.format = *format;
    return true;
}

bool ViewReader::readFile(const Attribute& attribute, PropertyValue& value)
{
    value.isLiteral = true;
    value.text = QDir(m_directory).absoluteFilePath(attribute.value);
    if (QFileInfo(value.text).isFile())
        return true;
    reportIn(attribute, 0, QStringLiteral("there is no file \"%1\"").arg(attribute.value));
    return false;
}

void ViewReader::readPoints(const Attribute& attribute, PropertyValue& value)
{
    auto compiled = compilePoints(attribute.value, m_variables);
    if (const auto* const error = std::get_if<ExpressionError>(&compiled)) {
        reportIn(attribute, error->offset, error->message);
        return;
    }
    value.expressions = std::move(std::get<std::vector<Expression>>(compiled));
    for (const Expression& expression : value.expressions)
        markUsed(expression, attribute);
}

} // namespace Zinc2D
