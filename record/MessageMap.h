#pragma once

#include "profile/ProfileParameter.h"
#include "record/MessageSeries.h"
#include "record/TimeSlots.h"

#include <array>
#include <map>

namespace KOLT {

/// All samples of a data set, grouped by message identifier.
///
/// Samples of kind 0 and kind 1 stand once more, in recording order, under the identifiers
/// 0x7FFFFFFF and 0x7FFFFFFE. Those two series are put together only when somebody asks for them.
/// At most `maxIdentifiers` identifiers are kept: a bus has some hundred, a damaged file millions.
class MessageMap
{
public:
    static constexpr std::size_t maxIdentifiers = 65'536;

    MessageMap() = default;
    MessageMap(const MessageMap&) = delete;
    MessageMap& operator=(const MessageMap&) = delete;

    /// Adds a sample, numbers it and returns it; the caller fills in what is not given here. (A
    /// sample put together elsewhere and copied costs three times as much.) Null when it is left
    /// out. Throws std::bad_alloc when memory runs out.
    StoredSample* append(std::uint32_t id, std::uint32_t timeHigh, std::uint32_t timeLow)
    {
        CacheLine& line = m_cache[cachePlace(id)];
        if (line.series == nullptr || line.id != id) {
            MessageSeries* const series = findOrCreate(id);
            if (series == nullptr)
                return nullptr;
            line = {id, series};
        }
        StoredSample& sample = line.series->append();
        sample.timeHigh = timeHigh;
        sample.timeLow = timeLow;
        sample.id = id;
        sample.sequence = m_nextSequence++;
        if (timeHigh > lastGridHighWord)
            ++m_lateCount;
        return &sample;
    }

    void clear();

    /// The series of an identifier; an empty one when it has no samples. Valid until the map
    /// changes.
    const MessageSeries& series(std::uint32_t id) const;

    /// Series by ascending identifier, each sample once.
    const std::map<std::uint32_t, MessageSeries>& all() const { return m_series; }

    std::size_t sampleCount() const;

    /// Samples left out because their identifier was one too many.
    std::size_t droppedCount() const { return m_droppedCount; }

    /// Samples beyond maxGridSeconds, give or take a high word of the time stamp.
    std::size_t lateCount() const { return m_lateCount; }

    /// The sequence number that the next sample gets.
    std::uint32_t nextSequence() const { return m_nextSequence; }

    /// Takes back all samples from that sequence number on.
    void truncate(std::uint32_t sequence);

    /// Keeps only the samples within [start, end] seconds.
    void keepWindow(double start, double end);

    /// Becomes what keepWindow() would leave of the other map. O(samples within) where times
    /// ascend.
    void copyWindow(const MessageMap& other, double start, double end);

private:
    static constexpr auto lastGridHighWord =
        static_cast<std::uint32_t>(maxGridSeconds / RecordFormat::secondsPerHighWord);

    static constexpr int cacheBits = 9;

    /// Multiplicative hash: identifiers on a bus come in regular steps.
    static constexpr std::uint32_t cachePlace(std::uint32_t id)
    {
        return (id * 2654435769U) >> (32 - cacheBits);
    }

    struct CacheLine
    {
        std::uint32_t id = 0;
        MessageSeries* series = nullptr;
    };

    struct KindSeries
    {
        MessageSeries series;
        std::uint32_t builtFor = 0; ///< next sequence number when it was built; 0: not built
    };

    template <typename Predicate>
    void removeIf(Predicate&& isDropped);
    /// Null, and the sample is counted as dropped, when it is one identifier too many.
    MessageSeries* findOrCreate(std::uint32_t id);
    const MessageSeries& kindSeries(std::uint16_t kind) const;

    std::map<std::uint32_t, MessageSeries> m_series;
    std::array<CacheLine, 1U << cacheBits> m_cache{};
    mutable std::array<KindSeries, 2> m_kindSeries;
    std::size_t m_droppedCount = 0;
    std::size_t m_lateCount = 0;
    std::uint32_t m_nextSequence = 0;
};

/// The last sample of each message before a time, by identifier.
using SamplesBefore = std::map<std::uint32_t, StoredSample>;

/// The samples of the message that carries a parameter.
inline const MessageSeries& seriesOf(const MessageMap& messages, const ProfileParameter& parameter)
{
    return messages.series(static_cast<std::uint32_t>(parameter.id));
}

} // namespace KOLT
