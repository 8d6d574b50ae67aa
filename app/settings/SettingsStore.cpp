#include "app/settings/SettingsStore.h"

#include "base/Diagnostics.h"
#include "base/SafeFile.h"
#include "base/XmlFile.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace KOLT {

SettingsStore& SettingsStore::instance()
{
    static SettingsStore store;
    return store;
}

bool SettingsStore::load()
{
    const QString path = QFile::decodeName(m_fileName);
    const bool existed = QFileInfo::exists(path);
    QDomDocument document;
    if (readXmlFile(path, document) != XmlStatus::Ok) {
        m_isBroken = existed;
        return true;
    }
    m_isBroken = false;
    const auto property = QStringLiteral("Property");
    for (QDomElement element = document.documentElement().firstChildElement(property);
         !element.isNull(); element = element.nextSiblingElement(property)) {
        m_values[element.attribute(QStringLiteral("id")).toUtf8()] =
            element.attribute(QStringLiteral("value")).toUtf8();
    }
    return true;
}

bool SettingsStore::moveBrokenFileAside() const
{
    const QString path = QFile::decodeName(m_fileName);
    const QString aside = moveAside(path);
    Diagnostics::print(aside.isEmpty() ? "settings file <%s> could not be used, nor moved%s\n"
                                       : "settings file <%s> could not be used, kept as <%s>\n",
                       qUtf8Printable(path), qUtf8Printable(aside));
    return !aside.isEmpty();
}

bool SettingsStore::save()
{
    // Somebody may have cleared it away meanwhile.
    const bool isInTheWay = m_isBroken && QFileInfo::exists(QFile::decodeName(m_fileName));
    if (isInTheWay && !moveBrokenFileAside())
        return false;
    m_isBroken = false;
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("KOLT"));
    document.appendChild(root);
    for (const auto& [key, value] : m_values) {
        if (value.isEmpty())
            continue;
        QDomElement element = document.createElement(QStringLiteral("Property"));
        element.setAttribute(QStringLiteral("id"), xmlText(key));
        element.setAttribute(QStringLiteral("value"), xmlText(value));
        root.appendChild(element);
    }
    return bool{writeXmlFile(QFile::decodeName(m_fileName), document)};
}

const QByteArray* SettingsStore::find(const QByteArray& key) const
{
    const auto found = m_values.find(key);
    return found == m_values.end() ? nullptr : &found->second;
}

QByteArray SettingsStore::getText(const QByteArray& key, const QByteArray& fallback) const
{
    const QByteArray* value = find(key);
    return value != nullptr ? *value : fallback;
}

int SettingsStore::getInteger(const QByteArray& key, int fallback) const
{
    const QByteArray* value = find(key);
    if (value == nullptr)
        return fallback;
    const long number = std::strtol(value->constData(), nullptr, 10);
    return static_cast<int>(
        std::clamp<long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

bool SettingsStore::getBoolean(const QByteArray& key, bool fallback) const
{
    const QByteArray* value = find(key);
    if (value == nullptr)
        return fallback;
    return *value == "true" || *value == "TRUE" || *value == "True";
}

double SettingsStore::getDouble(const QByteArray& key, double fallback) const
{
    const QByteArray* value = find(key);
    return value != nullptr ? std::strtod(value->constData(), nullptr) : fallback;
}

void SettingsStore::setText(const QByteArray& key, const QByteArray& value)
{
    m_values[key] = value;
}

void SettingsStore::setInteger(const QByteArray& key, int value)
{
    m_values[key] = QByteArray::number(value);
}

void SettingsStore::setBoolean(const QByteArray& key, bool value)
{
    m_values[key] = value ? "true" : "false";
}

} // namespace KOLT
