#pragma once

#include <functional>
#include <string_view>

/// The program's diagnostic output: printf-style lines, without levels.
///
/// All text goes through one sink, by default the standard output. Programs that write data to the
/// standard output (kolt-cli) redirect the sink to the standard error. For any thread; a sink must
/// not print.
namespace KOLT::Diagnostics {

using Sink = std::function<void(std::string_view text)>;

/// Formats like printf and passes the text to the sink. No line feed is added.
[[gnu::format(printf, 1, 2)]] void print(const char* format, ...);

/// Replaces the sink and returns the previous one. An empty sink stands for the standard output.
Sink setSink(Sink sink);

/// Sinks for the two standard streams.
void toStandardOutput(std::string_view text);
void toStandardError(std::string_view text);

} // namespace KOLT::Diagnostics
