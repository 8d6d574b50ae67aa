#pragma once

#include <QList>
#include <QMap>
#include <QSize>
#include <QString>

namespace KOLT {

class SettingsStore;

/// How the user left the main window. The defaults are those of the first start. Sizes of splitters
/// count as proportions; an empty list stands for the default.
struct WindowState
{
    static constexpr QSize firstSize{1000, 800};

    QSize size = firstSize; ///< not maximised
    bool isMaximized = false;
    QList<int> panels;          ///< lists, data window
    QList<int> lists;           ///< card, parameters
    QList<int> pages;           ///< page, map
    int map = 1;                ///< 0 hidden, 1 beside the page, 2 below it
    int page = 0;               ///< index of the tab
    QMap<QString, int> columns; ///< chosen widths in the data table, by name

    friend bool operator==(const WindowState&, const WindowState&) = default;
};

/// Values that cannot be meant are replaced by the defaults.
WindowState loadWindowState(const SettingsStore& store);

void storeWindowState(const WindowState& state, SettingsStore& store);

/// Widths of columns that the user has chosen, by heading. `table` is part of the key ("Faults").
QMap<QString, int> loadColumns(const QString& table, const SettingsStore& store);

void storeColumns(const QString& table, const QMap<QString, int>& columns, SettingsStore& store);

} // namespace KOLT
