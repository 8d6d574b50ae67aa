#pragma once

#include "record/MessageMap.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordBytes.h"

namespace KOLT::Test {

/// Appends a sample; the time is in seconds.
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
