#pragma once

#include "graph/Graph.h"

namespace KOLT {

/// The graph's settings as the program's settings have them. Numbers without end count as 0, for
/// the span as the default.
GraphSettings readGraphSettings();

/// Puts them into the table; saving it is up to the caller.
void keepGraphSettings(const GraphSettings& settings);

/// The shortest text that reads as the same number.
QString roundTripText(double number);

} // namespace KOLT
