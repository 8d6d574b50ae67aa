#pragma once

#include "libs/tessamap/globe/TileId.h"

#include <QByteArray>
#include <QString>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>

namespace Tessa {

/// What a server said of a tile that matters for asking again.
struct TileMeta
{
    QByteArray etag;
    QByteArray lastModified;
    qint64 expires = 0; ///< milliseconds since 1970, UTC; older tiles are asked for again

    friend bool operator==(const TileMeta&, const TileMeta&) = default;
};

/// Tiles on disk: `<root>/<key of the server>/z/x/y.png` as they came from the server, whatever the
/// picture's format, each with a small text file `y.meta` beside it (docs/map.md). Tiles are never
/// dropped for their age, only for room: least recently used first.
///
/// Reading and writing happen in the calling thread; making room in one of the cache's own. A
/// folder that cannot be written is an ordinary case: nothing is kept then.
class TileDiskCache
{
public:
    struct Entry
    {
        QByteArray body;
        TileMeta meta;
    };

    static constexpr qint64 defaultLimit = qint64(1) << 30;

    TileDiskCache();
    ~TileDiskCache();
    TileDiskCache(const TileDiskCache&) = delete;
    TileDiskCache& operator=(const TileDiskCache&) = delete;

    /// An empty root switches the cache off. Folders are made with the first tile.
    void setPlace(const QString& root, const QString& key);

    /// Bytes for all servers together.
    void setLimit(qint64 bytes) { m_limit = bytes; }

    /// One look at the disk; says nothing of the tile's health.
    bool contains(const TileId& tile) const;

    /// A tile whose notes are missing or broken counts as expired; one that does not have the
    /// length noted is dropped.
    std::optional<Entry> read(const TileId& tile);

    /// False when it could not be kept. Readers find the old tile or the new one, never a half.
    bool write(const TileId& tile, const QByteArray& body, const TileMeta& meta);

    /// New notes for a tile that the server confirmed.
    bool writeMeta(const TileId& tile, const TileMeta& meta);

    void remove(const TileId& tile);

    /// Deletes the least recently used tiles below `root` until at most 9/10 of the limit is left,
    /// when it is exceeded; returns the bytes left. Touches only files that a cache made.
    static qint64 makeRoom(const QString& root, qint64 limit, const std::atomic<bool>& stop);

    /// For tests: until the making of room that was begun is done.
    void waitForIdle() { m_worker.waitForDone(); }

private:
    QString path(const TileId& tile) const;
    bool writeMeta(const TileId& tile, const TileMeta& meta, qint64 size);
    void makeRoomInBackground();

    QString m_root;
    QString m_folder; ///< of the server; empty while switched off
    qint64 m_limit = defaultLimit;
    qint64 m_writtenSinceCheck = 0;
    std::shared_ptr<std::atomic<bool>> m_stop;
    QThreadPool m_worker;
};

} // namespace Tessa
