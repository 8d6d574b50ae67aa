#include "graph/SampleTimes.h"

#include "base/Processor.h"

namespace KOLT {

void SampleTimes::append(double time, SampleMark mark)
{
    if (!m_times.empty() && !(time >= m_times.back()))
        m_isAscending = false;
    if (mark == SampleMark::AfterGap)
        m_gaps.push_back(static_cast<std::uint32_t>(m_size));
    m_times.push_back(time);
    ++m_size;
}

std::size_t SampleTimes::positionAt(double time) const
{
    if (m_isAscending)
        return std::lower_bound(begin(), end(), time).index();
    return std::find_if(begin(), end(), [time](double sample) { return !(sample < time); }).index();
}

std::size_t SampleTimes::positionBehind(double time) const
{
    return std::upper_bound(begin(), end(), time).index();
}

std::size_t SampleTimes::runEnd(std::size_t from, std::size_t limit, std::size_t step,
                                double pixelSeconds) const
{
    const double start = at(from);
    const auto isInside = [&](std::size_t i) { return at(i) - start <= pixelSeconds; };
    // Start from the length of the previous run, go on in growing steps, then bisect.
    std::size_t inside = from;
    std::size_t behind = limit;
    std::size_t guess = std::min(from + step, limit);
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

void SampleTimes::prefetch(std::size_t index) const
{
    KOLT::prefetch(m_series != nullptr ? static_cast<const void*>(&(*m_series)[index])
                                       : &m_times[index]);
}

void SampleTimes::findRuns(const Window& window) const
{
    m_runs.clear();
    std::size_t position = positionAt(window.start);
    if (position >= 2)
        --position;
    const std::size_t limit = std::min(positionAt(window.end) + 1, m_size);
    auto gap = std::ranges::lower_bound(m_gaps, position);
    std::size_t step = 1;
    while (position < limit) {
        const std::size_t next = runEnd(position, limit, step, window.pixelSeconds);
        Run& run = m_runs.emplace_back();
        run.first = static_cast<std::uint32_t>(position);
        run.time = at(position);
        for (; gap != m_gaps.end() && *gap < next; ++gap)
            run.mark = SampleMark::AfterGap;
        step = next - position;
        position = next;
        // Long series do not fit into the cache. The next columns are likely as wide as the last.
        constexpr std::size_t ahead = 8;
        if (step <= 8 || m_runs.size() < ahead)
            continue;
        const std::size_t later = position + (position - m_runs[m_runs.size() - ahead].first);
        if (later < limit) {
            prefetch(later - 1);
            prefetch(later);
        }
    }
    m_runs.push_back({static_cast<std::uint32_t>(position)});
    m_window = window;
}

std::span<const SampleTimes::Run> SampleTimes::runs(double start, double end,
                                                    double pixelSeconds) const
{
    const Window window{start, end, pixelSeconds, m_size};
    if (m_runs.empty() || window != m_window)
        findRuns(window);
    return m_runs;
}

} // namespace KOLT
