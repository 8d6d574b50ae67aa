#include "analysis/TimeTable.h"

#include "profile/ValueDecoder.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

namespace KOLT {

namespace {

/// Equal numbers look equal; NaN equals NaN.
bool isSameNumber(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

} // namespace

TimeTable::Timeline::Timeline(const MessageSeries& series)
    : m_series(&series)
{
    std::int64_t previous = 0;
    bool isAscending = true;
    for (const StoredSample& sample : series) {
        const std::int64_t key = sample.tenths();
        isAscending = isAscending && key >= previous;
        previous = key;
    }
    if (isAscending)
        return;
    m_order.resize(series.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    std::ranges::stable_sort(m_order, {},
                             [&](std::uint32_t index) { return series[index].tenths(); });
}

std::size_t TimeTable::Timeline::countUpTo(std::int64_t key) const
{
    std::size_t low = 0;
    std::size_t high = size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if ((*this)[middle].tenths() <= key)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

std::vector<std::int64_t> TimeTable::Timeline::keys() const
{
    std::vector<std::int64_t> keys;
    for (std::size_t i = 0; i < size(); ++i) {
        const std::int64_t key = (*this)[i].tenths();
        if (keys.empty() || keys.back() != key)
            keys.push_back(key);
    }
    return keys;
}

TimeTable::TimeTable(const DataSet& dataSet, std::vector<const ProfileParameter*> columns)
    : m_columns(std::move(columns))
{
    std::map<int, std::size_t> timelineOfId;
    for (const ProfileParameter* parameter : m_columns) {
        const auto [place, isNew] = timelineOfId.emplace(parameter->id, m_timelines.size());
        if (isNew)
            m_timelines.emplace_back(seriesOf(dataSet.messages, *parameter));
        m_timelineOf.push_back(place->second);
    }
    for (const Timeline& timeline : m_timelines) {
        const std::vector<std::int64_t> keys = timeline.keys();
        std::vector<std::int64_t> merged;
        merged.reserve(m_keys.size() + keys.size());
        std::ranges::set_union(m_keys, keys, std::back_inserter(merged));
        m_keys = std::move(merged);
    }
}

std::size_t TimeTable::rowOf(std::int64_t key) const
{
    const auto behind = std::ranges::upper_bound(m_keys, key);
    return behind == m_keys.begin() ? 0 : static_cast<std::size_t>(behind - m_keys.begin()) - 1;
}

std::size_t TimeTable::rowAt(double seconds) const
{
    constexpr double maxSeconds = 1e15;
    return rowOf(RecordFormat::tenthsOf(std::clamp(seconds, -maxSeconds, maxSeconds)));
}

TimeTable::Cell TimeTable::cell(std::size_t row, std::size_t column) const
{
    const Timeline& timeline = m_timelines[m_timelineOf[column]];
    const std::size_t count = timeline.countUpTo(m_keys[row]);
    if (count == 0)
        return {};
    const StoredSample& sample = timeline[count - 1];
    return {&sample, sample.tenths() == m_keys[row]};
}

std::optional<std::size_t> TimeTable::nextChange(std::size_t row, std::size_t column) const
{
    const ProfileParameter& parameter = *m_columns[column];
    const Timeline& timeline = m_timelines[m_timelineOf[column]];
    const std::size_t behind = timeline.countUpTo(m_keys[row]);
    for (std::size_t i = behind; i < timeline.size(); ++i) {
        // A sample that another in the same tenth follows is not shown.
        if (i + 1 < timeline.size() && timeline[i + 1].tenths() == timeline[i].tenths())
            continue;
        if (behind == 0 || !isSameNumber(decodeNumber(timeline[i].data, parameter),
                                         decodeNumber(timeline[behind - 1].data, parameter)))
            return rowOf(timeline[i].tenths());
    }
    return std::nullopt;
}

std::optional<std::size_t> TimeTable::previousChange(std::size_t row, std::size_t column) const
{
    const ProfileParameter& parameter = *m_columns[column];
    const Timeline& timeline = m_timelines[m_timelineOf[column]];
    const std::size_t behind = timeline.countUpTo(m_keys[row]);
    if (behind == 0)
        return std::nullopt;
    const double number = decodeNumber(timeline[behind - 1].data, parameter);
    for (std::size_t i = behind - 1; i > 0; --i) {
        const StoredSample& sample = timeline[i - 1];
        if (sample.tenths() != timeline[i].tenths() &&
            !isSameNumber(decodeNumber(sample.data, parameter), number))
            return rowOf(sample.tenths());
    }
    return std::nullopt;
}

} // namespace KOLT
