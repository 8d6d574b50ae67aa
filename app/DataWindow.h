#pragma once

#include "analysis/ui/DialogData.h"

namespace KOLT {

class DialogDataGraph;
class DialogDataMap;
class DialogDataView;

/// The data window with the pages that other rooms bring: graph, map and instruments.
struct DataWindow
{
    DialogData* window = nullptr;
    DialogDataGraph* graph = nullptr;
    DialogDataMap* map = nullptr;
    DialogDataView* view = nullptr;
};

/// Makes the pages with the program's settings and joins them with the window. The profile must
/// outlive the window.
DataWindow createDataWindow(const Profile& profile, DialogData::Display display,
                            QWidget* parent = nullptr, DialogData::Clock clock = {});

} // namespace KOLT
