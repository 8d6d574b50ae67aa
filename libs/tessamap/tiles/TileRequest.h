#pragma once

#include "libs/tessamap/tiles/TileSource.h"

#include <QNetworkReply>

#include <optional>

namespace Tessa {

/// A request takes no longer than this, however slowly its body drips in.
inline constexpr qint64 requestDeadline = 30000;
/// A request for a tile that nobody wants any more goes on for this long: the view may come back.
inline constexpr qint64 unwantedTime = 500;

/// A request under way; gives it up when it goes.
struct TileSource::InFlight
{
    InFlight() = default;
    ~InFlight();
    InFlight(const InFlight&) = delete;
    InFlight& operator=(const InFlight&) = delete;

    TileId tile;
    QNetworkReply* reply = nullptr;
    qint64 startedAt = 0;
    std::optional<qint64> unwantedSince;
    std::optional<TileMeta> confirms; ///< what is noted of the tile on disk
};

} // namespace Tessa
