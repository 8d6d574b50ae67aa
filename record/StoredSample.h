#pragma once

#include "profile/MessageData.h"
#include "record/RecordFormat.h"

#include <cstdint>

namespace KOLT {

/// One recorded bus message, in host byte order. Twenty hours of bus traffic are kept in memory, so
/// a sample has only 32 bytes: it stores the unit's ticks and computes seconds on demand.
struct StoredSample
{
    MessageData data{};
    std::uint32_t timeHigh = 0;
    std::uint32_t timeLow = 0;
    std::uint32_t id = 0;     ///< top bit cleared
    std::uint32_t word16 = 0; ///< bytes 16..19 of the sample, unused
    std::uint16_t kind = 0;
    std::uint8_t byte8 = 0;
    std::uint8_t byte9 = 0;
    std::uint32_t sequence = 0; ///< position in the loaded recording, from 0

    /// The time stamp as one number, in ticks of 31.25 ns.
    std::uint64_t ticks() const { return std::uint64_t{timeHigh} << 32 | timeLow; }

    /// Seconds on the unit's counter.
    double seconds() const { return RecordFormat::secondsOf(timeHigh, timeLow); }

    /// The time key that all views share.
    std::int64_t tenths() const { return RecordFormat::tenthsOf(seconds()); }
};

static_assert(sizeof(StoredSample) == 32);

} // namespace KOLT
