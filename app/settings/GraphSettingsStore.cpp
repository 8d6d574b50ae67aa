#include "app/settings/GraphSettingsStore.h"

#include "app/settings/SettingsStore.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

/// Settings keys with the members they are stored in.
struct ColorKey
{
    const char* key;
    QColor GraphSettings::*color;
};

struct FlagKey
{
    const char* key;
    bool GraphSettings::*flag;
};

constexpr ColorKey colorKeys[] = {{"GraphBackground", &GraphSettings::background},
                                  {"GraphGridColor", &GraphSettings::gridColor},
                                  {"GraphLabelColor", &GraphSettings::labelColor},
                                  {"GraphLabelBackground", &GraphSettings::labelBackground}};
// The automatic mode is not stored: panning ends it, and no visible button turns it on again.
constexpr FlagKey flagKeys[] = {{"GraphWholeFlight", &GraphSettings::isWhole},
                                {"GraphSplit", &GraphSettings::isSplit},
                                {"GraphGrid", &GraphSettings::hasGrid},
                                {"GraphCursor", &GraphSettings::hasCursor},
                                {"GraphLegend", &GraphSettings::hasLegend},
                                {"GraphAutoscale", &GraphSettings::isAutoscaled},
                                {"GraphLimits", &GraphSettings::hasThresholds},
                                {"GraphEvents", &GraphSettings::hasEvents},
                                {"GraphNotes", &GraphSettings::hasNotes},
                                {"GraphStatistic", &GraphSettings::hasStatistic}};

double finiteOrZero(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

} // namespace

GraphSettings loadGraphSettings(const SettingsStore& store)
{
    GraphSettings settings;
    const double span = store.getDouble("GraphTimeSpan", settings.timeSpan);
    if (std::isfinite(span))
        settings.timeSpan = std::clamp(span, 1e-3, 1e7);
    settings.cursorMode = static_cast<CursorMode>(std::clamp(
        store.getInteger("GraphCursorMode", static_cast<int>(settings.cursorMode)), 0, 2));
    settings.yMinimum = finiteOrZero(store.getDouble("GraphYMinimum", settings.yMinimum));
    settings.yMaximum = finiteOrZero(store.getDouble("GraphYMaximum", settings.yMaximum));
    for (const auto& [key, color] : colorKeys) {
        const QColor stored(QLatin1Char('#') + QString::fromLatin1(store.getText(key)));
        if (stored.isValid())
            settings.*color = stored;
    }
    for (const auto& [key, flag] : flagKeys)
        settings.*flag = store.getBoolean(key, settings.*flag);
    return settings;
}

void storeGraphSettings(const GraphSettings& settings, SettingsStore& store)
{
    store.setDouble("GraphTimeSpan", settings.timeSpan);
    store.setInteger("GraphCursorMode", static_cast<int>(settings.cursorMode));
    store.setDouble("GraphYMinimum", settings.yMinimum);
    store.setDouble("GraphYMaximum", settings.yMaximum);
    for (const auto& [key, color] : colorKeys)
        store.setText(key, (settings.*color).name().mid(1).toLatin1());
    for (const auto& [key, flag] : flagKeys)
        store.setBoolean(key, settings.*flag);
}

} // namespace KOLT
