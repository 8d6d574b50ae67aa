#include "base/ProvenCopy.h"

#include "base/SystemDisk.h"
#include "base/SystemPath.h"
#include "base/WriteGuard.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>
#include <vector>

namespace KOLT {

namespace {

constexpr qint64 chunkBytes = 1 << 20;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ProvenCopy)
};

QString hexOf(const QCryptographicHash& hash)
{
    return QString::fromLatin1(hash.result().toHex());
}

QByteArrayView viewOf(std::span<const char> bytes)
{
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

/// Reads whole chunks: a read from a device may return less. Negative on an error.
qint64 readChunk(QFile& file, std::vector<char>& chunk)
{
    qint64 count = 0;
    while (count < chunkBytes) {
        const qint64 more = file.read(chunk.data() + count, chunkBytes - count);
        if (more < 0)
            return -1;
        if (more == 0)
            break;
        count += more;
    }
    return count;
}

} // namespace

ProvenCopy::ProvenCopy(const QString& target)
    : m_path(target)
{
}

ProvenCopy::~ProvenCopy()
{
    m_file.reset();
    if (m_isOurs && !m_isKept)
        QFile::remove(m_path);
}

ProvenCopy::Status ProvenCopy::fail(Status status, const QString& error)
{
    m_error = error;
    return status;
}

ProvenCopy::Status ProvenCopy::copyFrom(const QString& source, const ByteProgress& progress)
{
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return fail(Status::SourceFailed, from.errorString());
    if (const QString objection = writeObjection(m_path); !objection.isEmpty())
        return fail(Status::TargetFailed, objection);
    m_file = std::make_unique<QFile>(m_path);
    if (!m_file->open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return fail(Status::TargetFailed, m_file->errorString());
    m_isOurs = true;
    const qint64 promised = from.size();
    QCryptographicHash hash(QCryptographicHash::Sha256);
    std::vector<char> chunk(chunkBytes);
    for (;;) {
        const qint64 count = readChunk(from, chunk);
        if (count < 0)
            return fail(Status::SourceFailed, from.errorString());
        if (count == 0)
            break;
        hash.addData(QByteArrayView(chunk.data(), count));
        if (m_file->write(chunk.data(), count) != count)
            return fail(Status::TargetFailed,
                        m_file->error() == QFileDevice::NoError
                            ? Text::tr("Not everything could be written. The disk may be full.")
                            : m_file->errorString());
        m_bytes += count;
        if (progress && !progress(count))
            return Status::Cancelled;
    }
    if (m_bytes < promised)
        return fail(Status::SourceFailed,
                    Text::tr("Only %1 of %2 bytes could be read.").arg(m_bytes).arg(promised));
    m_sha256 = hexOf(hash);
    return Status::Done;
}

ProvenCopy::Status ProvenCopy::prove(const ByteProgress& progress)
{
    if (const QString error = System::syncFile(*m_file); !error.isEmpty())
        return fail(Status::TargetFailed, error);
    m_file.reset();
    bool isCancelled = false;
    QString error;
    const std::optional<QString> found = hashOfFile(
        m_path,
        [&](qint64 bytes) {
            isCancelled = progress && !progress(bytes);
            return !isCancelled;
        },
        &error);
    if (isCancelled)
        return Status::Cancelled;
    if (!found)
        return fail(Status::TargetFailed, error);
    return *found == m_sha256
               ? Status::Done
               : fail(Status::Different, Text::tr("What is on the disk after copying is not what "
                                                  "was read. The disk may be damaged."));
}

std::optional<QString> hashOfFile(const QString& path, const ByteProgress& progress, QString* error)
{
    System::DiskReader reader;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    bool isGoing = reader.open(path);
    while (isGoing) {
        const std::span<const char> bytes = reader.next();
        if (bytes.empty())
            break;
        hash.addData(viewOf(bytes));
        isGoing = !progress || progress(static_cast<qint64>(bytes.size()));
    }
    if (error != nullptr)
        *error = reader.error();
    if (!isGoing || !reader.error().isEmpty())
        return std::nullopt;
    return hexOf(hash);
}

QString moveFile(const QString& from, const QString& to)
{
    for (const QString& path : {from, to}) {
        if (const QString objection = writeObjection(path); !objection.isEmpty())
            return objection;
    }
    if (QFileInfo(to).isSymLink() || QFileInfo::exists(to))
        return Text::tr("There is another file of that name.");
    const QString folder = QFileInfo(to).absolutePath();
    if (!QDir().mkpath(folder))
        return Text::tr("The folder %1 cannot be created.").arg(QDir::toNativeSeparators(folder));
    System::awaitReplaceable(from);
    // QFile::rename() would fall back to copying.
    std::error_code error;
    std::filesystem::rename(std::filesystem::path(from.toStdU16String()),
                            std::filesystem::path(to.toStdU16String()), error);
    return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
}

} // namespace KOLT
