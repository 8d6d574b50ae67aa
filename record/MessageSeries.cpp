#include "record/MessageSeries.h"

#include "record/TimeSlots.h"

#include <algorithm>
#include <new>
#include <type_traits>

namespace KOLT {

void MessageSeries::grow()
{
    static_assert(std::is_trivially_copyable_v<StoredSample>);
    const std::size_t capacity = std::max<std::size_t>(4, m_capacity * 2);
    // realloc moves pages, not bytes, once a series is large; untouched pages cost nothing.
    void* samples = std::realloc(m_samples.get(), capacity * sizeof(StoredSample));
    if (samples == nullptr)
        throw std::bad_alloc();
    static_cast<void>(m_samples.release());
    m_samples.reset(static_cast<StoredSample*>(samples));
    m_capacity = capacity;
}

void MessageSeries::buildIndex() const
{
    if (m_indexedSize == m_size)
        return;
    m_index.clear();
    m_ascending = true;
    double previous = 0.0;
    for (std::size_t i = 0; i < m_size; ++i) {
        const double seconds = (*this)[i].seconds();
        m_ascending = m_ascending && seconds >= previous;
        previous = seconds;
        if (seconds >= maxTimeSlots)
            continue;
        const auto second = static_cast<std::uint32_t>(seconds);
        if (m_index.empty() || second > m_index.back().second)
            m_index.push_back({second, i});
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
    const auto* const found =
        std::find_if(begin() + entry->position, end(),
                     [&](const StoredSample& sample) { return sample.seconds() >= seconds; });
    return found == end() ? nullptr : found;
}

std::span<const StoredSample> MessageSeries::around(double start, double end) const
{
    buildIndex();
    if (!m_ascending)
        return {this->begin(), this->end()};
    const auto* const first = std::partition_point(
        this->begin(), this->end(), [&](const StoredSample& s) { return s.seconds() < start; });
    const auto* const last = std::partition_point(
        first, this->end(), [&](const StoredSample& s) { return s.seconds() <= end; });
    return {first, last};
}

} // namespace KOLT
