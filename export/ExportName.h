#pragma once

#include "record/DataSet.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace KOLT {

/// Where the data set came from, as far as the data set does not tell itself.
struct ExportSubject
{
    std::optional<int> cycle; ///< number of the engine cycle; none for raw files
    QStringList files;        ///< names of the raw files
};

/// "Flight 2, 28.07.2026 14:32", "Cycle 3, ..." or the first file's name; without the date when the
/// recording has none. The moment is that of the take-off, otherwise of the first file.
QString exportTitle(const ExportSubject& subject, const DataSet& dataSet);

/// "Kolt_2026-07-28_1432_Flight2.kml": the same as the name of a file. Without a date,
/// "Kolt_Cycle3_Flight2.kml". Only letters, digits and "._-".
QString exportFileName(const ExportSubject& subject, const DataSet& dataSet, const QString& suffix);

} // namespace KOLT
