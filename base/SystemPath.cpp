#include "base/SystemPath.h"

#include <QFile>

#ifdef _WIN32
#include <QDeadlineTimer>
#include <QThread>

#include <windows.h>
#endif

namespace KOLT::System {

#ifdef _WIN32

std::filesystem::path nativePath(const QString& path)
{
    return path.toStdWString();
}

QString pathText(const std::filesystem::path& path)
{
    return QString::fromStdWString(path.generic_wstring());
}

void awaitReplaceable(const QString& path)
{
    constexpr int longestMilliseconds = 2000;
    constexpr unsigned long pauseMilliseconds = 50;
    const std::wstring name = nativePath(path).make_preferred().wstring();
    const QDeadlineTimer deadline(longestMilliseconds);
    while (!deadline.hasExpired()) {
        const HANDLE file = CreateFileW(name.c_str(), DELETE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE) {
            CloseHandle(file);
            return;
        }
        if (GetLastError() != ERROR_SHARING_VIOLATION)
            return; // none there, or a reason that waiting does not change
        QThread::msleep(pauseMilliseconds);
    }
}

#else

std::filesystem::path nativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

QString pathText(const std::filesystem::path& path)
{
    return QFile::decodeName(path.string().c_str());
}

void awaitReplaceable(const QString& /*path*/) {}

#endif

} // namespace KOLT::System
