#pragma once

#include "record/DataSet.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace KOLT {

/// The source of a data set, as far as the data set itself does not hold it.
struct ExportSubject
{
    std::optional<int> cycle; ///< number of the engine cycle, unless raw files were loaded
    QStringList files;        ///< names of the raw files
};

/// Title of exported documents: "Flight 2, 28.07.2026 14:32", "Cycle 3, ..." or the first file's
/// name; without date if the recording has none. The time is that of the take-off, otherwise of the
/// first sample.
QString exportTitle(const ExportSubject& subject, const DataSet& dataSet);

/// Proposed file name: "Kolt_2026-07-28_1432_Flight2.kml", without a date
/// "Kolt_Cycle3_Flight2.kml". Contains only ASCII letters, digits and "._-".
QString exportFileName(const ExportSubject& subject, const DataSet& dataSet, const QString& suffix);

} // namespace KOLT
