#include "app/settings/ExportSettingsStore.h"

#include "app/settings/SettingsStore.h"

#include <climits>

namespace KOLT {

namespace {

/// Keys of the store and their member of KmlOptions.
template <typename Value>
struct KmlKey
{
    const char* key;
    Value KmlOptions::*member;
};

constexpr KmlKey<int> kmlNumbers[] = {{"KmlLineWidth", &KmlOptions::lineWidth},
                                      {"KmlLineAlpha", &KmlOptions::lineAlpha},
                                      {"KmlPolygonAlpha", &KmlOptions::polygonAlpha},
                                      {"KmlPlaceMarkIntervall", &KmlOptions::placeMarkInterval}};
constexpr KmlKey<bool> kmlFlags[] = {
    {"KmlPacked", &KmlOptions::packed},           {"KmlPolygonOn", &KmlOptions::polygonOn},
    {"KmlPlaceMarkOn", &KmlOptions::placeMarkOn}, {"KmlErrorMarkOn", &KmlOptions::errorMarkOn},
    {"KmlShowLimit", &KmlOptions::showLimit},     {"KmlShowWarning", &KmlOptions::showWarning}};
constexpr KmlKey<QColor> kmlColors[] = {{"KmlLineColor", &KmlOptions::lineColor},
                                        {"KmlPolygonColor", &KmlOptions::polygonColor},
                                        {"KmlPlaceMarkColor", &KmlOptions::placeMarkColor},
                                        {"KmlErrorMarkColor", &KmlOptions::errorMarkColor},
                                        {"KmlWarningMarkColor", &KmlOptions::warningMarkColor}};

QByteArray folderKey(const char* format)
{
    return QByteArray(format) + "ExportDir";
}

} // namespace

CsvOptions loadCsvOptions(const SettingsStore& store, const QLocale& locale)
{
    CsvOptions options;
    const int code = store.getInteger("CsvLimiter", options.separator);
    options.separator = code > 0 && code <= CHAR_MAX ? static_cast<char>(code) : '\0';
    options.resolution =
        bounded("CsvResolution", store.getInteger("CsvResolution", options.resolution));
    options.allParameters = store.getBoolean("CsvAllParameter", options.allParameters);
    // A decimal comma that the user did not ask for must not conflict with the separator.
    const bool isUsual = locale.decimalPoint() == QLatin1String(",") && options.separator != ',';
    options.decimalComma = store.getBoolean("CsvDecimalComma", isUsual);
    options.codesOnly = store.getBoolean("CsvCodesOnly", options.codesOnly);
    return options;
}

void storeCsvOptions(const CsvOptions& options, SettingsStore& store)
{
    store.setInteger("CsvLimiter", options.separator);
    store.setInteger("CsvResolution", options.resolution);
    store.setBoolean("CsvAllParameter", options.allParameters);
    store.setBoolean("CsvDecimalComma", options.decimalComma);
    store.setBoolean("CsvCodesOnly", options.codesOnly);
}

KmlOptions loadKmlOptions(const SettingsStore& store)
{
    KmlOptions options;
    for (const auto& [key, number] : kmlNumbers)
        options.*number = bounded(key, store.getInteger(key, options.*number));
    for (const auto& [key, flag] : kmlFlags)
        options.*flag = store.getBoolean(key, options.*flag);
    for (const auto& [key, color] : kmlColors)
        options.*color = colorOf(store.getText(key), options.*color);
    options.timeStamp = static_cast<KmlOptions::Times>(bounded(
        "KmlTimeStamp", store.getInteger("KmlTimeStamp", static_cast<int>(options.timeStamp))));
    options.altitudeMode = static_cast<KmlOptions::AltitudeMode>(
        bounded("KmlAltitudeMode",
                store.getInteger("KmlAltitudeMode", static_cast<int>(options.altitudeMode))));
    return options;
}

void storeKmlOptions(const KmlOptions& options, SettingsStore& store)
{
    for (const auto& [key, number] : kmlNumbers)
        store.setInteger(key, options.*number);
    for (const auto& [key, flag] : kmlFlags)
        store.setBoolean(key, options.*flag);
    for (const auto& [key, color] : kmlColors)
        store.setText(key, colorText(options.*color));
    store.setInteger("KmlTimeStamp", static_cast<int>(options.timeStamp));
    store.setInteger("KmlAltitudeMode", static_cast<int>(options.altitudeMode));
}

GpxOptions loadGpxOptions(const SettingsStore& store)
{
    GpxOptions options;
    options.wayPoints = store.getBoolean("GpxWayPoints", options.wayPoints);
    options.speeds = store.getBoolean("GpxSpeeds", options.speeds);
    return options;
}

void storeGpxOptions(const GpxOptions& options, SettingsStore& store)
{
    store.setBoolean("GpxWayPoints", options.wayPoints);
    store.setBoolean("GpxSpeeds", options.speeds);
}

ListSettings loadListSettings(const SettingsStore& store)
{
    ListSettings settings;
    settings.folder = loadExportFolder(store, "Csv");
    const CsvOptions options = loadCsvOptions(store);
    settings.separator = QLatin1Char(options.separator);
    settings.decimalComma = options.decimalComma;
    return settings;
}

QString loadExportFolder(const SettingsStore& store, const char* format)
{
    return QString::fromUtf8(store.getText(folderKey(format), "."));
}

void storeExportFolder(const QString& folder, const char* format, SettingsStore& store)
{
    store.setText(folderKey(format), folder.toUtf8());
}

} // namespace KOLT
