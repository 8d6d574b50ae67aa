#include "app/settings/SettingsStore.h"

#include "base/Diagnostics.h"
#include "base/SafeFile.h"
#include "base/XmlFile.h"
#include "base/XmlText.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QLockFile>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace KOLT {

namespace {

constexpr int longestWaitMilliseconds = 1000;

/// The settings directly below the root, whatever its name.
std::map<QByteArray, QByteArray> propertiesOf(const QDomDocument& document)
{
    std::map<QByteArray, QByteArray> values;
    const auto property = QStringLiteral("Property");
    for (QDomElement element = document.documentElement().firstChildElement(property);
         !element.isNull(); element = element.nextSiblingElement(property)) {
        values[element.attribute(QStringLiteral("id")).toUtf8()] =
            element.attribute(QStringLiteral("value")).toUtf8();
    }
    return values;
}

QString attribute(const QByteArray& text)
{
    return xmlText(QString::fromUtf8(text), InvalidXml::Replace);
}

} // namespace

SettingsStore& SettingsStore::instance()
{
    static SettingsStore store;
    return store;
}

void SettingsStore::setFileName(const QByteArray& path)
{
    if (path != m_fileName) {
        for (const auto& [key, value] : m_values)
            m_changed.insert(key);
    }
    m_fileName = path;
    m_isBroken = false;
}

bool SettingsStore::load()
{
    const QString path = QFile::decodeName(m_fileName);
    const bool existed = QFileInfo::exists(path);
    QDomDocument document;
    m_isBroken = readXmlFile(path, document) != XmlStatus::Ok && existed;
    for (const auto& [key, value] : propertiesOf(document)) {
        m_values[key] = value;
        m_changed.erase(key);
    }
    return true;
}

bool SettingsStore::moveBrokenFileAside()
{
    const QString path = QFile::decodeName(m_fileName);
    m_keptCopy = moveAside(path);
    Diagnostics::print(m_keptCopy.isEmpty()
                           ? "settings file <%s> could not be used, nor moved%s\n"
                           : "settings file <%s> could not be used, kept as <%s>\n",
                       qUtf8Printable(path), qUtf8Printable(m_keptCopy));
    return !m_keptCopy.isEmpty();
}

std::map<QByteArray, QByteArray> SettingsStore::valuesToSave(const QDomDocument& former) const
{
    std::map<QByteArray, QByteArray> values = propertiesOf(former);
    for (const auto& [key, value] : m_values) {
        if (m_changed.contains(key) || !values.contains(key))
            values[key] = value;
    }
    return values;
}

bool SettingsStore::save()
{
    const QString path = QFile::decodeName(m_fileName);
    // Written even without the lock: values set here must not be lost.
    QLockFile lock(path + QStringLiteral(".lock"));
    lock.tryLock(longestWaitMilliseconds);
    QDomDocument former;
    const bool isUnusable = QFileInfo(path).isFile() && parseXmlFile(path, former) != XmlStatus::Ok;
    if (isUnusable && !moveBrokenFileAside())
        return false;
    m_isBroken = false;
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("KOLT"));
    document.appendChild(root);
    for (const auto& [key, value] : valuesToSave(former)) {
        if (value.isEmpty())
            continue;
        QDomElement element = document.createElement(QStringLiteral("Property"));
        element.setAttribute(QStringLiteral("id"), attribute(key));
        element.setAttribute(QStringLiteral("value"), attribute(value));
        root.appendChild(element);
    }
    return bool{writeXmlFile(path, document)};
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
    m_changed.insert(key);
}

void SettingsStore::setInteger(const QByteArray& key, int value)
{
    setText(key, QByteArray::number(value));
}

void SettingsStore::setBoolean(const QByteArray& key, bool value)
{
    setText(key, value ? "true" : "false");
}

void SettingsStore::setDouble(const QByteArray& key, double value)
{
    setText(key, QByteArray::number(value, 'g', QLocale::FloatingPointShortest));
}

} // namespace KOLT
