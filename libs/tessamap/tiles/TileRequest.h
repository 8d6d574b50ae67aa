#pragma once

#include "libs/tessamap/tiles/TileSource.h"

#include <QNetworkReply>

#include <optional>

namespace Tessa {

/// The most milliseconds that a request may take, even while data still arrive.
inline constexpr qint64 requestDeadline = 30000;
/// For how many milliseconds a request goes on that is no longer wanted: the view may come back.
inline constexpr qint64 unwantedTime = 500;

/// A request in flight; the destructor aborts it.
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
    std::optional<TileMeta> confirms; ///< the notes of the tile on disk, in a conditional request
};

} // namespace Tessa
