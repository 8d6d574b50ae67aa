#pragma once

#include "analysis/ListSettings.h"
#include "export/ExportOptions.h"

namespace KOLT {

class SettingsStore;

/// The options of the exports as the store has them; the decimal comma is on from the start where
/// the system's language writes numbers so.
CsvOptions loadCsvOptions(const SettingsStore& store);
KmlOptions loadKmlOptions(const SettingsStore& store);
ListSettings loadListSettings(const SettingsStore& store);

/// The folder of the last export in a format: "Csv", "Kml" or "Gpx".
QString loadExportFolder(const SettingsStore& store, const char* format);
void storeExportFolder(const QString& folder, const char* format, SettingsStore& store);

} // namespace KOLT
