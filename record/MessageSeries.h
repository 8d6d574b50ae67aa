#pragma once

#include "record/StoredSample.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iterator>
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
    /// Forward iterator.
    class Iterator
    {
    public:
        using value_type = StoredSample;
        using difference_type = std::ptrdiff_t;
        using reference = const StoredSample&;
        using pointer = const StoredSample*;
        using iterator_category = std::forward_iterator_tag;

        Iterator() = default;

        Iterator(const MessageSeries& series, std::size_t index)
            : m_series(&series)
            , m_index(index)
        {
            enterChunk();
        }

        reference operator*() const { return *m_sample; }

        pointer operator->() const { return m_sample; }

        Iterator& operator++()
        {
            ++m_index;
            if (++m_sample == m_chunkEnd)
                enterChunk();
            return *this;
        }

        Iterator operator++(int)
        {
            Iterator before = *this;
            ++*this;
            return before;
        }

        bool operator==(const Iterator& other) const { return m_index == other.m_index; }

        std::size_t index() const { return m_index; }

    private:
        void enterChunk()
        {
            if (m_index >= m_series->m_size)
                return;
            m_sample = &(*m_series)[m_index];
            m_chunkEnd = m_sample + std::min(chunkSamples - m_index % chunkSamples,
                                             m_series->m_size - m_index);
        }

        const MessageSeries* m_series = nullptr;
        std::size_t m_index = 0;
        const StoredSample* m_sample = nullptr;
        const StoredSample* m_chunkEnd = nullptr;
    };

    /// Consecutive samples, for a range-based loop.
    struct Range
    {
        Iterator first;
        Iterator last;

        Iterator begin() const { return first; }

        Iterator end() const { return last; }

        std::size_t size() const { return last.index() - first.index(); }
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
    /// The first index for which the predicate is false; it must be true before and false after.
    template <typename Predicate>
    std::size_t partitionPoint(Predicate&& predicate) const;

    std::vector<Chunk> m_chunks; ///< all but the last are full
    std::size_t m_size = 0;
    StoredSample* m_next = nullptr;     ///< where the next sample goes
    StoredSample* m_chunkEnd = nullptr; ///< end of the last chunk
    mutable std::vector<SecondEntry> m_index;
    mutable std::size_t m_indexedSize = 0; ///< m_size when the index was built
    mutable bool m_ascending = true;       ///< whether times ascend; part of the index
};

} // namespace KOLT
