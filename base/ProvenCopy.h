#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class QFile;

/// Copies of files that are proven to be on the disk before anything relies on them.
namespace KOLT {

/// Gets the bytes since the last call; returns false to cancel.
using ByteProgress = std::function<bool(qint64 bytes)>;

/// A new file with the content of another. First copyFrom(), then prove(), which may be called in
/// another thread. Unless keep() was called, the file is removed with this object.
class ProvenCopy
{
public:
    enum class Status {
        Done,
        Cancelled,
        SourceFailed, ///< the source cannot be read to its end
        TargetFailed, ///< the file cannot be written or read back
        Different     ///< what is on the disk is not what was read
    };

    /// `target` must not exist, and WriteGuard.h must not object to it.
    explicit ProvenCopy(const QString& target);
    ~ProvenCopy();
    ProvenCopy(const ProvenCopy&) = delete;
    ProvenCopy& operator=(const ProvenCopy&) = delete;

    Status copyFrom(const QString& source, const ByteProgress& progress);
    /// Syncs the file, reads it back from the disk and compares the hash.
    Status prove(const ByteProgress& progress);

    void keep() { m_isKept = true; }

    const QString& path() const { return m_path; }

    const QString& error() const { return m_error; } ///< for the user

    const QString& sha256() const { return m_sha256; } ///< of what was read from the source

    qint64 bytes() const { return m_bytes; }

private:
    Status fail(Status status, const QString& error);

    QString m_path;
    std::unique_ptr<QFile> m_file;
    QString m_error;
    QString m_sha256;
    qint64 m_bytes = 0;
    bool m_isOurs = false;
    bool m_isKept = false;
};

/// The SHA-256 of a file as it is on the disk, in lower-case hexadecimal digits; none when it
/// cannot be read to its end, or after a cancel.
std::optional<QString> hashOfFile(const QString& path, const ByteProgress& progress = {},
                                  QString* error = nullptr);

/// Gives a file its final name on the same file system and creates the folders that it needs. Never
/// replaces a file. Returns what went wrong, for the user; empty on success. The names are on the
/// disk only after System::syncFolder().
QString moveFile(const QString& from, const QString& to);

} // namespace KOLT
