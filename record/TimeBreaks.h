#pragma once

#include <cstdint>
#include <vector>

namespace KOLT {

/// A place in the recording at which the time steps back or ahead by more than two seconds from
/// one sample to the next, whatever their messages.
struct TimeBreak
{
    std::uint64_t before = 0;   ///< ticks of the sample before
    std::uint64_t after = 0;    ///< ticks of the sample
    std::uint32_t sequence = 0; ///< of the sample behind the break
    std::uint32_t id = 0;       ///< its message
};

/// Notes the breaks of a recording as its samples come in, which costs next to nothing there: to
/// look for them later takes another walk through all samples, in the order of the recording.
class TimeBreaks
{
public:
    static constexpr std::uint64_t breakTicks = 64'000'000; ///< 2 s
    /// A sound recording has a handful, a damaged file one at each sample.
    static constexpr std::size_t maxBreaks = 4096;

    void note(std::uint32_t high, std::uint32_t low, std::uint32_t sequence, std::uint32_t id)
    {
        const std::uint64_t ticks = std::uint64_t{high} << 32 | low;
        // Unsigned: a step back of more than the limit is a large number as well.
        if (ticks - m_last + breakTicks > 2 * breakTicks && m_breaks.size() < maxBreaks)
            m_breaks.push_back({m_last, ticks, sequence, id});
        m_last = ticks;
    }

    /// In the order of the recording.
    const std::vector<TimeBreak>& all() const { return m_breaks; }

    /// Takes back the breaks from that sequence number on.
    void truncate(std::uint32_t sequence)
    {
        std::erase_if(m_breaks, [&](const TimeBreak& b) { return b.sequence >= sequence; });
    }

private:
    std::uint64_t m_last = 0;
    std::vector<TimeBreak> m_breaks;
};

} // namespace KOLT
