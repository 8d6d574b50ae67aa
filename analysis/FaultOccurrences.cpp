#include "analysis/EpisodeFinder.h"
#include "analysis/ExcursionTracker.h"
#include "analysis/FaultFinder.h"

#include <algorithm>
#include <set>

namespace KOLT {

namespace {

SampleTime timeOf(const MessageSeries& series, std::size_t index)
{
    const double seconds = series[index].seconds();
    return {seconds, index > 0 ? series[index - 1].seconds() : seconds, series[0].seconds(), index};
}

FaultOccurrence occurrenceOf(const FaultHistory& member, const FaultInterval& interval,
                             const MessageSeries& series, bool isAscending)
{
    FaultOccurrence one{member.parameter, interval.start, interval.end,
                        interval.isOpen || interval.start <= member.firstSeconds};
    if (!isAscending)
        return one; // the places of its samples are not known
    const MessageSeries::Range within = series.around(interval.start, interval.end);
    if (interval.isOpen)
        one.end = std::max(one.begin, std::min(one.end, series.last().seconds()));
    for (std::size_t i = within.first.index(); i < within.last.index(); ++i) {
        const SampleTime time = timeOf(series, i);
        if (!time.isBehindHole())
            continue;
        one.isCut = true;
        if (!interval.isOpen && time.seconds == interval.end)
            one.end = std::max(one.begin, time.before);
    }
    return one;
}

} // namespace

std::vector<FaultOccurrence> findFaultOccurrences(const Profile& profile, const DataSet& dataSet)
{
    std::vector<FaultOccurrence> found;
    std::set<const ProfileParameter*> seen; // one may be in several matrices
    for (const FaultMatrix& matrix : findFaults(profile, dataSet)) {
        for (const FaultHistory& member : matrix.members) {
            if (!seen.insert(member.parameter).second)
                continue;
            if (member.intervals.empty())
                continue;
            const MessageSeries& series = seriesOf(dataSet.messages, *member.parameter);
            const bool isAscending = std::ranges::is_sorted(series, {}, &StoredSample::ticks);
            for (const FaultInterval& interval : member.intervals)
                found.push_back(occurrenceOf(member, interval, series, isAscending));
        }
    }
    std::ranges::stable_sort(found, {}, &FaultOccurrence::begin);
    return found;
}

} // namespace KOLT
