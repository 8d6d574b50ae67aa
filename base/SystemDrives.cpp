#include "base/SystemDrives.h"

#ifdef _WIN32
#include <array>
#include <windows.h>
#endif

namespace KOLT::System {

#ifdef _WIN32

QByteArray removableDrives()
{
    // Else the system itself would ask the user for a medium.
    DWORD before = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before);
    QByteArray table;
    const DWORD letters = GetLogicalDrives();
    for (int i = 2; i < 26; ++i) { // not A and B: a floppy drive takes seconds to answer
        const std::array<wchar_t, 4> root{static_cast<wchar_t>(L'A' + i), L':', L'\\', L'\0'};
        if ((letters >> i & 1U) == 0 || GetDriveTypeW(root.data()) != DRIVE_REMOVABLE)
            continue;
        std::array<wchar_t, MAX_PATH + 1> label{};
        if (GetVolumeInformationW(root.data(), label.data(), static_cast<DWORD>(label.size()),
                                  nullptr, nullptr, nullptr, nullptr, 0) == 0)
            continue; // nothing in it
        const QByteArray name = QString::fromWCharArray(label.data()).toUtf8();
        table += "drive " + QByteArray(1, static_cast<char>('A' + i)) + ":/ " +
                 QByteArray(name).replace('\\', "\\134").replace(' ', "\\040") + " 0\n";
    }
    SetThreadErrorMode(before, nullptr);
    return table;
}

bool isNetworkDrive(const QString& path)
{
    if (path.size() < 2 || path.at(1) != QLatin1Char(':'))
        return false;
    const std::wstring root = path.left(2).toStdWString() + L'\\';
    return GetDriveTypeW(root.c_str()) == DRIVE_REMOTE;
}

#else

QByteArray removableDrives()
{
    return {};
}

bool isNetworkDrive(const QString& /*path*/)
{
    return false;
}

#endif

} // namespace KOLT::System
