#include "library/archive/ImportWork.h"

#include "base/Version.h"
#include "base/WriteGuard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <cmath>

namespace KOLT::Library {

namespace {

using namespace std::chrono_literals;
using Status = ProvenCopy::Status;

const auto incoming = QStringLiteral(".incoming");

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::CardImport)
};

QString lockOf(const QString& folder)
{
    return folder + QStringLiteral(".lock");
}

QString megabytes(qint64 bytes)
{
    constexpr double perMegabyte = 1e6;
    return QStringLiteral("%1 MB").arg(std::ceil(static_cast<double>(bytes) / perMegabyte), 0, 'f',
                                       0);
}

} // namespace

ImportWork::ImportWork(const Archive& archive, const QString& card, const CardFacts& facts,
                       const std::atomic<bool>& isCancelled)
    : m_archive(archive)
    , m_card(card)
    , m_facts(facts)
    , m_isCancelled(isCancelled)
{
    m_record.id = newImportId();
    m_record.card = QDir::toNativeSeparators(card);
    m_record.when = QDateTime::currentDateTimeUtc();
    m_record.program = QLatin1String(versionText);
    m_waiting = incoming + QLatin1Char('/') + m_record.id;
    m_result.files = static_cast<int>(facts.files.size());
}

ImportWork::~ImportWork()
{
    if (m_copy)
        m_copy->proof.wait();
    m_copy.reset();
    if (m_lock == nullptr)
        return;
    QDir(m_archive.pathOf(m_waiting)).removeRecursively();
    m_lock.reset();
    QDir().rmdir(m_archive.pathOf(incoming));
}

ImportResult ImportWork::run(const CardImport::Progress& progress, const ArchiveListener& listener)
{
    m_progress = progress;
    m_listener = listener;
    m_timer.start();
    const auto permission = allowArchive(m_archive.root());
    if (QString error = prepare(); !error.isEmpty())
        return conclude(error);
    int cycle = 0;
    for (const CardFile& file : m_facts.files) {
        if (m_isCancelled)
            break;
        if (file.cycle != cycle) {
            finishCopy();
            placePending(false);
        }
        cycle = file.cycle;
        import(file);
        m_lock->refresh();
    }
    finishCopy();
    placePending(true);
    m_result.isCancelled =
        m_isCancelled && m_result.safe() + m_result.failed.size() < m_result.files;
    return conclude(m_fatal);
}

QString ImportWork::prepare()
{
    if (isBelow(m_card, m_archive.root()))
        return Text::tr("The library lies in the folder of the recordings, %1, to which nothing is "
                        "written. Please move the library to another folder.")
            .arg(QDir::toNativeSeparators(m_card));
    if (isBelow(m_archive.root(), m_card) &&
        !isBelow(m_archive.pathOf(QStringLiteral("trash")), m_card))
        return Text::tr("The folder %1 is part of the library.")
            .arg(QDir::toNativeSeparators(m_card));
    readKnown();
    if (QString error = spaceError(); !error.isEmpty())
        return error;
    const QString top = m_archive.pathOf(incoming);
    Archive archive;
    if (!archive.open(m_archive.root()))
        return archive.error();
    if (!QFileInfo::exists(top) && !QDir().mkdir(top))
        return Text::tr("The folder %1 cannot be created.").arg(QDir::toNativeSeparators(top));
    removeForgotten();
    m_lock = std::make_unique<ArchiveLock>(lockOf(m_archive.pathOf(m_waiting)));
    if (!m_lock->take(1s))
        return m_lock->error();
    if (!QDir().mkdir(m_archive.pathOf(m_waiting)))
        return Text::tr("The folder %1 cannot be created.").arg(QDir::toNativeSeparators(top));
    return {};
}

QString ImportWork::spaceError() const
{
    constexpr qint64 reserve = 16 << 20; // for manifests and records
    qint64 needed = reserve;
    for (const CardFile& file : m_facts.files) {
        if (likely(file) == nullptr)
            needed += file.file.bytes;
    }
    const qint64 available = QStorageInfo(m_archive.root()).bytesAvailable();
    return needed == reserve || available < 0 || available >= needed
               ? QString()
               : Text::tr(
                     "The disk of the library has no room for this card: %1 are needed, %2 are "
                     "free. Nothing was copied.")
                     .arg(megabytes(needed), megabytes(available));
}

/// What crashed imports left behind.
void ImportWork::removeForgotten()
{
    const QDir top(m_archive.pathOf(incoming));
    QSet<QString> paths;
    for (QString name : top.entryList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot)) {
        if (name.endsWith(lockOf({})))
            name.chop(lockOf({}).size());
        paths.insert(top.filePath(name));
    }
    for (const QString& path : std::as_const(paths)) {
        ArchiveLock lock(lockOf(path));
        if (lock.take(0s))
            QDir(path).removeRecursively();
    }
}

void ImportWork::readKnown()
{
    for (const CardFile& file : m_facts.files) {
        if (!m_known.contains(file.unit))
            m_known[file.unit] = readUnit(m_archive, file.unit);
    }
}

const PlanFile* ImportWork::likely(const CardFile& file) const
{
    const std::vector<PlanFile>& files = m_known.at(file.unit).files;
    const auto found = std::ranges::find_if(files, [&](const PlanFile& known) {
        return !known.isMissing && known.file.name == file.file.name &&
               known.file.bytes == file.file.bytes && known.file.dateTime == file.file.dateTime &&
               known.file.start == file.file.start && known.file.stop == file.file.stop;
    });
    return found == files.end() ? nullptr : &*found;
}

const PlanFile* ImportWork::withHash(quint32 unit, const ManifestFile& file) const
{
    const std::vector<PlanFile>& files = m_known.at(unit).files;
    const auto found = std::ranges::find_if(files, [&](const PlanFile& known) {
        return !known.isMissing && sameContent(known.file, file);
    });
    return found == files.end() ? nullptr : &*found;
}

void ImportWork::import(const CardFile& file)
{
    m_current = file.file.name;
    report();
    if (!m_fatal.isEmpty())
        fail(file, m_fatal);
    else if (likely(file) == nullptr || !isKnown(file))
        copy(file);
}

bool ImportWork::isKnown(const CardFile& file)
{
    QString error;
    const std::optional<QString> hash = hashOfFile(
        file.path, [this](qint64 bytes) { return advance(bytes); }, &error);
    if (m_isCancelled)
        return true;
    if (!hash) {
        fail(file, error);
        return true;
    }
    ManifestFile content = file.file;
    content.sha256 = *hash;
    const PlanFile* const known = withHash(file.unit, content);
    if (known == nullptr || !isSoundInArchive(*known)) {
        m_bytesDone -= file.file.bytes; // it is read once more
        return m_isCancelled;
    }
    m_requests[file.unit].onCard.insert(keyOf(content));
    m_record.known << keyOf(content);
    count(Arrived::Known, file, {});
    ++m_filesDone;
    return true;
}

/// A damaged file makes room for the card's.
bool ImportWork::isSoundInArchive(const PlanFile& known)
{
    const QString path = m_archive.pathOf(known.place);
    const std::optional<QString> hash =
        hashOfFile(path, [this](qint64 bytes) { return advance(bytes); });
    if (hash == known.file.sha256 || m_isCancelled)
        return !m_isCancelled;
    const QString aside = QStringLiteral("trash/damaged %1/%2").arg(m_record.id, known.place);
    ArchiveLock lock(ArchiveLock::pathIn(m_archive.root()));
    if (lock.take(60s))
        moveFile(path, m_archive.pathOf(aside));
    return false;
}

void ImportWork::copy(const CardFile& file)
{
    const QString waiting = QStringLiteral("%1/%2.part").arg(m_waiting).arg(++m_count);
    Copy copy{&file, std::make_unique<ProvenCopy>(m_archive.pathOf(waiting)), {}};
    const Status status =
        copy.file->copyFrom(file.path, [this](qint64 bytes) { return advance(bytes); });
    finishCopy();
    if (status == Status::Cancelled)
        return;
    if (status != Status::Done) {
        fail(file, copy.file->error());
        if (status == Status::TargetFailed)
            m_fatal = copy.file->error();
        return;
    }
    copy.proof = std::async(std::launch::async, [this, proven = copy.file.get()] {
        return proven->prove([this](qint64 bytes) {
            m_bytesDone += bytes;
            return !m_isCancelled;
        });
    });
    m_copy = std::move(copy);
}

void ImportWork::finishCopy()
{
    if (!m_copy)
        return;
    while (m_copy->proof.wait_for(100ms) != std::future_status::ready)
        report();
    Copy copy = std::move(*m_copy);
    m_copy.reset();
    const Status status = copy.proof.get();
    if (status == Status::Cancelled)
        return;
    if (status != Status::Done) {
        fail(*copy.source, copy.file->error());
        if (status == Status::TargetFailed)
            m_fatal = copy.file->error();
        return;
    }
    // What was listed may not be what was copied: a card with a bad contact fails now and then.
    const std::optional<Header> header = readHeader(copy.file->path(), copy.source->file.name);
    if (!header) {
        fail(*copy.source, Text::tr("Its copy cannot be read."));
        return;
    }
    Arrival arrival{header->file, {}, copy.source->cycle};
    const quint32 unit = header->unit != 0 ? header->unit : copy.source->unit;
    arrival.file.sha256 = copy.file->sha256();
    arrival.file.card = m_record.card;
    arrival.file.imported = m_record.when;
    arrival.file.program = m_record.program;
    arrival.waiting = m_waiting + QLatin1Char('/') + QFileInfo(copy.file->path()).fileName();
    copy.file->keep();
    ++m_filesDone;
    PlaceRequest& request = m_requests[unit];
    request.onCard.insert(keyOf(arrival.file));
    m_sources[arrival.waiting] = copy.source;
    request.arrivals.push_back(std::move(arrival));
}

/// Reading the unit's manifests costs time: this is done for several cycles at once.
void ImportWork::placePending(bool isLast)
{
    constexpr qint64 interval = 2000; // ms
    constexpr qint64 share = 10;      // of the time may be spent with this
    if (!isLast && m_timer.elapsed() - m_placedAfter < std::max(interval, share * m_placeCost))
        return;
    const qint64 begin = m_timer.elapsed();
    for (auto& [unit, request] : m_requests) {
        request.unit = unit;
        // At the end also without files: an interrupted import may have left something to do.
        if (isLast || !request.arrivals.empty())
            place(request);
    }
    m_placedAfter = m_timer.elapsed();
    m_placeCost = m_placedAfter - begin;
}

void ImportWork::place(PlaceRequest& request)
{
    QString error = request.arrivals.empty() ? QString() : record(request);
    PlaceResult placed{std::vector<Arrived>(request.arrivals.size(), Arrived::Failed), error};
    if (error.isEmpty())
        placed = placeFiles(m_archive, request, m_listener);
    for (std::size_t i = 0; i < request.arrivals.size(); ++i) {
        const Arrival& arrival = request.arrivals[i];
        if (placed.files[i] == Arrived::Known)
            QFile::remove(m_archive.pathOf(arrival.waiting));
        count(placed.files[i], *m_sources.at(arrival.waiting), placed.error);
    }
    request.arrivals.clear();
    if (m_fatal.isEmpty())
        m_fatal = placed.error;
}

/// Written before the files get their names, so that every import can be taken back.
QString ImportWork::record(const PlaceRequest& request)
{
    for (const Arrival& arrival : request.arrivals)
        m_record.added << keyOf(arrival.file);
    m_result.id = m_record.id;
    return writeRecord(m_archive, m_record);
}

void ImportWork::count(Arrived arrived, const CardFile& file, const QString& error)
{
    switch (arrived) {
    case Arrived::Known:
        ++m_result.known;
        return;
    case Arrived::Copied:
    case Arrived::Beside:
        ++(arrived == Arrived::Copied ? m_result.copied : m_result.beside);
        m_result.bytes += file.file.bytes;
        return;
    case Arrived::Failed:
        m_result.failed << ImportResult::Failure{file.file.name, error};
        return;
    }
}

void ImportWork::fail(const CardFile& file, const QString& reason)
{
    ++m_filesDone;
    m_result.failed << ImportResult::Failure{file.file.name, reason};
}

ImportResult ImportWork::conclude(QString error)
{
    // What another card has in common with earlier ones is noted, so that it outlives their
    // being taken back; the same card once more leaves no trace.
    if (error.isEmpty() && !m_record.known.isEmpty() &&
        (!m_record.added.isEmpty() || !isRecorded(m_archive, m_record.known)))
        error = writeRecord(m_archive, m_record);
    m_result.error = error;
    report(true);
    return m_result;
}

bool ImportWork::advance(qint64 bytes)
{
    m_bytesDone += bytes;
    report();
    return !m_isCancelled;
}

void ImportWork::report(bool isForced)
{
    constexpr qint64 interval = 100; // ms
    constexpr std::size_t window = 50;
    constexpr double second = 1000.0; // ms
    const qint64 now = m_timer.elapsed();
    if (!m_progress || (!isForced && now - m_reported < interval && m_filesReported == m_filesDone))
        return;
    m_reported = now;
    m_filesReported = m_filesDone;
    ImportProgress progress;
    progress.file = m_current;
    progress.files = m_result.files;
    progress.filesDone = m_filesDone;
    progress.bytes = m_facts.bytes;
    progress.bytesDone = std::clamp<qint64>(m_bytesDone / 2, 0, m_facts.bytes);
    m_speed.emplace_back(now, progress.bytesDone);
    if (m_speed.size() > window)
        m_speed.erase(m_speed.begin());
    const auto [since, before] = m_speed.front();
    if (now > since && progress.bytesDone > before) {
        progress.bytesPerSecond = static_cast<double>(progress.bytesDone - before) * second /
                                  static_cast<double>(now - since);
        progress.secondsLeft =
            static_cast<double>(progress.bytes - progress.bytesDone) / progress.bytesPerSecond;
    }
    m_progress(progress);
}

} // namespace KOLT::Library
