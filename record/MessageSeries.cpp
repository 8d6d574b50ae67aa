#include "record/MessageSeries.h"

#include "base/System.h"
#include "record/TimeSlots.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <type_traits>

namespace KOLT {

static_assert(std::is_trivially_copyable_v<StoredSample>);

MessageSeries::Chunk MessageSeries::allocate(std::size_t samples)
{
    const std::size_t bytes = samples * sizeof(StoredSample); // NOLINT(bugprone-sizeof-expression)
    Chunk chunk(static_cast<StoredSample*>(
        samples == chunkSamples ? System::allocateHugePages(bytes) : std::malloc(bytes)));
    if (!chunk)
        throw std::bad_alloc();
    return chunk;
}

void MessageSeries::grow()
{
    const std::size_t inLast = m_size % chunkSamples;
    if (inLast == 0 && m_size > 0) {
        m_chunks.push_back(allocate(chunkSamples));
        m_next = m_chunks.back().get();
        m_chunkEnd = m_next + chunkSamples;
        return;
    }
    // The first chunk grows from a small size, as a bus has many rare messages.
    const std::size_t capacity = std::clamp<std::size_t>(m_size * 2, 4, chunkSamples);
    Chunk chunk = allocate(capacity);
    if (m_chunks.empty())
        m_chunks.emplace_back();
    else
        std::memcpy(chunk.get(), m_chunks.back().get(), m_size * sizeof(StoredSample));
    m_chunks.back() = std::move(chunk);
    m_next = m_chunks.back().get() + m_size;
    m_chunkEnd = m_chunks.back().get() + capacity;
}

void MessageSeries::shrink(std::size_t size)
{
    m_index.clear();
    m_indexedSize = 0;
    if (size == m_size)
        return;
    m_size = size;
    const std::size_t usedChunks =
        std::max<std::size_t>(1, (size + chunkSamples - 1) / chunkSamples);
    if (usedChunks < m_chunks.size()) {
        // The chunk that is last now has full size, unlike a growing first one.
        m_chunks.resize(usedChunks);
        m_chunkEnd = m_chunks.back().get() + chunkSamples;
    }
    m_next = m_chunks.back().get() + (size - (usedChunks - 1) * chunkSamples);
}

void MessageSeries::buildIndex() const
{
    if (m_indexedSize == m_size)
        return;
    m_index.clear();
    m_ascending = true;
    double previous = 0.0;
    std::size_t position = 0;
    for (const StoredSample& sample : *this) {
        const double seconds = sample.seconds();
        m_ascending = m_ascending && seconds >= previous;
        previous = seconds;
        if (seconds < maxTimeSlots) {
            const auto second = static_cast<std::uint32_t>(seconds);
            if (m_index.empty() || second > m_index.back().second)
                m_index.push_back({second, position});
        }
        ++position;
    }
    m_indexedSize = m_size;
}

const StoredSample* MessageSeries::firstAtOrAfter(double seconds) const
{
    if (!(seconds < maxTimeSlots))
        return nullptr;
    buildIndex();
    const auto second = static_cast<std::uint32_t>(std::max(0.0, seconds));
    const auto entry = std::ranges::lower_bound(m_index, second, {}, &SecondEntry::second);
    if (entry == m_index.end())
        return nullptr;
    const auto found = std::find_if(Iterator(*this, entry->position), end(),
                                    [&](const StoredSample& s) { return s.seconds() >= seconds; });
    return found != end() ? &*found : nullptr;
}

MessageSeries::Range MessageSeries::around(double start, double end) const
{
    buildIndex();
    if (!m_ascending)
        return {this->begin(), this->end()};
    const auto first = std::ranges::lower_bound(*this, start, {}, &StoredSample::seconds);
    const auto last = std::ranges::upper_bound(*this, end, {}, &StoredSample::seconds);
    return {first, std::max(first, last)};
}

const StoredSample* MessageSeries::lastBefore(double seconds) const
{
    buildIndex();
    if (m_ascending) {
        const auto behind = std::ranges::lower_bound(*this, seconds, {}, &StoredSample::seconds);
        return behind != begin() ? &*(behind - 1) : nullptr;
    }
    const StoredSample* last = nullptr;
    for (const StoredSample& sample : *this) {
        const double own = sample.seconds();
        if (own < seconds && (last == nullptr || own >= last->seconds()))
            last = &sample;
    }
    return last;
}

} // namespace KOLT
