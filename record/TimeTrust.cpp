#include "record/TimeTrust.h"

#include "record/SampleSpan.h"
#include "record/TrustText.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

using Effect = TouchedSpan::Effect;

double secondsOf(std::uint64_t ticks)
{
    return RecordFormat::secondsOf(static_cast<std::uint32_t>(ticks >> 32),
                                   static_cast<std::uint32_t>(ticks));
}

/// Samples of a file that follow each other without a break.
struct Segment
{
    double from = 0.0;
    double to = 0.0;
    std::uint32_t samples = 0;
    std::uint32_t id = 0; ///< of its first sample
};

/// So few samples that lie far off are strays.
constexpr std::uint32_t mostStrays = 3;

constexpr double breakSeconds = 2.0;

/// Whether the recording goes on from one time to the other, holes included.
bool goesOn(double from, double to)
{
    return to - from >= -breakSeconds && to - from <= straySeconds;
}

/// The holes and jumps within one file.
class FileTimes
{
public:
    FileTimes(const Profile& profile, const FileFacts& file)
        : m_profile(profile)
        , m_file(file)
    {
    }

    void addTo(TrustDrafts& drafts, std::vector<Segment> segments, bool isOpener)
    {
        const Segment* before = nullptr;
        for (std::size_t i = 0; i < segments.size(); ++i) {
            const auto after =
                std::find_if(segments.begin() + static_cast<std::ptrdiff_t>(i) + 1, segments.end(),
                             [](const Segment& segment) { return segment.samples > mostStrays; });
            const Segment* const next = after != segments.end() ? &*after : nullptr;
            if (isStray(before, segments[i], next)) {
                tellStray(before, segments[i], next, isOpener && i + 1 == segments.size());
                continue;
            }
            if (before != nullptr)
                tellStep(*before, segments[i], drafts);
            before = &segments[i];
        }
        if (m_jump.touched.empty())
            return;
        m_jump.finding.kind = TrustKind::TimeJump;
        m_jump.finding.files = {m_file.name};
        m_jump.finding.text = m_strays > 0
                                  ? TrustText::strayTimes(m_file.name, static_cast<int>(m_strays))
                                  : TrustText::counterJumps(m_file.name);
        drafts.push_back(std::move(m_jump));
    }

private:
    /// Few samples that do not fit in between, while what is before and behind fits together. At
    /// the ends of the file its sound times tell.
    bool isStray(const Segment* before, const Segment& segment, const Segment* after) const
    {
        if (segment.samples > mostStrays || (before == nullptr && after == nullptr))
            return false;
        if (before == nullptr)
            return std::abs(segment.from - m_file.firstSeconds) > breakSeconds;
        if (after == nullptr)
            return std::abs(segment.to - m_file.lastSeconds) > breakSeconds;
        return goesOn(before->to, after->from) &&
               !(goesOn(before->to, segment.from) && goesOn(segment.to, after->from));
    }

    void widen(double seconds)
    {
        m_jump.finding.from = std::min(m_jump.finding.from.value_or(endOfTime), seconds);
        m_jump.finding.to = std::max(m_jump.finding.to.value_or(-endOfTime), seconds);
    }

    void tellStray(const Segment* before, const Segment& stray, const Segment* after,
                   bool movesClock)
    {
        const double place = before != nullptr ? before->to : after->from;
        widen(place);
        widen(after != nullptr ? after->from : place);
        m_strays += stray.samples;
        // The sample lacks where it belongs, is one too many where it seems to be, and what is
        // looked up by time in between is not found.
        const Figures figures =
            stray.samples == 1 ? figuresOfMessage(m_profile, stray.id) : Figure::All;
        m_jump.touch(std::min(place, stray.from) - breakSeconds,
                     std::max(place, stray.to) + breakSeconds, Effect::Listed, figures);
        if (movesClock)
            m_jump.touch(-endOfTime, endOfTime, Effect::Listed, Figure::DateTime);
    }

    void tellStep(const Segment& before, const Segment& after, TrustDrafts& drafts)
    {
        const double gap = after.from - before.to;
        if (std::abs(gap) <= breakSeconds) // around a stray
            return;
        if (goesOn(before.to, after.from)) {
            TrustDraft& draft = drafts.emplace_back();
            draft.finding = {TrustKind::Hole,      before.to, after.from, {m_file.name},
                             TrustText::hole(gap), {}};
            draft.touch(before.to, after.from);
            return;
        }
        widen(before.to);
        widen(after.from);
        m_jump.touch(std::min(before.to, after.from), std::max(before.to, after.from),
                     Effect::Listed);
    }

    const Profile& m_profile;
    const FileFacts& m_file;
    TrustDraft m_jump;
    std::uint32_t m_strays = 0;
};

/// The breaks of each file that counts.
void findBreaks(const Profile& profile, const DataSet& dataSet, FileTrust& trust)
{
    const std::vector<TimeBreak>& breaks = dataSet.messages.breaks();
    for (std::size_t i = 0; i < dataSet.files.size(); ++i) {
        const auto file = std::ranges::find(trust.sound, dataSet.files[i].name, &FileFacts::name);
        if (file == trust.sound.end())
            continue;
        const std::uint32_t first = dataSet.files[i].firstSequence;
        const std::uint32_t behind = i + 1 < dataSet.files.size()
                                         ? dataSet.files[i + 1].firstSequence
                                         : dataSet.messages.nextSequence();
        auto next = std::ranges::upper_bound(breaks, first, {}, &TimeBreak::sequence);
        const auto end = std::ranges::lower_bound(breaks, behind, {}, &TimeBreak::sequence);
        if (next >= end)
            continue;
        std::vector<Segment> segments{{secondsOf((*file)->firstTicks), 0.0, 0, 0}};
        std::uint32_t start = first;
        for (; next != end; ++next) {
            segments.back().to = secondsOf(next->before);
            segments.back().samples = next->sequence - start;
            start = next->sequence;
            segments.push_back({secondsOf(next->after), 0.0, 0, next->id});
        }
        segments.back().to = secondsOf((*file)->lastTicks);
        segments.back().samples = behind - start;
        FileTimes(profile, **file)
            .addTo(trust.drafts, std::move(segments), i == 0 && (*file)->info.dateInvalid);
    }
}

/// So many holes are told as one: nobody reads thousands.
void joinHoles(TrustDrafts& drafts, std::size_t from)
{
    constexpr std::ptrdiff_t mostHoles = 50;
    const auto begin = drafts.begin() + static_cast<std::ptrdiff_t>(from);
    const auto isHole = [](const TrustDraft& draft) {
        return draft.finding.kind == TrustKind::Hole;
    };
    const auto count = std::count_if(begin, drafts.end(), isHole);
    if (count <= mostHoles)
        return;
    TrustDraft joined;
    joined.finding.kind = TrustKind::Hole;
    double seconds = 0.0;
    for (auto draft = begin; draft != drafts.end(); ++draft) {
        if (!isHole(*draft))
            continue;
        const TouchedSpan& span = draft->touched.front();
        joined.finding.from = std::min(joined.finding.from.value_or(endOfTime), span.from);
        joined.finding.to = std::max(joined.finding.to.value_or(-endOfTime), span.to);
        if (joined.finding.files.empty() ||
            joined.finding.files.back() != draft->finding.files.front())
            joined.finding.files.push_back(draft->finding.files.front());
        joined.touched.push_back(span);
        seconds += span.to - span.from;
    }
    joined.finding.text = TrustText::holes(static_cast<int>(count), seconds);
    drafts.erase(std::remove_if(begin, drafts.end(), isHole), drafts.end());
    drafts.push_back(std::move(joined));
}

} // namespace

Figures figuresOfRole(Role role)
{
    if (role == Role::GroundSpeed)
        return Figure::All; // it tells when a flight begins and ends
    if (role == Role::Altitude)
        return Figure::Climb | Figure::Distances;
    if (role == Role::FuelA)
        return Figure::FuelA | Figure::Fuel | Figure::FuelPer100m;
    if (role == Role::FuelB)
        return Figure::FuelB | Figure::Fuel | Figure::FuelPer100m;
    if (role == Role::ThrottleA || role == Role::Latitude || role == Role::Longitude)
        return Figure::Distances;
    return 0;
}

Figures figuresOfMessage(const Profile& profile, std::uint32_t id)
{
    Figures figures = 0;
    for (const ProfileParameter* const parameter : profile.parametersById(static_cast<int>(id))) {
        if (profile.parameterByRole(parameter->role) == parameter)
            figures |= figuresOfRole(parameter->role);
    }
    return figures;
}

void timeTrust(const Profile& profile, const DataSet& dataSet, FileTrust& trust)
{
    const std::size_t before = trust.drafts.size();
    findBreaks(profile, dataSet, trust);
    joinHoles(trust.drafts, before);
}

} // namespace KOLT
