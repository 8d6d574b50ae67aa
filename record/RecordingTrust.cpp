#include "record/RecordingTrust.h"

#include "record/FileTrust.h"
#include "record/FlightTrust.h"
#include "record/MessageTrust.h"
#include "record/TimeTrust.h"
#include "record/TrustText.h"

#include <algorithm>

namespace KOLT {

namespace {

RecordedSpan spanOf(const DataSet& dataSet, const FileTrust& files)
{
    if (dataSet.flightIndex || files.sound.empty())
        return {dataSet.startSeconds, dataSet.stopSeconds, {}, files.isInOrder};
    RecordedSpan span{endOfTime, -endOfTime, {}, files.isInOrder};
    for (const FileFacts* const file : files.sound) {
        span.first = std::min(span.first, file->firstSeconds);
        span.last = std::max(span.last, file->lastSeconds);
    }
    return span;
}

/// Of a single flight, only what meets it.
bool meets(const TrustDraft& draft, const DataSet& dataSet)
{
    const bool touchesAny = std::ranges::any_of(draft.touched, [&](const TouchedSpan& span) {
        return figuresTouched(*dataSet.flight(), span) != 0;
    });
    const bool isWhole = !draft.finding.from && !draft.finding.to;
    return touchesAny || isWhole ||
           (draft.finding.from.value_or(-endOfTime) <= dataSet.stopSeconds &&
            draft.finding.to.value_or(endOfTime) >= dataSet.startSeconds);
}

void mark(TrustDraft& draft, const DataSet& dataSet, std::vector<Figures>& marked)
{
    for (std::size_t i = 0; i < dataSet.flights.size(); ++i) {
        Figures figures = 0;
        for (const TouchedSpan& span : draft.touched)
            figures |= figuresTouched(dataSet.flights[i], span);
        if (figures == 0)
            continue;
        draft.finding.marks.push_back({i, figures});
        marked[i] |= figures;
    }
}

/// Which files a stretch lies in, where the finding does not say it.
void nameFiles(TrustFinding& finding, const std::vector<const FileFacts*>& files)
{
    if (!finding.files.empty() || (!finding.from && !finding.to))
        return;
    for (const FileFacts* const file : files) {
        if (file->lastSeconds >= finding.from.value_or(-endOfTime) &&
            file->firstSeconds <= finding.to.value_or(endOfTime))
            finding.files.push_back(file->name);
    }
}

/// What a case file lacks was left out on purpose: that is told in place of what would follow.
void nameCase(const CardFiles& card, const std::vector<QString>& names, TrustDrafts& drafts)
{
    const std::optional<CaseNote>& note = card.caseNote();
    if (!note || names != std::vector{note->file})
        return;
    std::erase_if(drafts, [](const TrustDraft& draft) {
        switch (draft.finding.kind) {
        case TrustKind::LateClock:
        case TrustKind::BeforeFirstCycle:
        case TrustKind::UnfinishedFlight:
        case TrustKind::NeverRecorded:
            return true;
        default:
            return false;
        }
    });
    TrustDraft& draft = drafts.emplace_back();
    draft.finding.kind = TrustKind::CaseFile;
    draft.finding.from = note->from;
    draft.finding.to = note->to;
    draft.finding.files = names;
    draft.finding.text = TrustText::caseFile(note->sources);
}

} // namespace

std::vector<std::size_t> RecordingTrust::findingsOf(std::size_t flight) const
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        if (std::ranges::find(findings[i].marks, flight, &FlightMark::flight) !=
            findings[i].marks.end())
            found.push_back(i);
    }
    return found;
}

RecordingTrust recordingTrust(const Profile& profile, const CardFiles& card, const DataSet& dataSet,
                              const TrustOptions& options)
{
    std::vector<QString> names;
    for (const LoadedFile& file : dataSet.files)
        names.push_back(file.name);
    FileTrust files =
        fileTrust(card, names, dataSet.dateTime, dataSet.unreadFiles, options.engineType);
    RecordedSpan recorded = spanOf(dataSet, files);
    timeTrust(profile, dataSet, files);
    const FlightEnds ends = flightEnds(profile, dataSet);
    recorded.openTakeOff = ends.openTakeOff;
    messageTrust(profile, dataSet, recorded, files.drafts);
    flightTrust(profile, dataSet, recorded, ends, files.drafts);
    profileTrust(profile, dataSet, files.drafts);
    nameCase(card, names, files.drafts);

    RecordingTrust trust;
    trust.marked.resize(dataSet.flights.size());
    std::ranges::stable_sort(files.drafts, {}, [](const TrustDraft& d) { return d.finding.kind; });
    for (TrustDraft& draft : files.drafts) {
        if (dataSet.flightIndex && !meets(draft, dataSet))
            continue;
        mark(draft, dataSet, trust.marked);
        nameFiles(draft.finding, files.sound);
        trust.findings.push_back(std::move(draft.finding));
    }
    return trust;
}

std::vector<TrustFinding> cycleFileTrust(const CardFiles& card, int cycle,
                                         const TrustOptions& options)
{
    std::vector<TrustFinding> findings;
    const auto found = card.cycles().find(cycle);
    if (found == card.cycles().end())
        return findings;
    FileTrust files =
        fileTrust(card, found->second.fileNames, found->second.dateTime, {}, options.engineType);
    nameCase(card, found->second.fileNames, files.drafts);
    std::ranges::stable_sort(files.drafts, {}, [](const TrustDraft& d) { return d.finding.kind; });
    for (TrustDraft& draft : files.drafts)
        findings.push_back(std::move(draft.finding));
    return findings;
}

} // namespace KOLT
