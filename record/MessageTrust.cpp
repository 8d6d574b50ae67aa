#include "record/MessageTrust.h"

#include "record/TimeTrust.h"
#include "record/TrustText.h"

#include <algorithm>
#include <set>

namespace KOLT {

namespace {

using Effect = TouchedSpan::Effect;

constexpr double shortestSilence = 2.0; // seconds
constexpr double silentSpacings = 10.0;

/// Of a message with fewer samples nobody can tell what is usual.
constexpr std::size_t enoughSamples = 20;

/// A message that is silent so often is sent on occasion.
constexpr std::size_t mostSilences = 20;

/// Silences of several messages whose ends differ by less have one cause.
constexpr double togetherSeconds = 2.0;

struct Silence
{
    double from = 0.0;
    double to = 0.0;
    std::vector<std::uint32_t> ids;
};

/// Nearly all of a message's samples follow each other within that time, also where it is sent in
/// pairs, or now and then.
double usualSpacing(const MessageSeries& series)
{
    constexpr std::size_t looks = 101;
    std::vector<double> spacings;
    const std::size_t last = series.size() - 2;
    for (std::size_t i = 0; i < looks; ++i) {
        const std::size_t at = last * i / (looks - 1);
        const double spacing = series[at + 1].seconds() - series[at].seconds();
        if (spacing >= 0.0)
            spacings.push_back(spacing);
    }
    if (spacings.empty())
        return 0.0;
    const auto usual = spacings.begin() + static_cast<std::ptrdiff_t>(spacings.size() * 95 / 100);
    std::ranges::nth_element(spacings, usual);
    return *usual;
}

/// The pairs of neighbours that are further apart than the limit. Where times ascend, a block that
/// is shorter than the limit holds none, so that few samples are looked at.
std::vector<Silence> silencesOf(const MessageSeries& series, double spacing, double limit)
{
    constexpr double mostOfLimit = 0.8;
    const auto block = static_cast<std::size_t>(
        std::clamp(mostOfLimit * limit / std::max(spacing, 1e-3), 1.0, 1000.0));
    std::vector<Silence> found;
    double before = series[0].seconds();
    for (std::size_t i = 0; i + 1 < series.size();) {
        const std::size_t end = std::min(i + block, series.size() - 1);
        const double behind = series[end].seconds();
        if (behind - before > limit || behind < before) {
            for (std::size_t k = i; k < end; ++k) {
                const double from = series[k].seconds();
                const double to = series[k + 1].seconds();
                if (to - from > limit)
                    found.push_back({from, to, {}});
            }
        }
        before = behind;
        i = end;
    }
    return found;
}

class SilenceFinder
{
public:
    SilenceFinder(const Profile& profile, const DataSet& dataSet, const RecordedSpan& recorded,
                  TrustDrafts& drafts)
        : m_profile(profile)
        , m_dataSet(dataSet)
        , m_recorded(recorded)
        , m_drafts(drafts)
    {
    }

    void look(std::uint32_t id, const MessageSeries& series)
    {
        if (series.size() < enoughSamples)
            return;
        const double spacing = usualSpacing(series);
        const double limit = std::max(shortestSilence, silentSpacings * spacing);
        std::vector<Silence> found = silencesOf(series, spacing, limit);
        if (m_recorded.isInOrder)
            addEnds(series, limit, found);
        std::erase_if(found, [&](const Silence& silence) {
            return unexplainedSeconds(silence.from, silence.to, m_drafts) <= limit;
        });
        double silent = 0.0;
        for (const Silence& silence : found)
            silent += silence.to - silence.from;
        const bool isRegular =
            found.size() <= mostSilences && silent < (m_recorded.last - m_recorded.first) / 2.0;
        if (!isRegular && figuresOfMessage(m_profile, id) == 0)
            return;
        if (found.size() > mostSilences)
            found = {{found.front().from, found.back().to, {}}};
        for (const Silence& silence : found)
            add(id, silence);
    }

    void tell()
    {
        for (const Silence& silence : m_silences) {
            TrustDraft draft;
            draft.finding.kind = TrustKind::MessageHole;
            draft.finding.from = silence.from;
            draft.finding.to = silence.to;
            draft.finding.text =
                TrustText::messageHole(namesOf(silence.ids), silence.to - silence.from);
            draft.ids = silence.ids;
            Figures figures = 0;
            for (const std::uint32_t id : silence.ids)
                figures |= figuresOfMessage(m_profile, id);
            draft.touch(silence.from, silence.to,
                        figures == Figure::All ? Effect::Hole : Effect::Listed, figures);
            m_drafts.push_back(std::move(draft));
        }
    }

private:
    /// Before the first sample and behind the last devices may be off, unless somebody flies.
    void addEnds(const MessageSeries& series, double limit, std::vector<Silence>& found) const
    {
        for (const auto& [from, to] : {std::pair(m_recorded.first, series[0].seconds()),
                                       std::pair(series.last().seconds(), m_recorded.last)}) {
            const auto meets = [from = from, to = to](double start, double end) {
                return from < end && to > start;
            };
            const bool isInFlight =
                std::ranges::any_of(m_dataSet.flights,
                                    [&](const Flight& flight) {
                                        return meets(flight.takeOffSeconds, flight.landingSeconds);
                                    }) ||
                (m_recorded.openTakeOff && meets(*m_recorded.openTakeOff, m_recorded.last));
            if (to - from > limit && isInFlight)
                found.push_back({from, to, {}});
        }
    }

    void add(std::uint32_t id, const Silence& silence)
    {
        const auto same = std::ranges::find_if(m_silences, [&](const Silence& known) {
            return std::abs(known.from - silence.from) <= togetherSeconds &&
                   std::abs(known.to - silence.to) <= togetherSeconds;
        });
        Silence& target = same != m_silences.end() ? *same : m_silences.emplace_back(silence);
        target.from = std::min(target.from, silence.from);
        target.to = std::max(target.to, silence.to);
        if (target.ids.empty() || target.ids.back() != id)
            target.ids.push_back(id);
    }

    /// The parameters of messages, or their numbers.
    QStringList namesOf(const std::vector<std::uint32_t>& ids) const
    {
        QStringList names;
        for (const std::uint32_t id : ids) {
            const auto& parameters = m_profile.parametersById(static_cast<int>(id));
            for (const ProfileParameter* const parameter : parameters)
                names << parameter->fullName;
            if (parameters.empty())
                names << QString::number(id);
        }
        return names;
    }

    const Profile& m_profile;
    const DataSet& m_dataSet;
    const RecordedSpan& m_recorded;
    TrustDrafts& m_drafts;
    std::vector<Silence> m_silences;
};

} // namespace

void messageTrust(const Profile& profile, const DataSet& dataSet, const RecordedSpan& recorded,
                  TrustDrafts& drafts)
{
    SilenceFinder finder(profile, dataSet, recorded, drafts);
    for (const auto& [id, series] : dataSet.messages.all())
        finder.look(id, series);
    finder.tell();
}

void profileTrust(const Profile& profile, const DataSet& dataSet, TrustDrafts& drafts)
{
    const auto& recorded = dataSet.messages.all();
    if (profile.parameters().empty() || recorded.empty())
        return;
    std::size_t unknown = 0;
    std::size_t samples = 0;
    std::size_t all = 0;
    for (const auto& [id, series] : recorded) {
        all += series.size();
        if (!profile.parametersById(static_cast<int>(id)).empty())
            continue;
        ++unknown;
        samples += series.size();
    }
    if (unknown > 0) {
        TrustFinding finding;
        finding.kind = TrustKind::UnknownMessages;
        finding.text = TrustText::unknownMessages(
            static_cast<int>(unknown), static_cast<double>(samples) / static_cast<double>(all));
        drafts.push_back({std::move(finding), {}, {}});
    }
    QStringList names;
    Figures figures = 0;
    for (const ProfileParameter& parameter : profile.parameters()) {
        const auto id = static_cast<std::uint32_t>(parameter.id);
        if (recorded.contains(id) || dataSet.before.contains(id) ||
            !seriesOf(dataSet.messages, parameter).empty())
            continue;
        names << parameter.fullName;
        if (profile.parameterByRole(parameter.role) == &parameter)
            figures |= figuresOfRole(parameter.role);
    }
    if (names.isEmpty())
        return;
    TrustDraft draft;
    draft.finding.kind = TrustKind::NeverRecorded;
    draft.finding.text = TrustText::neverRecorded(names);
    if (figures != 0)
        draft.touch(-endOfTime, endOfTime, Effect::Listed, figures);
    drafts.push_back(std::move(draft));
}

} // namespace KOLT
