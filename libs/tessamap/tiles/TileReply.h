#pragma once

#include "libs/tessamap/tiles/TileDiskCache.h"

#include <QByteArray>
#include <QNetworkReply>

#include <optional>

namespace Tessa {

/// Larger bodies are not accepted.
inline constexpr qint64 maxTileBytes = qint64(2) << 20;

/// How a reply has to be handled.
enum class ReplyOutcome {
    Picture,     ///< there is a body, which may be a picture
    NotModified, ///< the tile on disk is still current
    Missing,     ///< there is no such tile: not asked for again for a day
    Refused,     ///< the server does not serve this program
    Busy,        ///< the server asks for a pause
    Failed,      ///< asked for again after a growing delay
    Unreachable, ///< the server did not answer
};

/// Everything of a finished reply that its handling depends on.
struct ReplyFacts
{
    int status = 0; ///< HTTP status; 0 without an answer
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
    bool wasConditional = false;
    bool wasTimeout = false;
    bool wasTooLarge = false;
    QByteArray etag;
    QByteArray lastModified;
    QByteArray cacheControl;
    QByteArray expires;
    QByteArray date;
    QByteArray age;
    QByteArray retryAfter;

    static ReplyFacts of(const QNetworkReply& reply);
};

/// Decided by the HTTP status if there is one: Qt's error codes are too coarse.
ReplyOutcome outcomeOf(const ReplyFacts& facts);

/// The notes for a tile received or confirmed at `now` (milliseconds since 1970). It expires by
/// Cache-Control, else by Expires, else after seven days. `former` supplies what a confirmation
/// leaves out.
TileMeta metaOf(const ReplyFacts& facts, qint64 now, const TileMeta& former = {});

/// Whether the server allows the tile to be kept on disk.
bool mayStore(const ReplyFacts& facts);

/// When a busy server may be asked again: by its Retry-After (seconds or a date, at most a day),
/// else 60 s from now.
qint64 retryTime(const ReplyFacts& facts, qint64 now);

/// Parses a date of HTTP ("Sun, 06 Nov 1994 08:49:37 GMT"); milliseconds since 1970.
std::optional<qint64> httpDate(const QByteArray& text);

} // namespace Tessa
