#pragma once

#include <QString>

#include <memory>
#include <span>

class QFileDevice;

/// What lies on the disk itself, as against what the system remembers of it.
namespace KOLT::System {

/// Waits until an open file is on the disk. Returns the system's error; empty on success, and where
/// the file system cannot tell.
QString syncFile(QFileDevice& file);

/// The same of the names in a folder, after files were created or renamed in it; nothing on systems
/// that need none.
void syncFolder(const QString& folder);

/// Reads a file from the disk from its start, as far as the system allows it: what is in the cache
/// is dropped first. The file must have been synced.
class DiskReader
{
public:
    DiskReader();
    ~DiskReader();
    DiskReader(const DiskReader&) = delete;
    DiskReader& operator=(const DiskReader&) = delete;

    bool open(const QString& path);

    /// The next bytes, valid until the next call; empty at the end and after an error.
    std::span<const char> next();

    /// The system's error; empty when there was none.
    const QString& error() const { return m_error; }

private:
    struct Handle;

    std::unique_ptr<Handle> m_handle;
    QString m_error;
};

} // namespace KOLT::System
