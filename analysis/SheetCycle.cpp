#include "analysis/SheetCycle.h"

namespace KOLT {

namespace {

void addOnce(QStringList& texts, const QString& text)
{
    if (!text.isEmpty() && !texts.contains(text))
        texts.push_back(text);
}

QString engineText(const RecordInfo& info)
{
    const QString serial = info.engineSerial.trimmed();
    const QString type = info.engineType.trimmed();
    // Without a number the type alone says little, and differs from the files that have one.
    return serial.isEmpty() || type.isEmpty() ? serial
                                              : QStringLiteral("%1 (%2)").arg(serial, type);
}

} // namespace

SheetCycle sheetCycle(const Profile& profile, const CardFiles& card, const DataSet& dataSet,
                      std::optional<int> number)
{
    SheetCycle cycle;
    cycle.number = number;
    cycle.dateTime = dataSet.dateTime;
    cycle.log = flightLog(profile, dataSet);
    cycle.findings = recordingTrust(profile, card, dataSet, {profile.engineType()}).findings;
    for (const LoadedFile& loaded : dataSet.files) {
        const FileFacts* const file = card.find(loaded.name);
        if (file == nullptr)
            continue;
        addOnce(cycle.engines, engineText(file->info));
        if (file->info.ecuSerialNumber != 0)
            addOnce(cycle.units, QString::number(file->info.ecuSerialNumber));
    }
    return cycle;
}

} // namespace KOLT
