#pragma once

#include "record/MessageMap.h"

#include <bit>

namespace KOLT::Test {

/// The data bytes of two FLOAT values, at byte 0 and byte 4.
inline MessageData floats(float first, float second = 0.0F)
{
    MessageData data{};
    const std::uint32_t words[] = {std::bit_cast<std::uint32_t>(first),
                                   std::bit_cast<std::uint32_t>(second)};
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<unsigned char>(words[i / 4] >> (8 * (i % 4)));
    return data;
}

/// Appends a sample at a time in seconds.
inline void add(MessageMap& messages, std::uint32_t id, double seconds,
                const MessageData& data = {}, std::uint16_t kind = 7)
{
    const auto ticks = static_cast<std::uint64_t>(seconds * 32e6 + 0.5);
    StoredSample* const sample = messages.append(id, static_cast<std::uint32_t>(ticks >> 32),
                                                 static_cast<std::uint32_t>(ticks));
    if (sample != nullptr) {
        sample->kind = kind;
        sample->data = data;
    }
}

} // namespace KOLT::Test
