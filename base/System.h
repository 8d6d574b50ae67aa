#pragma once

#include <optional>
#include <string>

/// Calls to the operating system for what neither C++ nor Qt offers. Each function works on every
/// system.
namespace KOLT::System {

/// Memory that can still be allocated, in bytes; none where the system does not tell.
std::optional<double> availableMemory();

/// The current working directory in the system's own encoding; empty where it is gone or longer
/// than 255 bytes.
std::string workingDirectory();

/// Asks at the terminal without showing the answer; none where there is no terminal, or the user
/// ends the input.
std::optional<std::string> readPassword(const std::string& prompt);

/// The toolkit's platform (QT_QPA_PLATFORM) that has the system's fonts and shows nothing by
/// itself. It needs no display where programs may be started without one.
const char* fontPlatform();

/// For programs of the command line, before they write: a console that has an encoding of its own
/// shows their UTF-8 as long as they run.
void prepareConsole();

/// For programs that write data to the standard output: the bytes go out as they are, and a reader
/// that went away makes a write fail (EPIPE) instead of ending the program.
void prepareDataOutput();

} // namespace KOLT::System
