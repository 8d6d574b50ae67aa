#include "library/archive/ArchiveCheck.h"

#include "base/ProvenCopy.h"
#include "base/WriteGuard.h"
#include "library/archive/Manifest.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace KOLT::Library {

namespace {

struct Entry
{
    QString place;
    ManifestFile file;
};

class Checker
{
public:
    explicit Checker(const Archive& archive)
        : m_archive(archive)
    {
    }

    CheckResult run(const std::function<bool(qint64, qint64)>& progress)
    {
        for (const quint32 unit : m_archive.units())
            collect(QString::number(unit));
        for (const Entry& entry : m_present)
            m_result.bytes += entry.file.bytes;
        qint64 done = 0;
        for (const Entry& entry : m_present) {
            const std::optional<QString> hash =
                hashOfFile(m_archive.pathOf(entry.place), [&](qint64 bytes) {
                    done += bytes;
                    m_result.isCancelled = progress && !progress(done, m_result.bytes);
                    return !m_result.isCancelled;
                });
            if (m_result.isCancelled)
                break;
            if (hash != entry.file.sha256)
                m_result.damaged << entry.place;
            m_proven.insert(keyOf(entry.file));
        }
        // A file that an interrupted import was about to move is named in two places.
        for (const Entry& entry : m_absent) {
            if (!m_proven.contains(keyOf(entry.file)))
                m_result.missing << entry.place;
        }
        return m_result;
    }

private:
    void collect(const QString& unit)
    {
        constexpr auto folders = QDir::Dirs | QDir::NoDotAndDotDot;
        for (const QString& year : QDir(m_archive.pathOf(unit)).entryList(folders, QDir::Name)) {
            const QString top = unit + QLatin1Char('/') + year;
            for (const QString& name : QDir(m_archive.pathOf(top)).entryList(folders, QDir::Name))
                collectCycle(top + QLatin1Char('/') + name);
        }
    }

    void collectCycle(const QString& folder)
    {
        const std::optional<Manifest> manifest = readManifest(m_archive.pathOf(folder));
        const QString copies = folder + QLatin1Char('/') + QLatin1String(copiesName);
        if (manifest)
            ++m_result.cycles;
        const qsizetype before = m_result.unlisted.size();
        compare(folder, manifest ? manifest->files : QList<ManifestFile>());
        compare(copies, manifest ? manifest->copies : QList<ManifestFile>());
        const bool isDamaged = QFileInfo::exists(m_archive.pathOf(folder) + QLatin1Char('/') +
                                                 QLatin1String(manifestName));
        if (!manifest && (isDamaged || m_result.unlisted.size() > before))
            m_result.manifests << folder;
    }

    void compare(const QString& folder, const QList<ManifestFile>& files)
    {
        const QStringList names = QDir(m_archive.pathOf(folder)).entryList(QDir::Files, QDir::Name);
        QSet<QString> present(names.begin(), names.end());
        for (const ManifestFile& file : files) {
            const Entry entry{folder + QLatin1Char('/') + file.name, file};
            ++m_result.files;
            (present.remove(file.name) ? m_present : m_absent).push_back(entry);
        }
        for (const QString& name : names) {
            if (present.contains(name) && isRecordFileName(name))
                m_result.unlisted << folder + QLatin1Char('/') + name;
        }
    }

    const Archive& m_archive;
    CheckResult m_result;
    std::vector<Entry> m_present;
    std::vector<Entry> m_absent;
    QSet<QString> m_proven;
};

} // namespace

CheckResult checkArchive(const Archive& archive,
                         const std::function<bool(qint64 done, qint64 total)>& progress)
{
    return Checker(archive).run(progress);
}

} // namespace KOLT::Library
