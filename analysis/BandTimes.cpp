#include "analysis/BandTimes.h"

#include "analysis/CrossingDetector.h"
#include "analysis/EpisodeJoiner.h"
#include "record/TimeOrdered.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace KOLT {

namespace {

constexpr double runningSpeed = 500.0; // rpm
constexpr double standingSpeed = 100.0;

constexpr int unknown = -1;

/// From this moment on a member is in another band, or nothing is known of it.
struct Change
{
    double seconds;
    std::size_t member;
    int state; ///< a ThresholdState or unknown
};

/// Calls visit(sample, seconds it counts) for all samples in order of time.
template <typename Visit>
void forEachCounted(const MessageSeries& series, Visit&& visit)
{
    const TimeOrdered samples(series);
    const StoredSample* before = nullptr;
    SampleTime time;
    for (const StoredSample& sample : samples) {
        const double seconds = sample.seconds();
        if (before == nullptr) {
            time.first = seconds;
        } else {
            time = {seconds, time.seconds, time.first, time.index + 1};
            visit(*before, time.isBehindHole() ? 0.0 : time.seconds - time.before);
        }
        time.seconds = seconds;
        before = &sample;
    }
    if (before != nullptr)
        visit(*before, 0.0);
}

void addChanges(const Profile& profile, const DataSet& dataSet, const ProfileParameter& parameter,
                std::size_t member, std::vector<Change>& changes)
{
    CrossingDetector detector(parameter, positionFilterFor(profile, dataSet.messages, parameter));
    int shown = unknown;
    const auto change = [&](double seconds, int state) {
        if (state != shown)
            changes.push_back({seconds, member, state});
        shown = state;
    };
    double end = 0.0;
    std::optional<MessageData> last;
    forEachCounted(seriesOf(dataSet.messages, parameter),
                   [&](const StoredSample& sample, double seconds) {
                       // The same bytes have the same grade, unless a filter looks at them.
                       if (last != sample.data || parameter.isPosition())
                           detector.step(sample.data);
                       last = sample.data;
                       end = sample.seconds();
                       const bool isKnown = seconds > 0.0 && !std::isnan(detector.number());
                       change(end, isKnown ? static_cast<int>(detector.state()) : unknown);
                   });
    change(end, unknown);
}

BandTimes timesOf(const QString& quantity, std::size_t members, std::vector<Change>& changes)
{
    BandTimes times{quantity, {}};
    sortByTime(changes, &Change::seconds);
    std::vector<int> states(members, unknown);
    double now = 0.0;
    for (const Change& change : changes) {
        const int worst = *std::ranges::max_element(states);
        if (worst != unknown)
            times.seconds.at(static_cast<std::size_t>(worst)) += change.seconds - now;
        now = change.seconds;
        states[change.member] = change.state;
    }
    return times;
}

} // namespace

std::vector<BandTimes> bandTimes(const Profile& profile, const DataSet& dataSet)
{
    std::vector<BandTimes> result;
    for (const Quantity& quantity : quantitiesOf(profile)) {
        std::vector<Change> changes;
        bool isMeasured = false;
        for (std::size_t i = 0; i < quantity.members.size(); ++i) {
            const ProfileParameter& member = *quantity.members[i];
            if (member.role == Role::WarningLamp)
                continue;
            isMeasured = true;
            addChanges(profile, dataSet, member, i, changes);
        }
        if (isMeasured)
            result.push_back(timesOf(quantity.name, quantity.members.size(), changes));
    }
    return result;
}

EngineRun engineRun(const Profile& profile, const DataSet& dataSet)
{
    EngineRun run;
    const RoleSeries speeds(profile, dataSet.messages, Role::EngineSpeed);
    std::optional<bool> isRunning; // none: not known yet
    forEachCounted(speeds.samples(), [&](const StoredSample& sample, double seconds) {
        const double speed = speeds.value(sample);
        if (speed >= runningSpeed) {
            run.starts += isRunning == false ? 1 : 0;
            run.seconds += seconds;
            isRunning = true;
        } else if (speed < standingSpeed) {
            isRunning = false;
        }
    });
    return run;
}

} // namespace KOLT
