#pragma once

#include "analysis/ListSettings.h"
#include "export/ExportOptions.h"

namespace KOLT {

class SettingsStore;

/// The stored export options. The decimal comma defaults to the convention of the system's locale.
CsvOptions loadCsvOptions(const SettingsStore& store);
KmlOptions loadKmlOptions(const SettingsStore& store);
ListSettings loadListSettings(const SettingsStore& store);

/// Folder of the last export; the format is "Csv", "Kml" or "Gpx".
QString loadExportFolder(const SettingsStore& store, const char* format);
void storeExportFolder(const QString& folder, const char* format, SettingsStore& store);

} // namespace KOLT
