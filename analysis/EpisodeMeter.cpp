#include "analysis/EpisodeMeter.h"

#include "profile/ValueDecoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace KOLT {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

/// Goes through the samples of one member's excursions, each with the one behind it.
struct EpisodeMeter::Cursor
{
    std::size_t member;
    const ProfileParameter* parameter;
    const MessageSeries* series;
    ExcursionList excursions;
    std::size_t index;          ///< of the next sample
    double holeFrom = infinity; ///< nothing is known from then until the next sample

    bool isAtEnd() const { return excursions.empty(); }

    /// When the shown value changes next.
    double seconds() const { return std::min(holeFrom, (*series)[index].seconds()); }

    SampleTime timeOf(std::size_t place) const
    {
        return {(*series)[place].seconds(), (*series)[place - 1].seconds(), (*series)[0].seconds(),
                place};
    }

    /// Takes the change at seconds().
    Shown next()
    {
        if (holeFrom < infinity) {
            holeFrom = infinity;
            return {};
        }
        const StoredSample& sample = (*series)[index];
        Shown shown{decodeNumber(sample.data, *parameter)};
        shown.state = gradeOf(*parameter, shown.number).state;
        const std::size_t last =
            std::min<std::size_t>(excursions.front().behindIndex, series->size() - 1);
        if (index < last) {
            ++index;
            if (timeOf(index).isBehindHole())
                holeFrom = sample.seconds();
        } else {
            excursions = excursions.subspan(1);
            if (!excursions.empty())
                index = std::max<std::size_t>(excursions.front().firstIndex, index);
        }
        return shown;
    }
};

EpisodeMeter::EpisodeMeter(const DataSet& dataSet, const Quantity& quantity,
                           const std::vector<ExcursionList>& lists, const EpisodeSpan& span)
    : m_dataSet(dataSet)
    , m_quantity(quantity)
    , m_lists(lists)
    , m_span(span)
{
}

bool EpisodeMeter::isMeasured(std::size_t member) const
{
    const bool isLamp = m_quantity.members[member]->role == Role::WarningLamp;
    return m_span.isLampOnly ? m_span.parts[member].hasCrossed : !isLamp;
}

template <typename Visit>
void EpisodeMeter::walk(Visit&& visit) const
{
    std::vector<Cursor> cursors;
    for (std::size_t member = 0; member < m_lists.size(); ++member) {
        const EpisodeSpan::Part& part = m_span.parts[member];
        if (part.first == part.behind || !isMeasured(member))
            continue;
        const ProfileParameter& parameter = *m_quantity.members[member];
        const ExcursionList list = m_lists[member].subspan(part.first, part.behind - part.first);
        cursors.push_back({member, &parameter, &seriesOf(m_dataSet.messages, parameter), list,
                           list.front().firstIndex});
    }
    std::vector<Shown> shown(m_lists.size());
    double now = m_span.begin;
    bool hasBegun = false; // what was shown before the first crossing does not count
    while (!cursors.empty()) {
        const auto next = std::ranges::min_element(cursors, {}, &Cursor::seconds);
        const double seconds = next->seconds();
        const double until = std::clamp(seconds, now, std::max(now, m_span.end));
        if (hasBegun)
            visit(shown, now, until);
        now = until;
        hasBegun = hasBegun || seconds >= m_span.begin;
        const Shown value = next->next();
        // Behind the end somebody may still show the step back.
        shown[next->member] = seconds <= m_span.end ? value : Shown{};
        if (next->isAtEnd())
            cursors.erase(next);
    }
    if (hasBegun)
        visit(shown, now, now);
}

void EpisodeMeter::measure(Episode& episode) const
{
    if (!m_span.isLampOnly) {
        findPeak(episode);
        findSteps(episode);
    }
    addUpTimes(episode);
}

void EpisodeMeter::findPeak(Episode& episode) const
{
    const double side = m_span.isHigh ? 1.0 : -1.0;
    walk([&](const std::vector<Shown>& shown, double from, double) {
        for (std::size_t i = 0; i < shown.size(); ++i) {
            if (shown[i].state == ThresholdState::Ok || !std::isfinite(shown[i].number))
                continue;
            if (!episode.peak || side * shown[i].number > side * episode.peak->number)
                episode.peak = EpisodePeak{m_quantity.members[i], shown[i].number, from};
        }
    });
}

void EpisodeMeter::findSteps(Episode& episode) const
{
    if (!episode.peak)
        return;
    // The states between the peak and normal, on the way back.
    const Threshold& threshold = *episode.peak->parameter->threshold;
    std::vector<double> steps;
    for (const ThresholdStep& step : threshold.steps)
        steps.push_back(step.value);
    std::ranges::sort(steps);
    if (m_span.isHigh)
        std::ranges::reverse(steps);
    ThresholdState outer = threshold.grade(episode.peak->number).state;
    for (const double step : steps) {
        if (m_span.isHigh ? step > episode.peak->number : step <= episode.peak->number)
            continue;
        const ThresholdState inner =
            threshold.grade(m_span.isHigh ? std::nextafter(step, -infinity) : step).state;
        if (outer == ThresholdState::Limit && inner != ThresholdState::Limit)
            episode.limitStep = step;
        if (inner == ThresholdState::Ok) {
            episode.warningStep = step;
            break;
        }
        outer = inner;
    }
}

void EpisodeMeter::addUpTimes(Episode& episode) const
{
    const double side = m_span.isHigh ? 1.0 : -1.0;
    const double step = episode.warningStep.value_or(0.0);
    const double height = episode.peak ? side * (episode.peak->number - step) : 0.0;
    std::array<double, Episode::levelCount> between{}; // seconds from one level to the next
    walk([&](const std::vector<Shown>& shown, double from, double to) {
        ThresholdState worst = ThresholdState::Ok;
        double farthest = -infinity;
        for (const Shown& one : shown) {
            worst = std::max(worst, one.state);
            if (one.state != ThresholdState::Ok)
                farthest = std::max(farthest, side * (one.number - step));
        }
        if (worst != ThresholdState::Ok)
            episode.secondsBeyondWarning += to - from;
        if (worst == ThresholdState::Limit || (worst != ThresholdState::Ok && m_span.isLampOnly))
            episode.secondsBeyondLimit += to - from;
        if (farthest < 0.0 || !(height >= 0.0) || !episode.peak)
            return;
        // A peak at the step itself is beyond all levels, which are one then.
        constexpr double last = Episode::levelCount - 1.0;
        const double place =
            height > 0.0 ? std::floor(farthest / height * Episode::levelCount) : last;
        between[static_cast<std::size_t>(std::min(place, last))] += to - from;
    });
    if (!episode.peak || !episode.warningStep)
        return;
    double seconds = 0.0;
    for (std::size_t i = between.size(); i > 0; --i) {
        seconds += between[i - 1];
        const double level =
            step + side * height * static_cast<double>(i - 1) / Episode::levelCount;
        episode.levels.push_back({level, seconds});
    }
    std::ranges::reverse(episode.levels);
}

} // namespace KOLT
