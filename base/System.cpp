#include "base/System.h"

#include <QFile>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#include <direct.h>
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#endif

namespace KOLT::System {

std::optional<double> availableMemory()
{
#ifdef _WIN32
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof(status);
    return GlobalMemoryStatusEx(&status) != 0
               ? std::optional(static_cast<double>(status.ullAvailPhys))
               : std::nullopt;
#else
    QFile info(QStringLiteral("/proc/meminfo"));
    if (!info.open(QIODevice::ReadOnly))
        return std::nullopt;
    for (const QByteArray& line : info.readAll().split('\n')) {
        if (line.startsWith("MemAvailable:"))
            return line.simplified().split(' ').value(1).toDouble() * 1024.0;
    }
    return std::nullopt;
#endif
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

std::optional<std::string> readPassword([[maybe_unused]] const std::string& prompt)
{
#ifdef _WIN32
    return std::nullopt; // nothing there has a password
#else
    const int terminal = open("/dev/tty", O_RDWR | O_CLOEXEC);
    termios shown{};
    if (terminal < 0 || tcgetattr(terminal, &shown) != 0) {
        if (terminal >= 0)
            close(terminal);
        return std::nullopt;
    }
    termios hidden = shown;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(terminal, TCSAFLUSH, &hidden);
    std::string answer;
    bool isWhole = write(terminal, prompt.data(), prompt.size()) >= 0;
    for (char letter = 0; isWhole && letter != '\n';) {
        isWhole = read(terminal, &letter, 1) == 1;
        if (isWhole && letter != '\n')
            answer += letter;
    }
    tcsetattr(terminal, TCSAFLUSH, &shown);
    isWhole = write(terminal, "\n", 1) == 1 && isWhole;
    close(terminal);
    return isWhole ? std::optional(answer) : std::nullopt;
#endif
}

const char* fontPlatform()
{
#ifdef _WIN32
    return "windows"; // there "offscreen" has no fonts but its own
#else
    return "offscreen";
#endif
}

void prepareConsole()
{
#ifdef _WIN32
    static UINT former = 0;
    former = GetConsoleOutputCP(); // 0 where there is no console
    if (former != 0 && former != CP_UTF8 && SetConsoleOutputCP(CP_UTF8) != 0) {
        std::atexit([] {
            std::fflush(stdout); // which otherwise follows
            SetConsoleOutputCP(former);
        });
    }
    // Otherwise the C library may translate what goes to a console, or write it byte by byte, so
    // that letters of several bytes are lost. A console takes "\n" as it is.
    constexpr std::size_t bufferSize = 0x10000;
    for (std::FILE* const stream : {stdout, stderr}) {
        if (_isatty(_fileno(stream)) != 0) {
            _setmode(_fileno(stream), _O_BINARY);
            std::setvbuf(stream, nullptr, _IOFBF, bufferSize);
        }
    }
#endif
}

void prepareDataOutput()
{
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#else
    std::signal(SIGPIPE, SIG_IGN);
#endif
}

} // namespace KOLT::System
