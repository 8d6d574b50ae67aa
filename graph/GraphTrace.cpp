#include "graph/GraphTrace.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace KOLT {

namespace {

enum Fill { oneSample = 2, twoSamples = 3, moreSamples = 4 };

GraphColumn columnOf(double time, double value, int mark)
{
    GraphColumn column;
    column.time = time;
    column.first = value;
    column.low = value;
    column.high = value;
    column.last = value;
    column.mark = mark == 0 ? 0 : 1;
    column.lowest = value;
    column.highest = value;
    column.end = value;
    return column;
}

/// A number wins over none, so that a NaN at a column's start hides nothing.
void widen(GraphColumn& column, double lowest, double highest)
{
    if (lowest < column.lowest || std::isnan(column.lowest))
        column.lowest = lowest;
    if (highest > column.highest || std::isnan(column.highest))
        column.highest = highest;
}

} // namespace

void mergeSample(std::vector<GraphColumn>& columns, double pixelSeconds, double time, double value,
                 int mark)
{
    if (columns.empty() || !(time - columns.back().time <= pixelSeconds)) {
        columns.push_back(columnOf(time, value, mark));
        return;
    }
    GraphColumn& column = columns.back();
    if (mark == 0)
        column.mark = 0;
    if (column.fill == oneSample) {
        column.fill = twoSamples;
        column.high = value;
    } else {
        column.fill = moreSamples;
        column.last = value;
        if (value < column.low)
            column.low = value;
        if (value > column.high)
            column.high = value;
    }
    if (!std::isnan(value))
        widen(column, value, value);
    column.end = value;
}

QColor GraphTrace::defaultColor(int index)
{
    static const std::array colors{
        QColor::fromRgbF(1.0F, 0.0F, 0.0F), QColor::fromRgbF(0.0F, 0.7F, 0.0F),
        QColor::fromRgbF(0.0F, 0.0F, 0.7F), QColor::fromRgbF(0.5F, 0.5F, 0.0F),
        QColor::fromRgbF(0.0F, 0.5F, 0.5F), QColor::fromRgbF(0.5F, 0.0F, 0.5F)};
    return colors[static_cast<std::size_t>(index) % colors.size()];
}

void GraphTrace::reserve(std::size_t samples)
{
    m_times.reserve(samples);
    m_values.reserve(samples);
}

void GraphTrace::setSamples(const MessageSeries& series, SampleValues values,
                            std::vector<std::uint32_t> gaps, bool isAscending)
{
    clear();
    m_series = &series;
    m_values = std::move(values);
    m_gaps = std::move(gaps);
    m_isAscending = isAscending;
}

void GraphTrace::append(double time, double value, int mark)
{
    if (!m_times.empty() && !(time >= m_times.back()))
        m_isAscending = false;
    if (mark == 0)
        m_gaps.push_back(static_cast<std::uint32_t>(m_times.size()));
    m_times.push_back(time);
    m_values.push_back(value);
}

void GraphTrace::clear()
{
    m_series = nullptr;
    m_times = {};
    m_values = {};
    m_gaps = {};
    m_columns = {};
    m_pyramid.clear();
    m_isAscending = true;
}

template <typename Predicate>
std::size_t GraphTrace::partitionPoint(Predicate&& predicate) const
{
    std::size_t low = 0;
    std::size_t high = size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (predicate(timeOf(middle)))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

std::size_t GraphTrace::positionAt(double time) const
{
    const auto isBefore = [time](double sample) { return sample < time; };
    if (m_isAscending)
        return partitionPoint(isBefore);
    std::size_t position = 0;
    while (position < size() && isBefore(timeOf(position)))
        ++position;
    return position;
}

bool GraphTrace::hasGap(std::size_t from, std::size_t to) const
{
    const auto gap = std::ranges::lower_bound(m_gaps, from);
    return gap != m_gaps.end() && *gap < to;
}

std::size_t GraphTrace::columnEnd(std::size_t from, std::size_t limit, double pixelSeconds) const
{
    const double start = timeOf(from);
    const auto isInside = [&](std::size_t i) { return timeOf(i) - start <= pixelSeconds; };
    // The column before is a good guess; from there in growing steps, then by halving.
    std::size_t inside = from;
    std::size_t behind = limit;
    std::size_t guess = std::min(from + m_step, limit);
    for (std::size_t reach = 1; guess < behind && guess > inside; reach *= 2) {
        if (isInside(guess)) {
            inside = guess;
            guess = std::min(inside + reach, limit);
        } else {
            behind = guess;
            guess = behind > reach ? std::max(behind - reach, inside) : inside;
        }
    }
    while (behind - inside > 1) {
        const std::size_t middle = inside + (behind - inside) / 2;
        (isInside(middle) ? inside : behind) = middle;
    }
    return behind;
}

void GraphTrace::addColumn(std::size_t from, std::size_t to)
{
    GraphColumn& column = m_columns.emplace_back(columnOf(timeOf(from), m_values[from], 1));
    if (!m_gaps.empty() && hasGap(from, to))
        column.mark = 0;
    const std::size_t count = to - from;
    if (count == 1)
        return;
    const double second = m_values[from + 1];
    column.fill = count == 2 ? twoSamples : moreSamples;
    column.high = second;
    column.end = m_values[to - 1];
    if (!std::isnan(second))
        widen(column, second, second);
    if (count == 2)
        return;
    column.last = column.end;
    const RangePyramid::Range rest = m_pyramid.range(m_values, from + 2, to);
    if (rest.isEmpty())
        return;
    if (rest.lowest < column.low)
        column.low = rest.lowest;
    if (rest.highest > column.high)
        column.high = rest.highest;
    widen(column, rest.lowest, rest.highest);
}

void GraphTrace::rebuild(double start, double end, double pixelSeconds)
{
    m_columns.clear();
    std::size_t position = positionAt(start);
    if (position >= 2)
        --position;
    if (!m_isAscending) {
        for (std::size_t i = position; i < size(); ++i) {
            mergeSample(m_columns, pixelSeconds, timeOf(i), m_values[i], hasGap(i, i + 1) ? 0 : 1);
            if (timeOf(i) >= end)
                break;
        }
        return;
    }
    m_pyramid.extend(m_values);
    const std::size_t limit = std::min(positionAt(end) + 1, size());
    while (position < limit) {
        const std::size_t next = columnEnd(position, limit, pixelSeconds);
        addColumn(position, next);
        m_step = next - position;
        position = next;
        // Long traces do not fit the cache, and their columns come in regular steps.
        constexpr std::size_t ahead = 8;
        const std::size_t later = position + ahead * m_step;
        if (m_step > 8 && later < limit) {
            if (m_series != nullptr)
                __builtin_prefetch(&(*m_series)[later]);
            else
                __builtin_prefetch(&m_times[later]);
            RangePyramid::prefetch(m_values, later);
        }
    }
}

std::optional<double> GraphTrace::valueAt(double time) const
{
    if (isEmpty() || !(time >= firstTime()) || time > lastTime())
        return std::nullopt;
    const std::size_t position = positionAt(time);
    return m_values[position > 0 ? position - 1 : 0];
}

std::optional<std::pair<double, double>> GraphTrace::visibleRange() const
{
    RangePyramid::Range range;
    for (const GraphColumn& column : m_columns) {
        range.add(column.lowest);
        range.add(column.highest);
    }
    if (range.isEmpty())
        return std::nullopt;
    return std::pair(range.lowest, range.highest);
}

std::optional<RangeStatistic> GraphTrace::statistic(double from, double to) const
{
    if (isEmpty() || !m_isAscending)
        return std::nullopt;
    m_pyramid.extend(m_values);
    const std::size_t first = positionAt(from);
    const std::size_t last = partitionPoint([to](double sample) { return sample <= to; });
    if (first >= last)
        return std::nullopt;
    const RangePyramid::Range range = m_pyramid.range(m_values, first, last);
    const RangePyramid::Sum sum = m_pyramid.sum(m_values, first, last);
    if (sum.count == 0)
        return std::nullopt;
    return RangeStatistic{range.lowest, range.highest, sum.sum / static_cast<double>(sum.count)};
}

} // namespace KOLT
