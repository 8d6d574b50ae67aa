#pragma once

#include "analysis/ListSettings.h"
#include "export/ExportOptions.h"

#include <QLocale>

namespace KOLT {

class SettingsStore;

/// The options of the exports as the store has them; values out of range are clamped. Without a
/// setting, the decimal comma follows the locale.
CsvOptions loadCsvOptions(const SettingsStore& store, const QLocale& locale = QLocale::system());
KmlOptions loadKmlOptions(const SettingsStore& store);
GpxOptions loadGpxOptions(const SettingsStore& store);
ListSettings loadListSettings(const SettingsStore& store);

/// Puts the options into the store; saving it is up to the caller.
void storeCsvOptions(const CsvOptions& options, SettingsStore& store);
void storeKmlOptions(const KmlOptions& options, SettingsStore& store);
void storeGpxOptions(const GpxOptions& options, SettingsStore& store);

/// The folder of the last export in a format: "Csv", "Kml" or "Gpx".
QString loadExportFolder(const SettingsStore& store, const char* format);
void storeExportFolder(const QString& folder, const char* format, SettingsStore& store);

} // namespace KOLT
