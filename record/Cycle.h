#pragma once

#include "record/RecordFile.h"

#include <QDateTime>
#include <QString>

#include <map>
#include <vector>

namespace KOLT {

/// One run of the engine: from the file without a valid date, written before the unit had a clock,
/// to the file before the next such.
struct Cycle
{
    int number = 0;                 ///< from 1; 0 for files before the first that opens a cycle
    QString name;                   ///< "Cycle <number>"
    QDateTime dateTime;             ///< of the first file; invalid when it could not be repaired
    std::vector<QString> fileNames; ///< in name order
    double startSeconds = 0.0;      ///< of the first file
    double stopSeconds = 0.0;       ///< of the last file

    double durationSeconds() const { return stopSeconds - startSeconds; }
};

/// Divides the files of a card, in name order, into cycles by ascending number.
std::map<int, Cycle> divideIntoCycles(const std::map<QString, RecordFile>& files);

} // namespace KOLT
