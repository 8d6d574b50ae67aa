#pragma once

#include "map/MapSettings.h"

namespace KOLT {

class SettingsStore;

/// The stored map settings, with its directories below the data path. The environment variable
/// KOLT_OFFLINE disables the network.
MapSettings loadMapSettings(const SettingsStore& store);

/// Stores tile server, folding and shading as far as they differ; returns whether any does. An
/// empty tile server stands for the default one. Saving the store is up to the caller.
bool storeMapChanges(const MapSettings& from, const MapSettings& to, SettingsStore& store);

} // namespace KOLT
