#include "libs/zinc/view/ViewReader.h"

#include "libs/zinc/view/ViewSchema.h"

#include <algorithm>

namespace Zinc2D {

namespace {

constexpr int maxElements = 20'000;
constexpr int maxDepth = 64;
constexpr double maxSize = 100'000.0;
constexpr int mostSteps = 7; ///< of a threshold

QString nameOf(const ElementInfo& info)
{
    return QLatin1StringView(info.name.data());
}

} // namespace

ViewReader::ViewReader(VariableTable& variables)
    : m_properties(m_file, variables)
{
}

std::optional<ViewModel> ViewReader::read(const QString& path)
{
    if (!m_file.open(path) || !readRoot())
        return {};
    readChildren(-1, 0);
    if (!m_file.isGood())
        return {};
    m_model.variables = m_properties.undefinedVariables();
    return std::move(m_model);
}

bool ViewReader::readRoot()
{
    if (m_file.elementName() != QStringLiteral("view")) {
        m_file.report(QStringLiteral("this is not a view: the first element is \"%1\"")
                          .arg(m_file.elementName()));
        return false;
    }
    for (const Attribute& attribute : m_file.attributes()) {
        const double number = attribute.value.toDouble();
        if (attribute.name == QStringLiteral("width"))
            m_model.size.setWidth(number);
        else if (attribute.name == QStringLiteral("height"))
            m_model.size.setHeight(number);
        else if (attribute.name == QStringLiteral("font"))
            m_model.fontFamily = attribute.value;
        else if (attribute.name == QStringLiteral("background"))
            m_model.background = m_properties.readExpression(attribute, PropertyKind::Color);
        else
            m_file.reportUnknown(attribute);
    }
    const auto isUsable = [](double size) { return size > 0.0 && size <= maxSize; };
    if (isUsable(m_model.size.width()) && isUsable(m_model.size.height()))
        return true;
    m_file.report(QStringLiteral("the view needs \"width\" and \"height\" above 0"));
    return false;
}

void ViewReader::readChildren(int parent, int depth)
{
    while (m_file.nextChild())
        readChild(parent, depth);
}

void ViewReader::readChild(int parent, int depth)
{
    if (readDeclaration()) {
        m_file.leave();
        return;
    }
    const QString name = m_file.elementName().toString();
    const ElementInfo* const info = elementInfo(name);
    if (info == nullptr)
        m_file.report(QStringLiteral("there is no element \"%1\"").arg(name));
    else if (isPart(info->type))
        m_file.report(QStringLiteral("\"%1\" must be inside another element").arg(name));
    else if (depth >= maxDepth)
        m_file.report(QStringLiteral("groups are nested too deeply"));
    else if (!isFull())
        return readElement(*info, parent, depth);
    m_file.skip();
}

/// Reads an element that is not drawn; false if the current one is none of these.
bool ViewReader::readDeclaration()
{
    const QStringView name = m_file.elementName();
    if (name == QStringLiteral("define"))
        readDefinition();
    else if (name == QStringLiteral("style"))
        readStyle();
    else if (name == QStringLiteral("font"))
        readFont();
    else if (name == QStringLiteral("optional"))
        readOptional();
    else if (name == QStringLiteral("alternative"))
        readAlternative();
    else
        return false;
    return true;
}

bool ViewReader::isFull()
{
    if (++m_elementCount <= maxElements)
        return false;
    m_file.report(QStringLiteral("too many elements"));
    return true;
}

void ViewReader::readElement(const ElementInfo& info, int parent, int depth)
{
    std::optional<Element> read = readAttributes(info);
    const bool isComplete = read.has_value();
    Element element = isComplete ? std::move(*read) : Element();
    element.parent = parent;
    if (info.type == ElementType::Group) {
        m_model.elements.push_back(std::move(element));
        return readChildren(static_cast<int>(m_model.elements.size()) - 1, depth + 1);
    }
    readParts(info, element); // of an incomplete element for their faults
    if (isComplete)
        m_model.elements.push_back(std::move(element));
}

/// An element without its parts; empty if a required attribute is missing.
std::optional<Element> ViewReader::readAttributes(const ElementInfo& info)
{
    Attributes attributes = m_file.attributes();
    addStyle(attributes);
    Element element;
    element.type = info.type;
    element.properties = m_properties.read(info, attributes);
    return hasRequired(info, attributes) ? std::optional(std::move(element)) : std::nullopt;
}

void ViewReader::readParts(const ElementInfo& info, Element& element)
{
    while (m_file.nextChild()) {
        const QString name = m_file.elementName().toString();
        const ElementInfo* const part = elementInfo(name);
        if (part == nullptr || !holdsWord(info.parts, name)) {
            m_file.report(QStringLiteral("\"%1\" cannot contain \"%2\"").arg(nameOf(info), name));
            m_file.skip();
        } else if (isFull()) {
            m_file.skip();
        } else if (part->type == ElementType::Steps) {
            addSteps(element);
            m_file.leave();
        } else {
            std::optional<Element> read = readAttributes(*part);
            if (read && isUsablePart(info, *read))
                element.parts.push_back(std::move(*read));
            m_file.leave();
        }
    }
}

bool ViewReader::isUsablePart(const ElementInfo& parent, const Element& part)
{
    if (part.type != ElementType::Case)
        return true;
    if (parent.type == ElementType::Text && part.find(Property::Background) != nullptr)
        m_file.report(QStringLiteral("a text has no \"background\""));
    if (part.find(Property::Value) != nullptr || part.find(Property::When) != nullptr)
        return true;
    m_file.report(QStringLiteral("a case needs \"value\" or \"when\""));
    return false;
}

bool ViewReader::hasRequired(const ElementInfo& info, const Attributes& attributes)
{
    const QString required = QLatin1StringView(info.required.data());
    for (const QString& name : required.split(u' ', Qt::SkipEmptyParts)) {
        if (std::ranges::count(attributes, name, &Attribute::name) == 0) {
            m_file.report(QStringLiteral("\"%1\" is missing").arg(name));
            return false;
        }
    }
    return true;
}

void ViewReader::readDefinition()
{
    QString name;
    std::optional<Attribute> value;
    for (const Attribute& attribute : m_file.attributes()) {
        if (attribute.name == QStringLiteral("name"))
            name = attribute.value.trimmed();
        else if (attribute.name == QStringLiteral("value"))
            value = attribute;
        else
            m_file.reportUnknown(attribute);
    }
    if (name.isEmpty() || !value)
        m_file.report(QStringLiteral("a definition needs \"name\" and \"value\""));
    else
        m_properties.define(name, *value);
}

void ViewReader::readOptional()
{
    for (const Attribute& attribute : m_file.attributes()) {
        if (attribute.name == QStringLiteral("name"))
            m_model.optionalVariables.insert(attribute.value.trimmed());
        else
            m_file.reportUnknown(attribute);
    }
}

void ViewReader::readAlternative()
{
    ViewAlternative alternative;
    for (const Attribute& attribute : m_file.attributes()) {
        if (attribute.name == QStringLiteral("file"))
            alternative.file = m_properties.readFile(attribute);
        else if (attribute.name == QStringLiteral("below"))
            alternative.below = attribute.value.toDouble();
        else if (attribute.name == QStringLiteral("above"))
            alternative.above = attribute.value.toDouble();
        else
            m_file.reportUnknown(attribute);
    }
    if (std::max(alternative.below, alternative.above) > 0.0 && !alternative.file.isEmpty())
        m_model.alternatives.push_back(alternative);
    else
        m_file.report(QStringLiteral("an alternative needs \"file\" and \"below\" or \"above\""));
}

/// A range for each step of a parameter's threshold, whose variables end in the step's number.
void ViewReader::addSteps(Element& element)
{
    Attributes attributes = m_file.attributes();
    addStyle(attributes);
    const auto take = [&](const QString& name) {
        const auto found = std::ranges::find(attributes, name, &Attribute::name);
        Attribute taken = found != attributes.end() ? *found : Attribute();
        if (found != attributes.end())
            attributes.erase(found);
        return taken;
    };
    const Attribute of = take(QStringLiteral("of"));
    const Attribute other = take(QStringLiteral("or"));
    const Attribute factor = take(QStringLiteral("factor"));
    if (of.value.isEmpty()) {
        m_file.report(QStringLiteral("\"%1\" is missing").arg(QStringLiteral("of")));
        return;
    }
    if (!factor.value.isEmpty()) { // a fault is to be reported once
        const PropertyValue value = m_properties.readExpression(factor, PropertyKind::Number);
        if (value.expressions.empty() && !value.constant.isSet())
            return;
    }
    const auto variable = [&](const QString& suffix) {
        const QString own = QStringLiteral("[%1_%2]").arg(of.value, suffix);
        return other.value.isEmpty() ? own
                                     : QStringLiteral("(isset([%1_STEP1]) ? %2 : [%3_%4])")
                                           .arg(of.value, own, other.value, suffix);
    };
    const QString scale =
        factor.value.isEmpty() ? QString() : QStringLiteral(" * (%1)").arg(factor.value);
    const ElementInfo& range = *elementInfo(QStringLiteral("range"));
    for (int i = 1; i <= mostSteps && !isFull(); ++i) {
        const QString number = QString::number(i);
        const QString end = variable(QStringLiteral("STEP%1").arg(i + 1));
        Attributes written = attributes;
        written.push_back(
            {QStringLiteral("from"), variable(QStringLiteral("STEP") + number) + scale, of.offset});
        // Beyond the last step the range goes on to the end of the scale.
        written.push_back(
            {QStringLiteral("to"), QStringLiteral("first(%1, 1e9)").arg(end) + scale, of.offset});
        written.push_back(
            {QStringLiteral("color"),
             QStringLiteral("color(%1)").arg(variable(QStringLiteral("COLOR") + number)),
             of.offset});
        Element part;
        part.type = range.type;
        part.properties = m_properties.read(range, written);
        element.parts.push_back(std::move(part));
    }
}

void ViewReader::readStyle()
{
    QString name;
    Attributes kept;
    for (const Attribute& attribute : m_file.attributes()) {
        if (attribute.name == QStringLiteral("name"))
            name = attribute.value;
        else
            kept.push_back(attribute);
    }
    if (name.isEmpty())
        m_file.report(QStringLiteral("a style needs \"name\""));
    else
        m_styles.insert(name, kept);
}

void ViewReader::readFont()
{
    for (const Attribute& attribute : m_file.attributes()) {
        if (attribute.name != QStringLiteral("file"))
            m_file.reportUnknown(attribute);
        else if (const QString path = m_properties.readFile(attribute); !path.isEmpty())
            m_model.fontFiles.push_back(path);
    }
}

/// Replaces the attribute "style" by the attributes of the style that it names.
void ViewReader::addStyle(Attributes& attributes)
{
    const auto styled = std::ranges::find(attributes, QStringLiteral("style"), &Attribute::name);
    if (styled == attributes.end())
        return;
    const Attribute attribute = *styled;
    attributes.erase(styled);
    const auto style = m_styles.constFind(attribute.value);
    if (style == m_styles.cend()) {
        m_file.report(attribute, QStringLiteral("there is no style \"%1\"").arg(attribute.value));
        return;
    }
    for (const Attribute& inherited : *style) {
        if (std::ranges::count(attributes, inherited.name, &Attribute::name) == 0)
            attributes.push_back(inherited);
    }
}

} // namespace Zinc2D
