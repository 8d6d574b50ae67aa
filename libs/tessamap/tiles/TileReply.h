#pragma once

#include "libs/tessamap/tiles/TileDiskCache.h"

#include <QByteArray>
#include <QNetworkReply>

#include <optional>

namespace Tessa {

/// Larger bodies are given up.
inline constexpr qint64 maxTileBytes = qint64(2) << 20;

/// What is to be done after a reply.
enum class ReplyOutcome {
    Picture,     ///< a body that may be a picture
    NotModified, ///< the tile on disk is still the one
    Missing,     ///< there is no such tile: not asked again for a day
    Refused,     ///< the server does not want us
    Busy,        ///< the server wants a rest
    Failed,      ///< asked again after a growing pause
    Unreachable, ///< no server at all
};

/// All of a finished reply that its handling depends on.
struct ReplyFacts
{
    int status = 0; ///< of HTTP; 0 without an answer
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

/// The status decides where there is one: the toolkit's error codes put too much together.
ReplyOutcome outcomeOf(const ReplyFacts& facts);

/// What to note of a tile received or confirmed at `now` (milliseconds since 1970): Cache-Control
/// before Expires, and seven days where the server says nothing. `former` fills in what a
/// confirmation leaves out.
TileMeta metaOf(const ReplyFacts& facts, qint64 now, const TileMeta& former = {});

/// Whether the server allows the tile to be kept on disk.
bool mayStore(const ReplyFacts& facts);

/// When a busy server may be asked again: its Retry-After (seconds or a date, at most a day), else
/// 60 s from now.
qint64 retryTime(const ReplyFacts& facts, qint64 now);

/// A moment as HTTP writes it ("Sun, 06 Nov 1994 08:49:37 GMT"), milliseconds since 1970.
std::optional<qint64> httpDate(const QByteArray& text);

} // namespace Tessa
