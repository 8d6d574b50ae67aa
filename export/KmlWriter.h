#pragma once

#include "export/ExportOptions.h"
#include "export/ExportProgress.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

#include <QString>

class QIODevice;

namespace KOLT {

/// Writes the flight path as KML 2.2 or, packed with its icons, as KMZ (docs/exports.md): path,
/// curtain, marks along the path with the selected parameters, and marks of exceedances; one folder
/// per flight unless the data set is a single flight. Without a path only the exceedances are
/// written.
///
/// Altitudes are absolute, in metres; if none was recorded, the path lies on the ground. Texts are
/// in the profile's unit system. `note` is told in the description. Profile and data set must not
/// change during the call.
ExportStatus writeKml(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                      const KmlOptions& options, const QString& title,
                      const ExportProgress& progress = {}, const QString& note = {});

} // namespace KOLT
