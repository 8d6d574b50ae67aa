#include "base/SystemDisk.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace KOLT::System {

namespace {

/// Reads past the cache need places and sizes that are multiples of the disk's blocks.
constexpr std::size_t blockBytes = 4096;
constexpr std::size_t bufferBytes = std::size_t{1} << 20;

struct alignas(blockBytes) Buffer
{
    std::array<char, bufferBytes> bytes;
};

#ifdef _WIN32
QString systemError()
{
    return qt_error_string(static_cast<int>(GetLastError()));
}
#else
QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

int synced(int file)
{
    int result = 0;
    do {
        result = ::fsync(file);
    } while (result != 0 && errno == EINTR);
    return result;
}
#endif

} // namespace

struct DiskReader::Handle
{
    std::unique_ptr<Buffer> buffer = std::make_unique<Buffer>();
#ifdef _WIN32
    HANDLE file = INVALID_HANDLE_VALUE;
    bool isAtEnd = false;

    ~Handle()
    {
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
    }
#else
    int file = -1;

    ~Handle()
    {
        if (file >= 0)
            ::close(file);
    }
#endif
    Handle() = default;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
};

DiskReader::DiskReader() = default;
DiskReader::~DiskReader() = default;

#ifdef _WIN32

QString syncFile(QFileDevice& file)
{
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
    return FlushFileBuffers(handle) != 0 ? QString() : systemError();
}

void syncFolder(const QString& /*folder*/) {}

bool DiskReader::open(const QString& path)
{
    m_handle = std::make_unique<Handle>();
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    // Some network drives do not know files without buffering.
    for (const DWORD flags : {DWORD{FILE_FLAG_NO_BUFFERING | FILE_FLAG_SEQUENTIAL_SCAN},
                              DWORD{FILE_ATTRIBUTE_NORMAL}}) {
        m_handle->file = CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_EXISTING, flags, nullptr);
        if (m_handle->file != INVALID_HANDLE_VALUE)
            return true;
    }
    m_error = systemError();
    return false;
}

std::span<const char> DiskReader::next()
{
    if (m_handle->isAtEnd)
        return {};
    DWORD count = 0;
    char* const bytes = m_handle->buffer->bytes.data();
    if (ReadFile(m_handle->file, bytes, static_cast<DWORD>(bufferBytes), &count, nullptr) == 0) {
        if (GetLastError() != ERROR_HANDLE_EOF)
            m_error = systemError();
        return {};
    }
    // Only the last block is not whole; not every file system can be asked to read on behind it.
    m_handle->isAtEnd = count % blockBytes != 0;
    return {bytes, count};
}

#else

QString syncFile(QFileDevice& file)
{
    const int result = synced(file.handle());
    const bool isUnknownThere = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
    return result == 0 || isUnknownThere ? QString() : systemError();
}

void syncFolder(const QString& folder)
{
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        return;
    synced(handle);
    ::close(handle);
}

bool DiskReader::open(const QString& path)
{
    m_handle = std::make_unique<Handle>();
    m_handle->file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (m_handle->file < 0) {
        m_error = systemError();
        return false;
    }
#ifdef POSIX_FADV_DONTNEED
    posix_fadvise(m_handle->file, 0, 0, POSIX_FADV_DONTNEED);
    posix_fadvise(m_handle->file, 0, 0, POSIX_FADV_SEQUENTIAL);
#endif
    return true;
}

std::span<const char> DiskReader::next()
{
    char* const bytes = m_handle->buffer->bytes.data();
    ssize_t count = 0;
    do {
        count = ::read(m_handle->file, bytes, bufferBytes);
    } while (count < 0 && errno == EINTR);
    if (count < 0)
        m_error = systemError();
    return {bytes, static_cast<std::size_t>(std::max<ssize_t>(0, count))};
}

#endif

} // namespace KOLT::System
