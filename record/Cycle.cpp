#include "record/Cycle.h"

#include <QCoreApplication>

namespace KOLT {

std::map<int, Cycle> divideIntoCycles(const std::map<QString, RecordFile>& files)
{
    std::map<int, Cycle> cycles;
    int number = 0;
    for (const auto& [name, file] : files) {
        const RecordInfo& info = file.info();
        if (info.dateInvalid)
            ++number;
        Cycle& cycle = cycles[number];
        if (cycle.fileNames.empty()) {
            cycle.number = number;
            cycle.name = QCoreApplication::translate("KOLT::Cycle", "Cycle %1").arg(number);
            cycle.dateTime = info.dateTime;
            cycle.startSeconds = info.startSeconds;
        }
        cycle.fileNames.push_back(name);
        cycle.stopSeconds = info.stopSeconds;
    }
    return cycles;
}

} // namespace KOLT
