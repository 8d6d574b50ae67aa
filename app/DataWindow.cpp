#include "app/DataWindow.h"

#include "app/settings/DataPaths.h"
#include "app/settings/ExportSettingsStore.h"
#include "app/settings/GraphSettingsStore.h"
#include "app/settings/MapSettingsStore.h"
#include "app/settings/PageSettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "graph/ui/DialogDataGraph.h"
#include "graph/ui/EpisodeCard.h"
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
    DialogData::HostedPages pages{DialogData::hosted(parts.graph), DialogData::hosted(parts.view),
                                  DialogData::hosted(parts.map)};
    for (std::size_t i = 0; i < parts.cards.size(); ++i) {
        parts.cards[i] = new EpisodeCard(profile);
        pages.cards[i] = {parts.cards[i], parts.cards[i]};
    }
    parts.window = new DialogData(profile, pages, display, parent, std::move(clock));
    parts.window->setListSettings(loadListSettings(settings));
    parts.window->setPageSettings(loadPageSettings(settings));
    QObject::connect(parts.graph, &DialogDataGraph::signalCursor, parts.window,
                     &DialogData::slotCursor);
    QObject::connect(parts.map, &DialogDataMap::signalTime, parts.window, &DialogData::slotMapTime);
    // Queued, as the map gets its new size first.
    QObject::connect(parts.window, &DialogData::signalMapPlaced, parts.map,
                     &DialogDataMap::fitTrack, Qt::QueuedConnection);
    return parts;
}

} // namespace KOLT
