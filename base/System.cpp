#include "base/System.h"

#include <QFile>

#include <array>

#ifdef _WIN32
#include <direct.h>
#else
#include <unistd.h>
#endif

namespace KOLT::System {

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
