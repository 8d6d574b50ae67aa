#pragma once

#include <functional>
#include <string_view>

/// The program's one way of saying what it does: printf-style lines, without levels.
///
/// All text goes through a single sink. It starts as the standard output; a program whose standard
/// output carries data (kolt-cli) points it at the standard error instead. GUI thread only.
namespace KOLT::Diagnostics {

using Sink = std::function<void(std::string_view text)>;

/// Formats like printf and hands the text to the sink. Texts bring their own "\n".
[[gnu::format(printf, 1, 2)]] void print(const char* format, ...);

/// Replaces the sink and returns the one before it. An empty sink stands for the standard output.
Sink setSink(Sink sink);

/// Sinks for the two standard streams.
void toStandardOutput(std::string_view text);
void toStandardError(std::string_view text);

} // namespace KOLT::Diagnostics
