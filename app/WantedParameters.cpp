#include "app/WantedParameters.h"

#include "base/XmlFile.h"
#include "base/XmlText.h"
#include "profile/Profile.h"

#include <QDomDocument>
#include <QFile>

namespace KOLT {

void WantedParameters::remember()
{
    for (const ProfileParameter& parameter : m_profile.parameters()) {
        m_names.erase(parameter.name); // replaced by its full name
        if (parameter.selected)
            m_names.insert(parameter.fullName);
        else
            m_names.erase(parameter.fullName);
    }
}

void WantedParameters::apply() const
{
    m_profile.select([this](const ProfileParameter& parameter) {
        return m_names.contains(parameter.fullName) || m_names.contains(parameter.name);
    });
}

void WantedParameters::load(const QString& path)
{
    QDomDocument document;
    if (!QFile::exists(path) || parseXmlFile(path, document) != XmlStatus::Ok)
        return;
    const auto parameter = QStringLiteral("Parameter");
    for (QDomElement element = document.documentElement().firstChildElement(parameter);
         !element.isNull(); element = element.nextSiblingElement(parameter))
        m_names.insert(element.attribute(QStringLiteral("name")));
}

bool WantedParameters::save(const QString& path) const
{
    std::set<QString> others = m_names;
    for (const ProfileParameter& parameter : m_profile.parameters()) {
        others.erase(parameter.fullName);
        others.erase(parameter.name);
    }
    if (others.empty() && !QFile::exists(path))
        return true;
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("KoltSelection"));
    document.appendChild(root);
    for (const QString& name : others) {
        QDomElement element = document.createElement(QStringLiteral("Parameter"));
        element.setAttribute(QStringLiteral("name"), xmlText(name, InvalidXml::Replace));
        root.appendChild(element);
    }
    return bool{writeXmlFile(path, document)};
}

} // namespace KOLT
