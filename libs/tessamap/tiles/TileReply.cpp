#include "libs/tessamap/tiles/TileReply.h"

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

#include <algorithm>

namespace Tessa {

namespace {

constexpr qint64 second = 1000;
constexpr qint64 day = 24 * 3600 * second;
constexpr qint64 keepTime = 7 * day;
constexpr qint64 longestKeepTime = 366 * day;
constexpr qint64 busyRest = 60 * second;

/// The value of "name=value" in a comma-separated list, empty for a plain "name"; std::nullopt
/// without it.
std::optional<QByteArray> directive(const QByteArray& cacheControl, const QByteArray& name)
{
    for (const QByteArray& part : cacheControl.toLower().split(',')) {
        const qsizetype equals = part.indexOf('=');
        if ((equals < 0 ? part : part.left(equals)).trimmed() == name)
            return equals < 0 ? QByteArray() : part.mid(equals + 1).trimmed().replace('"', "");
    }
    return std::nullopt;
}

/// For how many milliseconds from now the reply may be used.
qint64 freshTime(const ReplyFacts& facts, qint64 now)
{
    if (directive(facts.cacheControl, "no-cache") || directive(facts.cacheControl, "no-store"))
        return 0;
    if (const auto maxAge = directive(facts.cacheControl, "max-age")) {
        bool isNumber = false;
        const qint64 seconds = maxAge->toLongLong(&isNumber);
        if (!isNumber)
            return keepTime;
        const qint64 age = std::max<qint64>(0, facts.age.trimmed().toLongLong());
        return std::clamp<qint64>(seconds, 0, longestKeepTime / second) * second -
               std::min(age, longestKeepTime / second) * second;
    }
    if (!facts.expires.isEmpty()) {
        // Anything but a date ("0", "-1") means expired. Relative to the server's own clock.
        const auto expires = httpDate(facts.expires);
        return expires ? *expires - httpDate(facts.date).value_or(now) : 0;
    }
    return keepTime;
}

bool isUnreachable(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::SslHandshakeFailedError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyNotFoundError:
        return true;
    default:
        return false;
    }
}

} // namespace

ReplyFacts ReplyFacts::of(const QNetworkReply& reply)
{
    ReplyFacts facts;
    facts.status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    facts.error = reply.error();
    facts.etag = reply.rawHeader("ETag");
    facts.lastModified = reply.rawHeader("Last-Modified");
    facts.cacheControl = reply.rawHeader("Cache-Control");
    facts.expires = reply.rawHeader("Expires");
    facts.date = reply.rawHeader("Date");
    facts.age = reply.rawHeader("Age");
    facts.retryAfter = reply.rawHeader("Retry-After");
    return facts;
}

ReplyOutcome outcomeOf(const ReplyFacts& facts)
{
    if (facts.wasTimeout || facts.wasTooLarge)
        return ReplyOutcome::Failed;
    switch (facts.status) {
    case 0:
        return isUnreachable(facts.error) ? ReplyOutcome::Unreachable : ReplyOutcome::Failed;
    case 200:
        return facts.error == QNetworkReply::NoError ? ReplyOutcome::Picture : ReplyOutcome::Failed;
    case 304:
        return facts.wasConditional ? ReplyOutcome::NotModified : ReplyOutcome::Failed;
    case 401:
    case 403:
    case 418:
        return ReplyOutcome::Refused;
    case 429:
    case 503:
        return ReplyOutcome::Busy;
    case 204:
    case 404:
    case 410:
        return ReplyOutcome::Missing;
    default:
        return ReplyOutcome::Failed;
    }
}

TileMeta metaOf(const ReplyFacts& facts, qint64 now, const TileMeta& former)
{
    TileMeta meta;
    meta.etag = facts.etag.isEmpty() ? former.etag : facts.etag;
    meta.lastModified = facts.lastModified.isEmpty() ? former.lastModified : facts.lastModified;
    meta.expires = now + std::clamp<qint64>(freshTime(facts, now), 0, longestKeepTime);
    return meta;
}

bool mayStore(const ReplyFacts& facts)
{
    return !directive(facts.cacheControl, "no-store");
}

qint64 retryTime(const ReplyFacts& facts, qint64 now)
{
    bool isNumber = false;
    const qint64 seconds = facts.retryAfter.trimmed().toLongLong(&isNumber);
    if (isNumber)
        return now + std::clamp<qint64>(seconds, 1, day / second) * second;
    if (const auto date = httpDate(facts.retryAfter)) {
        const qint64 wait = *date - httpDate(facts.date).value_or(now);
        return now + std::clamp(wait, second, day);
    }
    return now + busyRest;
}

std::optional<qint64> httpDate(const QByteArray& text)
{
    QDateTime date = QLocale::c().toDateTime(QString::fromLatin1(text.trimmed()),
                                             QStringLiteral("ddd, dd MMM yyyy HH:mm:ss 'GMT'"));
    if (!date.isValid())
        return std::nullopt;
    date.setTimeSpec(Qt::UTC);
    return date.toMSecsSinceEpoch();
}

} // namespace Tessa
