#include "libs/tessamap/tiles/TileFetcher.h"

#include <algorithm>

namespace Tessa {

namespace {

constexpr qint64 requestDeadline = 30000;
constexpr qint64 unwantedTime = 500;

} // namespace

/// A request in flight; the destructor aborts it.
struct TileFetcher::Request
{
    Request() = default;
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    ~Request()
    {
        reply->disconnect();
        reply->abort();
        reply->deleteLater();
    }

    FetchedTile result() const
    {
        FetchedTile fetched{tile, confirms, ReplyFacts::of(*reply), {}};
        fetched.facts.wasConditional = confirms.has_value();
        return fetched;
    }

    TileId tile;
    QNetworkReply* reply = nullptr;
    qint64 startedAt = 0;
    std::optional<qint64> unwantedSince;
    std::optional<TileMeta> confirms;
};

TileFetcher::TileFetcher() = default;

TileFetcher::~TileFetcher() = default;

void TileFetcher::abortAll()
{
    m_inFlight.clear();
}

bool TileFetcher::isInFlight(const TileId& tile) const
{
    return std::ranges::any_of(m_inFlight, [&](const auto& entry) { return entry->tile == tile; });
}

void TileFetcher::start(const TileId& tile, const QUrl& url, qint64 now,
                        std::optional<TileMeta> confirms)
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, m_userAgent);
    // Pictures are already compressed, and what Qt unpacks by itself has no limit.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, true);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(5);
    request.setTransferTimeout(m_transferTimeout);
    if (confirms && !confirms->etag.isEmpty())
        request.setRawHeader("If-None-Match", confirms->etag);
    if (confirms && !confirms->lastModified.isEmpty())
        request.setRawHeader("If-Modified-Since", confirms->lastModified);

    QNetworkReply* const reply = m_network.get(request);
    // Limits what is received while this thread is busy. Twice the maximum, as Qt may stop reading
    // a block below the limit, and checkSize() would never see too large a body.
    reply->setReadBufferSize(2 * maxTileBytes);
    auto entry = std::make_unique<Request>();
    entry->tile = tile;
    entry->reply = reply;
    entry->startedAt = now;
    entry->confirms = std::move(confirms);
    m_inFlight.push_back(std::move(entry));
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] { checkSize(reply); });
    connect(reply, &QNetworkReply::finished, this, [this, reply] { finish(reply); });
}

std::unique_ptr<TileFetcher::Request> TileFetcher::release(const QNetworkReply* reply)
{
    const auto entry =
        std::ranges::find(m_inFlight, reply, [](const auto& request) { return request->reply; });
    if (entry == m_inFlight.end())
        return nullptr;
    auto request = std::move(*entry);
    m_inFlight.erase(entry);
    return request;
}

void TileFetcher::checkSize(QNetworkReply* reply)
{
    const qint64 announced = reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (announced <= maxTileBytes && reply->bytesAvailable() <= maxTileBytes)
        return;
    if (const auto request = release(reply)) {
        FetchedTile fetched = request->result();
        fetched.facts.wasTooLarge = true;
        emit finished(fetched);
    }
}

void TileFetcher::finish(QNetworkReply* reply)
{
    const auto request = release(reply);
    if (!request)
        return;
    FetchedTile fetched = request->result();
    // Requests aborted here are disconnected first, so this is Qt's own timeout.
    fetched.facts.wasTimeout = fetched.facts.error == QNetworkReply::OperationCanceledError ||
                               fetched.facts.error == QNetworkReply::TimeoutError;
    if (reply->isOpen())
        fetched.body = reply->readAll();
    fetched.facts.wasTooLarge = fetched.body.size() > maxTileBytes;
    emit finished(fetched);
}

std::vector<FetchedTile> TileFetcher::take(const std::function<bool(Request&)>& isOver)
{
    std::vector<FetchedTile> taken;
    std::erase_if(m_inFlight, [&](const auto& request) {
        if (!isOver(*request))
            return false;
        taken.push_back(request->result());
        return true;
    });
    return taken;
}

std::vector<FetchedTile> TileFetcher::takeOverdue(qint64 now)
{
    std::vector<FetchedTile> overdue =
        take([now](const Request& request) { return now - request.startedAt >= requestDeadline; });
    for (FetchedTile& fetched : overdue)
        fetched.facts.wasTimeout = true;
    return overdue;
}

std::vector<FetchedTile> TileFetcher::takeUnwanted(qint64 now, const IsWanted& isWanted)
{
    return take([&](Request& request) {
        if (isWanted(request.tile, request.confirms.has_value())) {
            request.unwantedSince.reset();
            return false;
        }
        if (!request.unwantedSince)
            request.unwantedSince = now;
        return now - *request.unwantedSince >= unwantedTime;
    });
}

std::optional<qint64> TileFetcher::nextMoment() const
{
    std::optional<qint64> next;
    for (const auto& request : m_inFlight) {
        qint64 moment = request->startedAt + requestDeadline;
        if (request->unwantedSince)
            moment = std::min(moment, *request->unwantedSince + unwantedTime);
        next = next ? std::min(*next, moment) : moment;
    }
    return next;
}

} // namespace Tessa
