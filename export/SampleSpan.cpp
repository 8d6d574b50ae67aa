#include "export/SampleSpan.h"

#include "record/TimeSlots.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
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

/// Is told times in the order of the recording.
class SpanFinder
{
public:
    void add(double seconds)
    {
        widen(m_all, seconds);
        if (std::abs(seconds - m_before) <= straySeconds) {
            widen(m_close, m_before);
            widen(m_close, seconds);
        }
        m_before = seconds;
    }

    /// A few samples that all lie far from each other are all there is.
    std::optional<SampleSpan> span() const { return m_close ? m_close : m_all; }

private:
    double m_before = noTime;
    std::optional<SampleSpan> m_all;
    std::optional<SampleSpan> m_close; ///< of the times that have one close to them
};

/// Calls function(seconds) for all samples as they were recorded. The series are laid side by side
/// block by block: memory does not grow with the recording.
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

/// The earliest and the latest sample; null where no time is usable.
struct Extremes
{
    const StoredSample* first = nullptr;
    const StoredSample* last = nullptr;
};

std::uint64_t ticksOf(const StoredSample& sample)
{
    return std::uint64_t{sample.timeHigh} << 32 | sample.timeLow;
}

Extremes extremesOf(const MessageMap& messages)
{
    Extremes found;
    std::uint64_t least = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t most = 0;
    for (const auto& [id, series] : messages.all()) {
        for (const StoredSample& sample : series) {
            const std::uint64_t ticks = ticksOf(sample);
            if (ticks >= least && ticks <= most)
                continue; // nearly all of them
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

/// The sample recorded at that place; null when it was not kept.
const StoredSample* sampleAt(const MessageMap& messages, std::uint32_t sequence)
{
    for (const auto& [id, series] : messages.all()) {
        std::size_t from = 0;
        for (std::size_t to = series.size(); from < to;) {
            const std::size_t middle = from + (to - from) / 2;
            if (series[middle].sequence < sequence)
                from = middle + 1;
            else
                to = middle;
        }
        if (from < series.size() && series[from].sequence == sequence)
            return &series[from];
    }
    return nullptr;
}

bool isCloseToNeighbour(const MessageMap& messages, const StoredSample& sample)
{
    for (const std::uint32_t sequence : {sample.sequence - 1, sample.sequence + 1}) {
        const StoredSample* const neighbour = sampleAt(messages, sequence);
        if (neighbour != nullptr && neighbour->seconds() < maxGridSeconds &&
            std::abs(neighbour->seconds() - sample.seconds()) <= straySeconds)
            return true;
    }
    return false;
}

std::optional<SampleSpan> spanOf(const MessageMap& messages)
{
    const auto [first, last] = extremesOf(messages);
    if (first == nullptr)
        return {};
    // So it is in sound recordings; looking at all in their order takes several times as long.
    if (isCloseToNeighbour(messages, *first) && isCloseToNeighbour(messages, *last))
        return SampleSpan{first->seconds(), last->seconds()};
    SpanFinder finder;
    forEachTime(messages, [&](double seconds) { finder.add(seconds); });
    return finder.span();
}

} // namespace

std::optional<SampleSpan> sampleSpan(const DataSet& dataSet)
{
    std::optional<SampleSpan> span = spanOf(dataSet.messages);
    if (!span || !dataSet.flightIndex)
        return span;
    // The flight's own times, unless they are strays themselves.
    const auto closeTo = [](double sampled, double wanted) {
        return std::abs(wanted - sampled) <= straySeconds ? wanted : sampled;
    };
    span = {closeTo(span->first, dataSet.startSeconds), closeTo(span->last, dataSet.stopSeconds)};
    return span;
}

} // namespace KOLT
