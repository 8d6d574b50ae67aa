#pragma once

#include "graph/Graph.h"

namespace KOLT {

class SettingsStore;

/// The stored graph settings. NaN and infinity are read as 0; for the time span, as its default.
GraphSettings loadGraphSettings(const SettingsStore& store);

/// Copies the settings to the store; saving it is up to the caller.
void storeGraphSettings(const GraphSettings& settings, SettingsStore& store);

} // namespace KOLT
