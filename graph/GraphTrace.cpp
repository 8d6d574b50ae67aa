#include "graph/GraphTrace.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace KOLT {

namespace {

GraphColumn columnOf(double time, double value, SampleMark mark)
{
    GraphColumn column;
    column.time = time;
    column.first = value;
    column.low = value;
    column.high = value;
    column.last = value;
    column.mark = mark;
    column.lowest = value;
    column.highest = value;
    column.end = value;
    return column;
}

/// A NaN at the start of a column is replaced by the first number.
void widen(GraphColumn& column, double lowest, double highest)
{
    if (lowest < column.lowest || std::isnan(column.lowest))
        column.lowest = lowest;
    if (highest > column.highest || std::isnan(column.highest))
        column.highest = highest;
}

} // namespace

void mergeSample(std::vector<GraphColumn>& columns, double pixelSeconds, double time, double value,
                 SampleMark mark)
{
    if (columns.empty() || !(time - columns.back().time <= pixelSeconds)) {
        columns.push_back(columnOf(time, value, mark));
        return;
    }
    GraphColumn& column = columns.back();
    if (mark == SampleMark::AfterGap)
        column.mark = SampleMark::AfterGap;
    if (column.fill == ColumnFill::OneSample) {
        column.fill = ColumnFill::TwoSamples;
        column.high = value;
    } else {
        column.fill = ColumnFill::MoreSamples;
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
    static const std::array<QColor, colorCount> colors{
        QColor::fromRgbF(1.0F, 0.0F, 0.0F), QColor::fromRgbF(0.0F, 0.7F, 0.0F),
        QColor::fromRgbF(0.0F, 0.0F, 0.7F), QColor::fromRgbF(0.5F, 0.5F, 0.0F),
        QColor::fromRgbF(0.0F, 0.5F, 0.5F), QColor::fromRgbF(0.5F, 0.0F, 0.5F)};
    return colors[static_cast<std::size_t>(index) % colors.size()];
}

void GraphTrace::setStyle(int number)
{
    style = number;
    color = defaultColor(number);
}

void GraphTrace::reserve(std::size_t samples)
{
    m_times->reserve(samples);
    m_values.reserve(samples);
}

void GraphTrace::setSamples(std::shared_ptr<SampleTimes> times, SampleValues values)
{
    clear();
    m_times = std::move(times);
    m_values = std::move(values);
}

void GraphTrace::takeSamples(GraphTrace& other)
{
    m_times = other.m_times;
    m_values = std::move(other.m_values);
    m_pyramid = std::move(other.m_pyramid);
    m_columns = std::move(other.m_columns);
    m_start = other.m_start;
    m_end = other.m_end;
    other.clear();
}

void GraphTrace::append(double time, double value, SampleMark mark)
{
    m_times->append(time, mark);
    m_values.push_back(plottable(value));
}

void GraphTrace::clear()
{
    m_times = std::make_shared<SampleTimes>();
    m_values = {};
    m_columns = {};
    m_pyramid.clear();
}

void GraphTrace::addColumn(const SampleTimes::Run& run, std::size_t to)
{
    const std::size_t from = run.first;
    GraphColumn& column = m_columns.emplace_back(columnOf(run.time, m_values[from], run.mark));
    const std::size_t count = to - from;
    if (count == 1)
        return;
    const double second = m_values[from + 1];
    column.fill = count == 2 ? ColumnFill::TwoSamples : ColumnFill::MoreSamples;
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
    m_start = start;
    m_end = end;
    if (!m_times->isAscending()) {
        std::size_t position = m_times->positionAt(start);
        if (position >= 2)
            --position;
        for (std::size_t i = position; i < size(); ++i) {
            const double time = m_times->at(i);
            mergeSample(m_columns, pixelSeconds, time, m_values[i], m_times->markOf(i));
            if (time >= end)
                break;
        }
        return;
    }
    m_pyramid.extend(m_values);
    const std::span<const SampleTimes::Run> runs = m_times->runs(start, end, pixelSeconds);
    for (std::size_t i = 0; i + 1 < runs.size(); ++i) {
        addColumn(runs[i], runs[i + 1].first);
        // Long traces do not fit into the cache.
        constexpr std::size_t ahead = 8;
        if (i + ahead < runs.size() && runs[i + 1].first - runs[i].first > 8)
            RangePyramid::prefetch(m_values, runs[i + ahead].first);
    }
}

std::optional<double> GraphTrace::valueAt(double time) const
{
    if (isEmpty() || !(time >= firstTime()) || time > lastTime())
        return std::nullopt;
    const std::size_t position = m_times->positionAt(time);
    return m_values[position > 0 ? position - 1 : 0];
}

std::optional<std::pair<double, double>> GraphTrace::visibleRange() const
{
    // A sample beside the window matters only if a line joins it to one inside.
    auto [first, last] = std::pair(std::size_t{0}, m_columns.size());
    const auto isBroken = [this](std::size_t i) {
        return i < m_columns.size() && m_columns[i].mark == SampleMark::AfterGap;
    };
    if (isFirstBeside() && isBroken(1))
        ++first;
    if (isLastBeside() && isBroken(last - 1))
        --last;
    return rangeOf(first, last);
}

std::optional<std::pair<double, double>> GraphTrace::extremes() const
{
    const std::size_t first = isFirstBeside() ? 1 : 0;
    const std::size_t last = m_columns.size() - (isLastBeside() ? 1 : 0);
    const auto inside = rangeOf(first, last);
    const bool isCrossed = m_columns.size() >= 2 && m_columns.back().mark != SampleMark::AfterGap;
    return inside || !isCrossed ? inside : visibleRange();
}

bool GraphTrace::isFirstBeside() const
{
    return !m_columns.empty() && m_columns.front().time < m_start &&
           m_columns.front().fill == ColumnFill::OneSample;
}

bool GraphTrace::isLastBeside() const
{
    return !m_columns.empty() && m_columns.back().time > m_end;
}

std::optional<std::pair<double, double>> GraphTrace::rangeOf(std::size_t first,
                                                             std::size_t last) const
{
    RangePyramid::Range range;
    for (std::size_t i = first; i < last; ++i) {
        range.add(m_columns[i].lowest);
        range.add(m_columns[i].highest);
    }
    if (range.isEmpty())
        return std::nullopt;
    return std::pair(range.lowest, range.highest);
}

std::optional<RangeStatistic> GraphTrace::statistic(double from, double to) const
{
    if (isEmpty() || !m_times->isAscending())
        return std::nullopt;
    m_pyramid.extend(m_values);
    const std::size_t first = m_times->positionAt(from);
    const std::size_t last = m_times->positionBehind(to);
    if (first >= last)
        return std::nullopt;
    const RangePyramid::Range range = m_pyramid.range(m_values, first, last);
    const RangePyramid::Sum sum = m_pyramid.sum(m_values, first, last);
    if (sum.count == 0)
        return std::nullopt;
    return RangeStatistic{range.lowest, range.highest, sum.sum / static_cast<double>(sum.count)};
}

} // namespace KOLT
