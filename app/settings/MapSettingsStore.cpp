#include "app/settings/MapSettingsStore.h"

#include "app/settings/DataPaths.h"
#include "app/settings/SettingsStore.h"
#include "base/Version.h"

#include <QFile>

namespace KOLT {

namespace {

constexpr auto tileServerKey = "TileServer";
constexpr auto valuesKey = "MapValues";
constexpr auto notesKey = "MapNotes";

struct ShadingKey
{
    const char* key;
    double MapSettings::*value;
};

constexpr ShadingKey shadingKeys[] = {{"MapShadingContrast", &MapSettings::shadingContrast},
                                      {"MapShadingBrightness", &MapSettings::shadingBrightness},
                                      {"MapShadingFactor", &MapSettings::shadingFactor}};

} // namespace

MapSettings loadMapSettings(const SettingsStore& store)
{
    const QString dataPath = QFile::decodeName(DataPaths::instance().dataPath());
    MapSettings settings;
    settings.tileServer =
        QString::fromUtf8(store.getText(tileServerKey, settings.tileServer.toUtf8()));
    settings.tileDirectory = dataPath + QStringLiteral("/tiles/");
    settings.terrainDirectory = dataPath + QStringLiteral("/terrain/");
    settings.userAgent = QByteArray(versionText).replace(" ", "/") +
                         " (debriefing viewer for aircraft engine recordings)";
    settings.isNetworkEnabled = qEnvironmentVariableIsEmpty("KOLT_OFFLINE");
    settings.areValuesShown = store.getBoolean(valuesKey, settings.areValuesShown);
    settings.areNotesShown = store.getBoolean(notesKey, settings.areNotesShown);
    for (const auto& [key, value] : shadingKeys)
        settings.*value = store.getDouble(key, settings.*value);
    return settings;
}

bool storeMapChanges(const MapSettings& from, const MapSettings& to, SettingsStore& store)
{
    bool isChanged = to.tileServer != from.tileServer;
    if (isChanged) {
        const QString server = to.tileServer.trimmed();
        store.setText(tileServerKey,
                      (server.isEmpty() ? MapSettings().tileServer : server).toUtf8());
    }
    if (to.areValuesShown != from.areValuesShown) {
        store.setBoolean(valuesKey, to.areValuesShown);
        isChanged = true;
    }
    if (to.areNotesShown != from.areNotesShown) {
        store.setBoolean(notesKey, to.areNotesShown);
        isChanged = true;
    }
    for (const auto& [key, value] : shadingKeys) {
        if (to.*value == from.*value)
            continue;
        store.setDouble(key, to.*value);
        isChanged = true;
    }
    return isChanged;
}

} // namespace KOLT
