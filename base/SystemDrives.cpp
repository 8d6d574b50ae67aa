#include "base/SystemDrives.h"

#ifdef _WIN32
#include <QString>

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

#else

QByteArray removableDrives()
{
    return {};
}

#endif

} // namespace KOLT::System
