#include "record/SampleSpan.h"

#include "record/TimeSlots.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace KOLT {

namespace {

constexpr std::uint64_t blockSamples = 1U << 17;
constexpr double noTime = std::numeric_limits<double>::quiet_NaN();

void widen(std::optional<SampleSpan>& span, double seconds)
{
    if (!span)
        span = {seconds, seconds};
    span->first = std::min(span->first, seconds);
    span->last = std::max(span->last, seconds);
}

/// See straySeconds. `before` and `after` may be noTime.
bool isStray(double before, double seconds, double after)
{
    const auto fits = [](double from, double to) {
        return to - from <= straySeconds && to - from >= -disorderSeconds;
    };
    const bool hasReturned =
        std::abs(after - before) <= disorderSeconds && std::abs(seconds - before) > disorderSeconds;
    return hasReturned || (!fits(before, seconds) && !fits(seconds, after));
}

/// Finds the span of times that are added in recording order.
class SpanFinder
{
public:
    void add(double seconds)
    {
        look(seconds);
        m_before = std::exchange(m_seconds, seconds);
    }

    /// If all times are strays, their span.
    std::optional<SampleSpan> finish()
    {
        look(noTime);
        return m_sound ? m_sound : m_all;
    }

private:
    void look(double after)
    {
        if (std::isnan(m_seconds))
            return;
        widen(m_all, m_seconds);
        if (!isStray(m_before, m_seconds, after))
            widen(m_sound, m_seconds);
    }

    double m_before = noTime;
    double m_seconds = noTime;
    std::optional<SampleSpan> m_all;
    std::optional<SampleSpan> m_sound;
};

/// Calls function(seconds) for all samples in recording order. Merges the series block by block, so
/// that memory does not grow with the recording.
template <typename Function>
void forEachTime(const MessageMap& messages, Function&& function)
{
    std::vector<MessageSeries::Range> left;
    for (const auto& [id, series] : messages.all())
        left.push_back({series.begin(), series.end()});
    std::vector<double> times(blockSamples);
    for (std::uint64_t block = 0; block < messages.nextSequence(); block += blockSamples) {
        std::ranges::fill(times, noTime);
        for (auto& [next, end] : left) {
            for (; next != end && next->sequence < block + blockSamples; ++next)
                times[next->sequence - block] = next->seconds();
        }
        for (const double seconds : times) {
            if (seconds < maxGridSeconds)
                function(seconds);
        }
    }
}

/// The earliest and the latest sample; null if no time is usable.
struct Extremes
{
    const StoredSample* first = nullptr;
    const StoredSample* last = nullptr;
};

Extremes extremesOf(const MessageMap& messages)
{
    Extremes found;
    std::uint64_t least = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t most = 0;
    for (const auto& [id, series] : messages.all()) {
        for (const StoredSample& sample : series) {
            const std::uint64_t ticks = sample.ticks();
            if (ticks >= least && ticks <= most)
                continue; // skips nearly all samples before the costly conversion
            if (!(sample.seconds() < maxGridSeconds))
                continue;
            if (ticks < least || found.first == nullptr) {
                found.first = &sample;
                least = ticks;
            }
            if (ticks > most || found.last == nullptr) {
                found.last = &sample;
                most = ticks;
            }
        }
    }
    return found;
}

/// The sample with a sequence number; null if it was not kept.
const StoredSample* sampleAt(const MessageMap& messages, std::uint32_t sequence)
{
    for (const auto& [id, series] : messages.all()) {
        const auto found = std::ranges::lower_bound(series, sequence, {}, &StoredSample::sequence);
        if (found != series.end() && found->sequence == sequence)
            return &*found;
    }
    return nullptr;
}

bool isStray(const MessageMap& messages, const StoredSample& sample)
{
    const auto timeAt = [&](std::uint32_t sequence) {
        const StoredSample* const neighbour = sampleAt(messages, sequence);
        return neighbour != nullptr ? neighbour->seconds() : noTime;
    };
    return isStray(timeAt(sample.sequence - 1), sample.seconds(), timeAt(sample.sequence + 1));
}

std::optional<SampleSpan> spanOf(const MessageMap& messages)
{
    const auto [first, last] = extremesOf(messages);
    if (first == nullptr)
        return {};
    // True for intact recordings; the pass in recording order takes several times as long.
    if (!isStray(messages, *first) && !isStray(messages, *last))
        return SampleSpan{first->seconds(), last->seconds()};
    SpanFinder finder;
    forEachTime(messages, [&](double seconds) { finder.add(seconds); });
    return finder.finish();
}

} // namespace

std::optional<SampleSpan> sampleSpan(const DataSet& dataSet)
{
    std::optional<SampleSpan> span = spanOf(dataSet.messages);
    if (!span || !dataSet.flightIndex)
        return span;
    // The flight's own times, unless they are strays.
    const auto closeTo = [](double sampled, double wanted) {
        return std::abs(wanted - sampled) <= straySeconds ? wanted : sampled;
    };
    span = {closeTo(span->first, dataSet.startSeconds), closeTo(span->last, dataSet.stopSeconds)};
    return span;
}

} // namespace KOLT
