#pragma once

#include "export/ExportOptions.h"
#include "export/ExportProgress.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

#include <QString>

class QIODevice;

namespace KOLT {

/// Writes the flight path as GPX 1.1 (docs/exports.md): one track per flight, or a single one if no
/// flight was found, and waypoints at take-offs, landings and exceedances. Altitudes are in metres;
/// times are those of the recording's clock, if it has one; texts are in the profile's unit system.
/// `note` is told in the description. Profile and data set must not change during the call.
ExportStatus writeGpx(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                      const GpxOptions& options, const QString& title,
                      const ExportProgress& progress = {}, const QString& note = {});

} // namespace KOLT
