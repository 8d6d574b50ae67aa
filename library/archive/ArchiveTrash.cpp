#include "library/archive/ArchiveTrash.h"

#include "base/ProvenCopy.h"
#include "base/WriteGuard.h"
#include "library/archive/ArchiveLock.h"
#include "library/archive/ImportRecords.h"
#include "library/archive/Placement.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

namespace KOLT::Library {

namespace {

using namespace std::chrono_literals;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::ArchiveTrash)
};

/// What no other import has brought or found.
QSet<QString> onlyIn(const ImportRecord& record, const std::vector<ImportRecord>& all)
{
    QSet<QString> files(record.added.begin(), record.added.end());
    for (const ImportRecord& other : all) {
        if (other.id == record.id || other.isTakenBack)
            continue;
        files.subtract(QSet<QString>(other.added.begin(), other.added.end()));
        files.subtract(QSet<QString>(other.known.begin(), other.known.end()));
    }
    return files;
}

class TakeBack
{
public:
    TakeBack(const Archive& archive, const ImportRecord& record)
        : m_archive(archive)
        , m_record(record)
    {
        m_result.folder = archive.pathOf(QStringLiteral("trash/") + record.id);
    }

    TakeBackResult run(const ArchiveListener& listener)
    {
        const auto permission = allowArchive(m_archive.root());
        const QSet<QString> files = onlyIn(m_record, importsOf(m_archive));
        const std::vector<quint32> units = moveOut(files);
        // What is left may divide into other cycles.
        for (const quint32 unit : units) {
            const PlaceResult placed = placeFiles(m_archive, {unit, {}, {}, files}, listener);
            if (m_result.error.isEmpty())
                m_result.error = placed.error;
        }
        if (m_result.error.isEmpty()) {
            m_record.isTakenBack = true;
            m_result.error = writeRecord(m_archive, m_record);
        }
        return m_result;
    }

private:
    /// Returns the units that have the files, or had them when this was interrupted.
    std::vector<quint32> moveOut(const QSet<QString>& files)
    {
        std::vector<quint32> touched;
        ArchiveLock lock(ArchiveLock::pathIn(m_archive.root()));
        if (!lock.take(60s)) {
            m_result.error = lock.error();
            return touched;
        }
        for (const quint32 unit : m_archive.units()) {
            bool isTouched = false;
            for (const PlanFile& file : readUnit(m_archive, unit).files) {
                if (!files.contains(keyOf(file.file)))
                    continue;
                isTouched = true;
                if (m_result.error.isEmpty() && !file.isMissing)
                    moveOut(file.place);
            }
            if (isTouched)
                touched.push_back(unit);
        }
        return touched;
    }

    void moveOut(const QString& place)
    {
        const QString error =
            moveFile(m_archive.pathOf(place), m_result.folder + QLatin1Char('/') + place);
        if (error.isEmpty())
            ++m_result.files;
        else
            m_result.error = Text::tr("%1 cannot be moved to the trash of the library: %2")
                                 .arg(QDir::toNativeSeparators(m_archive.pathOf(place)), error);
    }

    const Archive& m_archive;
    ImportRecord m_record;
    TakeBackResult m_result;
};

} // namespace

TakeBackResult takeBack(const Archive& archive, const QString& id, const ArchiveListener& listener)
{
    const std::vector<ImportRecord> records = importsOf(archive);
    const auto record = std::ranges::find(records, id, &ImportRecord::id);
    if (record == records.end())
        return {0, {}, Text::tr("The library has no record of this import.")};
    return TakeBack(archive, *record).run(listener);
}

} // namespace KOLT::Library
