#include "record/CaseFile.h"

#include "base/SafeFile.h"
#include "base/WriteGuard.h"
#include "base/ZipFile.h"
#include "record/RecordFileWriter.h"
#include "record/SampleReader.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace KOLT {

namespace {

using namespace RecordFormat;
using RecordFileWriter::FileOrder;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::CaseFile)
};

const auto noteName = QStringLiteral("case.json");
const auto recordName = QStringLiteral("CASE0001.CAN");
const auto profileName = QStringLiteral("Profile.xml");
const auto projectName = QStringLiteral("Project.xml");

using Files = std::map<QString, QByteArray>; // by name

constexpr qint64 maxNoteBytes = 1 << 20;

RecordFileWriter::RecordSample sampleOf(std::span<const unsigned char> bytes, ByteOrder order)
{
    const ByteReader reader(bytes, order);
    RecordFileWriter::RecordSample sample;
    std::copy_n(bytes.begin(), sample.data.size(), sample.data.begin());
    sample.byte8 = reader.u8(8);
    sample.byte9 = reader.u8(9);
    sample.kind = reader.u16(kindOffset);
    sample.identifier = reader.u32(identifierOffset);
    sample.word16 = reader.u32(16);
    sample.ticks =
        std::uint64_t{reader.u32(sampleTimeOffset)} << 32 | reader.u32(sampleTimeOffset + 4);
    return sample;
}

QByteArray headerOf(const RecordInfo& info, QDateTime clock)
{
    // A header has whole seconds.
    clock = clock.addMSecs(500);
    RecordFileWriter::RecordHeader header;
    if (clock.isValid()) {
        header.year = static_cast<std::int16_t>(clock.date().year());
        header.month = static_cast<std::uint8_t>(clock.date().month());
        header.day = static_cast<std::uint8_t>(clock.date().day());
        header.hour = static_cast<std::uint8_t>(clock.time().hour());
        header.minute = static_cast<std::uint8_t>(clock.time().minute());
        header.second = static_cast<std::uint8_t>(clock.time().second());
    }
    header.busType = info.busType;
    header.ecuSerialNumber = info.ecuSerialNumber;
    header.softwarePartA = info.softwarePartA.toLatin1();
    header.ecuType = info.ecuType.toLatin1();
    header.engineSerial = info.engineSerial.toLatin1();
    header.engineType = info.engineType.toLatin1();
    header.softwarePartB = info.softwarePartB.toLatin1();
    header.emuVersion = info.emuVersion.toLatin1();
    QByteArray bytes;
    RecordFileWriter::appendHeader(bytes, header,
                                   info.byteOrder == ByteOrder::Little ? FileOrder::LittleEndian
                                                                       : FileOrder::BigEndian);
    return bytes;
}

/// The record file's bytes with the names of the files that samples came from.
struct Cutting
{
    QByteArray bytes;
    std::size_t samples = 0;
    QStringList sources;
    QString unread; ///< a file that could not be read to its end
};

void cutFile(const RecordFile& file, const QString& name, const CaseRequest& request,
             const QDateTime& clock, FileOrder& order, Cutting& cutting)
{
    SampleReader reader;
    if (!reader.open(file.path())) {
        cutting.unread = name;
        return;
    }
    const ByteOrder own = file.info().byteOrder;
    for (auto block = reader.next(); !block.empty(); block = reader.next()) {
        for (; block.size() >= sampleBytes; block = block.subspan(sampleBytes)) {
            const auto bytes = block.first<sampleBytes>();
            const ByteReader time(bytes, own);
            const double seconds =
                secondsOf(time.u32(sampleTimeOffset), time.u32(sampleTimeOffset + 4));
            if (seconds < request.from || seconds > request.to)
                continue;
            if (cutting.samples++ == 0) {
                cutting.bytes = headerOf(file.info(), clock);
                order = own == ByteOrder::Little ? FileOrder::LittleEndian : FileOrder::BigEndian;
            }
            if (cutting.sources.isEmpty() || cutting.sources.back() != name)
                cutting.sources << name;
            RecordFileWriter::appendSample(cutting.bytes, sampleOf(bytes, own), order);
        }
    }
    if (!reader.isComplete())
        cutting.unread = name;
}

Cutting cutCycle(const CardContainer& card, const Cycle& cycle, const CaseRequest& request)
{
    Cutting cutting;
    FileOrder order = FileOrder::LittleEndian;
    constexpr int secondsPerMinute = 60;
    const QDateTime clock = cycle.dateTime.addSecs(-qint64{card.clockOffset()} * secondsPerMinute);
    for (const QString& name : cycle.fileNames)
        cutFile(card.files().at(name), name, request, clock, order, cutting);
    return cutting;
}

QByteArray noteOf(const CardContainer& card, const CaseRequest& request, const Cutting& cutting)
{
    const QByteArray hash = QCryptographicHash::hash(cutting.bytes, QCryptographicHash::Sha256);
    return QJsonDocument(
               QJsonObject{
                   {QStringLiteral("kind"), QStringLiteral("KOLT case")},
                   {QStringLiteral("file"), recordName},
                   {QStringLiteral("sha256"), QString::fromLatin1(hash.toHex())},
                   {QStringLiteral("card"), QDir(card.folder()).dirName()},
                   {QStringLiteral("cycle"), request.cycle},
                   {QStringLiteral("from"), request.from},
                   {QStringLiteral("to"), request.to},
                   {QStringLiteral("samples"), static_cast<qint64>(cutting.samples)},
                   {QStringLiteral("sources"), QJsonArray::fromStringList(cutting.sources)},
                   {QStringLiteral("variant"), request.variant},
                   {QStringLiteral("selection"), QJsonArray::fromStringList(request.selection)},
                   {QStringLiteral("remark"), request.remark}})
        .toJson();
}

bool isFree(const QString& folder)
{
    const QFileInfo info(folder);
    return !info.exists() ||
           (info.isDir() && QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System |
                                                 QDir::NoDotAndDotDot));
}

/// Creates the files one after the other; removes them again when one fails.
QString createFiles(const QString& folder, const Files& files)
{
    const bool wasThere = QFileInfo::exists(folder);
    if (!QDir().mkpath(folder))
        return Text::tr("The folder %1 cannot be created.").arg(folder);
    const auto permission = allowRecordFiles(folder);
    QStringList created;
    for (const auto& [name, content] : files) {
        const QString path = folder + QLatin1Char('/') + name;
        const WriteResult result = replaceFile(path, content);
        if (result) {
            created << path;
            continue;
        }
        for (const QString& done : std::as_const(created))
            QFile::remove(done);
        if (!wasThere)
            QDir().rmdir(folder);
        return Text::tr("%1 cannot be written: %2").arg(path, result.error);
    }
    return {};
}

/// With a folder in it, so that several cases may be unpacked side by side.
QString createZip(const QString& path, const Files& files)
{
    Files below;
    for (const auto& [name, content] : files)
        below[QFileInfo(path).completeBaseName() + QLatin1Char('/') + name] = content;
    const QByteArray zip = zipOf(below);
    if (zip.isEmpty())
        return Text::tr("More than 4 GB do not fit into a zip file. Choose a shorter time.");
    const WriteResult result = replaceFile(path, zip);
    return result ? QString() : Text::tr("%1 cannot be written: %2").arg(path, result.error);
}

/// Why the case must not be written there; empty when it may.
QString targetObjection(const CaseRequest& request)
{
    const bool isZip = !request.zip.isEmpty();
    const QString objection =
        writeObjection(isZip ? request.zip : request.folder + QLatin1Char('/') + noteName);
    if (!objection.isEmpty())
        return objection;
    if (isZip && (QFileInfo::exists(request.zip) || QFileInfo(request.zip).isSymLink()))
        return Text::tr("%1 exists: a case needs a new file.").arg(request.zip);
    return isZip || isFree(request.folder)
               ? QString()
               : Text::tr("The folder %1 exists and is not empty: a case needs a new one.")
                     .arg(request.folder);
}

} // namespace

CaseResult writeCase(const CardContainer& card, const CaseRequest& request)
{
    const auto cycle = card.cycles().find(request.cycle);
    if (cycle == card.cycles().end())
        return {Text::tr("There is no cycle %1 in %2.").arg(request.cycle).arg(card.folder())};
    if (!(request.from <= request.to) || !std::isfinite(request.from) || !std::isfinite(request.to))
        return {Text::tr("The time must go from one second to a later one.")};
    if (const QString objection = targetObjection(request); !objection.isEmpty())
        return {objection};
    const Cutting cutting = cutCycle(card, cycle->second, request);
    if (!cutting.unread.isEmpty())
        return {Text::tr("%1 cannot be read to its end.").arg(cutting.unread)};
    if (cutting.samples == 0)
        return {Text::tr("Nothing was recorded in this time.")};
    Files files{{recordName, cutting.bytes}, {noteName, noteOf(card, request, cutting)}};
    if (!request.project.isEmpty())
        files[projectName] = request.project;
    if (!request.profilePath.isEmpty()) {
        QFile profile(request.profilePath);
        if (!profile.open(QIODevice::ReadOnly))
            return {Text::tr("%1 cannot be read.").arg(request.profilePath)};
        files[profileName] = profile.readAll();
    }
    return {request.zip.isEmpty() ? createFiles(request.folder, files)
                                  : createZip(request.zip, files),
            cutting.samples};
}

std::optional<CaseNote> readCaseNote(const QString& folder)
{
    QFile file(folder + QLatin1Char('/') + noteName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject object = QJsonDocument::fromJson(file.read(maxNoteBytes)).object();
    if (object[QStringLiteral("kind")].toString() != QLatin1String("KOLT case"))
        return {};
    CaseNote note;
    note.file = object[QStringLiteral("file")].toString();
    note.from = object[QStringLiteral("from")].toDouble();
    note.to = object[QStringLiteral("to")].toDouble();
    for (const auto name : object[QStringLiteral("sources")].toArray())
        note.sources << name.toString();
    return note;
}

} // namespace KOLT
