#include "graph/TraceFeeder.h"

#include "profile/PositionFilter.h"
#include "profile/ValueDecoder.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double gapFactor = 3.0;
constexpr double shortestGap = 1.0; ///< seconds
constexpr int mostDecimals = 3;

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
    trace.clear();
    trace.reserve(series.size());
    const double gap = std::max(usualSpacing(series) * gapFactor, shortestGap);
    PositionFilter filter;
    double before = series.empty() ? 0.0 : series[0].seconds();
    for (const StoredSample& sample : series) {
        const double seconds = sample.seconds();
        double value = decodeNumber(sample.data, parameter, &filter);
        if (isConverted)
            value = value * source.factor + source.offset;
        trace.append(seconds, value, seconds - before > gap ? 0 : 1);
        before = seconds;
    }
}

} // namespace KOLT
