#include "graph/TraceFeeder.h"

#include "profile/ValueDecoder.h"
#include "record/RoleSeries.h"
#include "record/TimeOrdered.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr std::int64_t gapFactor = 3;
constexpr auto shortestGap =
    static_cast<std::int64_t>(1e9 / RecordFormat::nanosecondsPerTick); ///< a second in ticks
constexpr int mostDecimals = 3;

/// The raw counter of the sample: for comparing, converting to seconds would cost more.
std::int64_t ticksOf(const StoredSample& sample)
{
    return static_cast<std::int64_t>(sample.ticks());
}

/// The median spacing in ticks, estimated from about 500 places of the series.
std::int64_t usualSpacing(const MessageSeries& series)
{
    constexpr std::size_t looks = 501;
    std::vector<std::int64_t> spacings;
    const std::size_t step = std::max<std::size_t>(series.size() / looks, 1);
    for (std::size_t i = 1; i < series.size(); i += step)
        spacings.push_back(ticksOf(series[i]) - ticksOf(series[i - 1]));
    if (spacings.empty())
        return 0;
    const auto middle = spacings.begin() + static_cast<std::ptrdiff_t>(spacings.size() / 2);
    std::ranges::nth_element(spacings, middle);
    return *middle;
}

/// The times of the series if another trace already has them, else null.
std::shared_ptr<SampleTimes> knownTimes(const Graph& graph, const MessageSeries& series)
{
    for (int i = 0; i < graph.traceCount(); ++i) {
        const auto& times = graph.trace(i).times();
        if (times->series() == &series && times->size() == series.size())
            return times;
    }
    return nullptr;
}

/// Decodes all values and finds the gaps, and whether times ascend, in one pass.
template <typename Decode>
std::shared_ptr<SampleTimes> walk(const MessageSeries& series, SampleValues& values,
                                  Decode&& decode)
{
    // A longer spacing is a gap.
    const std::int64_t usual = std::max(gapFactor * usualSpacing(series), shortestGap - 1);
    std::vector<std::uint32_t> gaps;
    bool isAscending = true;
    std::int64_t before = series.empty() ? 0 : ticksOf(series[0]);
    double* place = values.data();
    for (const StoredSample& sample : series) {
        const std::int64_t ticks = ticksOf(sample);
        if (ticks - before > usual)
            gaps.push_back(static_cast<std::uint32_t>(place - values.data()));
        isAscending = isAscending && ticks >= before;
        before = ticks;
        *place++ = decode(sample);
    }
    return std::make_shared<SampleTimes>(series, std::move(gaps), isAscending);
}

/// Stores the samples in order of time: otherwise one stray time stamp would hide all samples
/// after it.
void feedSorted(GraphTrace& trace, const MessageSeries& series, const SampleValues& values)
{
    const TimeOrdered samples(series);
    const std::int64_t usual = std::max(gapFactor * usualSpacing(series), shortestGap - 1);
    trace.reserve(samples.size());
    std::int64_t before = ticksOf(samples[0]);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::int64_t ticks = ticksOf(samples[i]);
        trace.append(samples[i].seconds(), values[samples.storedIndex(i)],
                     ticks - before > usual ? SampleMark::AfterGap : SampleMark::Joined);
        before = ticks;
    }
}

/// Sets everything the trace shows of its parameter except the samples.
void describeTrace(Graph& graph, int index, const Profile& profile,
                   const ProfileParameter& parameter)
{
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
}

} // namespace

void feedTrace(Graph& graph, int index, const Profile& profile, const ProfileParameter& parameter,
               const DataSet& dataSet)
{
    if (!graph.hasTrace(index))
        return;
    describeTrace(graph, index, profile, parameter);
    GraphTrace& trace = graph.trace(index);
    trace.clear();
    const TraceSource source = graph.source(index);
    PositionFilter filter = positionFilterFor(profile, dataSet.messages, parameter);
    const auto decode = [&](const StoredSample& sample) {
        const double value = decodeNumber(sample.data, parameter, &filter);
        return plottable(value * source.factor + source.offset);
    };
    const MessageSeries& series = seriesOf(dataSet.messages, parameter);
    SampleValues values(series.size());
    std::shared_ptr<SampleTimes> times = knownTimes(graph, series);
    if (times != nullptr)
        std::ranges::transform(series.begin(), series.end(), values.begin(), decode);
    else
        times = walk(series, values, decode);
    if (times->isAscending())
        trace.setSamples(std::move(times), std::move(values));
    else
        feedSorted(trace, series, values);
}

void feedTraceWithin(Graph& graph, int index, const Profile& profile,
                     const ProfileParameter& parameter, const DataSet& dataSet,
                     const TimeRange& range)
{
    describeTrace(graph, index, profile, parameter);
    GraphTrace& trace = graph.trace(index);
    trace.clear();
    const TraceSource source = graph.source(index);
    const MessageSeries& series = seriesOf(dataSet.messages, parameter);
    std::vector<const StoredSample*> samples;
    for (const StoredSample& sample : series.around(range.start, range.end)) {
        if (sample.seconds() >= range.start && sample.seconds() <= range.end)
            samples.push_back(&sample);
    }
    std::ranges::stable_sort(samples, {}, [](const StoredSample* each) { return ticksOf(*each); });
    const std::int64_t usual = std::max(gapFactor * usualSpacing(series), shortestGap - 1);
    std::int64_t before = samples.empty() ? 0 : ticksOf(*samples.front());
    for (const StoredSample* sample : samples) {
        const double value = decodeNumber(sample->data, parameter) * source.factor + source.offset;
        const std::int64_t ticks = ticksOf(*sample);
        trace.append(sample->seconds(), plottable(value),
                     ticks - before > usual ? SampleMark::AfterGap : SampleMark::Joined);
        before = ticks;
    }
}

void TraceFeeder::begin(const Profile& profile,
                        const std::vector<const ProfileParameter*>& parameters,
                        const DataSet& dataSet)
{
    m_profile = &profile;
    m_dataSet = &dataSet;
    m_pending.clear();
    const ProfileParameter* const selected = m_graph.hasTrace(m_graph.cursor().trace)
                                                 ? m_graph.source(m_graph.cursor().trace).parameter
                                                 : nullptr;
    std::vector<std::pair<GraphTrace, TraceSource>> before;
    for (int i = 0; i < m_graph.traceCount(); ++i)
        before.emplace_back(std::move(m_graph.trace(i)), m_graph.source(i));
    m_graph.setTraceCount(static_cast<int>(parameters.size()));
    const std::vector<int> styles = stylesOf(parameters);
    for (int i = 0; i < m_graph.traceCount(); ++i) {
        const ProfileParameter& parameter = *parameters[static_cast<std::size_t>(i)];
        describeTrace(m_graph, i, profile, parameter);
        m_graph.trace(i).setStyle(styles[static_cast<std::size_t>(i)]);
        if (&parameter == selected)
            m_graph.selectTrace(i);
        const MessageSeries* const series = &seriesOf(dataSet.messages, parameter);
        const auto same = std::ranges::find_if(before, [&](const auto& entry) {
            const auto& [trace, source] = entry;
            return source.isSame(m_graph.source(i)) && trace.times()->series() == series &&
                   trace.size() == series->size();
        });
        if (same != before.end())
            m_graph.trace(i).takeSamples(same->first);
        else
            m_pending.push_back(i);
    }
    m_total = m_pending.size();
}

/// Those of the parameters that had traces before, as far as no number is left out; the others get
/// the free ones in order.
std::vector<int> TraceFeeder::stylesOf(const std::vector<const ProfileParameter*>& parameters)
{
    constexpr int none = -1;
    std::vector<int> styles;
    std::vector<bool> isTaken(parameters.size());
    for (const ProfileParameter* const parameter : parameters) {
        const int known = m_styles.value(parameter->fullName, none);
        const bool isFree = known >= 0 && known < static_cast<int>(isTaken.size()) &&
                            !isTaken[static_cast<std::size_t>(known)];
        if (isFree)
            isTaken[static_cast<std::size_t>(known)] = true;
        styles.push_back(isFree ? known : none);
    }
    m_styles.clear();
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        if (styles[i] == none) {
            const auto free = std::ranges::find(isTaken, false);
            *free = true;
            styles[i] = static_cast<int>(free - isTaken.begin());
        }
        m_styles.insert(parameters[i]->fullName, styles[i]);
    }
    return styles;
}

bool TraceFeeder::feed(std::chrono::milliseconds budget)
{
    const auto start = std::chrono::steady_clock::now();
    while (!m_pending.empty()) {
        const int index = m_pending.front();
        m_pending.pop_front();
        feedTrace(m_graph, index, *m_profile, *m_graph.source(index).parameter, *m_dataSet);
        // Builds the pyramid now, within the budget: it takes as long as decoding.
        m_graph.trace(index).rebuild(m_graph.window().start, m_graph.window().end,
                                     m_graph.pixelSeconds());
        if (std::chrono::steady_clock::now() - start >= budget)
            break;
    }
    return m_pending.empty();
}

} // namespace KOLT
