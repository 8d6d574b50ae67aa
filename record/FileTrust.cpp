#include "record/FileTrust.h"

#include "record/FileRuns.h"
#include "record/TrustText.h"
#include "record/UnitTrust.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr double joinSeconds = 2.0;

bool isAbout(const TrustFinding& finding, const QString& name)
{
    return std::ranges::find(finding.files, name) != finding.files.end();
}

/// Whether a finding is about one of the first files.
bool isAbout(const TrustFinding& finding, const std::vector<const FileFacts*>& files,
             std::size_t count)
{
    return std::ranges::any_of(
        files.begin(), files.begin() + static_cast<std::ptrdiff_t>(std::min(count, files.size())),
        [&](const FileFacts* file) { return isAbout(finding, file->name); });
}

/// Looks at the files of one choice.
class FileChecker
{
public:
    FileChecker(const CardFiles& card, const std::vector<QString>& names)
        : m_card(card)
        , m_cycle(card.cycleOf(names))
    {
        for (const QString& name : names) {
            if (const FileFacts* const file = card.find(name))
                m_files.push_back(file);
        }
    }

    FileTrust check(const QDateTime& dateTime, const std::vector<QString>& unread,
                    const QString& engineType);

private:
    void findCopies();
    void findUnusable(const std::vector<QString>& unread);
    void findMissingAtEnd();
    void findDisorder();
    void checkClock(const QDateTime& dateTime);
    void checkCycle();

    const CardFiles& m_card;
    std::optional<int> m_cycle;
    std::vector<const FileFacts*> m_files;
    FileTrust m_trust;
};

FileTrust FileChecker::check(const QDateTime& dateTime, const std::vector<QString>& unread,
                             const QString& engineType)
{
    findCopies();
    findUnusable(unread);
    checkRuns(m_card, m_files, m_trust);
    findMissingAtEnd();
    findDisorder();
    checkClock(dateTime);
    checkCycle();
    unitTrust(m_trust.sound, engineType, m_trust.drafts);
    return std::move(m_trust);
}

/// Copies of what is loaded too, or lies elsewhere on the card of a whole cycle.
void FileChecker::findCopies()
{
    for (std::size_t i = 0; i < m_files.size(); ++i) {
        const FileFacts* const file = m_files[i];
        const bool isDoubled = !file->copyOf.isEmpty() &&
                               (m_cycle || std::ranges::find(m_files, file->copyOf,
                                                             &FileFacts::name) != m_files.end());
        if (!isDoubled)
            continue;
        TrustDraft& draft = m_trust.drafts.emplace_back();
        draft.finding = {TrustKind::DuplicateFile,
                         file->firstSeconds,
                         file->lastSeconds,
                         {file->name, file->copyOf},
                         TrustText::duplicateFile(file->name, file->copyOf),
                         {}};
        draft.touch(file->firstSeconds, file->lastSeconds, TouchedSpan::Effect::Listed);
        // A flight under way before it ends in it, or goes on behind.
        if (i > 0 && m_files[i - 1]->hasSamples())
            draft.touch(m_files[i - 1]->lastSeconds, m_files[i - 1]->lastSeconds);
        if (i + 1 < m_files.size() && m_files[i + 1]->hasSamples())
            draft.touch(m_files[i + 1]->firstSeconds, m_files[i + 1]->firstSeconds);
    }
}

/// What cannot be read, or ends in the midst of something.
void FileChecker::findUnusable(const std::vector<QString>& unread)
{
    const auto isDouble = [&](const FileFacts* file) {
        return std::ranges::any_of(m_trust.drafts, [&](const TrustDraft& draft) {
            return draft.finding.kind == TrustKind::DuplicateFile &&
                   draft.finding.files.front() == file->name;
        });
    };
    for (const FileFacts* const file : m_files) {
        const bool isUnread =
            !file->isReadable || std::ranges::find(unread, file->name) != unread.end();
        if (!isUnread && file->hasSamples() && !isDouble(file))
            m_trust.sound.push_back(file);
        if (isUnread) {
            TrustDraft& draft = m_trust.drafts.emplace_back();
            draft.finding = {TrustKind::UnreadableFile,
                             {},
                             {},
                             {file->name},
                             TrustText::unreadableFile(file->name),
                             {}};
        } else if (file->isCut() && !isDouble(file)) {
            TrustDraft& draft = m_trust.drafts.emplace_back();
            draft.finding = {TrustKind::TruncatedFile,
                             {},
                             {},
                             {file->name},
                             TrustText::truncatedFile(file->name, {}),
                             {}};
            if (file->hasSamples())
                draft.finding.from = file->lastSeconds;
            // The date of an undated file follows from its last time.
            if (file == m_files.front() && file->info.dateInvalid)
                draft.touch(-endOfTime, endOfTime, TouchedSpan::Effect::Listed, Figure::DateTime);
        }
    }
}

/// The numbers of a card go on from cycle to cycle: what lacks before the next one may be the end
/// of this one.
void FileChecker::findMissingAtEnd()
{
    const auto isNoCopy = [](const FileFacts& file) { return file.copyOf.isEmpty(); };
    const auto last = std::ranges::find_if(m_files.rbegin(), m_files.rend(),
                                           [&](const FileFacts* f) { return isNoCopy(*f); });
    if (!m_cycle || m_trust.sound.empty() || last == m_files.rend())
        return;
    const auto behind = m_card.all().begin() + (m_files.back() - m_card.all().data() + 1);
    const auto next = std::find_if(behind, m_card.all().end(), isNoCopy);
    if (next == m_card.all().end() || !m_card.isNumberMissing(**last, *next))
        return;
    const double stop = m_trust.sound.back()->lastSeconds;
    TrustDraft& draft = m_trust.drafts.emplace_back();
    draft.finding = {TrustKind::MissingFile,
                     stop,
                     {},
                     {(*last)->name},
                     TrustText::missingAtEnd((*last)->name, next->name),
                     {}};
    draft.touch(stop, endOfTime);
}

/// Behind a jump back, what is looked up by time is found in the wrong place until the times are
/// beyond those before the jump.
void FileChecker::findDisorder()
{
    double latest = -endOfTime;
    for (const FileFacts* const file : m_files) {
        if (!file->hasSamples())
            continue;
        if (file->firstSeconds < latest - joinSeconds) {
            m_trust.isInOrder = false;
            auto draft = std::ranges::find_if(m_trust.drafts, [&](const TrustDraft& d) {
                return isAbout(d.finding, file->name);
            });
            if (draft == m_trust.drafts.end())
                draft = m_trust.drafts.begin();
            if (draft != m_trust.drafts.end())
                draft->touch(file->firstSeconds, std::min(file->lastSeconds, latest),
                             TouchedSpan::Effect::Listed);
        }
        latest = std::max(latest, file->lastSeconds);
    }
}

/// The data set's date against the dates of its files' own headers.
void FileChecker::checkClock(const QDateTime& dateTime)
{
    constexpr double driftSeconds = 10.0;
    if (!dateTime.isValid() || m_trust.sound.empty())
        return;
    const double taken = static_cast<double>(dateTime.toMSecsSinceEpoch()) / 1000.0;
    TrustDraft late;
    std::optional<double> first; // of the first file, for the text
    for (const FileFacts* const file : m_trust.sound) {
        const std::optional<double> own = runClock(m_trust.sound, file);
        if (!own || std::abs(taken - *own) <= driftSeconds)
            continue;
        late.touch(file->firstSeconds, file->lastSeconds, TouchedSpan::Effect::Listed,
                   Figure::DateTime);
        if (file == m_trust.sound.front())
            first = taken - *own;
    }
    if (late.touched.empty())
        return;
    // An undated file's date comes from the file behind it: what is wrong with either is the cause.
    const FileFacts& opener = *m_files.front();
    if (opener.info.dateInvalid &&
        std::abs(opener.info.stopSeconds - opener.lastSeconds) > joinSeconds)
        return; // its last time is a stray, which is told with the others
    const auto explains = [&](const TrustDraft& draft) {
        return !first || (opener.info.dateInvalid && isAbout(draft.finding, m_files, 2));
    };
    const auto cause = std::ranges::find_if(m_trust.drafts, explains);
    if (cause != m_trust.drafts.end()) {
        cause->touched.insert(cause->touched.end(), late.touched.begin(), late.touched.end());
        return;
    }
    late.finding.kind = TrustKind::LateClock;
    late.finding.files = {opener.name};
    late.finding.text = TrustText::lateClock(opener.name, first.value_or(0.0));
    m_trust.drafts.push_back(std::move(late));
}

void FileChecker::checkCycle()
{
    if (m_cycle != 0 || m_trust.sound.empty())
        return;
    TrustDraft& draft = m_trust.drafts.emplace_back();
    draft.finding.kind = TrustKind::BeforeFirstCycle;
    for (const FileFacts* const file : m_files)
        draft.finding.files.push_back(file->name);
    draft.finding.text = TrustText::beforeFirstCycle();
    draft.touch(-endOfTime, m_trust.sound.front()->firstSeconds); // a flight may begin there
}

} // namespace

FileTrust fileTrust(const CardFiles& card, const std::vector<QString>& names,
                    const QDateTime& dateTime, const std::vector<QString>& unread,
                    const QString& engineType)
{
    return FileChecker(card, names).check(dateTime, unread, engineType);
}

} // namespace KOLT
