#include "app/settings/WindowState.h"

#include "app/settings/SettingsStore.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr int smallestSide = 200;
constexpr int largestSide = 32'000; ///< of a window, and of a part of a splitter
constexpr int narrowestColumn = 10;
constexpr int widestColumn = 2000;
constexpr int partCount = 2;
constexpr int mapCount = 3;
constexpr int pageCount = 7;

struct PartsKey
{
    const char* key;
    QList<int> WindowState::*parts;
};

constexpr PartsKey partsKeys[] = {{"WindowPanels", &WindowState::panels},
                                  {"WindowLists", &WindowState::lists},
                                  {"WindowPages", &WindowState::pages}};

/// Two sizes, such as "333 667"; empty when they cannot be meant. Only the map may be closed.
QList<int> partsFrom(const QByteArray& text)
{
    QList<int> parts;
    for (const QByteArray& word : text.split(' ')) {
        bool isNumber = false;
        parts.push_back(word.toInt(&isNumber));
        if (!isNumber || parts.back() < 0 || parts.back() > largestSide)
            return {};
    }
    return parts.size() == partCount && parts.front() > 0 ? parts : QList<int>();
}

QByteArray textOf(const QList<int>& parts)
{
    QByteArrayList words;
    for (const int part : parts)
        words.push_back(QByteArray::number(part));
    return words.join(' ');
}

/// Such as "120 Engine Speed;80 Altitude"; what cannot be meant is left out.
QMap<QString, int> columnsFrom(const QString& text)
{
    QMap<QString, int> columns;
    for (const QString& entry : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const int width = entry.section(QLatin1Char(' '), 0, 0).toInt();
        if (width >= narrowestColumn && width <= widestColumn)
            columns[entry.section(QLatin1Char(' '), 1)] = width;
    }
    return columns;
}

QString textOf(const QMap<QString, int>& columns)
{
    QStringList entries;
    for (auto column = columns.begin(); column != columns.end(); ++column) {
        if (!column.key().contains(QLatin1Char(';')))
            entries.push_back(QStringLiteral("%1 %2").arg(column.value()).arg(column.key()));
    }
    return entries.join(QLatin1Char(';'));
}

QByteArray keyOfColumns(const QString& table)
{
    return "Columns" + table.toLatin1();
}

int within(const SettingsStore& store, const char* key, int fallback, int count)
{
    const int value = store.getInteger(key, fallback);
    return value >= 0 && value < count ? value : fallback;
}

} // namespace

QMap<QString, int> loadColumns(const QString& table, const SettingsStore& store)
{
    return columnsFrom(QString::fromUtf8(store.getText(keyOfColumns(table))));
}

void storeColumns(const QString& table, const QMap<QString, int>& columns, SettingsStore& store)
{
    store.setText(keyOfColumns(table), textOf(columns).toUtf8());
}

WindowState loadWindowState(const SettingsStore& store)
{
    WindowState state;
    const QSize size(store.getInteger("WindowWidth", state.size.width()),
                     store.getInteger("WindowHeight", state.size.height()));
    if (std::min(size.width(), size.height()) >= smallestSide &&
        std::max(size.width(), size.height()) <= largestSide)
        state.size = size;
    state.isMaximized = store.getBoolean("WindowMaximized", state.isMaximized);
    for (const auto& [key, parts] : partsKeys)
        state.*parts = partsFrom(store.getText(key));
    state.map = within(store, "WindowMap", state.map, mapCount);
    state.page = within(store, "WindowPage", state.page, pageCount);
    state.columns = columnsFrom(QString::fromUtf8(store.getText("WindowColumns")));
    return state;
}

void storeWindowState(const WindowState& state, SettingsStore& store)
{
    store.setInteger("WindowWidth", state.size.width());
    store.setInteger("WindowHeight", state.size.height());
    store.setBoolean("WindowMaximized", state.isMaximized);
    for (const auto& [key, parts] : partsKeys)
        store.setText(key, textOf(state.*parts));
    store.setInteger("WindowMap", state.map);
    store.setInteger("WindowPage", state.page);
    store.setText("WindowColumns", textOf(state.columns).toUtf8());
}

} // namespace KOLT
