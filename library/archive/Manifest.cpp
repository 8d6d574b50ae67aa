#include "library/archive/Manifest.h"

#include "base/WriteGuard.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace KOLT::Library {

namespace {

constexpr qint64 maxBytes = 16 << 20;
constexpr double maxWhole = 9e15; // that a double holds exactly
const auto kind = QStringLiteral("KOLT cycle");

bool isHash(const QString& text)
{
    constexpr int digits = 64;
    return text.size() == digits && std::ranges::all_of(text, [](QChar c) {
               return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ||
                      (c >= QLatin1Char('a') && c <= QLatin1Char('f'));
           });
}

bool isPlainName(const QString& name)
{
    return isRecordFileName(name) && !name.contains(QLatin1Char('/')) &&
           !name.contains(QLatin1Char('\\')) && !name.contains(QChar(0));
}

/// Any year of a header: Qt's ISO format has those of four digits alone.
QDateTime dateOf(const QString& text)
{
    const qsizetype t = text.indexOf(QLatin1Char('T'));
    const QList<QStringView> day =
        QStringView(text).left(std::max<qsizetype>(0, t)).split(QLatin1Char('-'));
    const QTime time = QTime::fromString(text.mid(t + 1, 8), Qt::ISODate);
    const bool isNegative = day.size() == 4 && day[0].isEmpty();
    if (!time.isValid() || day.size() != (isNegative ? 4 : 3))
        return {};
    const int year = day[day.size() - 3].toInt();
    const QDate date(isNegative ? -year : year, day[day.size() - 2].toInt(), day.back().toInt());
    return date.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

QJsonValue jsonOf(const QDateTime& date, const QString& zone = {})
{
    return date.isValid() ? QJsonValue(date.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) + zone)
                          : QJsonValue();
}

double secondsOf(const QJsonValue& value)
{
    const double seconds = value.toDouble();
    return std::isfinite(seconds) ? seconds : 0.0;
}

ManifestFile fileOf(const QJsonObject& object)
{
    const auto text = [&](const char* key) { return object[QLatin1String(key)].toString(); };
    ManifestFile file;
    file.name = text("name");
    file.sha256 = text("sha256");
    const double bytes = object[QStringLiteral("bytes")].toDouble(-1.0);
    file.bytes = bytes >= 0.0 && bytes < maxWhole ? static_cast<qint64>(bytes) : -1;
    file.dateTime = dateOf(text("dateTime"));
    file.start = secondsOf(object[QStringLiteral("start")]);
    file.stop = secondsOf(object[QStringLiteral("stop")]);
    file.engine = text("engine");
    file.engineType = text("engineType");
    file.ecuType = text("ecuType");
    file.card = text("card");
    file.imported = dateOf(text("imported"));
    file.program = text("program");
    return file;
}

QJsonObject jsonOf(const ManifestFile& file)
{
    return {
        {QStringLiteral("name"), file.name},
        {QStringLiteral("sha256"), file.sha256},
        {QStringLiteral("bytes"), file.bytes},
        {QStringLiteral("dateTime"), jsonOf(file.dateTime)},
        {QStringLiteral("start"), file.start},
        {QStringLiteral("stop"), file.stop},
        {QStringLiteral("engine"), file.engine},
        {QStringLiteral("engineType"), file.engineType},
        {QStringLiteral("ecuType"), file.ecuType},
        {QStringLiteral("card"), file.card},
        {QStringLiteral("imported"), jsonOf(file.imported, QStringLiteral("Z"))},
        {QStringLiteral("program"), file.program},
    };
}

QList<ManifestFile> filesOf(const QJsonArray& array)
{
    QList<ManifestFile> files;
    QStringList names;
    for (const QJsonValue& value : array) {
        const ManifestFile file = fileOf(value.toObject());
        if (!isPlainName(file.name) || !isHash(file.sha256) || file.bytes < 0 ||
            names.contains(file.name))
            continue;
        names << file.name;
        files << file;
    }
    std::ranges::sort(files, {}, &ManifestFile::name);
    return files;
}

QJsonArray jsonOf(const QList<ManifestFile>& files)
{
    QJsonArray array;
    for (const ManifestFile& file : files)
        array.append(jsonOf(file));
    return array;
}

} // namespace

std::optional<Manifest> parseManifest(const QByteArray& json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const double unit = object[QStringLiteral("unit")].toDouble(-1.0);
    if (object[QStringLiteral("kind")].toString() != kind || unit < 0.0 ||
        unit > std::numeric_limits<quint32>::max())
        return std::nullopt;
    Manifest manifest;
    manifest.unit = static_cast<quint32>(unit);
    manifest.sequence = std::max(1, object[QStringLiteral("sequence")].toInt(1));
    manifest.files = filesOf(object[QStringLiteral("files")].toArray());
    manifest.copies = filesOf(object[QStringLiteral("copies")].toArray());
    return manifest;
}

std::optional<Manifest> readManifest(const QString& folder, QString* error)
{
    QFile file(folder + QLatin1Char('/') + QLatin1String(manifestName));
    const bool isThere = file.exists();
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QByteArray text = isOpen ? file.read(maxBytes) : QByteArray();
    if (error != nullptr && isThere && file.error() != QFileDevice::NoError)
        *error = file.errorString();
    return parseManifest(text);
}

QByteArray manifestText(const Manifest& manifest)
{
    const QJsonObject object{
        {QStringLiteral("kind"), kind},
        {QStringLiteral("version"), 1},
        {QStringLiteral("unit"), static_cast<qint64>(manifest.unit)},
        {QStringLiteral("sequence"), manifest.sequence},
        {QStringLiteral("dateTime"), jsonOf(dateTimeOf(manifest.files))},
        {QStringLiteral("files"), jsonOf(manifest.files)},
        {QStringLiteral("copies"), jsonOf(manifest.copies)},
    };
    return QJsonDocument(object).toJson();
}

QDateTime dateTimeOf(const QList<ManifestFile>& files)
{
    if (files.isEmpty() || files[0].dateTime.isValid() || files.size() == 1)
        return files.value(0).dateTime;
    constexpr double millisecondsPerSecond = 1000.0;
    return files[1].dateTime.addMSecs(-static_cast<qint64>(files[0].stop * millisecondsPerSecond));
}

ArchivedCycle cycleOf(const Manifest& manifest, const QString& folder)
{
    ArchivedCycle cycle;
    cycle.folder = folder;
    cycle.unit = manifest.unit;
    cycle.dateTime = dateTimeOf(manifest.files);
    for (const ManifestFile& file : manifest.files) {
        cycle.files << ArchivedFile{file.name, file.sha256, file.bytes};
        // The first header that has them: that of the first file may be damaged.
        for (const auto& [text, found] : {std::pair(&cycle.engine, &file.engine),
                                          {&cycle.engineType, &file.engineType},
                                          {&cycle.ecuType, &file.ecuType}}) {
            if (text->isEmpty())
                *text = *found;
        }
    }
    return cycle;
}

QString folderNameOf(quint32 unit, const QList<ManifestFile>& files)
{
    constexpr int hashDigits = 8;
    const QDateTime date = dateTimeOf(files);
    const auto undated = QStringLiteral("undated");
    return QStringLiteral("%1/%2/%3 %4")
        .arg(unit)
        .arg(date.isValid() ? date.toString(QStringLiteral("yyyy")) : undated,
             date.isValid() ? date.toString(QStringLiteral("yyyy-MM-dd HH-mm-ss")) : undated,
             files.value(0).sha256.left(hashDigits));
}

} // namespace KOLT::Library
