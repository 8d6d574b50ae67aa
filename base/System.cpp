#include "base/System.h"

#include <QFile>

#include <array>
#include <cstdlib>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif
#ifdef _WIN32
#include <direct.h>
#else
#include <unistd.h>
#endif

namespace KOLT::System {

void* allocateHugePages(std::size_t bytes)
{
#ifdef __linux__
    const std::size_t rounded = (bytes + hugePageBytes - 1) / hugePageBytes * hugePageBytes;
    void* const memory = std::aligned_alloc(hugePageBytes, rounded);
    if (memory != nullptr)
        madvise(memory, rounded, MADV_HUGEPAGE); // only a hint
#else
    void* const memory = std::malloc(bytes);
#endif
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

std::optional<double> availableMemory()
{
    QFile info(QStringLiteral("/proc/meminfo"));
    if (!info.open(QIODevice::ReadOnly))
        return std::nullopt;
    for (const QByteArray& line : info.readAll().split('\n')) {
        if (line.startsWith("MemAvailable:"))
            return line.simplified().split(' ').value(1).toDouble() * 1024.0;
    }
    return std::nullopt;
}

std::string workingDirectory()
{
    std::array<char, 256> directory{};
#ifdef _WIN32
    const char* const path = _getcwd(directory.data(), static_cast<int>(directory.size()));
#else
    const char* const path = getcwd(directory.data(), directory.size());
#endif
    return path != nullptr ? path : std::string();
}

} // namespace KOLT::System
