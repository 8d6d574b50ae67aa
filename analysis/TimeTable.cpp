#include "analysis/TimeTable.h"

#include "profile/ValueDecoder.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace KOLT {

namespace {

/// Half a tick of the counter: tolerance for times that went through a calculation.
constexpr double halfTick = 0.5 / 32e6;

/// Number of samples whose tenths do not exceed the key.
std::size_t countUpTo(const TimeOrdered& timeline, std::int64_t key)
{
    return timeline.countWhile([key](const StoredSample& s) { return s.tenths() <= key; });
}

/// Number of samples at or before the time.
std::size_t countUpTo(const TimeOrdered& timeline, double seconds)
{
    return timeline.countWhile(
        [seconds](const StoredSample& s) { return s.seconds() <= seconds + halfTick; });
}

/// The different tenths, ascending.
std::vector<std::int64_t> keysOf(const TimeOrdered& timeline)
{
    std::vector<std::int64_t> keys;
    for (const StoredSample& sample : timeline) {
        const std::int64_t key = sample.tenths();
        if (keys.empty() || keys.back() != key)
            keys.push_back(key);
    }
    return keys;
}

/// Compares samples with a given one by the text that the user sees.
class ShownText
{
public:
    ShownText(const Profile& profile, const ProfileParameter& parameter, const StoredSample& sample)
        : m_profile(profile)
        , m_parameter(parameter)
        , m_number(decodeNumber(sample.data, parameter))
        , m_text(textOf(profile, parameter, sample.data, m_number))
    {
    }

    bool isTextOf(const StoredSample& sample) const
    {
        const double number = decodeNumber(sample.data, m_parameter);
        return number == m_number || textOf(m_profile, m_parameter, sample.data, number) == m_text;
    }

private:
    const Profile& m_profile;
    const ProfileParameter& m_parameter;
    double m_number;
    QString m_text;
};

} // namespace

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
    for (const TimeOrdered& timeline : m_timelines) {
        const std::vector<std::int64_t> keys = keysOf(timeline);
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
    std::size_t row = 0;
    for (const TimeOrdered& timeline : m_timelines) {
        const std::size_t count = countUpTo(timeline, seconds);
        if (count > 0)
            row = std::max(row, rowOf(timeline[count - 1].tenths()));
    }
    return row;
}

double TimeTable::lastSeconds(std::size_t row) const
{
    double last = 0.0;
    for (const TimeOrdered& timeline : m_timelines) {
        const std::size_t count = countUpTo(timeline, m_keys[row]);
        if (count > 0)
            last = std::max(last, timeline[count - 1].seconds());
    }
    return last;
}

TimeTable::Cell TimeTable::cellAt(double seconds, std::size_t row, std::size_t column) const
{
    const TimeOrdered& timeline = m_timelines[m_timelineOf[column]];
    return lastOf(timeline, countUpTo(timeline, seconds), row);
}

TimeTable::Cell TimeTable::lastOf(const TimeOrdered& timeline, std::size_t count,
                                  std::size_t row) const
{
    if (count == 0)
        return {};
    const StoredSample& sample = timeline[count - 1];
    return {&sample, sample.tenths() == m_keys[row]};
}

TimeTable::Cell TimeTable::cell(std::size_t row, std::size_t column) const
{
    const TimeOrdered& timeline = m_timelines[m_timelineOf[column]];
    return lastOf(timeline, countUpTo(timeline, m_keys[row]), row);
}

std::optional<std::size_t> TimeTable::nextChange(const Profile& profile, std::size_t row,
                                                 std::size_t column) const
{
    const ProfileParameter& parameter = *m_columns[column];
    const TimeOrdered& timeline = m_timelines[m_timelineOf[column]];
    const std::size_t behind = countUpTo(timeline, m_keys[row]);
    if (behind == timeline.size())
        return std::nullopt;
    if (behind == 0)
        return rowOf(timeline[0].tenths()); // the cell was empty before
    const ShownText shown(profile, parameter, timeline[behind - 1]);
    for (std::size_t i = behind; i < timeline.size(); ++i) {
        // Of the samples in a tenth only the last one is shown.
        if (i + 1 < timeline.size() && timeline[i + 1].tenths() == timeline[i].tenths())
            continue;
        if (!shown.isTextOf(timeline[i]))
            return rowOf(timeline[i].tenths());
    }
    return std::nullopt;
}

std::optional<std::size_t> TimeTable::previousChange(const Profile& profile, std::size_t row,
                                                     std::size_t column) const
{
    const ProfileParameter& parameter = *m_columns[column];
    const TimeOrdered& timeline = m_timelines[m_timelineOf[column]];
    const std::size_t behind = countUpTo(timeline, m_keys[row]);
    if (behind == 0)
        return std::nullopt;
    const ShownText shown(profile, parameter, timeline[behind - 1]);
    for (std::size_t i = behind - 1; i > 0; --i) {
        const StoredSample& sample = timeline[i - 1];
        if (sample.tenths() != timeline[i].tenths() && !shown.isTextOf(sample))
            return rowOf(sample.tenths());
    }
    return std::nullopt;
}

} // namespace KOLT
