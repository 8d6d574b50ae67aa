#pragma once

#include "analysis/FlightLog.h"
#include "record/RecordingTrust.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace KOLT {

/// An engine cycle, or some files, as a day sheet lists it.
struct SheetCycle
{
    std::optional<int> number; ///< none when it is made of chosen files
    QDateTime dateTime;        ///< clock time at counter 0; may be invalid
    FlightLog log;
    std::vector<TrustFinding> findings;
    QStringList engines; ///< serial numbers with the engine's type; usually one
    QStringList units;   ///< serial numbers
};

/// Reads a data set for the sheet. `card` must have been made of the folder it was loaded from. As
/// recordingTrust(), nobody else may look at the data set meanwhile.
SheetCycle sheetCycle(const Profile& profile, const CardFiles& card, const DataSet& dataSet,
                      std::optional<int> number);

} // namespace KOLT
