#pragma once

#include "library/archive/ArchiveSettings.h"

namespace KOLT {

class SettingsStore;

Library::ArchiveSettings loadArchiveSettings(const SettingsStore& store);

/// Copies the settings to the store; saving it is up to the caller.
void storeArchiveSettings(const Library::ArchiveSettings& settings, SettingsStore& store);

} // namespace KOLT
