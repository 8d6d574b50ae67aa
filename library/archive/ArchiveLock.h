#pragma once

#include <QLockFile>

#include <chrono>
#include <memory>

namespace KOLT::Library {

/// A lock file, which also keeps other computers out that share the folder. One that was left
/// behind by a crash does not count: on the same computer at once, from another one after ten
/// minutes without refresh().
class ArchiveLock
{
public:
    explicit ArchiveLock(const QString& path);
    /// Releases it.
    ~ArchiveLock();
    ArchiveLock(const ArchiveLock&) = delete;
    ArchiveLock& operator=(const ArchiveLock&) = delete;

    /// Waits for others. False when it is still taken after the time, or when no file can be
    /// created there: see error().
    bool take(std::chrono::milliseconds patience);

    /// Keeps the lock from looking forgotten; to be called often by long work.
    void refresh();

    /// For the user.
    QString error() const;

    /// The lock for changes of folders and manifests in the archive.
    static QString pathIn(const QString& root);

private:
    QString m_path;
    QLockFile m_file;
    std::chrono::steady_clock::time_point m_refreshed;
};

} // namespace KOLT::Library
