#pragma once

#include "report/EngineReport.h"

namespace KOLT {

/// "Engine report, engine 7654321": title of the document and foot of its pages.
QString reportTitle(const EngineReport& report);

/// The whole report as HTML for a QTextDocument. The image "graph:N" stands for the graph of the
/// episode with the index N.
QString reportHtml(const EngineReport& report);

/// Its sections from the episodes to the lamps.
QString episodesHtml(const EngineReport& report);

} // namespace KOLT
