#include "libs/tessamap/tiles/TileQueue.h"

#include <algorithm>

namespace Tessa {

namespace {

constexpr qint64 zoomDelay = 120;
/// A zoom level that was not wanted for this long is delayed again.
constexpr qint64 zoomMemory = 1000;
constexpr std::size_t maxToConfirm = 256;

} // namespace

void TileQueue::setWanted(std::span<const TileId> byPriority, qint64 now, const Predicate& isOnDisk)
{
    m_wanted.clear();
    std::unordered_map<TileId, bool> places;
    for (const TileId& tile : byPriority) {
        if (!tile.isValid() || places.contains(tile))
            continue;
        const auto known = m_isOnDisk.find(tile);
        places.emplace(tile, known != m_isOnDisk.end() ? known->second : isOnDisk(tile));
        m_wanted.push_back(tile);
        ZoomTimes& times = m_zoomTimes[static_cast<std::size_t>(tile.zoom)];
        if (now - times.last > zoomMemory)
            times.since = now;
        times.last = now;
    }
    m_isOnDisk = std::move(places);
}

void TileQueue::setVisible(std::span<const TileId> tiles)
{
    m_visible.emplace(tiles.begin(), tiles.end());
}

bool TileQueue::isOnDisk(const TileId& tile) const
{
    const auto place = m_isOnDisk.find(tile);
    return place != m_isOnDisk.end() && place->second;
}

void TileQueue::confirmFirst(const TileId& tile, const TileMeta& meta)
{
    takeConfirmation(tile);
    m_toConfirm.emplace_front(tile, meta);
    if (m_toConfirm.size() > maxToConfirm)
        m_toConfirm.pop_back();
}

void TileQueue::confirmLast(const TileId& tile, const TileMeta& meta)
{
    takeConfirmation(tile);
    m_toConfirm.emplace_back(tile, meta);
}

std::optional<TileMeta> TileQueue::takeConfirmation(const TileId& tile)
{
    const auto entry = std::ranges::find(m_toConfirm, tile, [](const auto& e) { return e.first; });
    if (entry == m_toConfirm.end())
        return std::nullopt;
    TileMeta meta = std::move(entry->second);
    m_toConfirm.erase(entry);
    return meta;
}

qint64 TileQueue::zoomDue(const TileId& tile) const
{
    return m_zoomTimes[static_cast<std::size_t>(tile.zoom)].since + zoomDelay;
}

std::optional<TileId> TileQueue::next(qint64 now, const Predicate& isFetched) const
{
    for (const TileId& tile : m_wanted) {
        if (zoomDue(tile) <= now && m_failures.notBefore(tile) <= now && isWaiting(tile, isFetched))
            return tile;
    }
    for (const auto& [tile, meta] : m_toConfirm) {
        if (isVisible(tile) && m_failures.notBefore(tile) <= now && !isFetched(tile))
            return tile;
    }
    return std::nullopt;
}

std::optional<qint64> TileQueue::nextMoment(qint64 now, qint64 earliest,
                                            const Predicate& isFetched) const
{
    std::optional<qint64> next;
    const auto consider = [&](const TileId& tile, qint64 due) {
        const qint64 moment = std::max({due, m_failures.notBefore(tile), earliest});
        // A tile that is already due waits for a free request, not for a time.
        if (moment > now && (!next || moment < *next))
            next = moment;
    };
    for (const TileId& tile : m_wanted) {
        if (isWaiting(tile, isFetched))
            consider(tile, zoomDue(tile));
    }
    for (const auto& [tile, meta] : m_toConfirm)
        consider(tile, 0);
    return next;
}

} // namespace Tessa
