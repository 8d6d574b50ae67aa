#pragma once

#include "analysis/PageSettings.h"

namespace KOLT {

class SettingsStore;

PageSettings loadPageSettings(const SettingsStore& store);

/// Copies the settings to the store; saving it is up to the caller.
void storePageSettings(const PageSettings& settings, SettingsStore& store);

} // namespace KOLT
