#include "libs/tessamap/tiles/TileFailures.h"

#include <algorithm>

namespace Tessa {

namespace {

constexpr qint64 second = 1000;
constexpr qint64 missingDelay = 24 * 3600 * second;
constexpr qint64 longestDelay = 300 * second;
constexpr int maxTries = 5;
constexpr double jitter = 0.2;
constexpr std::size_t maxEntries = 8192;

} // namespace

TileFailures::TileFailures()
    : m_random(std::random_device{}())
{
}

void TileFailures::addFailure(const TileId& tile, qint64 now)
{
    Entry& entry = m_entries[tile];
    entry.isMissing = false;
    ++entry.tries;
    qint64 delay = (qint64(1) << entry.tries) * second;
    if (entry.tries >= maxTries) {
        // After a long delay the tries start again: a map may stay open for hours.
        entry.tries = 0;
        delay = longestDelay;
    }
    std::uniform_real_distribution<double> spread(1.0 - jitter, 1.0 + jitter);
    entry.notBefore = now + static_cast<qint64>(static_cast<double>(delay) * spread(m_random));
}

void TileFailures::addMissing(const TileId& tile, qint64 now)
{
    m_entries[tile] = {now + missingDelay, 0, true};
}

bool TileFailures::isMissing(const TileId& tile, qint64 now) const
{
    const auto entry = m_entries.find(tile);
    return entry != m_entries.end() && entry->second.isMissing && entry->second.notBefore > now;
}

qint64 TileFailures::notBefore(const TileId& tile) const
{
    const auto entry = m_entries.find(tile);
    return entry == m_entries.end() ? 0 : entry->second.notBefore;
}

void TileFailures::limit(qint64 now, const std::function<bool(const TileId&)>& isWanted)
{
    if (m_entries.size() > maxEntries)
        std::erase_if(m_entries, [&](const auto& entry) {
            return entry.second.notBefore <= now || !isWanted(entry.first);
        });
}

} // namespace Tessa
