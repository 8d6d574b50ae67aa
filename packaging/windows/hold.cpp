// hold.exe FILE MILLISECONDS: keeps a file open so that nobody else can replace it, as a virus
// scanner does. Prints a line when it has it. For packaging/windows/check.
#include <cstdio>
#include <cstdlib>
#include <windows.h>

int wmain(int argc, wchar_t** argv)
{
    if (argc != 3)
        return 2;
    const HANDLE file =
        CreateFileW(argv[1], GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return 1;
    std::puts("held");
    std::fflush(stdout);
    Sleep(static_cast<DWORD>(_wtoi(argv[2])));
    CloseHandle(file);
    return 0;
}
