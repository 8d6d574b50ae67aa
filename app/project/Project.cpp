#include "app/project/Project.h"

#include "base/XmlFile.h"
#include "base/XmlText.h"
#include "profile/Profile.h"

#include <QDomDocument>

namespace KOLT {

namespace {

constexpr int indentation = 4;

template <typename Function>
void forEachChild(const QDomElement& parent, const QString& name, Function&& function)
{
    for (QDomElement child = parent.firstChildElement(name); !child.isNull();
         child = child.nextSiblingElement(name))
        function(child);
}

QDomElement appendElement(QDomDocument& document, QDomElement parent, const QString& name)
{
    const QDomElement element = document.createElement(name);
    parent.appendChild(element);
    return element;
}

QByteArray textOfAttribute(const QDomElement& element, const char* name)
{
    return element.attribute(QLatin1String(name)).toUtf8();
}

/// Names that were taken from a file may not be valid XML.
QDomDocument documentOf(const QStringList& names,
                        const std::map<QByteArray, QByteArray>& canProperties)
{
    QDomDocument document;
    const QDomElement root = document.createElement(QStringLiteral("KoltProject"));
    document.appendChild(root);
    const QDomElement parameters = appendElement(document, root, QStringLiteral("Parameters"));
    for (const QString& name : names)
        appendElement(document, parameters, QStringLiteral("Parameter"))
            .setAttribute(QStringLiteral("name"), xmlText(name, InvalidXml::Replace));
    const QDomElement properties = appendElement(document, root, QStringLiteral("CanProperties"));
    for (const auto& [id, value] : canProperties) {
        QDomElement element = appendElement(document, properties, QStringLiteral("Property"));
        element.setAttribute(QStringLiteral("id"),
                             xmlText(QString::fromUtf8(id), InvalidXml::Replace));
        element.setAttribute(QStringLiteral("value"),
                             xmlText(QString::fromUtf8(value), InvalidXml::Replace));
    }
    return document;
}

} // namespace

Project& Project::instance()
{
    static Project project;
    return project;
}

int Project::read(const QString& path)
{
    m_names.clear();
    m_canProperties.clear();
    QDomDocument document;
    if (readXmlFile(path, document) != XmlStatus::Ok)
        return 0;
    const QDomElement root = document.documentElement();
    forEachChild(root, QStringLiteral("Parameters"), [&](const QDomElement& list) {
        forEachChild(list, QStringLiteral("Parameter"), [&](const QDomElement& parameter) {
            m_names.insert({textOfAttribute(parameter, "name"), 0});
        });
    });
    forEachChild(root, QStringLiteral("CanProperties"), [&](const QDomElement& list) {
        forEachChild(list, QStringLiteral("Property"), [&](const QDomElement& property) {
            m_canProperties[textOfAttribute(property, "id")] = textOfAttribute(property, "value");
        });
    });
    applySelection();
    return 1;
}

QByteArray Project::contentFor(const QStringList& fullNames)
{
    QStringList names;
    for (const QString& fullName : fullNames)
        names << fullName.mid(fullName.indexOf(QLatin1Char('/')) + 1);
    return documentOf(names, {}).toByteArray(indentation);
}

bool Project::write(const QString& path)
{
    QStringList names;
    if (m_profile != nullptr) {
        for (const Device& device : m_profile->devices()) {
            for (const ProfileParameter* parameter : device.parameters) {
                if (parameter->selected)
                    names << parameter->name;
            }
        }
    }
    m_lastWrite = writeXmlFile(path, documentOf(names, m_canProperties));
    return true;
}

void Project::clear()
{
    m_names.clear();
    m_canProperties.clear();
    applySelection();
}

void Project::applySelection() const
{
    if (m_profile == nullptr)
        return;
    m_profile->select([&](const ProfileParameter& parameter) {
        return m_names.contains(parameter.name.toUtf8());
    });
}

} // namespace KOLT
