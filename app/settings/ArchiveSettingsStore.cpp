#include "app/settings/ArchiveSettingsStore.h"

#include "app/settings/SettingsStore.h"

namespace KOLT {

Library::ArchiveSettings loadArchiveSettings(const SettingsStore& store)
{
    return {QString::fromUtf8(store.getText("LibraryFolder"))};
}

void storeArchiveSettings(const Library::ArchiveSettings& settings, SettingsStore& store)
{
    store.setText("LibraryFolder", settings.folder.toUtf8());
}

} // namespace KOLT
