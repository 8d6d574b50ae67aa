#include "record/MessageMap.h"

#include <algorithm>

namespace KOLT {

MessageSeries* MessageMap::findOrCreate(std::uint32_t id)
{
    const auto found = m_series.find(id);
    if (found != m_series.end())
        return &found->second;
    if (m_series.size() < maxIdentifiers)
        return &m_series[id];
    ++m_droppedCount;
    return nullptr;
}

void MessageMap::clear()
{
    m_series.clear();
    m_cache = {};
    m_kindSeries = {};
    m_breaks = {};
    m_droppedCount = 0;
    m_lateCount = 0;
    m_nextSequence = 0;
}

std::size_t MessageMap::sampleCount() const
{
    std::size_t count = 0;
    for (const auto& [id, series] : m_series)
        count += series.size();
    return count;
}

const MessageSeries& MessageMap::series(std::uint32_t id) const
{
    static const MessageSeries none;
    if (id == RecordFormat::kind0Series)
        return kindSeries(0);
    if (id == RecordFormat::kind1Series)
        return kindSeries(1);
    const auto found = m_series.find(id);
    return found == m_series.end() ? none : found->second;
}

const MessageSeries& MessageMap::kindSeries(std::uint16_t kind) const
{
    KindSeries& slot = m_kindSeries[kind];
    if (slot.builtFor == m_nextSequence)
        return slot.series;
    const std::uint32_t ownId = kind == 0 ? RecordFormat::kind0Series : RecordFormat::kind1Series;
    std::vector<const StoredSample*> samples;
    for (const auto& [id, series] : m_series) {
        for (const StoredSample& sample : series) {
            if (id == ownId)
                samples.push_back(&sample);
            if (sample.kind == kind)
                samples.push_back(&sample);
        }
    }
    std::ranges::stable_sort(samples, {}, [](const StoredSample* s) { return s->sequence; });
    slot = {{}, m_nextSequence};
    for (const StoredSample* sample : samples)
        slot.series.append() = *sample;
    return slot.series;
}

template <typename Predicate>
void MessageMap::removeIf(Predicate&& isDropped)
{
    m_cache = {};
    m_kindSeries = {};
    for (auto it = m_series.begin(); it != m_series.end();) {
        it->second.removeIf(isDropped);
        it = it->second.empty() ? m_series.erase(it) : std::next(it);
    }
}

void MessageMap::truncate(std::uint32_t sequence)
{
    removeIf([&](const StoredSample& sample) { return sample.sequence >= sequence; });
    m_breaks.truncate(sequence);
    m_nextSequence = sequence;
}

void MessageMap::keepWindow(double start, double end)
{
    removeIf([&](const StoredSample& sample) {
        const double seconds = sample.seconds();
        return seconds < start || seconds > end;
    });
}

void MessageMap::copyWindow(const MessageMap& other, double start, double end)
{
    clear();
    for (const auto& [id, series] : other.m_series) {
        MessageSeries* copy = nullptr;
        for (const StoredSample& sample : series.around(start, end)) {
            if (sample.seconds() < start || sample.seconds() > end)
                continue;
            if (copy == nullptr)
                copy = &m_series[id];
            copy->append() = sample;
        }
    }
    m_breaks = other.m_breaks;
    m_droppedCount = other.m_droppedCount;
    m_lateCount = other.m_lateCount;
    m_nextSequence = other.m_nextSequence;
}

} // namespace KOLT
