#pragma once

#include "record/StoredSample.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

namespace KOLT {

/// The samples of one message identifier in stored order: a queue that grows at its end, in one
/// block of memory. References to samples hold until the next append. Times need not ascend.
class MessageSeries
{
public:
    std::size_t size() const { return m_size; }

    bool empty() const { return m_size == 0; }

    const StoredSample& operator[](std::size_t index) const { return m_samples.get()[index]; }

    const StoredSample* begin() const { return m_samples.get(); }

    const StoredSample* end() const { return m_samples.get() + m_size; }

    /// The most recent sample; the series must not be empty.
    const StoredSample& last() const { return m_samples.get()[m_size - 1]; }

    /// Throws std::bad_alloc when memory runs out; the series is then unchanged.
    void append(const StoredSample& sample)
    {
        if (m_size == m_capacity)
            grow();
        m_samples.get()[m_size++] = sample;
    }

    /// The first sample in stored order at or after `seconds`; null when there is none, or when the
    /// second lies at or beyond maxTimeSlots. O(log seconds + samples in one second) after the
    /// index was built by the first call.
    const StoredSample* firstAtOrAfter(double seconds) const;

    /// A run of samples that holds all those within [start, end]: only they when the times ascend,
    /// otherwise the whole series.
    std::span<const StoredSample> around(double start, double end) const;

    /// Drops all samples for which the predicate is true; the others keep their order.
    template <typename Predicate>
    void removeIf(Predicate&& isDropped)
    {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < m_size; ++i) {
            if (!isDropped(m_samples.get()[i]))
                m_samples.get()[kept++] = m_samples.get()[i];
        }
        m_size = kept;
        m_index.clear();
        m_indexedSize = 0;
    }

private:
    struct Free
    {
        void operator()(StoredSample* samples) const { std::free(samples); }
    };

    /// Where the samples at or after a whole second begin; only seconds that have samples.
    struct SecondEntry
    {
        std::uint32_t second = 0;
        std::size_t position = 0;
    };

    void grow();
    void buildIndex() const;

    std::unique_ptr<StoredSample, Free> m_samples;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    mutable std::vector<SecondEntry> m_index;
    mutable std::size_t m_indexedSize = 0; ///< size for which the index holds
    mutable bool m_ascending = true;       ///< valid with the index
};

} // namespace KOLT
