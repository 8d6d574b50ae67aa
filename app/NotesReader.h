#pragma once

#include "library/ledger/LogbookRecords.h"

#include <QObject>
#include <QStringList>

#include <thread>

namespace KOLT {

/// A note with the folder that it is kept in.
struct KeptNote
{
    Library::Note note;
    QString root;
};

/// Reads all notes of some folders in a thread, as a library may be large or on a slow network.
class NotesReader : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    /// Waits for a reading that is going on.
    ~NotesReader() override;

    /// Folders that are not there have no notes. While one reading is going on, the next waits;
    /// only the last one that was asked for is told.
    void read(const QStringList& roots);

signals:
    void signalRead(const std::vector<KOLT::KeptNote>& notes);

private:
    void finish(const std::vector<KeptNote>& notes);

    std::thread m_thread;
    bool m_isReading = false;
    std::optional<QStringList> m_next;
};

} // namespace KOLT
