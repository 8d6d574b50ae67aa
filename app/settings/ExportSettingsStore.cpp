#include "app/settings/ExportSettingsStore.h"

#include "app/settings/SettingsStore.h"

#include <QLocale>

namespace KOLT {

namespace {

QByteArray folderKey(const char* format)
{
    return QByteArray(format) + "ExportDir";
}

} // namespace

CsvOptions loadCsvOptions(const SettingsStore& store)
{
    return readCsvOptions(store, QLocale::system().decimalPoint() == QLatin1String(","));
}

KmlOptions loadKmlOptions(const SettingsStore& store)
{
    return readKmlOptions(store);
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
