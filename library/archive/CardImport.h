#pragma once

#include "library/archive/Archive.h"

#include <QStringList>

#include <atomic>
#include <memory>

namespace KOLT::Library {

/// What an import did with the files of a card. Every file is in exactly one of copied, known,
/// beside and failed, or was not reached because of a cancel.
struct ImportResult
{
    struct Failure
    {
        QString name;
        QString reason; ///< for the user
    };

    int files = 0;  ///< record files on the card
    int copied = 0; ///< new in the archive and proven
    int known = 0;  ///< were there before, and proven once more
    int beside = 0; ///< kept in "copies", as the cycle has another file of that name
    QList<Failure> failed;
    qint64 bytes = 0; ///< of the files copied and beside
    bool isCancelled = false;
    QString error; ///< why nothing, or nothing more, could be done; for the user
    QString id;    ///< of the record of this import; empty when nothing was added

    int safe() const { return copied + known + beside; }

    bool isComplete() const { return error.isEmpty() && failed.isEmpty() && !isCancelled; }
};

struct ImportProgress
{
    QString file; ///< being copied or read
    int filesDone = 0;
    int files = 0;
    qint64 bytesDone = 0; ///< of the card
    qint64 bytes = 0;
    double bytesPerSecond = 0.0; ///< of the last seconds; 0 when unknown
    double secondsLeft = -1.0;   ///< negative when unknown
};

/// Imports a card into the archive with proof: each file is copied below ".incoming", synced,
/// dropped from the system's cache, read back, and its hash compared; only then it gets its final
/// name. Nothing is written to the card.
///
/// Where a file belongs depends on the set of all files of its unit alone, not on the order in
/// which they came (CyclePlan.h). Complete cycles appear one by one: whatever ends the import,
/// what has appeared is whole, and the next import completes the rest. Several imports may run at
/// once, also on other computers.
///
/// The constructor lists the card, and belongs to the GUI thread; run() blocks and may be called in
/// another thread, once.
class CardImport
{
public:
    /// `archive` is copied; `card` is the folder with the record files. `onFile` is called for each
    /// file that is listed.
    CardImport(const Archive& archive, const QString& card,
               const std::function<void()>& onFile = {});
    ~CardImport();
    CardImport(const CardImport&) = delete;
    CardImport& operator=(const CardImport&) = delete;

    /// Called in run() some times per second.
    using Progress = std::function<void(const ImportProgress& progress)>;

    ImportResult run(const Progress& progress = {}, const ArchiveListener& listener = {});

    /// From any thread. run() then keeps the files that are complete, and returns.
    void cancel() { m_isCancelled = true; }

private:
    struct Work;

    std::unique_ptr<Work> m_work;
    std::atomic<bool> m_isCancelled = false;
};

} // namespace KOLT::Library
