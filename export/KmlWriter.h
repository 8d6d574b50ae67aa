#pragma once

#include "export/ExportOptions.h"
#include "export/ExportProgress.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

#include <QString>

class QIODevice;

namespace KOLT {

/// Writes the flight path as KML 2.2 (docs/exports.md): path, curtain, marks along the path with
/// the selected parameters, and marks where something was exceeded; a folder for each flight where
/// the data set is not a single one. Without a path, a document that is empty but for what was
/// exceeded.
///
/// Altitudes are absolute metres; without any recorded, the path lies on the ground. Texts are in
/// the profile's unit system. Profile and data set must stay as they are while it is written.
ExportStatus writeKml(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                      const KmlOptions& options, const QString& title,
                      const ExportProgress& progress = {});

} // namespace KOLT
