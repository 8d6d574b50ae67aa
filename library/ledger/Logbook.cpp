#include "library/ledger/Logbook.h"

#include "base/SafeFile.h"
#include "library/ledger/LogbookJson.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>
#include <iterator>

namespace KOLT::Library {

namespace {

/// Far more than a note; a file above this is none.
constexpr qint64 maxBytes = 1 << 20;
constexpr qint64 keyBytes = 4096;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Logbook)
};

QString hashOf(const QByteArray& bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

QString folderOf(const Note&)
{
    return QStringLiteral("notes");
}

QString folderOf(const MaintenanceLimit&)
{
    return QStringLiteral("limits");
}

QString folderOf(const AircraftName&)
{
    return QStringLiteral("aircraft");
}

QString folderOf(const EngineFacts&)
{
    return QStringLiteral("engines");
}

QString folderOf(const WrittenInstallation&)
{
    return QStringLiteral("installations");
}

/// An item's file as it is now.
struct Found
{
    QByteArray bytes; ///< null: there is none, or it cannot be read
    QJsonObject object;
    bool isItem = false;
};

Found find(const QString& path)
{
    Found found;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return found;
    found.bytes = file.read(maxBytes + 1);
    if (found.bytes.isNull())
        found.bytes = QByteArray("");
    const QJsonDocument document = QJsonDocument::fromJson(found.bytes);
    found.object = document.object();
    const int format = found.object.value(QLatin1String("format")).toInt(0);
    found.isItem = found.bytes.size() <= maxBytes && document.isObject() && format >= 1 &&
                   format <= logbookFormat;
    return found;
}

template <typename Item>
void readAll(const QString& root, std::vector<Item>& items, QStringList& damaged)
{
    const QDir folder(root + QLatin1Char('/') + folderOf(Item()));
    for (const QString& name :
         folder.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name)) {
        const Found found = find(folder.filePath(name));
        Item item;
        // The name counts: a copy with the same id must not replace the original.
        if (!found.isItem || !get(found.object, item)) {
            damaged << folder.filePath(name);
            continue;
        }
        item.item.id = name.chopped(5);
        item.item.seen = hashOf(found.bytes);
        if (!item.item.isRemoved)
            items.push_back(std::move(item));
    }
}

QString authorHere()
{
    QString user = qEnvironmentVariable("USER");
    if (user.isEmpty())
        user = qEnvironmentVariable("USERNAME");
    const QString host = QSysInfo::machineHostName();
    return user.isEmpty() ? host : user + QLatin1Char('@') + host;
}

QString describe(const WrittenItem& item)
{
    return Text::tr("%1 on %2")
        .arg(item.author.isEmpty() ? Text::tr("somebody") : item.author,
             item.changed.toString(QStringLiteral("d.M.yyyy hh:mm:ss")));
}

template <typename Item>
Logbook::Saved saveItem(const QString& root, Item& item)
{
    // An absent archive must not be made anew below a mount point.
    if (!QFileInfo(root).isDir())
        return {Text::tr("The folder \"%1\" is not there. Nothing was saved.\nIs its disk "
                         "connected?")
                    .arg(QDir::toNativeSeparators(root)),
                {}};
    const QString folder = root + QLatin1Char('/') + folderOf(item);
    if (!QDir().mkpath(folder))
        return {Text::tr("The folder \"%1\" cannot be created. Nothing was saved.")
                    .arg(QDir::toNativeSeparators(folder)),
                {}};
    if (item.item.id.isEmpty())
        item.item.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QString path = folder + QLatin1Char('/') + item.item.id + QStringLiteral(".json");
    Found before = find(path);
    Logbook::Saved saved;
    if (!before.bytes.isNull() && hashOf(before.bytes) != item.item.seen)
        saved.replaced = describe(itemFrom(before.object));
    Item written = item;
    written.item.author = authorHere();
    written.item.changed = QDateTime::currentDateTimeUtc();
    // What another version wrote beside these fields stays.
    putItem(before.object, written.item);
    put(before.object, written);
    const QByteArray bytes = QJsonDocument(before.object).toJson();
    const WriteResult result = replaceFile(path, bytes);
    if (!result) {
        return {Text::tr("\"%1\" cannot be written: %2\nNothing was saved.")
                    .arg(QDir::toNativeSeparators(path), result.error),
                {}};
    }
    item = written;
    item.item.seen = hashOf(bytes);
    return saved;
}

} // namespace

QString Logbook::Contents::nameOf(quint32 unit) const
{
    // The latest, should two computers have named it at the same time.
    const AircraftName* found = nullptr;
    for (const AircraftName& one : aircraft) {
        if (one.unit == unit && (found == nullptr || found->item.changed < one.item.changed))
            found = &one;
    }
    return found != nullptr ? found->name : QString();
}

std::vector<MaintenanceLimit> Logbook::Contents::limitsOf(const QString& engine) const
{
    std::vector<MaintenanceLimit> found;
    std::ranges::copy_if(limits, std::back_inserter(found),
                         [&](const MaintenanceLimit& limit) { return limit.engine == engine; });
    std::ranges::stable_sort(found, {}, &MaintenanceLimit::title);
    return found;
}

const EngineFacts* Logbook::Contents::factsOf(const QString& engine) const
{
    const EngineFacts* found = nullptr;
    for (const EngineFacts& one : engines) {
        if (one.engine == engine && (found == nullptr || found->item.changed < one.item.changed))
            found = &one;
    }
    return found;
}

Logbook::Contents Logbook::read() const
{
    Contents contents;
    readAll(m_root, contents.notes, contents.damaged);
    readAll(m_root, contents.limits, contents.damaged);
    readAll(m_root, contents.aircraft, contents.damaged);
    readAll(m_root, contents.engines, contents.damaged);
    readAll(m_root, contents.installations, contents.damaged);
    return contents;
}

std::vector<Note> Logbook::readNotes() const
{
    Contents contents;
    readAll(m_root, contents.notes, contents.damaged);
    return contents.notes;
}

Logbook::Saved Logbook::save(Note& note) const
{
    return saveItem(m_root, note);
}

Logbook::Saved Logbook::save(MaintenanceLimit& limit) const
{
    return saveItem(m_root, limit);
}

Logbook::Saved Logbook::save(AircraftName& aircraft) const
{
    return saveItem(m_root, aircraft);
}

Logbook::Saved Logbook::save(EngineFacts& engine) const
{
    return saveItem(m_root, engine);
}

Logbook::Saved Logbook::save(WrittenInstallation& installation) const
{
    return saveItem(m_root, installation);
}

QString recordingKey(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray begin = file.read(keyBytes);
    return begin.isEmpty() ? QString() : hashOf(begin);
}

} // namespace KOLT::Library
