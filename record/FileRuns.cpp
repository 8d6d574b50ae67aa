#include "record/FileRuns.h"

#include "record/TrustText.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace KOLT {

namespace {

using Files = std::vector<const FileFacts*>;
using Effect = TouchedSpan::Effect;

/// Files of a run join within some 15 ms.
constexpr double joinSeconds = 2.0;

/// Clocks of one run agree to a second or two, those of two runs differ by minutes at least.
constexpr double sameRunSeconds = 60.0;

/// A file that begins so much later than usual, in times of a file's length, has lost another one
/// before it, and the file before that no more than its end.
constexpr double longestFile = 1.5;

class RunChecker
{
public:
    RunChecker(const CardFiles& card, const Files& files, FileTrust& trust)
        : m_card(card)
        , m_files(files)
        , m_trust(trust)
    {
    }

    void check()
    {
        divide();
        for (std::size_t run = 1; run < m_runs.size(); ++run)
            tellForeign(m_runs[run]);
        for (Files& run : m_runs) {
            tellDisorder(run);
            std::ranges::stable_sort(run, {}, &FileFacts::firstSeconds);
            for (std::size_t i = 1; i < run.size(); ++i)
                checkJoin(*run[i - 1], *run[i]);
        }
    }

private:
    void divide();
    void tellForeign(const Files& run);
    void tellDisorder(const Files& run);
    TrustDraft& tellGap(const FileFacts& before, const FileFacts& after, TrustDraft* cut);
    void checkJoin(const FileFacts& before, const FileFacts& after);
    TrustDraft* causeBetween(const FileFacts& before, const FileFacts& after);
    TrustDraft* draftOf(TrustKind kind, const QString& name);
    TrustDraft& add(TrustKind kind, double from, double to, std::vector<QString> files,
                    const QString& text);

    /// Its place among those that are loaded.
    std::ptrdiff_t placeOf(const FileFacts& file) const
    {
        return std::ranges::find(m_files, &file) - m_files.begin();
    }

    const CardFiles& m_card;
    const Files& m_files;
    FileTrust& m_trust;
    std::vector<Files> m_runs; ///< the first is that of the first file
};

void RunChecker::divide()
{
    std::vector<std::optional<double>> clocks;
    std::size_t current = 0;
    for (const FileFacts* const file : m_trust.sound) {
        const std::optional<double> clock = runClock(m_trust.sound, file);
        const auto found = std::ranges::find_if(clocks, [&](const std::optional<double>& known) {
            return clock && known && std::abs(*known - *clock) <= sameRunSeconds;
        });
        if (found != clocks.end()) {
            current = static_cast<std::size_t>(found - clocks.begin());
        } else if (clocks.empty() || clock) {
            current = clocks.size();
            clocks.push_back(clock);
            m_runs.emplace_back();
        }
        m_runs[current].push_back(file);
    }
}

TrustDraft& RunChecker::add(TrustKind kind, double from, double to, std::vector<QString> files,
                            const QString& text)
{
    TrustDraft& draft = m_trust.drafts.emplace_back();
    draft.finding = {kind, from, to, std::move(files), text, {}};
    return draft;
}

/// Files of another run among these: its opening file lacks, or they lie here by mistake.
void RunChecker::tellForeign(const Files& run)
{
    const auto first = std::ranges::find(m_trust.sound, run.front());
    const auto last = std::ranges::find(m_trust.sound, run.back());
    double from = endOfTime;
    double to = -endOfTime;
    std::vector<QString> names;
    for (const FileFacts* const file : run) {
        from = std::min(from, file->firstSeconds);
        to = std::max(to, file->lastSeconds);
        names.push_back(file->name);
    }
    const bool hasBefore = first != m_trust.sound.begin();
    const bool isMissing = hasBefore && m_card.isNumberMissing(**std::prev(first), **first);
    TrustDraft& draft =
        isMissing
            ? add(TrustKind::MissingFile, from, to, {(*std::prev(first))->name, names.front()},
                  TrustText::missingOpener((*std::prev(first))->name, names.front()))
            : add(TrustKind::TimeJump, from, to, names, TrustText::foreignFiles(names));
    draft.touch(from, to, Effect::Listed);
    // A flight under way before them ends in them, or goes on behind.
    if (hasBefore)
        draft.touch((*std::prev(first))->lastSeconds, (*std::prev(first))->lastSeconds);
    if (std::next(last) != m_trust.sound.end())
        draft.touch((*std::next(last))->firstSeconds, (*std::next(last))->firstSeconds);
}

/// Files whose names and times say different orders, each set that changed places among itself.
void RunChecker::tellDisorder(const Files& run)
{
    std::vector<std::size_t> byTime(run.size());
    std::iota(byTime.begin(), byTime.end(), 0U);
    std::ranges::stable_sort(byTime, {}, [&](std::size_t i) { return run[i]->firstSeconds; });
    std::vector<bool> isDone(run.size());
    for (std::size_t start = 0; start < run.size(); ++start) {
        std::vector<std::size_t> set;
        for (std::size_t i = start; !isDone[i]; i = byTime[i]) {
            isDone[i] = true;
            set.push_back(i);
        }
        if (set.size() < 2)
            continue;
        std::ranges::sort(set);
        std::vector<QString> names;
        names.reserve(set.size());
        for (const std::size_t i : set)
            names.push_back(run[i]->name);
        double from = endOfTime;
        double to = -endOfTime;
        for (std::size_t i = set.front(); i <= set.back(); ++i) {
            from = std::min(from, run[i]->firstSeconds);
            to = std::max(to, run[i]->lastSeconds);
        }
        add(TrustKind::TimeJump, from, to, names, TrustText::wrongOrder(names))
            .touch(from, to, Effect::Listed);
    }
}

TrustDraft* RunChecker::draftOf(TrustKind kind, const QString& name)
{
    const auto found = std::ranges::find_if(m_trust.drafts, [&](const TrustDraft& draft) {
        return draft.finding.kind == kind &&
               std::ranges::find(draft.finding.files, name) != draft.finding.files.end();
    });
    return found != m_trust.drafts.end() ? &*found : nullptr;
}

/// What is told already of a file that lies between two others.
TrustDraft* RunChecker::causeBetween(const FileFacts& before, const FileFacts& after)
{
    for (auto i = placeOf(before) + 1; i < placeOf(after); ++i) {
        const FileFacts& file = *m_files[static_cast<std::size_t>(i)];
        for (const TrustKind kind : {TrustKind::UnreadableFile, TrustKind::TruncatedFile}) {
            if (TrustDraft* const draft = draftOf(kind, file.name)) {
                draft->finding.from = before.lastSeconds;
                draft->finding.to = after.firstSeconds;
                return draft;
            }
        }
        if (file.isReadable && !file.hasSamples())
            return &add(TrustKind::TruncatedFile, before.lastSeconds, after.firstSeconds,
                        {file.name}, TrustText::truncatedFile(file.name, {}));
        if (TrustDraft* const draft = draftOf(TrustKind::TimeJump, file.name))
            return draft;
    }
    return nullptr;
}

/// Says why something lacks between two files.
TrustDraft& RunChecker::tellGap(const FileFacts& before, const FileFacts& after, TrustDraft* cut)
{
    const double from = before.lastSeconds;
    const double to = after.firstSeconds;
    const auto missing = [&]() -> TrustDraft& {
        return add(TrustKind::MissingFile, from, to, {before.name, after.name},
                   TrustText::missingFile(before.name, after.name, to - from));
    };
    if (m_card.isNumberMissing(before, after)) {
        if (cut != nullptr)
            cut->finding.to.reset();
        return missing();
    }
    if (TrustDraft* const cause = causeBetween(before, after))
        return *cause;
    if (cut != nullptr) {
        cut->finding.text = TrustText::truncatedFile(before.name, to - from);
        return *cut;
    }
    // The next file was opened in time.
    if (to - after.headerSeconds > joinSeconds && after.headerSeconds >= from - joinSeconds)
        return add(TrustKind::Hole, from, to, {before.name, after.name},
                   TrustText::hole(to - from));
    if (m_card.usualSeconds() > 0.0 &&
        to - before.firstSeconds < longestFile * m_card.usualSeconds())
        return add(TrustKind::TruncatedFile, from, to, {before.name},
                   TrustText::truncatedFile(before.name, to - from));
    return missing();
}

/// What lies between two files of a run that follow each other in time.
void RunChecker::checkJoin(const FileFacts& before, const FileFacts& after)
{
    const double from = before.lastSeconds;
    const double to = after.firstSeconds;
    const double gap = to - from;
    if (gap < -joinSeconds) {
        const double end = std::min(from, after.lastSeconds);
        add(TrustKind::OverlappingFiles, to, end, {before.name, after.name},
            TrustText::overlappingFiles(before.name, after.name))
            .touch(to, end, Effect::Listed);
        return;
    }
    TrustDraft* cut = draftOf(TrustKind::TruncatedFile, before.name);
    if (cut != nullptr && gap >= 0.0)
        cut->finding.to = to;
    if (gap <= joinSeconds) {
        if (cut != nullptr)
            cut->touch(from, to);
        return;
    }
    TrustDraft& draft = tellGap(before, after, cut);
    draft.touch(from, to);
    // The date of an undated file follows from its last time and the date behind it.
    if (before.info.dateInvalid)
        draft.touch(-endOfTime, endOfTime, Effect::Listed, Figure::DateTime);
}

} // namespace

std::optional<double> runClock(const std::vector<const FileFacts*>& files, const FileFacts* file)
{
    if (file->clock)
        return file->clock;
    // Where files lie in the wrong place, the next one may tell of another run: it is the one that
    // goes on from here, and of several the nearest.
    constexpr double tieSeconds = 10.0;
    std::optional<double> clock;
    double least = endOfTime;
    for (auto next = std::next(std::ranges::find(files, file));
         next != files.end() && (*next)->clock; ++next) {
        const double distance = std::abs((*next)->firstSeconds - file->lastSeconds);
        if (distance + (clock ? tieSeconds : 0.0) < least) {
            least = distance;
            clock = (*next)->clock;
        }
    }
    return clock;
}

void checkRuns(const CardFiles& card, const std::vector<const FileFacts*>& files, FileTrust& trust)
{
    if (!trust.sound.empty())
        RunChecker(card, files, trust).check();
}

} // namespace KOLT
