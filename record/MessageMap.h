#pragma once

#include "profile/ProfileParameter.h"
#include "record/MessageSeries.h"
#include "record/TimeBreaks.h"
#include "record/TimeSlots.h"

#include <array>
#include <map>

namespace KOLT {

/// All samples of a data set, grouped by message identifier.
///
/// Samples of kind 0 and kind 1 are also found, in recording order, under the identifiers
/// 0x7FFFFFFF and 0x7FFFFFFE; these two series are built on first use. At most `maxIdentifiers`
/// identifiers are kept: a bus has some hundred, a damaged file may have millions.
class MessageMap
{
public:
    static constexpr std::size_t maxIdentifiers = 65'536;

    MessageMap() = default;
    MessageMap(const MessageMap&) = delete;
    MessageMap& operator=(const MessageMap&) = delete;

    /// Adds a sample, gives it the next sequence number and returns it; the caller must assign all
    /// other fields, which are uninitialised. (Copying a complete sample takes three times as
    /// long.) Null if the sample was dropped. Throws std::bad_alloc.
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
        m_breaks.note(timeHigh, timeLow, m_nextSequence, id);
        sample.sequence = m_nextSequence++;
        if (timeHigh > lastGridHighWord)
            ++m_lateCount;
        return &sample;
    }

    void clear();

    /// The series of an identifier, empty if there is none. Valid until the map changes.
    const MessageSeries& series(std::uint32_t id) const;

    /// All series by identifier, without the two by kind.
    const std::map<std::uint32_t, MessageSeries>& all() const { return m_series; }

    std::size_t sampleCount() const;

    /// Samples dropped because of `maxIdentifiers`.
    std::size_t droppedCount() const { return m_droppedCount; }

    /// Samples beyond maxGridSeconds, to the precision of the time stamp's high word (134 s).
    std::size_t lateCount() const { return m_lateCount; }

    /// Where times step from one sample to the next, as they were recorded.
    const std::vector<TimeBreak>& breaks() const { return m_breaks.all(); }

    /// The sequence number of the next sample.
    std::uint32_t nextSequence() const { return m_nextSequence; }

    /// Removes all samples from this sequence number on.
    void truncate(std::uint32_t sequence);

    /// Removes all samples outside [start, end] seconds.
    void keepWindow(double start, double end);

    /// Replaces the content by the samples of another map within [start, end] seconds. O(samples
    /// within) if times ascend.
    void copyWindow(const MessageMap& other, double start, double end);

private:
    static constexpr auto lastGridHighWord =
        static_cast<std::uint32_t>(maxGridSeconds / RecordFormat::secondsPerHighWord);

    static constexpr int cacheBits = 9;

    /// Multiplicative hash, as identifiers on a bus tend to have regular steps.
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
        std::uint32_t builtFor = 0; ///< nextSequence() when it was built; 0: not built
    };

    template <typename Predicate>
    void removeIf(Predicate&& isDropped);
    /// Null if there are `maxIdentifiers` others; counts the sample as dropped then.
    MessageSeries* findOrCreate(std::uint32_t id);
    const MessageSeries& kindSeries(std::uint16_t kind) const;

    std::map<std::uint32_t, MessageSeries> m_series;
    std::array<CacheLine, 1U << cacheBits> m_cache{};
    mutable std::array<KindSeries, 2> m_kindSeries;
    TimeBreaks m_breaks;
    std::size_t m_droppedCount = 0;
    std::size_t m_lateCount = 0;
    std::uint32_t m_nextSequence = 0;
};

/// The last sample of each message before a time, by identifier.
using SamplesBefore = std::map<std::uint32_t, StoredSample>;

/// The series of the message that carries a parameter.
inline const MessageSeries& seriesOf(const MessageMap& messages, const ProfileParameter& parameter)
{
    return messages.series(static_cast<std::uint32_t>(parameter.id));
}

} // namespace KOLT
