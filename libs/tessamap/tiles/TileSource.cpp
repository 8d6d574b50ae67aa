#include "libs/tessamap/tiles/TileSource.h"

#include "libs/tessamap/tiles/TilePicture.h"

#include <QDateTime>
#include <QElapsedTimer>

#include <algorithm>

namespace Tessa {

namespace {

constexpr qint64 refusedPause = 600'000;
constexpr qint64 longestSleep = 60'000;

/// Unaffected by changes of the system's time.
TileSource::Clock steadyClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer, start = QDateTime::currentMSecsSinceEpoch()] { return start + timer.elapsed(); };
}

} // namespace

TileSource::TileSource(QObject* parent)
    : QObject(parent)
    , m_clock(steadyClock())
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &TileSource::work);
    connect(&m_fetcher, &TileFetcher::finished, this, [this](const FetchedTile& fetched) {
        settle(fetched);
        work();
    });
}

void TileSource::setServer(const QString& address)
{
    const TileServer server(address);
    if (server == m_server)
        return;
    reset();
    m_server = server;
    m_folder = TileFolder(server);
    m_cache.setPlace(cacheDirectory(), m_server.cacheKey());
    if (!m_server.isValid())
        emit message(tr("The address of the tile server cannot be used: %1").arg(address));
    emit changed();
}

void TileSource::setDirectory(const QString& directory)
{
    m_directory = directory;
    m_queue.setWanted({}, m_clock(), {}); // asks the new directory again
    m_cache.setPlace(cacheDirectory(), m_server.cacheKey());
}

bool TileSource::isOnDisk(const TileId& tile)
{
    if (!m_server.isFolder())
        return m_cache.contains(tile);
    const bool isThere = m_folder.contains(tile);
    if (!isThere)
        m_queue.failures().addMissing(tile, m_clock()); // the caller may want a coarser one instead
    return isThere;
}

void TileSource::setNetworkEnabled(bool enabled)
{
    m_isNetworkEnabled = enabled;
    if (!enabled)
        m_fetcher.abortAll();
}

void TileSource::reset()
{
    m_timer.stop();
    m_fetcher.abortAll();
    m_arrived.clear();
    m_queue = {};
    m_access = {};
    m_hasToldRefused = false;
}

void TileSource::setWanted(std::span<const TileId> byPriority)
{
    m_queue.setWanted(byPriority, m_clock(), [this](const TileId& tile) { return isOnDisk(tile); });
    work();
}

bool TileSource::isFetched(const TileId& tile) const
{
    return m_arrived.contains(tile) || m_fetcher.isInFlight(tile);
}

bool TileSource::mayAsk(qint64 now) const
{
    return isAsked() && m_access.notBefore() <= now;
}

std::optional<TileSource::Tile> TileSource::takeNext()
{
    for (const TileId& tile : m_queue.wanted()) {
        std::optional<Tile> result;
        if (m_arrived.contains(tile))
            result = decodeArrived(tile);
        else if (m_queue.isOnDisk(tile))
            result = readFromDisk(tile);
        if (result)
            return result;
    }
    // Tiles that are no longer wanted, and tiles that have changed since they were taken.
    while (!m_arrived.empty()) {
        if (auto result = decodeArrived(m_arrived.begin()->first))
            return result;
    }
    return std::nullopt;
}

std::optional<TileSource::Tile> TileSource::decodeArrived(const TileId& id)
{
    const TileId tile = id; // `id` may be part of the extracted node
    const auto node = m_arrived.extract(tile);
    const Arrived& arrived = node.mapped();
    QImage image = decodeTile(arrived.body);
    if (image.isNull()) {
        m_queue.failures().addFailure(tile, m_clock());
        m_timer.start(0);
        return std::nullopt;
    }
    m_queue.failures().remove(tile);
    if (arrived.mayKeep)
        m_cache.write(tile, arrived.body, arrived.meta);
    m_queue.setTaken(tile);
    return Tile{tile, std::move(image)};
}

std::optional<TileSource::Tile> TileSource::readFromDisk(const TileId& tile)
{
    QImage image = m_server.isFolder() ? readFromFolder(tile) : readFromCache(tile);
    if (image.isNull()) {
        m_queue.setNotOnDisk(tile);
        m_timer.start(0);
        return std::nullopt;
    }
    m_queue.setTaken(tile);
    return Tile{tile, std::move(image)};
}

QImage TileSource::readFromFolder(const TileId& tile)
{
    const auto body = m_folder.read(tile);
    QImage image = body ? decodeTile(*body) : QImage();
    if (image.isNull()) {
        m_queue.failures().addMissing(tile, m_clock());
        emit changed(); // as for a tile that a server has not
    }
    return image;
}

QImage TileSource::readFromCache(const TileId& tile)
{
    const auto entry = m_cache.read(tile);
    QImage image = entry ? decodeTile(entry->body) : QImage();
    if (image.isNull()) {
        m_cache.remove(tile);
    } else if (entry->meta.expires <= m_clock()) {
        m_queue.confirmFirst(tile, entry->meta);
        m_timer.start(0);
    }
    return image;
}

int TileSource::loadingCount() const
{
    const qint64 now = m_clock();
    const bool isAsking = mayAsk(now) && !m_access.isOffline();
    return static_cast<int>(std::ranges::count_if(m_queue.wanted(), [&](const TileId& tile) {
        if (!m_queue.isWanted(tile))
            return false; // taken
        if (m_queue.isOnDisk(tile) || isFetched(tile))
            return true;
        return isAsking && m_queue.failures().notBefore(tile) <= now;
    }));
}

void TileSource::settle(const FetchedTile& fetched)
{
    const qint64 now = m_clock();
    const bool wasOffline = m_access.isOffline();
    m_access.noteReply(fetched.facts, now);
    if (m_access.isOffline() != wasOffline)
        emit changed();
    // In the meantime the tile may have been read from the disk and queued again.
    m_queue.takeConfirmation(fetched.tile);
    handleOutcome(fetched, now);
}

void TileSource::handleOutcome(const FetchedTile& fetched, qint64 now)
{
    const TileId& tile = fetched.tile;
    switch (outcomeOf(fetched.facts)) {
    case ReplyOutcome::Picture:
        m_arrived[tile] = {fetched.body, metaOf(fetched.facts, now), mayStore(fetched.facts)};
        emit changed();
        return;
    case ReplyOutcome::NotModified:
        m_queue.failures().remove(tile);
        m_cache.writeMeta(tile, metaOf(fetched.facts, now, *fetched.confirms));
        return;
    case ReplyOutcome::Missing:
        m_queue.failures().addMissing(tile, now);
        emit changed(); // the caller may want a coarser one instead
        m_cache.remove(tile);
        return;
    case ReplyOutcome::Refused:
        m_access.pause(now + refusedPause);
        tellRefused(fetched.facts.status);
        break;
    case ReplyOutcome::Busy:
        m_access.pause(retryTime(fetched.facts, now));
        break;
    case ReplyOutcome::Failed:
        m_queue.failures().addFailure(tile, now);
        break;
    case ReplyOutcome::Unreachable:
        break;
    }
    if (fetched.confirms)
        m_queue.confirmLast(tile, *fetched.confirms);
}

void TileSource::tellRefused(int status)
{
    if (m_hasToldRefused)
        return;
    m_hasToldRefused = true;
    emit message(tr("The tile server refuses to send tiles (%1). It is not asked again for ten "
                    "minutes.")
                     .arg(status));
}

void TileSource::work()
{
    const qint64 now = m_clock();
    for (const FetchedTile& overdue : m_fetcher.takeOverdue(now))
        settle(overdue);
    const auto isWanted = [this](const TileId& tile, bool isConfirming) {
        return isConfirming ? m_queue.isVisible(tile) : m_queue.isWanted(tile);
    };
    for (const FetchedTile& unwanted : m_fetcher.takeUnwanted(now, isWanted)) {
        if (unwanted.confirms)
            m_queue.confirmFirst(unwanted.tile, *unwanted.confirms); // once it is in view again
    }
    sendRequests(now);
    m_queue.failures().limit(now, [this](const TileId& tile) { return m_queue.isWanted(tile); });
    scheduleWork(now);
}

void TileSource::sendRequests(qint64 now)
{
    const auto isInHand = [this](const TileId& tile) { return isFetched(tile); };
    while (mayAsk(now) && m_fetcher.inFlightCount() < TileFetcher::maxInFlight) {
        const auto tile = m_queue.next(now, isInHand);
        if (!tile)
            return;
        m_fetcher.start(*tile, m_server.url(*tile), now, m_queue.takeConfirmation(*tile));
        m_access.noteRequest(now);
    }
}

void TileSource::scheduleWork(qint64 now)
{
    std::optional<qint64> next = m_fetcher.nextMoment();
    if (isAsked()) {
        const auto due = m_queue.nextMoment(now, m_access.notBefore(),
                                            [this](const TileId& tile) { return isFetched(tile); });
        if (due && (!next || *due < *next))
            next = due;
    }
    if (next)
        m_timer.start(static_cast<int>(std::clamp<qint64>(*next - now, 1, longestSleep)));
    else
        m_timer.stop();
}

} // namespace Tessa
