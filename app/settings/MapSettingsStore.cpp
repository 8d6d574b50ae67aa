#include "app/settings/MapSettingsStore.h"

#include "app/settings/DataPaths.h"
#include "app/settings/SettingsStore.h"
#include "base/Version.h"

#include <QFile>

namespace KOLT {

MapSettings loadMapSettings(const SettingsStore& store)
{
    const QString dataPath = QFile::decodeName(DataPaths::instance().dataPath());
    MapSettings settings;
    settings.tileServer = QString::fromUtf8(store.getText("TileServer"));
    settings.tileDirectory = dataPath + QStringLiteral("/tiles/");
    settings.terrainDirectory = dataPath + QStringLiteral("/terrain/");
    settings.userAgent = QByteArray(versionText).replace(" ", "/") +
                         " (debriefing viewer for aircraft engine recordings)";
    settings.isNetworkEnabled = qEnvironmentVariableIsEmpty("KOLT_OFFLINE");
    settings.shadingContrast = store.getDouble("MapShadingContrast", settings.shadingContrast);
    settings.shadingBrightness =
        store.getDouble("MapShadingBrightness", settings.shadingBrightness);
    settings.shadingFactor = store.getDouble("MapShadingFactor", settings.shadingFactor);
    return settings;
}

} // namespace KOLT
