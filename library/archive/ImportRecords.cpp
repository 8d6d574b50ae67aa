#include "library/archive/ImportRecords.h"

#include "base/SafeFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QUuid>

#include <algorithm>

namespace KOLT::Library {

namespace {

constexpr qint64 maxBytes = 64 << 20;
const auto kind = QStringLiteral("KOLT import");

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::ImportRecords)
};

QString folderOf(const Archive& archive)
{
    return archive.pathOf(QStringLiteral("imports"));
}

std::optional<ImportRecord> readRecord(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(file.read(maxBytes)).object();
    if (object[QStringLiteral("kind")].toString() != kind)
        return std::nullopt;
    ImportRecord record;
    record.id = QFileInfo(path).completeBaseName();
    record.card = object[QStringLiteral("card")].toString();
    record.when = QDateTime::fromString(object[QStringLiteral("when")].toString(), Qt::ISODate);
    record.program = object[QStringLiteral("program")].toString();
    record.isTakenBack = object[QStringLiteral("takenBack")].toBool();
    for (const QJsonValue& entry : object[QStringLiteral("added")].toArray())
        record.added << entry.toString();
    for (const QJsonValue& entry : object[QStringLiteral("known")].toArray())
        record.known << entry.toString();
    return record;
}

} // namespace

std::vector<ImportRecord> importsOf(const Archive& archive)
{
    std::vector<ImportRecord> records;
    const QDir folder(folderOf(archive));
    for (const QString& name :
         folder.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name | QDir::Reversed)) {
        if (const auto record = readRecord(folder.filePath(name)))
            records.push_back(*record);
    }
    return records;
}

QString newImportId()
{
    constexpr int randomDigits = 8;
    return QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss-zzz ")) +
           QUuid::createUuid().toString(QUuid::Id128).left(randomDigits);
}

QString writeRecord(const Archive& archive, const ImportRecord& record)
{
    const QString folder = folderOf(archive);
    const QString path = QStringLiteral("%1/%2.json").arg(folder, record.id);
    const QJsonObject object{
        {QStringLiteral("kind"), kind},
        {QStringLiteral("version"), 1},
        {QStringLiteral("card"), record.card},
        {QStringLiteral("when"), record.when.toString(Qt::ISODate)},
        {QStringLiteral("program"), record.program},
        {QStringLiteral("takenBack"), record.isTakenBack},
        {QStringLiteral("added"), QJsonArray::fromStringList(record.added)},
        {QStringLiteral("known"), QJsonArray::fromStringList(record.known)},
    };
    // The disk may have been unplugged: its folder is not made anew.
    if (!Archive::isArchive(archive.root()) || !QDir().mkpath(folder))
        return Text::tr("The folder %1 cannot be created.").arg(QDir::toNativeSeparators(folder));
    const WriteResult result = replaceFile(path, QJsonDocument(object).toJson());
    return result ? QString()
                  : Text::tr("%1 cannot be written: %2")
                        .arg(QDir::toNativeSeparators(path), result.error);
}

bool isRecorded(const Archive& archive, const QStringList& files)
{
    const QSet<QString> wanted(files.begin(), files.end());
    return std::ranges::any_of(importsOf(archive), [&](const ImportRecord& record) {
        QSet<QString> found(record.added.begin(), record.added.end());
        found.unite(QSet<QString>(record.known.begin(), record.known.end()));
        return !record.isTakenBack && found.contains(wanted);
    });
}

} // namespace KOLT::Library
