#include "libs/zinc/view/ViewReader.h"

#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/view/ViewSchema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace Zinc2D {

namespace {

constexpr qint64 maxFileBytes = 16 << 20;
constexpr int maxElements = 20'000;
constexpr int maxDepth = 64;
constexpr std::size_t maxDiagnostics = 200;
constexpr double maxSize = 100'000.0;

} // namespace

ViewReader::ViewReader(VariableTable& variables)
    : m_variables(variables)
{
}

std::optional<ViewModel> ViewReader::read(const QString& path)
{
    if (!load(path) || !readRoot())
        return {};
    readChildren(-1, 0);
    if (m_xml.hasError()) {
        report(m_xml.characterOffset(), m_xml.errorString());
        return {};
    }
    collectVariables();
    return std::move(m_model);
}

bool ViewReader::load(const QString& path)
{
    QFile file(path);
    m_directory = QFileInfo(path).absolutePath();
    m_source = ViewSource(path, {});
    if (!file.open(QIODevice::ReadOnly)) {
        report(0, file.errorString());
        return false;
    }
    const QByteArray content = file.read(maxFileBytes + 1);
    if (content.size() > maxFileBytes) {
        report(0, QStringLiteral("the file is too large"));
        return false;
    }
    QString text = QString::fromUtf8(content);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    m_source = ViewSource(path, text);
    m_xml.addData(text);
    return true;
}

bool ViewReader::readRoot()
{
    if (!m_xml.readNextStartElement()) {
        report(m_xml.characterOffset(), m_xml.errorString());
        return false;
    }
    if (m_xml.name() != QStringLiteral("view")) {
        reportTag(
            QStringLiteral("this is not a view: the first element is \"%1\"").arg(m_xml.name()));
        return false;
    }
    for (const Attribute& attribute : attributes()) {
        const double number = attribute.value.toDouble();
        if (attribute.name == QStringLiteral("width"))
            m_model.size.setWidth(number);
        else if (attribute.name == QStringLiteral("height"))
            m_model.size.setHeight(number);
        else if (attribute.name == QStringLiteral("font"))
            m_model.fontFamily = attribute.value;
        else if (attribute.name == QStringLiteral("background"))
            compile(attribute, PropertyKind::Color, m_model.background);
        else
            report(attribute.offset,
                   QStringLiteral("\"view\" has no attribute \"%1\"").arg(attribute.name));
    }
    const auto isUsable = [](double size) { return size > 0.0 && size <= maxSize; };
    if (isUsable(m_model.size.width()) && isUsable(m_model.size.height()))
        return true;
    reportTag(QStringLiteral("the view needs \"width\" and \"height\" above 0"));
    return false;
}

void ViewReader::readChildren(int parent, int depth)
{
    while (nextChild())
        readChild(parent, depth);
}

/// Advances to the next child of the current element; false at the end of that element.
bool ViewReader::nextChild()
{
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        if (token == QXmlStreamReader::EndElement || token == QXmlStreamReader::Invalid)
            return false;
        if (token == QXmlStreamReader::StartElement)
            return true;
        if (token == QXmlStreamReader::Characters && !m_xml.isWhitespace())
            report(textStart(), QStringLiteral("text between elements is not shown"));
    }
    return false;
}

/// Goes to the end of an element that takes no children, and reports any.
void ViewReader::leave()
{
    const QString name = m_xml.name().toString();
    while (nextChild()) {
        reportTag(QStringLiteral("\"%1\" cannot contain \"%2\"").arg(name, m_xml.name()));
        m_xml.skipCurrentElement();
    }
}

void ViewReader::readChild(int parent, int depth)
{
    const QStringView name = m_xml.name();
    if (name == QStringLiteral("define")) {
        readDefinition();
        return leave();
    }
    if (name == QStringLiteral("style")) {
        readStyle();
        return leave();
    }
    if (name == QStringLiteral("font")) {
        readFont();
        return leave();
    }
    if (name == QStringLiteral("optional")) {
        readOptional();
        return leave();
    }
    const ElementInfo* const info = elementInfo(name);
    if (info == nullptr)
        reportTag(QStringLiteral("there is no element \"%1\"").arg(name));
    else if (isPart(info->type))
        reportTag(QStringLiteral("\"%1\" must be inside another element").arg(name));
    else if (++m_elementCount > maxElements)
        reportTag(QStringLiteral("too many elements"));
    else if (depth >= maxDepth)
        reportTag(QStringLiteral("groups are nested too deeply"));
    else
        return readElement(*info, parent, depth);
    m_xml.skipCurrentElement();
}

void ViewReader::readElement(const ElementInfo& info, int parent, int depth)
{
    Attributes given = attributes();
    addStyle(given);
    Element element;
    element.type = info.type;
    element.parent = parent;
    readProperties(info, given, element);
    const bool isComplete = hasRequired(info, given);
    if (info.type == ElementType::Group) {
        m_model.elements.push_back(std::move(element));
        readChildren(static_cast<int>(m_model.elements.size()) - 1, depth + 1);
        return;
    }
    readParts(info, element);
    if (isComplete)
        m_model.elements.push_back(std::move(element));
}

void ViewReader::readParts(const ElementInfo& info, Element& element)
{
    while (nextChild()) {
        const ElementInfo* const part = elementInfo(m_xml.name());
        if (part == nullptr || !holdsWord(info.parts, m_xml.name())) {
            reportTag(QStringLiteral("\"%1\" cannot contain \"%2\"")
                          .arg(QLatin1StringView(info.name.data()), m_xml.name()));
        } else if (++m_elementCount > maxElements) {
            reportTag(QStringLiteral("too many elements"));
        } else {
            Attributes given = attributes();
            addStyle(given);
            Element read;
            read.type = part->type;
            readProperties(*part, given, read);
            if (hasRequired(*part, given) && isUsablePart(info, read))
                element.parts.push_back(std::move(read));
            leave();
            continue;
        }
        m_xml.skipCurrentElement();
    }
}

bool ViewReader::isUsablePart(const ElementInfo& parent, const Element& part)
{
    if (part.type != ElementType::Case)
        return true;
    if (parent.type == ElementType::Text && part.find(Property::Background) != nullptr)
        reportTag(QStringLiteral("a text has no \"background\""));
    if (part.find(Property::Value) != nullptr || part.find(Property::When) != nullptr)
        return true;
    reportTag(QStringLiteral("a case needs \"value\" or \"when\""));
    return false;
}

void ViewReader::readDefinition()
{
    QString name;
    const Attribute* expression = nullptr;
    const Attributes given = attributes();
    for (const Attribute& attribute : given) {
        if (attribute.name == QStringLiteral("name"))
            name = attribute.value.trimmed();
        else if (attribute.name == QStringLiteral("value"))
            expression = &attribute;
        else
            report(attribute.offset,
                   QStringLiteral("\"define\" has no attribute \"%1\"").arg(attribute.name));
    }
    if (name.isEmpty() || expression == nullptr) {
        reportTag(QStringLiteral("a definition needs \"name\" and \"value\""));
        return;
    }
    auto compiled = compileExpression(expression->value, m_variables);
    if (const auto* const error = std::get_if<ExpressionError>(&compiled)) {
        reportIn(*expression, error->offset, error->message);
        return;
    }
    if (m_variables.isDefined(name)) {
        reportTag(QStringLiteral("\"%1\" is already defined").arg(name));
        return;
    }
    auto& found = std::get<Expression>(compiled);
    // Earlier uses were compiled, and type-checked, with the name as a plain variable.
    if (m_used.contains(m_variables.slot(name)) ||
        std::ranges::count(found.variables(), m_variables.slot(name)) > 0) {
        reportTag(QStringLiteral("\"%1\" is used before it is defined").arg(name));
        return;
    }
    markUsed(found, *expression);
    m_variables.define(name, std::move(found));
}

void ViewReader::markUsed(const Expression& expression, const Attribute& attribute)
{
    for (const int slot : expression.variables()) {
        if (m_used.contains(slot))
            continue;
        m_used.insert(slot);
        m_uses.emplace_back(slot, attribute.offset);
    }
}

void ViewReader::collectVariables()
{
    for (const auto& [slot, offset] : m_uses) {
        const QString& name = m_variables.name(slot);
        if (!m_variables.isDefined(slot))
            m_model.variables.push_back(
                {name, m_source.diagnostic(
                           offset, QStringLiteral("there is no variable \"%1\"").arg(name))});
    }
}

void ViewReader::readOptional()
{
    for (const Attribute& attribute : attributes()) {
        if (attribute.name == QStringLiteral("name"))
            m_model.optionalVariables.insert(attribute.value.trimmed());
        else
            report(attribute.offset,
                   QStringLiteral("\"optional\" has no attribute \"%1\"").arg(attribute.name));
    }
}

void ViewReader::readStyle()
{
    QString name;
    Attributes kept;
    for (const Attribute& attribute : attributes()) {
        if (attribute.name == QStringLiteral("name"))
            name = attribute.value;
        else
            kept.push_back(attribute);
    }
    if (name.isEmpty())
        reportTag(QStringLiteral("a style needs \"name\""));
    else
        m_styles.insert(name, kept);
}

void ViewReader::readFont()
{
    for (const Attribute& attribute : attributes()) {
        PropertyValue value;
        if (attribute.name != QStringLiteral("file"))
            report(attribute.offset,
                   QStringLiteral("\"font\" has no attribute \"%1\"").arg(attribute.name));
        else if (readFile(attribute, value))
            m_model.fontFiles.push_back(value.text);
    }
}

ViewReader::Attributes ViewReader::attributes() const
{
    const qsizetype tag = tagStart();
    const QHash<QString, qsizetype> offsets = m_source.attributeOffsets(tag);
    Attributes result;
    for (const QXmlStreamAttribute& attribute : m_xml.attributes()) {
        const QString name = attribute.qualifiedName().toString();
        result.push_back({name, attribute.value().toString(), offsets.value(name, tag)});
    }
    return result;
}

void ViewReader::addStyle(Attributes& attributes)
{
    const auto styled = std::ranges::find(attributes, QStringLiteral("style"), &Attribute::name);
    if (styled == attributes.end())
        return;
    const Attribute attribute = *styled;
    attributes.erase(styled);
    const auto style = m_styles.constFind(attribute.value);
    if (style == m_styles.cend()) {
        report(attribute.offset, QStringLiteral("there is no style \"%1\"").arg(attribute.value));
        return;
    }
    for (const Attribute& inherited : *style) {
        if (std::ranges::count(attributes, inherited.name, &Attribute::name) == 0)
            attributes.push_back(inherited);
    }
}

qsizetype ViewReader::tagStart() const
{
    // A tag cannot contain "<".
    const qsizetype end = std::max<qsizetype>(m_xml.characterOffset() - 1, 0);
    return std::max<qsizetype>(m_source.text().lastIndexOf(u'<', end), 0) + 1;
}

/// Start of the character data read last.
qsizetype ViewReader::textStart() const
{
    const QString& text = m_source.text();
    const qsizetype end = std::max<qsizetype>(m_xml.characterOffset() - 1, 0);
    qsizetype start = text.lastIndexOf(u'>', end) + 1;
    while (start < end && text[start].isSpace())
        ++start;
    return start;
}

void ViewReader::report(qsizetype offset, const QString& message)
{
    if (m_diagnostics.size() >= maxDiagnostics)
        return;
    Diagnostic found = m_source.diagnostic(offset, message);
    // A fault in a style would be reported by each element that uses it.
    if (std::ranges::count(m_diagnostics, found) == 0)
        m_diagnostics.push_back(std::move(found));
}

void ViewReader::reportIn(const Attribute& attribute, qsizetype character, const QString& message)
{
    report(m_source.offsetInValue(attribute.offset, character), message);
}

} // namespace Zinc2D
