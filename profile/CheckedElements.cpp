#include "profile/CheckedElements.h"

#include "profile/Profile.h"

namespace KOLT {

namespace {

void walk(const QDomElement& element, const std::function<void(const QDomElement&)>& function)
{
    function(element);
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        walk(child, function);
}

} // namespace

QString CheckedElement::text(const char* attribute) const
{
    return element.attribute(QLatin1String(attribute));
}

int CheckedElement::number(const char* attribute) const
{
    return text(attribute).toInt();
}

std::vector<QDomElement> CheckedElement::children(const char* name) const
{
    std::vector<QDomElement> found;
    for (QDomElement child = element.firstChildElement(QLatin1String(name)); !child.isNull();
         child = child.nextSiblingElement(QLatin1String(name)))
        found.push_back(child);
    return found;
}

CheckedElements::CheckedElements(const QDomElement& root)
    : m_root(root)
{
    for (const CheckedElement& variant : entriesOf("Variants", "Variant"))
        m_variants << variant.text("name");
    if (m_variants.isEmpty())
        m_variants << QString();
    m_parameters = entriesOf("Device", "Parameter");
    m_matrices = entriesOf("Device", "ErrorMatrix");
    m_units = entriesOf("UnitConversions", "Unit");
    m_enumerations = entriesOf("EnumList", "Enum");
    m_thresholds = entriesOf("ThresholdList", "Threshold");
}

void CheckedElements::forAll(const std::function<void(const QDomElement&)>& function) const
{
    walk(m_root, function);
}

bool CheckedElements::isIn(const QDomElement& element, const QString& variant)
{
    const auto attribute = QStringLiteral("variant");
    for (QDomElement around = element; !around.parentNode().toElement().isNull();
         around = around.parentNode().toElement()) {
        if (!Profile::matchesVariant(variant, around.attribute(attribute)))
            return false;
    }
    return true;
}

std::vector<CheckedElement> CheckedElements::entriesOf(const char* list, const char* entry) const
{
    std::vector<CheckedElement> entries;
    for (const QDomElement& outer : CheckedElement{m_root, {}}.children(list)) {
        for (const QDomElement& inner : CheckedElement{outer, {}}.children(entry))
            entries.push_back({inner, outer.attribute(QStringLiteral("name")) + QLatin1Char('/') +
                                          inner.attribute(QStringLiteral("name"))});
    }
    return entries;
}

} // namespace KOLT
