#pragma once

#include "libs/tessamap/globe/TileId.h"

#include <QByteArray>
#include <QString>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>

namespace Tessa {

/// What is kept of a reply's headers: when to ask for the tile again, and how.
struct TileMeta
{
    QByteArray etag;
    QByteArray lastModified;
    qint64 expires = 0; ///< milliseconds since 1970, UTC

    friend bool operator==(const TileMeta&, const TileMeta&) = default;
};

/// Tiles on disk: `<root>/<key of the server>/z/x/y.png` with the body as received, whatever its
/// format, and a small text file `y.meta` with its notes (docs/map.md). Tiles are not dropped for
/// their age, only to make room, least recently used first.
///
/// Reading and writing happen in the calling thread, making room in a thread of the cache's own. In
/// a folder that cannot be written nothing is kept; this is not an error.
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

    /// An empty root switches the cache off. Folders are created with the first tile.
    void setPlace(const QString& root, const QString& key);

    /// In bytes, for all servers together.
    void setLimit(qint64 bytes) { m_limit = bytes; }

    /// Whether there is a file for the tile; its content is not checked.
    bool contains(const TileId& tile) const;

    /// A tile with missing or damaged notes counts as expired; one whose length differs from the
    /// noted one is removed.
    std::optional<Entry> read(const TileId& tile);

    /// False when the tile could not be written. Files are replaced atomically: readers find the
    /// old or the new one.
    bool write(const TileId& tile, const QByteArray& body, const TileMeta& meta);

    /// Replaces the notes of a tile that the server has confirmed.
    bool writeMeta(const TileId& tile, const TileMeta& meta);

    void remove(const TileId& tile);

    /// When the limit is exceeded, deletes the least recently used tiles below `root` until at most
    /// 9/10 of it is in use. Returns the bytes in use. Touches only files that a cache has written.
    static qint64 makeRoom(const QString& root, qint64 limit, const std::atomic<bool>& stop);

    /// For tests: waits until no room is being made.
    void waitForIdle() { m_worker.waitForDone(); }

private:
    QString path(const TileId& tile) const;
    bool writeMeta(const TileId& tile, const TileMeta& meta, qint64 size);
    void makeRoomInBackground();

    QString m_root;
    QString m_folder; ///< of the server; empty when switched off
    qint64 m_limit = defaultLimit;
    qint64 m_writtenSinceCheck = 0;
    std::shared_ptr<std::atomic<bool>> m_stop;
    QThreadPool m_worker;
};

} // namespace Tessa
