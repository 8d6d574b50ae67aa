#include "library/archive/UnitFolder.h"

#include "base/ProvenCopy.h"
#include "base/WriteGuard.h"
#include "record/RecordFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace KOLT::Library {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::UnitFolder)
};

QSet<QString> recordNames(const QString& path)
{
    QSet<QString> names;
    for (const QString& name : QDir(path).entryList(QDir::Files | QDir::NoSymLinks)) {
        if (isRecordFileName(name))
            names.insert(name);
    }
    return names;
}

class UnitReader
{
public:
    UnitReader(const Archive& archive, quint32 unit)
        : m_archive(archive)
        , m_unit(unit)
    {
    }

    UnitContent read()
    {
        const QString top = QString::number(m_unit);
        for (const QString& year : subfolders(top)) {
            for (const QString& name : subfolders(top + QLatin1Char('/') + year))
                addFolder(QStringLiteral("%1/%2/%3").arg(top, year, name));
        }
        dropDoubles();
        return std::move(m_content);
    }

private:
    QStringList subfolders(const QString& folder) const
    {
        return QDir(m_archive.pathOf(folder))
            .entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name);
    }

    void addFolder(const QString& folder)
    {
        m_content.folders << folder;
        QString error;
        const std::optional<Manifest> manifest = readManifest(m_archive.pathOf(folder), &error);
        if (!error.isEmpty())
            m_content.error = Text::tr("The manifest in %1 cannot be read: %2")
                                  .arg(QDir::toNativeSeparators(m_archive.pathOf(folder)), error);
        if (manifest)
            m_content.manifests[folder] = *manifest;
        const Manifest known = manifest.value_or(Manifest{m_unit, 0, {}, {}});
        addFiles(folder, folder, known.files, known.sequence);
        addFiles(folder, folder + QLatin1Char('/') + QLatin1String(copiesName), known.copies,
                 known.sequence);
    }

    void addFiles(const QString& folder, const QString& place, const QList<ManifestFile>& known,
                  int sequence)
    {
        QSet<QString> present = recordNames(m_archive.pathOf(place));
        for (const ManifestFile& file : known)
            add(folder, place, file, sequence, !present.remove(file.name));
        QStringList others(present.begin(), present.end());
        others.sort();
        for (const QString& name : others) {
            if (const auto file = examine(place + QLatin1Char('/') + name))
                add(folder, place, *file, sequence, false);
        }
    }

    void add(const QString& folder, const QString& place, ManifestFile file, int sequence,
             bool isMissing)
    {
        PlanFile entry;
        entry.sequence = std::max(1, sequence);
        entry.folder = folder;
        entry.place = place + QLatin1Char('/') + file.name;
        entry.isMissing = isMissing;
        if (place != folder)
            file.name = nameOfCopy(file);
        entry.file = file;
        m_content.files.push_back(entry);
    }

    std::optional<ManifestFile> examine(const QString& place) const
    {
        const QString path = m_archive.pathOf(place);
        const std::optional<QString> hash = hashOfFile(path);
        const std::optional<Header> header = readHeader(path, QFileInfo(path).fileName());
        if (!hash || !header)
            return std::nullopt;
        ManifestFile found = header->file;
        found.sha256 = *hash;
        return found;
    }

    /// A content that is there is not missing elsewhere: a move was interrupted. A second one is
    /// left alone.
    void dropDoubles()
    {
        std::vector<PlanFile>& files = m_content.files;
        std::ranges::stable_sort(files, {}, [](const PlanFile& file) { return file.isMissing; });
        std::vector<PlanFile> kept;
        QMultiHash<QString, std::size_t> byHash;
        for (const PlanFile& file : files) {
            const auto same = byHash.values(file.file.sha256);
            if (std::ranges::any_of(
                    same, [&](std::size_t i) { return sameContent(kept[i].file, file.file); }))
                continue;
            byHash.insert(file.file.sha256, kept.size());
            kept.push_back(file);
        }
        files = std::move(kept);
    }

    const Archive& m_archive;
    quint32 m_unit;
    UnitContent m_content;
};

bool canRead(const QString& path)
{
    constexpr qint64 some = 1024;
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) &&
           file.read(some).size() == std::min(some, file.size());
}

} // namespace

UnitContent readUnit(const Archive& archive, quint32 unit)
{
    return UnitReader(archive, unit).read();
}

std::optional<Header> readHeader(const QString& path, const QString& name)
{
    // A field that cannot be read is empty, like one of a short file.
    const auto read = [&]() -> std::optional<Header> {
        RecordFile file;
        if (!file.readRecordInfo(path))
            return std::nullopt;
        return Header{describeFile(name, file.info(), QFileInfo(path).size()),
                      file.info().ecuSerialNumber};
    };
    const std::optional<Header> first = read();
    const std::optional<Header> second = read();
    return first == second && canRead(path) ? first : std::nullopt;
}

ManifestFile describeFile(const QString& name, const RecordInfo& info, qint64 bytes)
{
    ManifestFile file;
    file.name = name;
    file.bytes = bytes;
    // A repaired date depends on what else was there.
    if (!info.dateInvalid && !info.dateRepaired)
        file.dateTime = info.dateTime;
    file.start = std::isfinite(info.startSeconds) ? info.startSeconds : 0.0;
    file.stop = std::isfinite(info.stopSeconds) ? info.stopSeconds : 0.0;
    file.engine = info.engineSerial;
    file.engineType = info.engineType;
    file.ecuType = info.ecuType;
    return file;
}

} // namespace KOLT::Library
