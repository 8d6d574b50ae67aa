#include "library/archive/ArchiveMove.h"

#include "base/ProvenCopy.h"
#include "base/SystemDisk.h"
#include "base/WriteGuard.h"
#include "library/archive/ArchiveLock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <cmath>

namespace KOLT::Library {

namespace {

using namespace std::chrono_literals;

const auto marker = QStringLiteral("kolt-library.json");
const auto incoming = QStringLiteral(".incoming");
const auto database = QStringLiteral("library.sqlite");
constexpr qint64 reportMilliseconds = 100;
constexpr int mostRounds = 5;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::ArchiveMove)
};

QString shown(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

QString megabytes(qint64 bytes)
{
    constexpr double perMegabyte = 1e6;
    return QStringLiteral("%1 MB").arg(std::ceil(static_cast<double>(bytes) / perMegabyte), 0, 'f',
                                       0);
}

/// Somebody imports, here or on another computer.
bool isImporting(const Archive& archive)
{
    const QDir top(archive.pathOf(incoming));
    const auto locks = top.entryList({QStringLiteral("*.lock")}, QDir::Files | QDir::Hidden);
    return std::ranges::any_of(
        locks, [&](const QString& name) { return !ArchiveLock(top.filePath(name)).take(0s); });
}

} // namespace

ArchiveMove::ArchiveMove(const Archive& archive, const QString& target)
    : m_archive(archive)
    , m_target(QDir::cleanPath(target))
{
}

QString ArchiveMove::objection() const
{
    const QString parent = QFileInfo(m_target).absolutePath();
    if (!QFileInfo(m_archive.root()).isDir())
        return Text::tr("The folder %1 of the library is not there. Is its disk connected?")
            .arg(shown(m_archive.root()));
    if (isBelow(m_archive.root(), m_target) || isBelow(m_target, m_archive.root()))
        return Text::tr("One of the two folders lies in the other. Choose a folder beside the "
                        "library, or on another disk.");
    if (!QFileInfo(parent).isDir())
        return Text::tr("There is no folder %1. Is its disk connected?").arg(shown(parent));
    if (QFileInfo::exists(m_target) &&
        (!QFileInfo(m_target).isDir() ||
         !QDir(m_target).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)))
        return Text::tr("The folder %1 is not empty. Choose an empty or a new folder.")
            .arg(shown(m_target));
    if (isImporting(m_archive))
        return Text::tr("A card is being imported into the library. Wait until it is done.");
    return writeObjection(m_target + QLatin1Char('/') + marker);
}

MoveResult ArchiveMove::run(const Progress& progress)
{
    m_progress = progress;
    m_result.error = objection();
    if (m_result.error.isEmpty()) {
        const auto permission = allowArchive(m_target);
        m_result.error = copyAll();
        m_result.isCancelled = m_isCancelled && m_result.files < m_state.files;
        if (!m_result.isComplete())
            undo();
    }
    return m_result;
}

ArchiveMove::Listing ArchiveMove::list() const
{
    Listing files;
    bool isOpenElsewhere = false;
    for (const char* suffix : {"-wal", "-journal"})
        isOpenElsewhere = isOpenElsewhere ||
                          QFileInfo(m_archive.pathOf(database) + QLatin1String(suffix)).size() > 0;
    QDirIterator found(m_archive.root(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        found.next();
        const QString file = QDir(m_archive.root()).relativeFilePath(found.filePath());
        const QString name = found.fileName();
        const bool isDatabase = !file.contains(QLatin1Char('/')) && name.startsWith(database);
        const bool isLock = name.endsWith(QLatin1String(".lock")) || name == QLatin1String(".lock");
        // The marker comes last: until then the folder is no library.
        if (isLock || file == marker || file.startsWith(incoming + QLatin1Char('/')) ||
            (isDatabase && (isOpenElsewhere || name.contains(QLatin1Char('-')))))
            continue;
        const QFileInfo info = found.fileInfo();
        files[file] = {info.size(), info.lastModified().toMSecsSinceEpoch()};
    }
    return files;
}

QString ArchiveMove::copyAll()
{
    ArchiveLock lock(ArchiveLock::pathIn(m_archive.root()));
    if (!lock.take(10s))
        return lock.error();
    Listing files = list();
    qint64 needed = 0;
    for (const auto& [file, seen] : files)
        needed += seen.bytes;
    m_state.files = static_cast<int>(files.size()) + 1;
    m_state.bytes = 2 * needed;
    const qint64 available = QStorageInfo(QFileInfo(m_target).absolutePath()).bytesAvailable();
    if (available >= 0 && available < needed)
        return Text::tr("The disk has no room for the library: %1 are needed, %2 are free. "
                        "Nothing was copied.")
            .arg(megabytes(needed), megabytes(available));
    if (const QString error = makeFolder(m_target); !error.isEmpty())
        return error;
    // What people write meanwhile is copied by another round.
    for (int round = 0; round < mostRounds; ++round) {
        const QString error = copyNew(files);
        lock.refresh();
        if (!error.isEmpty() || m_isCancelled)
            return error;
        files = list();
        if (files == m_copied)
            break;
    }
    for (const QString& folder : m_folders)
        System::syncFolder(folder);
    return copyFile(marker);
}

/// Those that were not copied yet, or have changed since.
QString ArchiveMove::copyNew(const Listing& files)
{
    for (const auto& [file, seen] : files) {
        const auto known = m_copied.find(file);
        if (known != m_copied.end() && known->second == seen)
            continue;
        if (known != m_copied.end())
            QFile::remove(m_target + QLatin1Char('/') + file); // our own copy
        if (const QString error = copyFile(file); !error.isEmpty() || m_isCancelled)
            return error;
        m_copied[file] = seen;
    }
    return {};
}

QString ArchiveMove::makeFolder(const QString& folder)
{
    if (QFileInfo(folder).isDir())
        return {};
    // Not above the target, where a disk may have been unplugged.
    const bool hasParent = folder == m_target || QFileInfo(m_target).isDir();
    if (hasParent && folder != m_target) {
        if (QString error = makeFolder(QFileInfo(folder).path()); !error.isEmpty())
            return error;
    }
    if (!hasParent || !QDir().mkdir(folder))
        return Text::tr("The folder %1 cannot be created. Is its disk still connected?")
            .arg(shown(folder));
    m_folders.push_back(folder);
    return {};
}

QString ArchiveMove::copyFile(const QString& file)
{
    const QString target = m_target + QLatin1Char('/') + file;
    m_state.file = file;
    if (QString error = makeFolder(QFileInfo(target).path()); !error.isEmpty())
        return error;
    ProvenCopy copy(target);
    const auto progress = [this](qint64 bytes) { return advance(bytes); };
    ProvenCopy::Status status = copy.copyFrom(m_archive.pathOf(file), progress);
    if (status == ProvenCopy::Status::Done)
        status = copy.prove(progress);
    switch (status) {
    case ProvenCopy::Status::Done:
        break;
    case ProvenCopy::Status::Cancelled:
        return {};
    case ProvenCopy::Status::SourceFailed:
        return Text::tr("%1 cannot be read: %2").arg(shown(m_archive.pathOf(file)), copy.error());
    case ProvenCopy::Status::TargetFailed:
    case ProvenCopy::Status::Different:
        return Text::tr("%1 cannot be written: %2").arg(shown(target), copy.error());
    }
    copy.keep();
    m_copied.try_emplace(file);
    ++m_state.filesDone;
    ++m_result.files;
    m_result.bytes += copy.bytes();
    return {};
}

/// Removes what was made at the target, and nothing else.
void ArchiveMove::undo()
{
    for (const auto& [file, seen] : m_copied)
        QFile::remove(m_target + QLatin1Char('/') + file);
    for (auto folder = m_folders.rbegin(); folder != m_folders.rend(); ++folder)
        QDir().rmdir(*folder);
}

bool ArchiveMove::advance(qint64 bytes)
{
    m_state.bytesDone += bytes;
    report();
    return !m_isCancelled;
}

void ArchiveMove::report()
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (!m_progress || now - m_reported < reportMilliseconds)
        return;
    m_reported = now;
    m_progress(m_state);
}

} // namespace KOLT::Library
