#include "library/archive/Placement.h"

#include "base/ProvenCopy.h"
#include "base/SafeFile.h"
#include "base/SystemDisk.h"
#include "library/archive/ArchiveLock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace KOLT::Library {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 120s; ///< for other importers

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::Placement)
};

QString join(const QString& folder, const QString& name)
{
    return folder + QLatin1Char('/') + name;
}

class Placer
{
public:
    Placer(const Archive& archive, const PlaceRequest& request)
        : m_archive(archive)
        , m_unit(request.unit)
        , m_content(readUnit(archive, request.unit))
    {
        std::erase_if(m_content.files, [&](const PlanFile& file) {
            return file.isMissing && request.taken.contains(keyOf(file.file));
        });
        for (PlanFile& file : m_content.files)
            file.isOnCard = request.onCard.contains(keyOf(file.file));
    }

    std::vector<Arrived> add(const std::vector<Arrival>& arrivals);
    QString place();
    void tell(const ArchiveListener& listener) const;

private:
    Arrived addOne(const Arrival& arrival);
    QString writeManifest(const QString& folder, const Manifest& manifest);
    QString writeBefore(const CyclePlan& plan);
    QString writeAfter(const CyclePlan& plan);
    QString move(std::vector<PlannedMove> moves);
    void removeEmpty(const QString& folder);

    const Archive& m_archive;
    quint32 m_unit;
    UnitContent m_content;
    std::map<QString, Manifest> m_written; ///< manifests as they are on the disk now
    QSet<QString> m_changed;               ///< folders
    QStringList m_removed;
};

Arrived Placer::addOne(const Arrival& arrival)
{
    std::vector<PlanFile>& files = m_content.files;
    const auto same = std::ranges::find_if(
        files, [&](const PlanFile& file) { return sameContent(file.file, arrival.file); });
    if (same != files.end() && !same->isMissing)
        return Arrived::Known;
    const bool isBeside = std::ranges::any_of(files, [&](const PlanFile& file) {
        return !file.isMissing && file.file.name == arrival.file.name;
    });
    PlanFile entry;
    entry.file = arrival.file;
    entry.place = arrival.waiting;
    entry.isNew = true;
    entry.isOnCard = true;
    if (same != files.end()) {
        entry.sequence = same->sequence;
        entry.folder = same->folder;
        *same = entry;
    } else {
        files.push_back(entry);
    }
    return isBeside ? Arrived::Beside : Arrived::Copied;
}

std::vector<Arrived> Placer::add(const std::vector<Arrival>& arrivals)
{
    std::vector<Arrived> result;
    std::map<int, std::vector<QString>> cycles;
    for (const Arrival& arrival : arrivals) {
        result.push_back(addOne(arrival));
        cycles[arrival.cycle].push_back(arrival.waiting);
    }
    for (const auto& [number, waiting] : cycles) {
        std::vector<std::size_t> added;
        for (std::size_t i = 0; i < m_content.files.size(); ++i) {
            if (m_content.files[i].sequence == 0 &&
                std::ranges::find(waiting, m_content.files[i].place) != waiting.end())
                added.push_back(i);
        }
        if (!added.empty())
            chooseSequence(m_content.files, added);
    }
    // Another recording may have the name: then the file is in a sequence of its own.
    for (std::size_t i = 0; i < arrivals.size(); ++i) {
        if (result[i] != Arrived::Beside)
            continue;
        const auto placed =
            std::ranges::find(m_content.files, arrivals[i].waiting, &PlanFile::place);
        const bool isAlone = std::ranges::none_of(m_content.files, [&](const PlanFile& file) {
            return &file != &*placed && file.sequence == placed->sequence &&
                   file.file.name == placed->file.name;
        });
        if (isAlone)
            result[i] = Arrived::Copied;
    }
    return result;
}

QString Placer::writeManifest(const QString& folder, const Manifest& manifest)
{
    const auto written = m_written.find(folder);
    if (written != m_written.end() && written->second == manifest)
        return {};
    const QString path = m_archive.pathOf(folder);
    // The disk may have been unplugged: its folder is not made anew.
    if (!Archive::isArchive(m_archive.root()) || !QDir().mkpath(path))
        return Text::tr("The folder %1 cannot be created.").arg(QDir::toNativeSeparators(path));
    const QString file = join(path, QLatin1String(manifestName));
    if (written == m_written.end() && QFileInfo::exists(file))
        moveAside(file); // unreadable
    const WriteResult result = replaceFile(file, manifestText(manifest));
    if (!result)
        return Text::tr("%1 cannot be written: %2")
            .arg(QDir::toNativeSeparators(file), result.error);
    m_written[folder] = manifest;
    m_changed.insert(folder);
    return {};
}

/// The manifest of a folder names files that are about to be moved there, and still those that are
/// about to leave: what is known of them survives an interruption. New files are named only when
/// they are there.
QString Placer::writeBefore(const CyclePlan& plan)
{
    QSet<QString> arriving;
    for (const PlanFile& file : m_content.files) {
        if (file.isNew)
            arriving.insert(keyOf(file.file));
    }
    for (const auto& [folder, planned] : plan.manifests) {
        Manifest manifest = planned;
        manifest.files.removeIf(
            [&](const ManifestFile& file) { return arriving.contains(keyOf(file)); });
        manifest.copies.removeIf([&](ManifestFile file) {
            file.name = nameOfCopy(file);
            return arriving.contains(keyOf(file));
        });
        const auto known = m_content.manifests.find(folder);
        if (known == m_content.manifests.end() && manifest.files.isEmpty() &&
            manifest.copies.isEmpty())
            continue;
        if (known != m_content.manifests.end()) {
            const auto addLeaving = [](QList<ManifestFile>& files, const QList<ManifestFile>& old) {
                for (const ManifestFile& file : old) {
                    if (std::ranges::find(files, file.name, &ManifestFile::name) == files.end())
                        files << file;
                }
                std::ranges::sort(files, {}, &ManifestFile::name);
            };
            addLeaving(manifest.files, known->second.files);
            addLeaving(manifest.copies, known->second.copies);
        }
        if (const QString error = writeManifest(folder, manifest); !error.isEmpty())
            return error;
    }
    return {};
}

QString Placer::writeAfter(const CyclePlan& plan)
{
    for (const auto& [folder, manifest] : plan.manifests) {
        if (const QString error = writeManifest(folder, manifest); !error.isEmpty())
            return error;
    }
    for (const QString& folder : m_content.folders) {
        if (!plan.manifests.contains(folder))
            removeEmpty(folder);
    }
    return {};
}

/// Moves in an order in which every target is free when its turn comes.
QString Placer::move(std::vector<PlannedMove> moves)
{
    QSet<QString> folders;
    while (!moves.empty()) {
        const auto possible = std::ranges::find_if(moves, [this](const PlannedMove& move) {
            return !QFileInfo::exists(m_archive.pathOf(move.to));
        });
        const auto next = possible != moves.end() ? possible : moves.begin();
        const QString to = m_archive.pathOf(next->to);
        const QString error = moveFile(m_archive.pathOf(next->from), to);
        if (!error.isEmpty())
            return Text::tr("%1 cannot be put into its folder: %2")
                .arg(QDir::toNativeSeparators(to), error);
        for (const QString& place : {next->from, next->to})
            folders.insert(m_archive.pathOf(place.section(QLatin1Char('/'), 0, -2)));
        m_changed.insert(next->to.section(QLatin1Char('/'), 0, 2));
        moves.erase(next);
    }
    for (const QString& folder : std::as_const(folders)) {
        System::syncFolder(folder);
        System::syncFolder(QFileInfo(folder).path());
    }
    return {};
}

void Placer::removeEmpty(const QString& folder)
{
    const QString path = m_archive.pathOf(folder);
    // What somebody else has put there stays.
    QFile::remove(join(path, QLatin1String(manifestName)));
    QDir().rmdir(join(path, QLatin1String(copiesName)));
    QDir().rmdir(path);
    QDir().rmdir(QFileInfo(path).path());
    QDir().rmdir(m_archive.pathOf(QString::number(m_unit)));
    m_removed << folder;
}

QString Placer::place()
{
    if (!m_content.error.isEmpty())
        return m_content.error;
    const CyclePlan plan = planCycles(m_unit, m_content.files);
    m_written = m_content.manifests;
    QString error = writeBefore(plan);
    if (error.isEmpty())
        error = move(plan.moves);
    if (error.isEmpty())
        error = writeAfter(plan);
    return error;
}

void Placer::tell(const ArchiveListener& listener) const
{
    for (const QString& folder : m_removed)
        listener.cycleRemoved(folder);
    QStringList changed(m_changed.begin(), m_changed.end());
    changed.sort();
    for (const QString& folder : std::as_const(changed)) {
        if (const auto cycle = m_archive.cycle(folder))
            listener.cycleChanged(*cycle);
    }
}

} // namespace

PlaceResult placeFiles(const Archive& archive, const PlaceRequest& request,
                       const ArchiveListener& listener)
{
    const std::vector<Arrival>& arrivals = request.arrivals;
    PlaceResult result;
    std::optional<Placer> placer;
    {
        ArchiveLock lock(ArchiveLock::pathIn(archive.root()));
        if (lock.take(patience)) {
            placer.emplace(archive, request);
            result.files = placer->add(arrivals);
            result.error = placer->place();
        } else {
            result.files.assign(arrivals.size(), Arrived::Failed);
            result.error = lock.error();
        }
    }
    for (std::size_t i = 0; i < arrivals.size(); ++i) {
        const bool isWaiting = QFileInfo::exists(archive.pathOf(arrivals[i].waiting));
        if (isWaiting && result.files[i] != Arrived::Known)
            result.files[i] = Arrived::Failed;
    }
    if (placer)
        placer->tell(listener);
    return result;
}

} // namespace KOLT::Library
