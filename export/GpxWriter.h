#pragma once

#include "export/ExportProgress.h"
#include "record/DataSet.h"

#include <QString>

class QIODevice;

namespace KOLT {

/// Writes the flight path as GPX 1.1 (docs/exports.md): one track per flight, or one of all where
/// no flight was found. Altitudes are metres, times those of the recording's clock, if it had one.
/// The data set must stay as it is while it is written.
ExportStatus writeGpx(QIODevice& device, const DataSet& dataSet, const QString& title,
                      const ExportProgress& progress = {});

} // namespace KOLT
