#include "library/archive/CardFacts.h"

#include "base/WriteGuard.h"
#include "library/archive/UnitFolder.h"
#include "profile/Profile.h"
#include "record/CardContainer.h"

#include <QFileInfo>

#include <algorithm>
#include <tuple>

namespace KOLT::Library {

namespace {

/// A header cut short has no serial number: the unit is that of the file before, or after.
void completeUnits(std::vector<CardFile>& files)
{
    const auto carry = [](auto begin, auto end) {
        quint32 unit = 0;
        for (auto file = begin; file != end; ++file) {
            if (file->unit == 0)
                file->unit = unit;
            unit = file->unit;
        }
    };
    carry(files.begin(), files.end());
    carry(files.rbegin(), files.rend());
}

void numberCycles(std::vector<CardFile>& files)
{
    std::map<quint32, int> open;
    int count = 0;
    for (CardFile& file : files) {
        const auto known = open.find(file.unit);
        const bool isNew = known == open.end() || !file.file.dateTime.isValid();
        file.cycle = isNew ? ++count : known->second;
        open[file.unit] = file.cycle;
    }
    std::ranges::stable_sort(files, {}, &CardFile::cycle);
}

} // namespace

std::optional<CardFacts> listCard(const QString& folder, const std::function<void()>& onFile)
{
    const Profile profile;
    CardContainer card(profile);
    if (!card.readContainer(folder, [&](int) {
            if (onFile)
                onFile();
        }))
        return std::nullopt;
    CardFacts facts;
    for (const auto& [name, record] : card.files()) {
        CardFile file;
        file.path = record.path();
        file.file = describeFile(name, record.info(), QFileInfo(record.path()).size());
        file.unit = record.info().ecuSerialNumber;
        facts.bytes += file.file.bytes;
        facts.files.push_back(file);
    }
    completeUnits(facts.files);
    numberCycles(facts.files);
    facts.protection = protectFolder(folder);
    return facts;
}

} // namespace KOLT::Library
