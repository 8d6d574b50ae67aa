#pragma once

#include "map/MapSettings.h"

namespace KOLT {

class SettingsStore;

/// The stored map settings, with its directories below the data path. The environment variable
/// KOLT_OFFLINE disables the network.
MapSettings loadMapSettings(const SettingsStore& store);

} // namespace KOLT
