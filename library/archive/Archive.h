#pragma once

#include "library/archive/ArchivedCycle.h"

#include <functional>
#include <optional>
#include <vector>

namespace KOLT::Library {

/// The folder of the archive, opened for reading. Everything is read from the disk at each call;
/// nothing is cached, as other computers may write to the same folder.
///
/// The root holds a file "kolt-library.json", which makes it an archive, the folders of the units
/// (their names are numbers), and what belongs to the archive itself: "imports", "trash",
/// ".incoming". All other names in the root are free for other parts of the library.
///
/// May be used from any thread, from one at a time.
class Archive
{
public:
    /// False when the folder is absent, or is no archive, or one of a later version: see error().
    /// Nothing is ever created by this.
    bool open(const QString& root);

    /// Why open() failed, for the user.
    const QString& error() const { return m_error; }

    /// Makes an archive of an absent or empty folder, whose parent must be there, and returns what
    /// went wrong, for the user; empty on success, and when it is an archive already.
    static QString create(const QString& root);

    static bool isArchive(const QString& root);

    const QString& root() const { return m_root; }

    /// Written at creation, and kept when the folder is moved.
    const QString& id() const { return m_id; }

    /// Serial numbers of the units that have a folder, ascending.
    std::vector<quint32> units() const;

    /// All cycles in order of unit, date-time and folder; those without a date come first. Of each,
    /// the files that the manifest names and that are in the folder. A folder whose manifest cannot
    /// be read is left out, and named in `damaged`; the next import mends it.
    std::vector<ArchivedCycle> cycles(QStringList* damaged = nullptr) const;
    std::vector<ArchivedCycle> cyclesOf(quint32 unit, QStringList* damaged = nullptr) const;

    /// The cycle in a folder as ArchivedCycle::folder names it; none when there is none.
    std::optional<ArchivedCycle> cycle(const QString& folder) const;

    /// The absolute path of a cycle's folder, which CardContainer reads like a card.
    QString pathOf(const QString& folder) const;

private:
    QString m_root;
    QString m_id;
    QString m_error;
};

/// What changed in the archive. A cycle is told again, with all its files, when files were added to
/// it. Its folder is named after its first file: when that arrives later than others, the cycle
/// leaves one folder and appears in another. What has to outlive this refers to a cycle's files by
/// their hash, not to its folder.
///
/// Called in the thread that changes the archive, after the change is complete on the disk and
/// with no lock held.
struct ArchiveListener
{
    std::function<void(const ArchivedCycle& cycle)> cycleChanged = [](const ArchivedCycle&) {};
    std::function<void(const QString& folder)> cycleRemoved = [](const QString&) {};
};

} // namespace KOLT::Library
