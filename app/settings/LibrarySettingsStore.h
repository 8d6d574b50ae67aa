#pragma once

#include "library/database/LibraryAddress.h"

namespace KOLT {

class SettingsStore;

/// Where the user's library is; an empty archive: there is none yet. The password of a server is
/// never stored.
Library::LibraryAddress loadLibraryAddress(const SettingsStore& store);

/// Saving the store is up to the caller.
void storeLibraryAddress(const Library::LibraryAddress& address, SettingsStore& store);

} // namespace KOLT
