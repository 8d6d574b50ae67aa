#pragma once

#include "map/MapSettings.h"

namespace KOLT {

class SettingsStore;

/// The map's settings as the store has them, with its directories below the data path. The network
/// is left alone where the environment has KOLT_OFFLINE.
MapSettings loadMapSettings(const SettingsStore& store);

} // namespace KOLT
