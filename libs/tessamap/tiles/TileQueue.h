#pragma once

#include "libs/tessamap/tiles/TileDiskCache.h"
#include "libs/tessamap/tiles/TileFailures.h"

#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Tessa {

/// The tiles that the map wants, and which of them to request next: those that are not on the disk
/// in the order of their importance, then expired ones, which are to be confirmed. A zoom level
/// that is new in view is requested after a short delay. Times in milliseconds since 1970.
class TileQueue
{
public:
    using Predicate = std::function<bool(const TileId&)>;

    /// See TileSource. `isOnDisk` is called for tiles that were not wanted before.
    void setWanted(std::span<const TileId> byPriority, qint64 now, const Predicate& isOnDisk);
    void setVisible(std::span<const TileId> tiles);

    /// The list of the last setWanted(), including tiles taken since.
    const std::vector<TileId>& wanted() const { return m_wanted; }

    /// Whether the tile is wanted and has not been taken.
    bool isWanted(const TileId& tile) const { return m_isOnDisk.contains(tile); }

    bool isOnDisk(const TileId& tile) const;

    bool isVisible(const TileId& tile) const { return !m_visible || m_visible->contains(tile); }

    void setTaken(const TileId& tile) { m_isOnDisk.erase(tile); }

    /// The file on the disk turned out to be unusable.
    void setNotOnDisk(const TileId& tile) { m_isOnDisk[tile] = false; }

    TileFailures& failures() { return m_failures; }

    const TileFailures& failures() const { return m_failures; }

    /// To be confirmed before all others; `meta`: the notes of the tile on the disk.
    void confirmFirst(const TileId& tile, const TileMeta& meta);
    void confirmLast(const TileId& tile, const TileMeta& meta);
    /// Removes the tile from those to be confirmed, and returns its notes if it was among them.
    std::optional<TileMeta> takeConfirmation(const TileId& tile);

    /// `isFetched`: whether a tile needs no request, as it is in flight or has arrived.
    std::optional<TileId> next(qint64 now, const Predicate& isFetched) const;

    /// The next time, but not before `earliest`, at which next() has something that it has not now.
    std::optional<qint64> nextMoment(qint64 now, qint64 earliest, const Predicate& isFetched) const;

private:
    /// Since when a zoom level has been wanted without a break, and when it was last.
    struct ZoomTimes
    {
        qint64 since = 0;
        qint64 last = 0;
    };

    qint64 zoomDue(const TileId& tile) const;

    bool isWaiting(const TileId& tile, const Predicate& isFetched) const
    {
        return isWanted(tile) && !isOnDisk(tile) && !isFetched(tile);
    }

    std::vector<TileId> m_wanted;
    std::optional<std::unordered_set<TileId>> m_visible;
    std::unordered_map<TileId, bool> m_isOnDisk; ///< of all wanted tiles that have not been taken
    std::array<ZoomTimes, TileId::maxZoom + 1> m_zoomTimes;
    TileFailures m_failures;
    std::deque<std::pair<TileId, TileMeta>> m_toConfirm;
};

} // namespace Tessa
