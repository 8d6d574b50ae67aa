#include "app/settings/LibrarySettingsStore.h"

#include "app/settings/SettingsStore.h"

namespace KOLT {

using Library::LibraryAddress;

LibraryAddress loadLibraryAddress(const SettingsStore& store)
{
    const LibraryAddress address{QString::fromUtf8(store.getText("LibraryFolder")),
                                 QString::fromUtf8(store.getText("LibraryServer"))};
    // What is edited by hand may have a password, or be no address: then it is not used.
    const bool isGood =
        !address.isServer() ||
        Library::parseLibraryAddress(address.server, address.archive).address.has_value();
    return isGood ? address : LibraryAddress{address.archive, {}};
}

void storeLibraryAddress(const LibraryAddress& address, SettingsStore& store)
{
    store.setText("LibraryFolder", address.archive.toUtf8());
    store.setText("LibraryServer", address.server.toUtf8());
}

} // namespace KOLT
