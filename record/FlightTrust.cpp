#include "record/FlightTrust.h"

#include "record/FlightDetector.h"
#include "record/RoleSeries.h"
#include "record/TimeTrust.h"
#include "record/TrackGaps.h"
#include "record/TrustText.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

using Effect = TouchedSpan::Effect;

constexpr double fast = 50.0;          // km/h, as the flight detector has it
constexpr double marginSeconds = 30.0; // that a flight has around it
constexpr double rounding = 1.0;       // seconds

constexpr std::array roles{Role::GroundSpeed, Role::ThrottleA, Role::FuelA,    Role::FuelB,
                           Role::Altitude,    Role::Latitude,  Role::Longitude};

/// The first time at which a role is neither 0 nor no number.
std::optional<double> firstKnown(const Profile& profile, const MessageMap& messages, Role role)
{
    const ProfileParameter* const parameter = profile.parameterByRole(role);
    if (parameter == nullptr)
        return {};
    for (const StoredSample& sample : seriesOf(messages, *parameter)) {
        const double value = decodeNumber(sample.data, *parameter);
        if (std::isfinite(value) && value != 0.0)
            return sample.seconds();
    }
    return {};
}

void findNotANumber(const Profile& profile, const DataSet& dataSet, TrustDrafts& drafts)
{
    for (const Role role : roles) {
        const ProfileParameter* const parameter = profile.parameterByRole(role);
        // Other types are whole numbers.
        if (parameter == nullptr || parameter->rule != DecodingRule::Float)
            continue;
        std::vector<double> times;
        bool isKnown = false;
        const MessageSeries& series = seriesOf(dataSet.messages, *parameter);
        for (const StoredSample& sample : series) {
            if (std::isfinite(Detail::scaledFloat(sample.data, *parameter)))
                isKnown = true;
            else if (isKnown) // before the first number a device may know nothing yet
                times.push_back(sample.seconds());
        }
        if (!isKnown) {
            for (const StoredSample& sample : series)
                times.push_back(sample.seconds());
        }
        if (times.empty())
            continue;
        const auto [first, last] = std::ranges::minmax(times);
        TrustDraft draft;
        draft.finding.kind = TrustKind::NotANumber;
        draft.finding.from = first;
        draft.finding.to = last;
        draft.finding.text =
            TrustText::notANumber(parameter->fullName, static_cast<int>(times.size()));
        draft.touch(first, last, Effect::Listed, figuresOfRole(parameter->role));
        drafts.push_back(std::move(draft));
    }
}

/// Whether somebody flies in a gap of the positions. Without a fix units send a speed of 0, which
/// ends a flight, and another one begins where the fix is back.
bool isInFlight(const Profile& profile, const DataSet& dataSet, const TrackGap& gap,
                const RecordedSpan& recorded)
{
    const auto isHeld = [&](const Flight& flight) {
        return gap.from < flight.landingSeconds && gap.to > flight.takeOffSeconds;
    };
    if (std::ranges::any_of(dataSet.flights, isHeld))
        return true;
    if (recorded.openTakeOff && gap.to > *recorded.openTakeOff)
        return true;
    return std::isfinite(gap.to) &&
           RoleSeries(profile, dataSet.messages, Role::GroundSpeed).valueAt(gap.to) > fast;
}

/// Whether two positions, as degrees and minutes DDDMM.mmmm, lie closer than the position filter
/// wants them to.
bool isClose(float from, float to)
{
    constexpr float step = 0.5F; // minutes of arc
    const float difference = std::abs(to - from);
    if (difference <= step)
        return true;
    // From 59.9 minutes to the next degree are 40.1.
    constexpr float degree = 100.0F;
    const float low = std::fmod(std::min(std::abs(from), std::abs(to)), degree);
    const float high = std::fmod(std::max(std::abs(from), std::abs(to)), degree);
    return std::abs(difference - 40.0F) <= step && low >= 60.0F - step && high <= step;
}

/// Whether a position's samples come without a pause or a jump, once they are there: then nothing
/// of them is lost, and the gaps need not be looked for, which takes much longer.
bool isSteady(const Profile& profile, const MessageMap& messages, Role role)
{
    const ProfileParameter* const parameter = profile.parameterByRole(role);
    if (parameter == nullptr || parameter->rule != DecodingRule::Float)
        return false;
    float before = 0.0F;
    double last = 0.0;
    for (const StoredSample& sample : seriesOf(messages, *parameter)) {
        const float value = Detail::scaledFloat(sample.data, *parameter);
        const bool isKnown = isFix(value);
        if (before == 0.0F && !isKnown)
            continue;
        const double seconds = sample.seconds();
        if (before != 0.0F &&
            !(isKnown && isClose(before, value) && std::abs(seconds - last) <= longestTrackGap))
            return false;
        before = value;
        last = seconds;
    }
    return true;
}

void findLostPositions(const Profile& profile, const DataSet& dataSet, const RecordedSpan& recorded,
                       TrustDrafts& drafts)
{
    if (isSteady(profile, dataSet.messages, Role::Latitude) &&
        isSteady(profile, dataSet.messages, Role::Longitude))
        return;
    std::vector<std::uint32_t> ids;
    for (const Role role : {Role::Latitude, Role::Longitude}) {
        if (const auto* const parameter = profile.parameterByRole(role))
            ids.push_back(static_cast<std::uint32_t>(parameter->id));
    }
    TrustDrafts found;
    for (const TrackGap& gap : trackGaps(profile, dataSet.messages)) {
        const double to = std::min(gap.to, std::max(recorded.last, gap.from));
        if (to - gap.from <= longestTrackGap ||
            unexplainedSeconds(gap.from, to, drafts, ids) <= longestTrackGap ||
            !isInFlight(profile, dataSet, gap, recorded))
            continue;
        TrustDraft& draft = found.emplace_back();
        draft.finding.kind = TrustKind::NoPosition;
        draft.finding.from = gap.from;
        draft.finding.to = to;
        draft.finding.text = TrustText::noPosition(to - gap.from);
        draft.touch(gap.from, to);
    }
    std::ranges::move(found, std::back_inserter(drafts));
}

/// Whether a finding tells already that the recording lacks something around a moment.
bool isExplained(const TrustDrafts& drafts, double seconds)
{
    constexpr double closeSeconds = 5.0;
    return std::ranges::any_of(drafts, [&](const TrustDraft& draft) {
        return std::ranges::any_of(draft.touched, [&](const TouchedSpan& span) {
            return draft.explains(span) && seconds >= span.from - closeSeconds &&
                   seconds <= span.to + closeSeconds;
        });
    });
}

/// Flights that the recording begins or ends in.
void findUnfinished(const DataSet& dataSet, const RecordedSpan& recorded, const FlightEnds& ends,
                    TrustDrafts& drafts)
{
    TrustDrafts found;
    const auto add = [&](double from, double to, const QString& text) -> TrustDraft& {
        TrustDraft& draft = found.emplace_back();
        draft.finding.kind = TrustKind::UnfinishedFlight;
        draft.finding.from = from;
        draft.finding.to = to;
        draft.finding.text = text;
        return draft;
    };
    const double lastStored = dataSet.messages.all().empty() ? recorded.last : dataSet.stopSeconds;
    if (ends.openTakeOff && !isExplained(drafts, recorded.last) &&
        !isExplained(drafts, lastStored) && !isExplained(drafts, *ends.openTakeOff))
        add(*ends.openTakeOff, recorded.last, TrustText::noLanding());
    if (ends.startsInAir && !isExplained(drafts, *ends.startsInAir))
        add(recorded.first, *ends.startsInAir, TrustText::noTakeOff())
            .touch(recorded.first, *ends.startsInAir + rounding);
    for (const Flight& flight : dataSet.flights) {
        if (!ends.startsInAir &&
            flight.takeOffSeconds - marginSeconds < recorded.first - rounding &&
            !isExplained(drafts, recorded.first) && !isExplained(drafts, flight.takeOffSeconds))
            add(recorded.first, flight.landingSeconds, TrustText::cutStart())
                .touch(flight.startSeconds, recorded.first);
        if (flight.endSeconds > recorded.last + rounding && !isExplained(drafts, recorded.last) &&
            !isExplained(drafts, flight.landingSeconds))
            add(flight.takeOffSeconds, recorded.last, TrustText::cutEnd())
                .touch(recorded.last, flight.endSeconds);
    }
    std::ranges::move(found, std::back_inserter(drafts));
}

} // namespace

FlightEnds flightEnds(const Profile& profile, const DataSet& dataSet)
{
    FlightEnds ends;
    const ProfileParameter* const parameter = profile.parameterByRole(Role::GroundSpeed);
    if (parameter == nullptr)
        return ends;
    FlightDetector detector;
    bool isFirst = true;
    std::optional<double> firstMoving; // the first speed that is not 0, when it is fast
    bool hasMoved = false;
    for (const StoredSample& sample : seriesOf(dataSet.messages, *parameter)) {
        const double speed = decodeNumber(sample.data, *parameter);
        if (!std::isfinite(speed))
            continue;
        if (isFirst && speed > fast)
            ends.startsInAir = sample.seconds();
        if (!hasMoved && speed != 0.0) {
            hasMoved = true;
            if (speed > fast)
                firstMoving = sample.seconds();
        }
        isFirst = false;
        const FlightDetector::Event event = detector.step(speed);
        if (event == FlightDetector::Event::TakeOff)
            ends.openTakeOff = sample.seconds();
        else if (event == FlightDetector::Event::Landing)
            ends.openTakeOff.reset();
    }
    if (firstMoving) {
        // Standing still with a position is no flight.
        const std::optional<double> fix = firstKnown(profile, dataSet.messages, Role::Latitude);
        if (fix && *fix > *firstMoving - 2.0 * rounding)
            ends.startsInAir = firstMoving;
    }
    return ends;
}

void flightTrust(const Profile& profile, const DataSet& dataSet, const RecordedSpan& recorded,
                 const FlightEnds& ends, TrustDrafts& drafts)
{
    findNotANumber(profile, dataSet, drafts);
    findLostPositions(profile, dataSet, recorded, drafts);
    if (!dataSet.flightIndex)
        findUnfinished(dataSet, recorded, ends, drafts);
}

} // namespace KOLT
