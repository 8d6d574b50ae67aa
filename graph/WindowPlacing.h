#pragma once

#include "graph/Graph.h"

#include <optional>

namespace KOLT {

/// The window that shows a whole recording, with a tenth of its length on each side; none for a
/// recording without duration.
std::optional<TimeRange> wholeWindow(const TimeRange& recording);

/// The window of a recording just loaded: all of it, or the user's span where the cursor mode wants
/// it. It never depends on the window before.
TimeRange firstWindow(const GraphSettings& settings, const TimeRange& recording, double seconds);

} // namespace KOLT
