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

} // namespace

std::optional<SampleSpan> sampleSpan(const DataSet& dataSet)
{
    SpanFinder finder;
    forEachTime(dataSet.messages, [&](double seconds) { finder.add(seconds); });
    std::optional<SampleSpan> span = finder.span();
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
