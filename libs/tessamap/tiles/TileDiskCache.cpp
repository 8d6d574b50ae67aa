#include "libs/tessamap/tiles/TileDiskCache.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace Tessa {

namespace {

constexpr qint64 maxMetaBytes = 4096;
constexpr qint64 maxBodyBytes = qint64(4) << 20;
/// Bytes written between two checks of the total size.
constexpr qint64 checkInterval = qint64(32) << 20;
/// Resolution of the time of use, so that not every read costs a write.
constexpr qint64 useStepSeconds = 3600;

QString metaPath(const QString& bodyPath)
{
    return bodyPath.chopped(4) + QLatin1String(".meta");
}

/// Opening anything but a regular file, such as a pipe, might block for ever.
bool isPlain(const QString& path)
{
    return QFileInfo(path).isFile();
}

bool replaceFile(const QString& path, const QByteArray& content)
{
    // QSaveFile would wait for the disk. A tile lost in a power failure is fetched again, and a
    // truncated one is recognised by its length.
    const QString temporary = path + QLatin1String(".part");
    // A new file: an existing one might be a link to something else, or a pipe that blocks.
    QFile::remove(temporary);
    QFile file(temporary);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    const bool isWritten = file.write(content) == content.size() && file.flush();
    file.close();
    std::error_code error;
    if (isWritten)
        std::filesystem::rename(std::filesystem::path(temporary.toStdU16String()),
                                std::filesystem::path(path.toStdU16String()), error);
    if (!isWritten || error)
        QFile::remove(temporary);
    return isWritten && !error;
}

struct Notes
{
    TileMeta meta;
    qint64 size = -1;
};

std::optional<Notes> readNotes(const QString& path)
{
    QFile file(path);
    if (!isPlain(path) || !file.open(QIODevice::ReadOnly) || file.size() > maxMetaBytes)
        return std::nullopt;
    Notes notes;
    bool hasExpiry = false;
    bool hasEnd = false;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const qsizetype colon = line.indexOf(": ");
        const QByteArray name = line.left(colon);
        const QByteArray value = colon < 0 ? QByteArray() : line.mid(colon + 2);
        if (name == "etag")
            notes.meta.etag = value;
        else if (name == "last-modified")
            notes.meta.lastModified = value;
        else if (name == "expires")
            notes.meta.expires = value.toLongLong(&hasExpiry);
        else if (name == "size")
            notes.size = value.toLongLong(&hasEnd);
    }
    return hasExpiry && hasEnd ? std::optional(notes) : std::nullopt;
}

/// A line of the notes; empty for values that do not fit into one line of about 1000 bytes.
QByteArray headerLine(const QByteArray& name, const QByteArray& value)
{
    if (value.isEmpty() || value.size() > 1000 || value.contains('\n') || value.contains('\r'))
        return QByteArray();
    return name + ": " + value + '\n';
}

void touch(QFile& file)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    if (file.fileTime(QFileDevice::FileModificationTime).secsTo(now) > useStepSeconds)
        file.setFileTime(now, QFileDevice::FileModificationTime);
}

} // namespace

TileDiskCache::TileDiskCache()
    : m_stop(std::make_shared<std::atomic<bool>>(false))
{
    m_worker.setMaxThreadCount(1);
}

TileDiskCache::~TileDiskCache()
{
    *m_stop = true;
    m_worker.waitForDone();
}

void TileDiskCache::setPlace(const QString& root, const QString& key)
{
    const QString folder = root.isEmpty() ? QString() : QDir(root).filePath(key);
    if (folder == m_folder)
        return;
    m_root = root;
    m_folder = folder;
    if (!m_folder.isEmpty())
        makeRoomInBackground();
}

QString TileDiskCache::path(const TileId& tile) const
{
    return m_folder + QLatin1Char('/') + QString::number(tile.zoom) + QLatin1Char('/') +
           QString::number(tile.x) + QLatin1Char('/') + QString::number(tile.y) +
           QLatin1String(".png");
}

bool TileDiskCache::contains(const TileId& tile) const
{
    return !m_folder.isEmpty() && isPlain(path(tile));
}

std::optional<TileDiskCache::Entry> TileDiskCache::read(const TileId& tile)
{
    if (m_folder.isEmpty())
        return std::nullopt;
    const QString bodyPath = path(tile);
    QFile file(bodyPath);
    if (!isPlain(bodyPath) || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const auto notes = readNotes(metaPath(bodyPath));
    const qint64 size = file.size();
    if (size == 0 || size > maxBodyBytes || (notes && notes->size != size)) {
        remove(tile);
        return std::nullopt;
    }
    if (!notes)
        QFile::remove(metaPath(bodyPath));
    Entry entry{file.readAll(), notes ? notes->meta : TileMeta{}};
    if (entry.body.size() != size)
        return std::nullopt;
    touch(file);
    return entry;
}

bool TileDiskCache::write(const TileId& tile, const QByteArray& body, const TileMeta& meta)
{
    if (m_folder.isEmpty())
        return false;
    const QString bodyPath = path(tile);
    // The body first: with the notes of the former one it is dropped or asked for again.
    if (!QDir().mkpath(QFileInfo(bodyPath).path()) || !replaceFile(bodyPath, body))
        return false;
    if (!writeMeta(tile, meta, body.size()))
        QFile::remove(metaPath(bodyPath));
    m_writtenSinceCheck += body.size();
    if (m_writtenSinceCheck > std::min(checkInterval, m_limit))
        makeRoomInBackground();
    return true;
}

bool TileDiskCache::writeMeta(const TileId& tile, const TileMeta& meta)
{
    const QFileInfo body(path(tile));
    return !m_folder.isEmpty() && body.exists() && writeMeta(tile, meta, body.size());
}

bool TileDiskCache::writeMeta(const TileId& tile, const TileMeta& meta, qint64 size)
{
    return replaceFile(metaPath(path(tile)), headerLine("etag", meta.etag) +
                                                 headerLine("last-modified", meta.lastModified) +
                                                 "expires: " + QByteArray::number(meta.expires) +
                                                 "\nsize: " + QByteArray::number(size) + '\n');
}

void TileDiskCache::remove(const TileId& tile)
{
    if (m_folder.isEmpty())
        return;
    QFile::remove(path(tile));
    QFile::remove(metaPath(path(tile)));
}

void TileDiskCache::makeRoomInBackground()
{
    m_writtenSinceCheck = 0;
    m_worker.clear();
    m_worker.start(
        [root = m_root, limit = m_limit, stop = m_stop] { makeRoom(root, limit, *stop); });
}

qint64 TileDiskCache::makeRoom(const QString& root, qint64 limit, const std::atomic<bool>& stop)
{
    struct Tile
    {
        QString path;
        qint64 size;
        qint64 used;
    };

    static const QRegularExpression ours(
        QStringLiteral("^[0-9a-f]{16}/\\d+/\\d+/\\d+\\.(png|png\\.part|meta|meta\\.part)$"));
    const QDir rootFolder(root);
    std::vector<Tile> tiles;
    qint64 total = 0;
    QDirIterator files(root, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (files.hasNext() && !stop) {
        const QString path = files.next();
        if (!ours.match(rootFolder.relativeFilePath(path)).hasMatch())
            continue;
        const QFileInfo info = files.fileInfo();
        total += info.size();
        if (path.endsWith(QLatin1String(".png")))
            tiles.push_back({path, info.size(), info.lastModified().toMSecsSinceEpoch()});
        else if (path.endsWith(QLatin1String(".part")) &&
                 info.lastModified().secsTo(QDateTime::currentDateTimeUtc()) > useStepSeconds)
            QFile::remove(path); // left over from a crash
    }
    if (total <= limit || stop)
        return total;

    std::ranges::sort(tiles, {}, &Tile::used);
    for (const Tile& tile : tiles) {
        if (stop || total <= limit / 10 * 9)
            break;
        const QString meta = metaPath(tile.path);
        const qint64 metaSize = QFileInfo(meta).size();
        if (QFile::remove(tile.path))
            total -= tile.size;
        if (QFile::remove(meta))
            total -= metaSize;
    }
    return total;
}

} // namespace Tessa
