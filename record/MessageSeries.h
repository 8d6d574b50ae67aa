#pragma once

#include "record/IndexIterator.h"
#include "record/StoredSample.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace KOLT {

/// The samples of one message identifier, in the order in which they were recorded. Times need not
/// ascend. References to samples are valid until the next append or removal.
///
/// Samples are kept in chunks, so that growing a long series does not copy them.
class MessageSeries
{
public:
    using Iterator = IndexIterator<MessageSeries, const StoredSample&>;

    /// Consecutive samples, for a range-based loop.
    struct Range
    {
        Iterator first;
        Iterator last;

        Iterator begin() const { return first; }

        Iterator end() const { return last; }

        std::size_t size() const { return static_cast<std::size_t>(last - first); }
    };

    std::size_t size() const
    {
        return m_chunks.empty() ? 0 : (m_chunks.size() - 1) * chunkSamples + m_chunks.back().size();
    }

    bool empty() const { return size() == 0; }

    const StoredSample& operator[](std::size_t index) const
    {
        return m_chunks[index / chunkSamples][index % chunkSamples];
    }

    Iterator begin() const { return {*this, 0}; }

    Iterator end() const { return {*this, size()}; }

    /// The sample appended last; the series must not be empty.
    const StoredSample& last() const { return (*this)[size() - 1]; }

    /// Appends a sample for the caller to fill. Throws std::bad_alloc and leaves the series
    /// unchanged.
    StoredSample& append()
    {
        if (m_chunks.empty() || m_chunks.back().size() == chunkSamples)
            addChunk();
        return m_chunks.back().emplace_back();
    }

    /// The first sample in stored order at or after `seconds`; null if there is none, or from
    /// maxTimeSlots seconds on. The first call builds an index; then O(log seconds + samples per
    /// second) if times ascend.
    const StoredSample* firstAtOrAfter(double seconds) const;

    /// The latest sample before `seconds`, of equal times the one stored last; null if there is
    /// none. O(log samples) if times ascend, after the first call; otherwise O(samples).
    const StoredSample* lastBefore(double seconds) const;

    /// Samples that include all within [start, end]: exactly these if times ascend, otherwise the
    /// whole series.
    Range around(double start, double end) const;

    /// Removes the samples for which the predicate is true; the others keep their order.
    template <typename Predicate>
    void removeIf(Predicate&& isDropped)
    {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < size(); ++i) {
            if (!isDropped((*this)[i]))
                at(kept++) = (*this)[i];
        }
        shrink(kept);
    }

private:
    static constexpr std::size_t chunkSamples = 65'536;

    /// Position of the first sample of a second. Stored only for seconds that have samples and come
    /// after all previous ones.
    struct SecondEntry
    {
        std::uint32_t second = 0;
        std::size_t position = 0;
    };

    StoredSample& at(std::size_t index)
    {
        return m_chunks[index / chunkSamples][index % chunkSamples];
    }

    void addChunk();
    void shrink(std::size_t size);
    void buildIndex() const;

    /// All but the last are full, and none is empty but after an append that threw.
    std::vector<std::vector<StoredSample>> m_chunks;
    mutable std::vector<SecondEntry> m_index;
    mutable std::size_t m_indexedSize = 0; ///< size() when the index was built
    mutable bool m_ascending = true;       ///< whether times ascend; part of the index
};

} // namespace KOLT
