#pragma once

#include "libs/tessamap/tiles/ServerAccess.h"
#include "libs/tessamap/tiles/TileDiskCache.h"
#include "libs/tessamap/tiles/TileFetcher.h"
#include "libs/tessamap/tiles/TileFolder.h"
#include "libs/tessamap/tiles/TileQueue.h"
#include "libs/tessamap/tiles/TileServer.h"

#include <QImage>
#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>
#include <span>
#include <unordered_map>

namespace Tessa {

/// Provides tiles from the disk cache and from the server, or from a folder, most important first.
///
/// In each frame the caller says which tiles it lacks, then takes what is available for as long as
/// its time lasts:
///
///     source.setWanted(missing);
///     while (hasTime())
///         if (const auto tile = source.takeNext()) upload(*tile); else break;
///
/// Expired tiles from the disk are handed out at once and confirmed with the server afterwards; a
/// changed picture then comes through takeNext(), wanted or not. docs/map.md tells how failures are
/// handled. Used in the GUI thread; never waits.
class TileSource : public QObject
{
    Q_OBJECT

public:
    struct Tile
    {
        TileId id;
        QImage image; ///< 256 or 512 pixels square, Format_RGBA8888
    };

    /// Milliseconds since 1970, UTC.
    using Clock = std::function<qint64()>;

    explicit TileSource(QObject* parent = nullptr);

    /// `address`: see TileServer. A change drops all requests and everything known about failures.
    void setServer(const QString& address);

    const TileServer& server() const { return m_server; }

    /// Of the disk cache; empty for none.
    void setDirectory(const QString& directory);

    /// Must name the application.
    void setUserAgent(const QByteArray& userAgent) { m_fetcher.setUserAgent(userAgent); }

    /// When off, tiles come from the disk only.
    void setNetworkEnabled(bool enabled);

    /// The tiles that the caller lacks, most important first. Replaces the former list. Invalid
    /// tiles are ignored.
    void setWanted(std::span<const TileId> byPriority);

    /// The tiles in view. Only these are confirmed with the server; others once they are in view
    /// again. Before the first call all tiles count as being in view.
    void setVisible(std::span<const TileId> tiles) { m_queue.setVisible(tiles); }

    /// The most important wanted tile that is available, decoded. About 1 ms per call.
    std::optional<Tile> takeNext();

    /// Wanted tiles that are being loaded or queued; without those waiting after a failure and
    /// without confirmations.
    int loadingCount() const;

    /// Whether the server said within the last day that it has no such tile, or the folder was
    /// found to have none.
    bool isMissing(const TileId& tile) const
    {
        return m_queue.failures().isMissing(tile, m_clock());
    }

    /// Whether the server cannot be reached. One tile is tried every 30 s then.
    bool isOffline() const { return m_access.isOffline(); }

    /// Called by the timer: sends the requests that are due, aborts those that take too long.
    void work();

    // For tests.
    void setClock(Clock clock) { m_clock = std::move(clock); }

    void setTransferTimeout(int milliseconds) { m_fetcher.setTransferTimeout(milliseconds); }

    int inFlightCount() const { return m_fetcher.inFlightCount(); }

    TileDiskCache& diskCache() { return m_cache; }

signals:
    /// takeNext() has something, or isOffline() has changed.
    void changed();

    /// For the user, at most once per server and cause.
    void message(const QString& text);

private:
    struct Arrived
    {
        QByteArray body;
        TileMeta meta;
        bool mayKeep = true;
    };

    void reset();
    bool isFetched(const TileId& tile) const;
    bool isOnDisk(const TileId& tile);
    QImage readFromFolder(const TileId& tile);
    QImage readFromCache(const TileId& tile);

    /// The user's own folder is never written to.
    QString cacheDirectory() const { return m_server.isFolder() ? QString() : m_directory; }

    bool isAsked() const
    {
        return m_isNetworkEnabled && m_server.isValid() && !m_server.isFolder();
    }

    bool mayAsk(qint64 now) const;
    std::optional<Tile> decodeArrived(const TileId& tile);
    std::optional<Tile> readFromDisk(const TileId& tile);
    void settle(const FetchedTile& fetched);
    void handleOutcome(const FetchedTile& fetched, qint64 now);
    void tellRefused(int status);
    void sendRequests(qint64 now);
    void scheduleWork(qint64 now);

    Clock m_clock;
    TileServer m_server;
    QString m_directory;
    TileDiskCache m_cache;
    TileFolder m_folder;
    TileQueue m_queue;
    ServerAccess m_access;
    TileFetcher m_fetcher;
    std::unordered_map<TileId, Arrived> m_arrived; ///< not yet decoded
    QTimer m_timer;
    bool m_isNetworkEnabled = true;
    bool m_hasToldRefused = false;
};

} // namespace Tessa
