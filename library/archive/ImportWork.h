#pragma once

#include "base/ProvenCopy.h"
#include "library/archive/ArchiveLock.h"
#include "library/archive/CardFacts.h"
#include "library/archive/CardImport.h"
#include "library/archive/ImportRecords.h"
#include "library/archive/Placement.h"

#include <QElapsedTimer>

#include <atomic>
#include <future>
#include <optional>

namespace KOLT::Library {

/// One run of an import. While a file is proven, the next is copied.
class ImportWork
{
public:
    ImportWork(const Archive& archive, const QString& card, const CardFacts& facts,
               const std::atomic<bool>& isCancelled);
    ~ImportWork();
    ImportWork(const ImportWork&) = delete;
    ImportWork& operator=(const ImportWork&) = delete;

    ImportResult run(const CardImport::Progress& progress, const ArchiveListener& listener);

private:
    /// A file that was copied and is being proven.
    struct Copy
    {
        const CardFile* source = nullptr;
        std::unique_ptr<ProvenCopy> file;
        std::future<ProvenCopy::Status> proof;
    };

    QString prepare();
    QString spaceError() const;
    void removeForgotten();
    void readKnown();

    void import(const CardFile& file);
    /// Whether the archive has this very content, proven; otherwise it has to be copied.
    bool isKnown(const CardFile& file);
    bool isSoundInArchive(const PlanFile& known);
    void copy(const CardFile& file);
    void finishCopy();
    void placePending(bool isLast);
    void place(PlaceRequest& request);
    QString record(const PlaceRequest& request);
    void count(Arrived arrived, const CardFile& file, const QString& error);
    void fail(const CardFile& file, const QString& reason);
    ImportResult conclude(QString error);

    const PlanFile* likely(const CardFile& file) const;
    const PlanFile* withHash(quint32 unit, const ManifestFile& file) const;
    bool advance(qint64 bytes);
    void report(bool isForced = false);

    const Archive& m_archive;
    QString m_card;
    const CardFacts& m_facts;
    const std::atomic<bool>& m_isCancelled;
    CardImport::Progress m_progress;
    ArchiveListener m_listener;
    ImportResult m_result;
    ImportRecord m_record;
    QString m_waiting; ///< folder below the archive for files that are not yet proven
    std::unique_ptr<ArchiveLock> m_lock; ///< of that folder
    std::map<quint32, UnitContent> m_known;
    std::map<quint32, PlaceRequest> m_requests;   ///< proven files that wait for their cycle
    std::map<QString, const CardFile*> m_sources; ///< of the arrivals, by where they wait
    std::optional<Copy> m_copy;
    QString m_fatal; ///< why no more can be copied
    QString m_current;
    std::atomic<qint64> m_bytesDone = 0; ///< read from the card, and proven: twice its size
    int m_filesDone = 0;
    int m_count = 0;          ///< of files copied, for their names
    qint64 m_placedAfter = 0; ///< ms
    qint64 m_placeCost = 0;
    QElapsedTimer m_timer;
    qint64 m_reported = 0; ///< ms
    int m_filesReported = -1;
    std::vector<std::pair<qint64, qint64>> m_speed; ///< ms, bytes
};

} // namespace KOLT::Library
