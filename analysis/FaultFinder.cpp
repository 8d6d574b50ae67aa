#include "analysis/FaultFinder.h"

#include "profile/ValueDecoder.h"
#include "record/TimeOrdered.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace KOLT {

namespace {

/// Finds the intervals of all faults that one message carries, in one pass.
void findIntervals(const MessageSeries& series, const std::vector<FaultHistory*>& members,
                   double endSeconds)
{
    std::vector<bool> isSet(members.size(), false);
    for (FaultHistory* member : members) {
        member->hasSamples = !series.empty();
        member->firstSeconds = series.empty() ? 0.0 : series[0].seconds();
    }
    const StoredSample* before = nullptr;
    for (const StoredSample& sample : series) {
        // Faults are rare: nearly all samples are the same.
        const bool isSame = before != nullptr && before->data == sample.data;
        before = &sample;
        if (isSame)
            continue;
        for (std::size_t i = 0; i < members.size(); ++i) {
            FaultHistory& member = *members[i];
            const bool isNow = decodeNumber(sample.data, *member.parameter) != 0.0;
            if (isNow == isSet[i])
                continue;
            isSet[i] = isNow;
            if (isNow)
                member.intervals.push_back({sample.seconds(), endSeconds, true});
            else
                member.intervals.back() = {
                    member.intervals.back().start,
                    std::max(sample.seconds(), member.intervals.back().start), false};
        }
    }
}

/// Lookups need ascending intervals, which a recording whose time steps back does not give.
void sortIntervals(FaultHistory& history)
{
    std::vector<FaultInterval>& intervals = history.intervals;
    for (FaultInterval& interval : intervals)
        interval.end = std::max(interval.start, interval.end);
    sortByTime(intervals, &FaultInterval::start);
}

} // namespace

FaultHistory::State FaultHistory::stateAt(double seconds) const
{
    const auto behind = std::ranges::upper_bound(intervals, seconds, {}, &FaultInterval::start);
    if (behind != intervals.begin()) {
        const FaultInterval& interval = *std::prev(behind);
        if (seconds < interval.end || interval.isOpen)
            return State::Set;
    }
    return hasSamples && seconds >= firstSeconds ? State::Clear : State::Unknown;
}

const FaultInterval* FaultHistory::intervalAfter(double seconds) const
{
    const auto found = std::ranges::upper_bound(intervals, seconds, {}, &FaultInterval::start);
    return found == intervals.end() ? nullptr : &*found;
}

const FaultInterval* FaultHistory::intervalBefore(double seconds) const
{
    const auto found = std::ranges::lower_bound(intervals, seconds, {}, &FaultInterval::start);
    return found == intervals.begin() ? nullptr : &*std::prev(found);
}

std::vector<FaultMatrix> findFaults(const Profile& profile, const DataSet& dataSet)
{
    std::vector<FaultMatrix> matrices;
    for (const ErrorMatrix& matrix : profile.errorMatrices()) {
        FaultMatrix& block = matrices.emplace_back();
        block.matrix = &matrix;
        for (const ProfileParameter* parameter : matrix.members)
            block.members.emplace_back().parameter = parameter;
        std::ranges::stable_sort(block.members, {}, [](const FaultHistory& member) {
            const ProfileParameter& parameter = *member.parameter;
            return std::tuple(parameter.id, parameter.startByte, parameter.startBit);
        });
    }
    std::map<int, std::vector<FaultHistory*>> membersOfMessage;
    for (FaultMatrix& block : matrices) {
        for (FaultHistory& member : block.members)
            membersOfMessage[member.parameter->id].push_back(&member);
    }
    for (const auto& [id, members] : membersOfMessage) {
        findIntervals(dataSet.messages.series(static_cast<std::uint32_t>(id)), members,
                      dataSet.stopSeconds);
        for (FaultHistory* member : members)
            sortIntervals(*member);
    }
    return matrices;
}

} // namespace KOLT
