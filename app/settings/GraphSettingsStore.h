#pragma once

#include "graph/Graph.h"

namespace KOLT {

class SettingsStore;

/// The graph's settings as the store has them. NaN and infinity count as 0, for the span as the
/// default.
GraphSettings loadGraphSettings(const SettingsStore& store);

/// Puts them into the store; saving it is up to the caller.
void storeGraphSettings(const GraphSettings& settings, SettingsStore& store);

} // namespace KOLT
