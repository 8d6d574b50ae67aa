#include "app/settings/PageSettingsStore.h"

#include "app/settings/SettingsStore.h"

#include <algorithm>

namespace KOLT {

PageSettings loadPageSettings(const SettingsStore& store)
{
    PageSettings settings;
    settings.hasClock = store.getBoolean("TableClock", settings.hasClock);
    settings.cardPercent =
        std::clamp(store.getInteger("ListCardPercent", settings.cardPercent), 10, 90);
    return settings;
}

void storePageSettings(const PageSettings& settings, SettingsStore& store)
{
    store.setBoolean("TableClock", settings.hasClock);
    store.setInteger("ListCardPercent", settings.cardPercent);
}

} // namespace KOLT
