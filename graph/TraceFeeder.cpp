#include "graph/TraceFeeder.h"

#include "profile/PositionFilter.h"
#include "profile/ValueDecoder.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double gapFactor = 3.0;
constexpr double shortestGap = 1.0; ///< seconds
constexpr double ticksPerSecond = 1e9 / RecordFormat::nanosecondsPerTick;
constexpr int mostDecimals = 3;

/// The unit's counter as it stands in the sample; seconds cost more than comparing needs.
std::int64_t ticksOf(const StoredSample& sample)
{
    return static_cast<std::int64_t>(sample.timeHigh) << 32 | sample.timeLow;
}

/// The middle one of the spacings, from some hundred of them all over the series.
double usualSpacing(const MessageSeries& series)
{
    constexpr std::size_t looks = 501;
    std::vector<double> spacings;
    const std::size_t step = std::max<std::size_t>(series.size() / looks, 1);
    for (std::size_t i = 1; i < series.size(); i += step)
        spacings.push_back(series[i].seconds() - series[i - 1].seconds());
    if (spacings.empty())
        return 0.0;
    const auto middle = spacings.begin() + static_cast<std::ptrdiff_t>(spacings.size() / 2);
    std::ranges::nth_element(spacings, middle);
    return *middle;
}

} // namespace

void feedTrace(Graph& graph, int index, const Profile& profile, const ProfileParameter& parameter,
               const DataSet& dataSet)
{
    if (!graph.hasTrace(index))
        return;
    GraphTrace& trace = graph.trace(index);
    graph.setVisible(index, true);
    graph.setName(index, parameter.name, profile.unitLabel(parameter));
    trace.decimals = std::min(parameter.precision, mostDecimals);
    if (parameter.rule != DecodingRule::Float)
        trace.decimals = 0;
    TraceSource& source = graph.source(index);
    source.parameter = &parameter;
    const bool isConverted = profile.isConverted(parameter);
    source.factor = isConverted ? parameter.conversion->factor : 1.0;
    source.offset = isConverted ? parameter.conversion->offset : 0.0;

    const MessageSeries& series = seriesOf(dataSet.messages, parameter);
    const double gap = std::max(usualSpacing(series) * gapFactor, shortestGap);
    SampleValues values(series.size());
    std::vector<std::uint32_t> gaps;
    PositionFilter filter;
    bool isAscending = true;
    const auto gapTicks = static_cast<std::int64_t>(gap * ticksPerSecond);
    std::int64_t before = series.empty() ? 0 : ticksOf(series[0]);
    double* place = values.data();
    for (const StoredSample& sample : series) {
        const std::int64_t ticks = ticksOf(sample);
        if (ticks - before > gapTicks)
            gaps.push_back(static_cast<std::uint32_t>(place - values.data()));
        isAscending = isAscending && ticks >= before;
        before = ticks;
        const double value = decodeNumber(sample.data, parameter, &filter);
        *place++ = isConverted ? value * source.factor + source.offset : value;
    }
    trace.setSamples(series, std::move(values), std::move(gaps), isAscending);
}

} // namespace KOLT
