#include "record/MessageSeries.h"

#include "record/TimeSlots.h"

#include <algorithm>

namespace KOLT {

void MessageSeries::addChunk()
{
    const bool isFirst = m_chunks.empty();
    m_chunks.emplace_back();
    // The first chunk grows from a small size, as a bus has many rare messages.
    if (!isFirst)
        m_chunks.back().reserve(chunkSamples);
}

void MessageSeries::shrink(std::size_t size)
{
    m_index.clear();
    m_indexedSize = 0;
    m_chunks.resize((size + chunkSamples - 1) / chunkSamples);
    if (size > 0)
        m_chunks.back().resize(size - (m_chunks.size() - 1) * chunkSamples);
}

void MessageSeries::buildIndex() const
{
    if (m_indexedSize == size())
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
    m_indexedSize = size();
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
