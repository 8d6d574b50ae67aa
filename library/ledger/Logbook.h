#pragma once

#include "library/ledger/LogbookRecords.h"

namespace KOLT::Library {

/// Notes, limits and names as small JSON files, one for each item, so that two computers that write
/// at the same time do not touch each other's items (docs/formats/library.md). They lie in folders
/// "notes", "limits", "aircraft", "engines" and "installations" of the archive, or of the user's
/// data path while there is no library.
///
/// Files that are no item, of a newer format, or larger than anybody writes are left alone and
/// named; the rest is read. Nothing is cached.
class Logbook
{
public:
    struct Contents
    {
        std::vector<Note> notes; ///< these and the others without those that were removed
        std::vector<MaintenanceLimit> limits;
        std::vector<AircraftName> aircraft;
        std::vector<EngineFacts> engines;
        std::vector<WrittenInstallation> installations;
        QStringList damaged; ///< paths that could not be read

        QString nameOf(quint32 unit) const; ///< of the aircraft; empty without one
        std::vector<MaintenanceLimit> limitsOf(const QString& engine) const;
        const EngineFacts* factsOf(const QString& engine) const;
    };

    struct Saved
    {
        QString error;    ///< for the user; empty: it is on the disk
        QString replaced; ///< who had changed the item since it was read, and when; usually empty

        explicit operator bool() const { return error.isEmpty(); }
    };

    /// `root` must exist; the folders in it are made when something is saved.
    explicit Logbook(const QString& root)
        : m_root(root)
    {
    }

    const QString& root() const { return m_root; }

    Contents read() const;
    /// The notes alone.
    std::vector<Note> readNotes() const;

    /// Writes the item, which gets author, time and, if it is new, its id. Of two who change the
    /// same item the later one wins, and is told whose text it replaced.
    Saved save(Note& note) const;
    Saved save(MaintenanceLimit& limit) const;
    Saved save(AircraftName& aircraft) const;
    Saved save(EngineFacts& engine) const;
    Saved save(WrittenInstallation& installation) const;

private:
    QString m_root;
};

/// Tells recordings apart by the begin of their file, which copies share and which is there even
/// when a file was saved too early. Empty when the file cannot be read.
QString recordingKey(const QString& path);

} // namespace KOLT::Library
