#include "record/UnitTrust.h"

#include "profile/Profile.h"
#include "record/TrustText.h"

#include <algorithm>

namespace KOLT {

namespace {

using Files = std::vector<const FileFacts*>;

template <typename Value>
void checkUnit(const Files& files, TrustKind kind, const QString& what, Value&& valueOf,
               TrustDrafts& drafts)
{
    // A unit may not know its numbers yet when it opens its first file.
    std::map<QString, std::size_t> counts;
    for (const FileFacts* const file : files) {
        const QString value = valueOf(file->info);
        if (!value.isEmpty() && value != QLatin1String("0"))
            ++counts[value];
    }
    if (counts.size() < 2)
        return;
    // The rarer numbers are those that stand out; of equally many, the later.
    QString usual;
    for (const FileFacts* const file : files) {
        const auto found = counts.find(valueOf(file->info));
        if (found != counts.end() && (usual.isEmpty() || found->second > counts[usual]))
            usual = found->first;
    }
    TrustDraft draft;
    QString other;
    draft.finding.kind = kind;
    for (const FileFacts* const file : files) {
        const QString value = valueOf(file->info);
        if (value == usual || !counts.contains(value))
            continue;
        other = value;
        draft.finding.files.push_back(file->name);
        draft.finding.from = std::min(draft.finding.from.value_or(endOfTime), file->firstSeconds);
        draft.finding.to = std::max(draft.finding.to.value_or(-endOfTime), file->lastSeconds);
        draft.touch(file->firstSeconds, file->lastSeconds, TouchedSpan::Effect::Listed,
                    kind == TrustKind::SerialChanged
                        ? Figure::All
                        : Figure::FuelA | Figure::FuelB | Figure::Fuel | Figure::FuelPer100m);
    }
    draft.finding.text = TrustText::unitChanged(kind, what, usual, other);
    drafts.push_back(std::move(draft));
}

void checkEngine(const Files& files, const QString& pattern, TrustDrafts& drafts)
{
    TrustFinding finding;
    QString other;
    for (const FileFacts* const file : files) {
        const QString type = file->info.engineType.trimmed();
        if (type.isEmpty() || Profile::matchesEngine(type, pattern))
            continue;
        other = type;
        finding.files.push_back(file->name);
    }
    if (finding.files.empty())
        return;
    finding.kind = TrustKind::OtherEngine;
    finding.text = TrustText::otherEngine(other, pattern);
    drafts.push_back({std::move(finding), {}, {}});
}

} // namespace

void unitTrust(const std::vector<const FileFacts*>& files, const QString& engineType,
               TrustDrafts& drafts)
{
    using Info = const RecordInfo&;
    checkUnit(
        files, TrustKind::SerialChanged, TrustText::engineSerial(),
        [](Info info) { return info.engineSerial; }, drafts);
    checkUnit(
        files, TrustKind::SerialChanged, TrustText::unitSerial(),
        [](Info info) { return QString::number(info.ecuSerialNumber); }, drafts);
    checkUnit(
        files, TrustKind::SoftwareChanged, TrustText::software(),
        [](Info info) {
            const QStringList parts{info.softwarePartA, info.softwarePartB, info.emuVersion};
            return parts.contains(QString()) ? QString() : parts.join(QStringLiteral(", "));
        },
        drafts);
    if (!engineType.isEmpty())
        checkEngine(files, engineType, drafts);
}

} // namespace KOLT
