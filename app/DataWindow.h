#pragma once

#include "analysis/ui/DialogData.h"

namespace KOLT {

class DialogDataGraph;
class DialogDataMap;
class DialogDataView;
class EpisodeCard;
class SettingsStore;

/// The data window and those of its pages and cards that come from other rooms.
struct DataWindow
{
    DialogData* window = nullptr;
    DialogDataGraph* graph = nullptr;
    DialogDataMap* map = nullptr;
    DialogDataView* view = nullptr;
    std::array<EpisodeCard*, 2> cards{}; ///< below exceedances and lamps
};

/// Creates the pages with the stored settings and connects them to the window. The profile must
/// outlive the window.
DataWindow createDataWindow(const Profile& profile, const SettingsStore& settings,
                            DialogData::Display display, QWidget* parent = nullptr,
                            DialogData::Clock clock = {});

} // namespace KOLT
