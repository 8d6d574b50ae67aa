#include "libs/tessamap/tiles/TileSource.h"

#include "libs/tessamap/tiles/TilePicture.h"
#include "libs/tessamap/tiles/TileRequest.h"

#include <QDateTime>
#include <QElapsedTimer>

#include <algorithm>

namespace Tessa {

namespace {

/// A zoom level that was not wanted for this long has to rest again before it is asked for.
constexpr qint64 zoomMemory = 1000;
constexpr qint64 zoomRest = 120;
constexpr std::size_t maxToConfirm = 256;
constexpr std::size_t maxFailures = 8192;

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
    , m_userAgent("TessaMap/1")
    , m_random(std::random_device{}())
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &TileSource::work);
}

TileSource::~TileSource()
{
    const QSignalBlocker silent(this);
    reset();
}

void TileSource::setServer(const QString& address)
{
    const TileServer server(address);
    if (server == m_server)
        return;
    reset();
    m_server = server;
    m_saidRefused = false;
    m_cache.setPlace(m_directory, m_server.cacheKey());
    if (!m_server.isValid())
        emit message(tr("The address of the tile server cannot be used: %1").arg(address));
    emit changed();
}

void TileSource::setDirectory(const QString& directory)
{
    m_directory = directory;
    m_onDisk.clear();
    m_cache.setPlace(m_directory, m_server.cacheKey());
}

void TileSource::setNetworkEnabled(bool enabled)
{
    m_isNetworkEnabled = enabled;
    if (!enabled)
        m_inFlight.clear();
}

void TileSource::reset()
{
    m_timer.stop();
    m_inFlight.clear();
    m_wanted.clear();
    m_onDisk.clear();
    m_arrived.clear();
    m_failures.clear();
    m_toConfirm.clear();
    m_zoomTimes = {};
    m_pausedUntil = 0;
    m_timeoutsInARow = 0;
    setOffline(false);
}

void TileSource::setWanted(std::span<const TileId> byPriority)
{
    const qint64 now = m_clock();
    m_wanted.clear();
    std::unordered_map<TileId, bool> onDisk;
    for (const TileId& tile : byPriority) {
        if (!tile.isValid() || onDisk.contains(tile))
            continue;
        const auto known = m_onDisk.find(tile);
        onDisk.emplace(tile, known != m_onDisk.end() ? known->second : m_cache.contains(tile));
        m_wanted.push_back(tile);
        ZoomTimes& times = m_zoomTimes[static_cast<std::size_t>(tile.zoom)];
        if (now - times.last > zoomMemory)
            times.since = now;
        times.last = now;
    }
    m_onDisk = std::move(onDisk);
    work();
}

void TileSource::setVisible(std::span<const TileId> tiles)
{
    m_visible.emplace(tiles.begin(), tiles.end());
}

bool TileSource::isVisible(const TileId& tile) const
{
    return !m_visible || m_visible->contains(tile);
}

std::optional<TileSource::Tile> TileSource::takeNext()
{
    for (const TileId& tile : m_wanted) {
        if (m_arrived.contains(tile)) {
            if (auto result = decodeArrived(tile))
                return result;
        } else if (const auto onDisk = m_onDisk.find(tile);
                   onDisk != m_onDisk.end() && onDisk->second) {
            if (auto result = readFromDisk(tile))
                return result;
        }
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
        fail(tile);
        m_timer.start(0);
        return std::nullopt;
    }
    m_failures.erase(tile);
    if (arrived.mayKeep)
        m_cache.write(tile, arrived.body, arrived.meta);
    m_onDisk.erase(tile);
    return Tile{tile, std::move(image)};
}

std::optional<TileSource::Tile> TileSource::readFromDisk(const TileId& tile)
{
    const auto entry = m_cache.read(tile);
    QImage image = entry ? decodeTile(entry->body) : QImage();
    if (image.isNull()) {
        m_cache.remove(tile);
        m_onDisk[tile] = false;
        m_timer.start(0);
        return std::nullopt;
    }
    if (entry->meta.expires <= m_clock())
        confirmLater(tile, entry->meta);
    m_onDisk.erase(tile);
    return Tile{tile, std::move(image)};
}

void TileSource::confirmLater(const TileId& tile, const TileMeta& meta)
{
    std::erase_if(m_toConfirm, [&](const auto& entry) { return entry.first == tile; });
    m_toConfirm.emplace_front(tile, meta);
    if (m_toConfirm.size() > maxToConfirm)
        m_toConfirm.pop_back();
    m_timer.start(0);
}

bool TileSource::isWaiting(const TileId& tile) const
{
    const auto onDisk = m_onDisk.find(tile);
    return onDisk != m_onDisk.end() && !onDisk->second && !m_arrived.contains(tile) &&
           !isInFlight(tile);
}

bool TileSource::isDue(const TileId& tile, qint64 now) const
{
    const auto failure = m_failures.find(tile);
    return failure == m_failures.end() || failure->second.notBefore <= now;
}

bool TileSource::isMissing(const TileId& tile) const
{
    const auto failure = m_failures.find(tile);
    return failure != m_failures.end() && failure->second.isMissing &&
           failure->second.notBefore > m_clock();
}

bool TileSource::isResting(qint64 now) const
{
    return !m_isNetworkEnabled || !m_server.isValid() || now < m_pausedUntil;
}

int TileSource::loadingCount() const
{
    const qint64 now = m_clock();
    const bool isAsking = !isResting(now) && !m_isOffline;
    return static_cast<int>(std::ranges::count_if(m_wanted, [&](const TileId& tile) {
        if (!m_onDisk.contains(tile))
            return false; // taken
        return isWaiting(tile) ? isAsking && isDue(tile, now) : true;
    }));
}

std::optional<TileId> TileSource::nextToAsk(qint64 now)
{
    if (isResting(now) || m_inFlight.size() >= maxInFlight || (m_isOffline && now < m_nextProbe))
        return std::nullopt;
    for (const TileId& tile : m_wanted) {
        if (now - m_zoomTimes[static_cast<std::size_t>(tile.zoom)].since >= zoomRest &&
            isDue(tile, now) && isWaiting(tile))
            return tile;
    }
    for (const auto& [tile, meta] : m_toConfirm) {
        if (isVisible(tile) && isDue(tile, now) && !isInFlight(tile))
            return tile;
    }
    return std::nullopt;
}

void TileSource::work()
{
    const qint64 now = m_clock();
    dropLate(now);
    while (const auto tile = nextToAsk(now))
        start(*tile, now);
    if (m_failures.size() > maxFailures)
        std::erase_if(m_failures, [&](const auto& entry) {
            return entry.second.notBefore <= now || !m_onDisk.contains(entry.first);
        });
    const qint64 next = nextMoment(now);
    if (next < 0)
        m_timer.stop();
    else
        m_timer.start(static_cast<int>(std::clamp<qint64>(next - now, 1, 60000)));
}

/// When work() has to be called next; -1 when nothing waits for a time.
qint64 TileSource::nextMoment(qint64 now) const
{
    qint64 next = -1;
    const auto consider = [&next](qint64 moment) {
        next = next < 0 ? moment : std::min(next, moment);
    };
    for (const auto& request : m_inFlight) {
        consider(request->startedAt + requestDeadline);
        if (request->unwantedSince)
            consider(*request->unwantedSince + unwantedTime);
    }
    if (!m_isNetworkEnabled || !m_server.isValid())
        return next;
    qint64 earliest = m_pausedUntil;
    if (m_isOffline)
        earliest = std::max(earliest, m_nextProbe);
    const auto considerTile = [&](const TileId& tile, qint64 moment) {
        if (const auto failure = m_failures.find(tile); failure != m_failures.end())
            moment = std::max(moment, failure->second.notBefore);
        // A tile that is already due waits for a free request, not for a time.
        if (std::max(moment, earliest) > now)
            consider(std::max(moment, earliest));
    };
    for (const TileId& tile : m_wanted) {
        if (isWaiting(tile))
            considerTile(tile, m_zoomTimes[static_cast<std::size_t>(tile.zoom)].since + zoomRest);
    }
    for (const auto& [tile, meta] : m_toConfirm)
        considerTile(tile, 0);
    return next;
}

} // namespace Tessa
