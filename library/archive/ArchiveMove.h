#pragma once

#include "library/archive/Archive.h"

#include <atomic>
#include <map>
#include <set>

namespace KOLT::Library {

struct MoveProgress
{
    QString file; ///< being copied or read back, below the archive
    int filesDone = 0;
    int files = 0;
    qint64 bytesDone = 0; ///< copied and proven: twice the size
    qint64 bytes = 0;
};

struct MoveResult
{
    int files = 0;
    qint64 bytes = 0;
    QString error; ///< for the user; nothing is left at the target then, if it can be reached
    bool isCancelled = false;

    bool isComplete() const { return error.isEmpty() && !isCancelled; }
};

/// Copies an archive to another folder, which becomes the same library, with the proof of an
/// import: each file is synced, read back from the disk, and its hash compared. The folder becomes
/// a library only when all of it is proven. The old one is not changed.
///
/// Imports of others wait meanwhile; notes that are written meanwhile are copied, too. Left out are
/// files that wait to be proven, and a database that somebody else has open, as its content may be
/// half written: it is made anew from the archive.
class ArchiveMove
{
public:
    ArchiveMove(const Archive& archive, const QString& target);

    /// Why it cannot begin, for the user; empty if it can. run() asks, too.
    QString objection() const;

    using Progress = std::function<void(const MoveProgress& progress)>;

    /// Blocks; in any thread, once. `progress` is called some times per second.
    MoveResult run(const Progress& progress = {});

    /// From any thread.
    void cancel() { m_isCancelled = true; }

private:
    struct Seen
    {
        qint64 bytes = 0;
        qint64 changed = 0; ///< ms

        bool operator==(const Seen&) const = default;
    };

    /// By path below the archive.
    using Listing = std::map<QString, Seen>;

    QString copyAll();
    QString copyNew(const Listing& files);
    QString copyFile(const QString& file);
    QString makeFolder(const QString& folder);
    void undo();
    Listing list() const;
    bool advance(qint64 bytes);
    void report();

    const Archive m_archive;
    QString m_target;
    std::atomic<bool> m_isCancelled = false;
    Progress m_progress;
    MoveProgress m_state;
    MoveResult m_result;
    Listing m_copied;
    std::vector<QString> m_folders; ///< that were made, in that order
    qint64 m_reported = 0;          ///< ms
};

} // namespace KOLT::Library
