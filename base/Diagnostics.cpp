#include "base/Diagnostics.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string>
#include <utility>

namespace KOLT::Diagnostics {

namespace {

Sink& currentSink()
{
    static Sink sink = toStandardOutput;
    return sink;
}

std::mutex& mutex()
{
    static std::mutex instance;
    return instance;
}

void send(std::string_view text)
{
    const std::lock_guard lock(mutex());
    currentSink()(text);
}

} // namespace

void print(const char* format, ...)
{
    std::array<char, 512> buffer{};
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(buffer.data(), buffer.size(), format, arguments);
    va_end(arguments);
    if (length >= 0 && static_cast<std::size_t>(length) < buffer.size()) {
        send(std::string_view(buffer.data(), static_cast<std::size_t>(length)));
    } else if (length >= 0) {
        std::string text(static_cast<std::size_t>(length) + 1, '\0');
        std::vsnprintf(text.data(), text.size(), format, again);
        text.pop_back();
        send(text);
    }
    va_end(again);
}

Sink setSink(Sink sink)
{
    if (!sink)
        sink = toStandardOutput;
    const std::lock_guard lock(mutex());
    return std::exchange(currentSink(), std::move(sink));
}

void toStandardOutput(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void toStandardError(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr); // has a buffer on Windows
}

} // namespace KOLT::Diagnostics
