#pragma once

#include "export/ExportProgress.h"
#include "record/DataSet.h"

#include <QString>

class QIODevice;

namespace KOLT {

/// Writes the flight path as GPX 1.1 (docs/exports.md): one track per flight, or a single one if no
/// flight was found. Altitudes are in metres; times are those of the recording's clock, if it has
/// one. The description stands in the metadata, unless it is empty. The data set must not change
/// during the call.
ExportStatus writeGpx(QIODevice& device, const DataSet& dataSet, const QString& title,
                      const ExportProgress& progress = {}, const QString& description = {});

} // namespace KOLT
