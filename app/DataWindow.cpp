#include "app/DataWindow.h"

#include "app/settings/DataPaths.h"
#include "app/settings/ExportSettingsStore.h"
#include "app/settings/GraphSettingsStore.h"
#include "app/settings/MapSettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "graph/ui/DialogDataGraph.h"
#include "instruments/ui/DialogDataView.h"
#include "map/ui/DialogDataMap.h"

#include <QFile>

namespace KOLT {

DataWindow createDataWindow(const Profile& profile, const SettingsStore& settings,
                            DialogData::Display display, QWidget* parent, DialogData::Clock clock)
{
    const QString viewFile =
        QFile::decodeName(DataPaths::instance().resourcePath() + "views/instruments.v");
    DataWindow parts;
    parts.graph = new DialogDataGraph(profile, loadGraphSettings(settings));
    parts.map = new DialogDataMap(profile, loadMapSettings(settings));
    parts.view = new DialogDataView(profile, viewFile);
    parts.window = new DialogData(profile,
                                  {DialogData::hosted(parts.graph), DialogData::hosted(parts.view),
                                   DialogData::hosted(parts.map)},
                                  display, parent, std::move(clock));
    parts.window->setListSettings(loadListSettings(settings));
    QObject::connect(parts.graph, &DialogDataGraph::signalCursor, parts.window,
                     &DialogData::slotCursor);
    QObject::connect(parts.map, &DialogDataMap::signalTime, parts.window, &DialogData::slotMapTime);
    // Queued, as the map gets its new size first.
    QObject::connect(parts.window, &DialogData::signalMapPlaced, parts.map,
                     &DialogDataMap::fitTrack, Qt::QueuedConnection);
    return parts;
}

} // namespace KOLT
