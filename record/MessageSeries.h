#pragma once

#include "record/IndexIterator.h"
#include "record/StoredSample.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <vector>

namespace KOLT {

/// The samples of one message identifier, in the order in which they were recorded. Times need not
/// ascend. References to samples are valid until the next append or removal.
///
/// Samples are kept in chunks, so that growing does not copy them. A chunk is the size of a huge
/// page: faulting in half a gigabyte in small pages takes longer than reading the file.
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

    std::size_t size() const { return m_size; }

    bool empty() const { return m_size == 0; }

    const StoredSample& operator[](std::size_t index) const
    {
        return m_chunks[index / chunkSamples].get()[index % chunkSamples];
    }

    Iterator begin() const { return {*this, 0}; }

    Iterator end() const { return {*this, m_size}; }

    /// The sample appended last; the series must not be empty.
    const StoredSample& last() const { return (*this)[m_size - 1]; }

    /// Appends an uninitialised sample for the caller to fill. Throws std::bad_alloc and leaves the
    /// series unchanged.
    StoredSample& append()
    {
        if (m_next == m_chunkEnd)
            grow();
        ++m_size;
        return *m_next++;
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
        for (std::size_t i = 0; i < m_size; ++i) {
            if (!isDropped((*this)[i]))
                at(kept++) = (*this)[i];
        }
        shrink(kept);
    }

private:
    static constexpr std::size_t chunkSamples = 65'536;

    struct Free
    {
        void operator()(StoredSample* samples) const { std::free(samples); }
    };

    using Chunk = std::unique_ptr<StoredSample, Free>;

    /// Position of the first sample of a second. Stored only for seconds that have samples and come
    /// after all previous ones.
    struct SecondEntry
    {
        std::uint32_t second = 0;
        std::size_t position = 0;
    };

    static Chunk allocate(std::size_t samples);

    StoredSample& at(std::size_t index)
    {
        return m_chunks[index / chunkSamples].get()[index % chunkSamples];
    }

    void grow();
    void shrink(std::size_t size);
    void buildIndex() const;

    std::vector<Chunk> m_chunks; ///< all but the last are full
    std::size_t m_size = 0;
    StoredSample* m_next = nullptr;     ///< where the next sample goes
    StoredSample* m_chunkEnd = nullptr; ///< end of the last chunk
    mutable std::vector<SecondEntry> m_index;
    mutable std::size_t m_indexedSize = 0; ///< m_size when the index was built
    mutable bool m_ascending = true;       ///< whether times ascend; part of the index
};

} // namespace KOLT
