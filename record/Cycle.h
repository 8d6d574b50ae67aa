#pragma once

#include "record/RecordFile.h"

#include <QDateTime>
#include <QString>

#include <map>
#include <vector>

namespace KOLT {

/// One run of the engine. It starts with a file without a valid date, as the unit has no clock
/// until its first position fix, and ends before the next such file.
struct Cycle
{
    int number = 0;                 ///< from 1; 0: the files before the first cycle
    QString name;                   ///< "Cycle <number>"
    QDateTime dateTime;             ///< of the first file; invalid if it could not be repaired
    std::vector<QString> fileNames; ///< in name order
    double startSeconds = 0.0;      ///< of the first file
    double stopSeconds = 0.0;       ///< of the last file

    double durationSeconds() const { return stopSeconds - startSeconds; }
};

/// Divides the files of a card into cycles, by number. `files` are by name.
std::map<int, Cycle> divideIntoCycles(const std::map<QString, RecordFile>& files);

} // namespace KOLT
