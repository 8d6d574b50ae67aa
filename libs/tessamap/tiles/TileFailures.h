#pragma once

#include "libs/tessamap/globe/TileId.h"

#include <QtGlobal>

#include <functional>
#include <random>
#include <unordered_map>

namespace Tessa {

/// When tiles that could not be fetched may be requested again: after growing delays, or after a
/// day when the server has no such tile (docs/map.md). Times in milliseconds since 1970.
class TileFailures
{
public:
    TileFailures();

    void addFailure(const TileId& tile, qint64 now);
    void addMissing(const TileId& tile, qint64 now);

    void remove(const TileId& tile) { m_entries.erase(tile); }

    bool isMissing(const TileId& tile, qint64 now) const;

    /// 0 for tiles that have not failed.
    qint64 notBefore(const TileId& tile) const;

    /// When there are very many, drops those whose delay is over or that are not wanted.
    void limit(qint64 now, const std::function<bool(const TileId&)>& isWanted);

private:
    struct Entry
    {
        qint64 notBefore = 0;
        int tries = 0;
        bool isMissing = false;
    };

    std::unordered_map<TileId, Entry> m_entries;
    std::mt19937 m_random;
};

} // namespace Tessa
