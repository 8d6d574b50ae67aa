#pragma once

#include "export/ExportProgress.h"
#include "record/DataSet.h"

#include <QString>

class QIODevice;

namespace KOLT {

/// Writes the flight path as GPX 1.1 (docs/exports.md): one track per flight, or a single one if no
/// flight was found. Altitudes are in metres; times are those of the recording's clock, if it has
/// one. `note` is told in the description. The data set must not change during the call.
ExportStatus writeGpx(QIODevice& device, const DataSet& dataSet, const QString& title,
                      const ExportProgress& progress = {}, const QString& note = {});

} // namespace KOLT
