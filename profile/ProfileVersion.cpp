#include "profile/ProfileVersion.h"

#include "base/XmlFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QXmlStreamReader>

#include <map>

namespace KOLT {

namespace {

struct Changes
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ProfileChanges)
};

const auto rootName = QStringLiteral("KorvanProfile");

/// Entries by name. Several of one name, for several variants, are one entry.
using Entries = std::map<QString, QString>;

/// Attributes in order of their names, and children in that of the file: equal for entries that
/// mean the same.
QString contentOf(const QDomElement& element)
{
    std::map<QString, QString> sorted;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        sorted[attributes.item(i).nodeName()] = attributes.item(i).nodeValue();
    QString text = element.tagName();
    for (const auto& [name, value] : sorted)
        text += QLatin1Char('\n') + name + QLatin1Char('=') + value;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        text += QStringLiteral("\n<") + contentOf(child) + QStringLiteral("\n>");
    return text;
}

QString nameOf(const QDomElement& element, const QString& list)
{
    const auto name = QStringLiteral("name");
    if (list == QLatin1String("Device"))
        return element.parentNode().toElement().attribute(name) + QLatin1Char('/') +
               element.attribute(name);
    if (list == QLatin1String("UnitConversions"))
        return element.attribute(QStringLiteral("unitMetric")) + QStringLiteral(" - ") +
               element.attribute(QStringLiteral("unitImperial"));
    return element.attribute(name);
}

/// The entries of that kind in all lists of that name below the root.
Entries entriesOf(const QDomElement& root, const QString& listName, const QString& entryName)
{
    Entries entries;
    for (QDomElement list = root.firstChildElement(listName); !list.isNull();
         list = list.nextSiblingElement(listName)) {
        for (QDomElement entry = list.firstChildElement(entryName); !entry.isNull();
             entry = entry.nextSiblingElement(entryName))
            entries[nameOf(entry, listName)] +=
                contentOf(entry) + list.attribute(QStringLiteral("variant"));
    }
    return entries;
}

void addLine(const QString& what, const QStringList& names, QStringList& lines)
{
    if (!names.isEmpty())
        lines << Changes::tr("%1 (%2): %3")
                     .arg(what)
                     .arg(names.size())
                     .arg(names.join(QStringLiteral(", ")));
}

QStringList namesOnlyIn(const Entries& entries, const Entries& others)
{
    QStringList names;
    for (const auto& [name, content] : entries) {
        if (!others.contains(name))
            names << name;
    }
    return names;
}

QStringList namesChanged(const Entries& from, const Entries& to)
{
    QStringList names;
    for (const auto& [name, content] : to) {
        if (const auto earlier = from.find(name);
            earlier != from.end() && earlier->second != content)
            names << name;
    }
    return names;
}

struct Kind
{
    QString list;
    QString entry;
    QString added;
    QString removed;
    QString changed;
};

std::vector<Kind> kinds()
{
    return {{QStringLiteral("Device"), QStringLiteral("Parameter"), Changes::tr("Parameters added"),
             Changes::tr("Parameters removed"), Changes::tr("Parameters changed")},
            {QStringLiteral("ThresholdList"), QStringLiteral("Threshold"),
             Changes::tr("Thresholds added"), Changes::tr("Thresholds removed"),
             Changes::tr("Thresholds changed")},
            {QStringLiteral("Variants"), QStringLiteral("Variant"), Changes::tr("Variants added"),
             Changes::tr("Variants removed"), Changes::tr("Variants changed")},
            {QStringLiteral("EnumList"), QStringLiteral("Enum"), Changes::tr("Enumerations added"),
             Changes::tr("Enumerations removed"), Changes::tr("Enumerations changed")},
            {QStringLiteral("UnitConversions"), QStringLiteral("Unit"), Changes::tr("Units added"),
             Changes::tr("Units removed"), Changes::tr("Units changed")},
            {QStringLiteral("Device"), QStringLiteral("ErrorMatrix"),
             Changes::tr("Fault matrices added"), Changes::tr("Fault matrices removed"),
             Changes::tr("Fault matrices changed")}};
}

} // namespace

ProfileVersion profileVersion(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    if (!xml.readNextStartElement() || xml.name() != rootName)
        return {};
    const QXmlStreamAttributes attributes = xml.attributes();
    return {attributes.value(QStringLiteral("profileId")).toString(),
            attributes.value(QStringLiteral("version")).toString()};
}

bool isNewerVersion(const QString& version, const QString& than)
{
    const QStringList parts = version.split(QLatin1Char('.'));
    const QStringList others = than.split(QLatin1Char('.'));
    for (qsizetype i = 0; i < std::max(parts.size(), others.size()); ++i) {
        const int part = parts.value(i).trimmed().toInt();
        const int other = others.value(i).trimmed().toInt();
        if (part != other)
            return part > other;
    }
    return false;
}

QStringList profileChanges(const QString& from, const QString& to)
{
    QDomDocument earlier;
    QDomDocument later;
    if (parseXmlFile(from, earlier) != XmlStatus::Ok || parseXmlFile(to, later) != XmlStatus::Ok)
        return {};
    QStringList lines;
    for (const Kind& kind : kinds()) {
        const Entries before = entriesOf(earlier.documentElement(), kind.list, kind.entry);
        const Entries after = entriesOf(later.documentElement(), kind.list, kind.entry);
        addLine(kind.added, namesOnlyIn(after, before), lines);
        addLine(kind.removed, namesOnlyIn(before, after), lines);
        addLine(kind.changed, namesChanged(before, after), lines);
    }
    return lines;
}

} // namespace KOLT
