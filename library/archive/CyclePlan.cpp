#include "library/archive/CyclePlan.h"

#include "record/RecordFormat.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>

namespace KOLT::Library {

namespace {

using Group = std::vector<const PlanFile*>;

constexpr double runTolerance = 120.0; ///< s, by which date and counter of a run may drift
constexpr qint64 sameDate = 900;       ///< s; the repaired date of a cut file is later

qint64 samplesOf(const ManifestFile& file)
{
    return std::max<qint64>(0, file.bytes - qint64{RecordFormat::headerBytes}) /
           qint64{RecordFormat::sampleBytes};
}

bool hasHeader(const ManifestFile& file)
{
    return file.bytes >= qint64{RecordFormat::headerBytes};
}

/// The better content of a recording comes first.
bool isBetter(const PlanFile* one, const PlanFile* other)
{
    const auto rank = [](const ManifestFile& file) {
        return std::tuple(-samplesOf(file), file.bytes, file.sha256);
    };
    return rank(one->file) < rank(other->file);
}

/// The clock time at counter 0, in seconds; none without a date.
std::optional<double> originOf(const ManifestFile& file)
{
    if (!file.dateTime.isValid())
        return std::nullopt;
    return static_cast<double>(file.dateTime.toSecsSinceEpoch()) - file.start;
}

struct NumberedName
{
    QString before;
    qint64 number = 0;
};

/// A name that ends with a number, in front of the suffix.
std::optional<NumberedName> numbered(const QString& name)
{
    constexpr qsizetype maxDigits = 18;
    const qsizetype end = name.lastIndexOf(QLatin1Char('.'));
    qsizetype begin = end;
    while (begin > 0 && name[begin - 1] >= QLatin1Char('0') && name[begin - 1] <= QLatin1Char('9'))
        --begin;
    if (begin >= end || end - begin > maxDigits)
        return std::nullopt;
    return NumberedName{name.left(begin), QStringView(name).mid(begin, end - begin).toLongLong()};
}

/// Whether files are known to be missing between two that follow each other by name.
bool hasGap(const QString& before, const QString& after)
{
    const auto first = numbered(before);
    const auto second = numbered(after);
    return first && second &&
           (first->before != second->before || second->number > first->number + 1);
}

bool isSameRun(const Group& run, const ManifestFile& next)
{
    const std::optional<double> origin = originOf(next);
    const auto dated = std::find_if(run.rbegin(), run.rend(), [](const PlanFile* file) {
        return file->file.dateTime.isValid();
    });
    return origin && dated != run.rend() &&
           std::abs(*originOf((*dated)->file) - *origin) <= runTolerance;
}

/// Whether a card or a folder of the archive held a file of the run and one of the rest of the
/// files up to the next without a date.
bool wereTogether(const Group& run, const Group& files, std::size_t from)
{
    std::set<QString> folders;
    bool isOnCard = false;
    for (const PlanFile* file : run) {
        isOnCard = isOnCard || file->isOnCard;
        if (!file->folder.isEmpty())
            folders.insert(file->folder);
    }
    for (std::size_t i = from; i < files.size() && files[i]->file.dateTime.isValid(); ++i) {
        if ((isOnCard && files[i]->isOnCard) || folders.contains(files[i]->folder))
            return true;
    }
    return false;
}

/// Files in name order, divided into cycles.
std::vector<Group> divide(const Group& files)
{
    std::vector<Group> cycles;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const ManifestFile& file = files[i]->file;
        const bool begins =
            i == 0 || !file.dateTime.isValid() ||
            (hasGap(files[i - 1]->file.name, file.name) && !isSameRun(cycles.back(), file) &&
             !wereTogether(cycles.back(), files, i));
        if (begins)
            cycles.emplace_back();
        cycles.back().push_back(files[i]);
    }
    return cycles;
}

/// All contents of the recordings of a sequence, by name, the best first.
std::map<QString, Group> byName(const Group& files)
{
    std::map<QString, Group> names;
    for (const PlanFile* file : files)
        names[file->file.name].push_back(file);
    for (auto& [name, group] : names)
        std::ranges::sort(group, isBetter);
    return names;
}

/// What a further copy of the same name has more in its name.
QString copyMark(const ManifestFile& file)
{
    constexpr int hashDigits = 8;
    return QLatin1Char(' ') + file.sha256.left(hashDigits);
}

/// "REC00001.CAN", and for further copies "REC00001 <hash>.CAN".
QString copyName(const ManifestFile& file, bool isFirst)
{
    QString name = file.name;
    return isFirst ? name : name.insert(name.lastIndexOf(QLatin1Char('.')), copyMark(file));
}

class Planner
{
public:
    explicit Planner(quint32 unit)
        : m_unit(unit)
    {
    }

    void add(int sequence, const Group& files)
    {
        const std::map<QString, Group> names = byName(files);
        Group best;
        for (const auto& [name, group] : names)
            best.push_back(group.front());
        for (const Group& cycle : divide(best)) {
            Manifest manifest{m_unit, sequence, {}, {}};
            for (const PlanFile* file : cycle)
                manifest.files << file->file;
            const QString folder = freeFolder(folderNameOf(m_unit, manifest.files));
            for (const PlanFile* file : cycle) {
                move(*file, folder + QLatin1Char('/') + file->file.name);
                addCopies(manifest, folder, names.at(file->file.name));
            }
            std::ranges::sort(manifest.copies, {}, &ManifestFile::name);
            m_plan.manifests[folder] = manifest;
        }
    }

    CyclePlan plan() { return std::move(m_plan); }

private:
    /// Runs that ended before the unit knew the date may begin with equal files.
    QString freeFolder(const QString& name) const
    {
        QString folder = name;
        for (int i = 2; m_plan.manifests.contains(folder); ++i)
            folder = QStringLiteral("%1 %2").arg(name).arg(i);
        return folder;
    }

    void addCopies(Manifest& manifest, const QString& folder, const Group& group)
    {
        for (std::size_t i = 1; i < group.size(); ++i) {
            ManifestFile copy = group[i]->file;
            copy.name = copyName(copy, i == 1);
            move(*group[i],
                 QStringLiteral("%1/%2/%3").arg(folder, QLatin1String(copiesName), copy.name));
            manifest.copies << copy;
        }
    }

    void move(const PlanFile& file, const QString& place)
    {
        if (!file.isMissing && file.place != place)
            m_plan.moves.push_back({file.place, place});
    }

    quint32 m_unit;
    CyclePlan m_plan;
};

std::map<int, Group> bySequence(const std::vector<PlanFile>& files)
{
    std::map<int, Group> sequences;
    for (const PlanFile& file : files)
        sequences[file.sequence].push_back(&file);
    return sequences;
}

QList<ManifestFile> filesOf(const Group& cycle)
{
    QList<ManifestFile> files;
    for (const PlanFile* file : cycle)
        files << file->file;
    return files;
}

struct Dated
{
    const PlanFile* file = nullptr;
    QDateTime date; ///< of the file, or that of its cycle where it has none
};

/// By name.
using Calendar = std::map<QString, Dated>;

Calendar calendarOf(const Group& contents)
{
    Group best;
    for (const auto& [name, group] : byName(contents))
        best.push_back(group.front());
    Calendar calendar;
    for (const Group& cycle : divide(best)) {
        const QDateTime date = dateTimeOf(filesOf(cycle));
        for (const PlanFile* file : cycle) {
            const QDateTime& own = file->file.dateTime;
            calendar[file->file.name] = {file, own.isValid() ? own : date};
        }
    }
    return calendar;
}

/// Whether two files of the same name are recordings of the same time, one of them damaged.
bool isSameRecording(const ManifestFile& one, const QDateTime& oneDate, const ManifestFile& other,
                     const QDateTime& otherDate)
{
    if (!hasHeader(one) || !hasHeader(other))
        return true;
    if (!oneDate.isValid() || !otherDate.isValid())
        return one.start == other.start;
    return std::abs(oneDate.secsTo(otherDate)) <= sameDate;
}

bool contradicts(const Calendar& added, const Calendar& present)
{
    return std::ranges::any_of(added, [&](const auto& entry) {
        const auto same = present.find(entry.first);
        return same != present.end() &&
               !isSameRecording(entry.second.file->file, entry.second.date, same->second.file->file,
                                same->second.date);
    });
}

/// The dates in the headers of the next few files; a single one may be damaged.
template <typename Iterator>
std::vector<QDateTime> nextDates(Iterator file, Iterator end)
{
    constexpr std::size_t few = 3;
    std::vector<QDateTime> dates;
    for (; file != end && dates.size() < few; ++file) {
        if (const QDateTime& date = file->second.file->file.dateTime; date.isValid())
            dates.push_back(date);
    }
    return dates;
}

/// Whether names and dates agree about the order: a unit that began to count anew uses low numbers
/// at later dates.
bool isInOrder(const Calendar& added, const Calendar& present)
{
    constexpr qint64 tolerance = 86400; // s
    std::vector<QDateTime> dates;
    for (const auto& [name, entry] : added) {
        if (entry.file->file.dateTime.isValid())
            dates.push_back(entry.file->file.dateTime);
    }
    if (dates.empty())
        return true;
    const auto range = std::ranges::minmax(dates);
    const auto after = present.upper_bound(added.rbegin()->first);
    const auto before = std::make_reverse_iterator(present.lower_bound(added.begin()->first));
    const std::vector<QDateTime> earlier = nextDates(before, present.rend());
    const std::vector<QDateTime> later = nextDates(after, present.end());
    const bool isTooLate = std::ranges::all_of(
        earlier, [&](const QDateTime& date) { return range.max.secsTo(date) > tolerance; });
    const bool isTooEarly = std::ranges::all_of(
        later, [&](const QDateTime& date) { return date.secsTo(range.min) > tolerance; });
    return (earlier.empty() || !isTooLate) && (later.empty() || !isTooEarly);
}

} // namespace

bool sameContent(const ManifestFile& one, const ManifestFile& other)
{
    return one.sha256 == other.sha256 && (one.dateTime.isValid() || one.name == other.name);
}

QString nameOfCopy(const ManifestFile& file)
{
    const qsizetype dot = file.name.lastIndexOf(QLatin1Char('.'));
    const QString mark = copyMark(file);
    return QStringView(file.name).left(dot).endsWith(mark)
               ? file.name.left(dot - mark.size()) + file.name.mid(dot)
               : file.name;
}

void chooseSequence(std::vector<PlanFile>& files, const std::vector<std::size_t>& newOnes)
{
    Group group;
    for (const std::size_t i : newOnes)
        group.push_back(&files[i]);
    const Calendar added = calendarOf(group);
    std::map<int, Group> sequences = bySequence(files);
    sequences.erase(0);
    int chosen = sequences.empty() ? 1 : sequences.rbegin()->first + 1;
    qsizetype most = -1;
    for (const auto& [sequence, known] : sequences) {
        const Calendar present = calendarOf(known);
        const qsizetype onCard = std::ranges::count(known, true, &PlanFile::isOnCard);
        if (onCard < most || contradicts(added, present) || !isInOrder(added, present))
            continue;
        most = onCard;
        chosen = sequence;
    }
    for (const std::size_t i : newOnes)
        files[i].sequence = chosen;
}

CyclePlan planCycles(quint32 unit, const std::vector<PlanFile>& files)
{
    Planner planner(unit);
    for (const auto& [sequence, group] : bySequence(files))
        planner.add(sequence, group);
    return planner.plan();
}

} // namespace KOLT::Library
