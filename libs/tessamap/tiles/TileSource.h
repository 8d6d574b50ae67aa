#pragma once

#include "libs/tessamap/globe/TileId.h"
#include "libs/tessamap/tiles/TileDiskCache.h"
#include "libs/tessamap/tiles/TileReply.h"
#include "libs/tessamap/tiles/TileServer.h"

#include <QImage>
#include <QNetworkAccessManager>
#include <QObject>
#include <QTimer>

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Tessa {

/// Provides tiles from the disk cache and from the server, most important first.
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

    static constexpr int maxInFlight = 6;

    explicit TileSource(QObject* parent = nullptr);
    ~TileSource() override;

    /// `address`: see TileServer. A change drops all requests and everything known about failures.
    void setServer(const QString& address);

    const TileServer& server() const { return m_server; }

    /// Of the disk cache; empty for none.
    void setDirectory(const QString& directory);

    /// Must name the application.
    void setUserAgent(const QByteArray& userAgent) { m_userAgent = userAgent; }

    /// When off, tiles come from the disk only.
    void setNetworkEnabled(bool enabled);

    /// The tiles that the caller lacks, most important first. Replaces the former list. Invalid
    /// tiles are ignored.
    void setWanted(std::span<const TileId> byPriority);

    /// The tiles in view. Only these are confirmed with the server; others once they are in view
    /// again. Before the first call all tiles count as being in view.
    void setVisible(std::span<const TileId> tiles);

    /// The most important wanted tile that is available, decoded. About 1 ms per call.
    std::optional<Tile> takeNext();

    /// Wanted tiles that are being loaded or queued; without those waiting after a failure and
    /// without confirmations.
    int loadingCount() const;

    /// Whether the server said within the last day that it has no such tile.
    bool isMissing(const TileId& tile) const;

    /// Whether the server cannot be reached. One tile is tried every 30 s then.
    bool isOffline() const { return m_isOffline; }

    /// Called by the timer: sends the requests that are due, aborts those that take too long.
    void work();

    // For tests.
    void setClock(Clock clock) { m_clock = std::move(clock); }

    void setTransferTimeout(int milliseconds) { m_transferTimeout = milliseconds; }

    int inFlightCount() const { return static_cast<int>(m_inFlight.size()); }

    TileDiskCache& diskCache() { return m_cache; }

signals:
    /// takeNext() has something, or isOffline() has changed.
    void changed();

    /// For the user, at most once per server and cause.
    void message(const QString& text);

private:
    struct InFlight;

    struct Arrived
    {
        QByteArray body;
        TileMeta meta;
        bool mayKeep = true;
    };

    struct Failure
    {
        qint64 notBefore = 0;
        int tries = 0;
        bool isMissing = false;
    };

    /// Since when a zoom level has been wanted without a break, and when it was last.
    struct ZoomTimes
    {
        qint64 since = 0;
        qint64 last = 0;
    };

    // The queue.
    bool isWaiting(const TileId& tile) const;
    bool isVisible(const TileId& tile) const;
    bool isDue(const TileId& tile, qint64 now) const;
    bool isResting(qint64 now) const;
    std::optional<TileId> nextToAsk(qint64 now);
    qint64 nextMoment(qint64 now) const;
    std::optional<Tile> decodeArrived(const TileId& tile);
    std::optional<Tile> readFromDisk(const TileId& tile);
    void confirmLater(const TileId& tile, const TileMeta& meta);
    void reset();

    // The network.
    bool isInFlight(const TileId& tile) const;
    void start(const TileId& tile, qint64 now);
    void checkSize(QNetworkReply* reply);
    void finish(QNetworkReply* reply);
    std::unique_ptr<InFlight> release(const QNetworkReply* reply);
    void dropLate(qint64 now);
    void settle(const InFlight& request, const ReplyFacts& facts, const QByteArray& body);
    bool isTimeoutTooMany();
    void fail(const TileId& tile);
    void pause(qint64 until);
    void setOffline(bool offline);

    Clock m_clock;
    TileServer m_server;
    TileDiskCache m_cache;
    QString m_directory;
    QByteArray m_userAgent;
    QNetworkAccessManager m_network;
    QTimer m_timer;
    std::mt19937 m_random;
    int m_transferTimeout = 15000;
    bool m_isNetworkEnabled = true;

    std::vector<TileId> m_wanted;
    std::optional<std::unordered_set<TileId>> m_visible;
    std::unordered_map<TileId, bool> m_onDisk; ///< for every wanted tile not yet taken
    std::array<ZoomTimes, TileId::maxZoom + 1> m_zoomTimes;
    std::unordered_map<TileId, Arrived> m_arrived;
    std::unordered_map<TileId, Failure> m_failures;
    std::deque<std::pair<TileId, TileMeta>>
        m_toConfirm; ///< handed out though expired; newest first
    std::vector<std::unique_ptr<InFlight>> m_inFlight;

    qint64 m_pausedUntil = 0;
    qint64 m_nextProbe = 0;
    qint64 m_lastTimeout = 0;
    int m_timeoutsInARow = 0;
    bool m_isOffline = false;
    bool m_saidRefused = false;
};

} // namespace Tessa
