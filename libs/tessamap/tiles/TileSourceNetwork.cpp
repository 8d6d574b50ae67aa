#include "libs/tessamap/tiles/TileRequest.h"

#include <algorithm>

namespace Tessa {

namespace {

constexpr qint64 second = 1000;
constexpr qint64 missingRest = 24 * 3600 * second;
constexpr qint64 refusedRest = 600 * second;
constexpr qint64 probeInterval = 30 * second;
constexpr qint64 longestPause = 300 * second;
/// Longer than the longest delay of a single tile that keeps timing out.
constexpr qint64 timeoutMemory = 2 * longestPause;
constexpr int maxTries = 5;
constexpr double jitter = 0.2;

} // namespace

bool TileSource::isInFlight(const TileId& tile) const
{
    return std::ranges::any_of(m_inFlight, [&](const auto& entry) { return entry->tile == tile; });
}

void TileSource::start(const TileId& tile, qint64 now)
{
    auto entry = std::make_unique<InFlight>();
    entry->tile = tile;
    entry->startedAt = now;
    QNetworkRequest request(m_server.url(tile));
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

    const auto confirm =
        std::ranges::find(m_toConfirm, tile, [](const auto& e) { return e.first; });
    if (confirm != m_toConfirm.end()) {
        if (!confirm->second.etag.isEmpty())
            request.setRawHeader("If-None-Match", confirm->second.etag);
        if (!confirm->second.lastModified.isEmpty())
            request.setRawHeader("If-Modified-Since", confirm->second.lastModified);
        entry->confirms = confirm->second;
        m_toConfirm.erase(confirm);
    }
    if (m_isOffline)
        m_nextProbe = now + probeInterval;

    QNetworkReply* const reply = m_network.get(request);
    // Limits what is received while this thread is busy. Twice the maximum, as Qt may stop reading
    // a block below the limit, and checkSize() would never see too large a body.
    reply->setReadBufferSize(2 * maxTileBytes);
    entry->reply = reply;
    m_inFlight.push_back(std::move(entry));
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] { checkSize(reply); });
    connect(reply, &QNetworkReply::finished, this, [this, reply] { finish(reply); });
}

std::unique_ptr<TileSource::InFlight> TileSource::release(const QNetworkReply* reply)
{
    const auto entry =
        std::ranges::find(m_inFlight, reply, [](const auto& request) { return request->reply; });
    if (entry == m_inFlight.end())
        return nullptr;
    auto request = std::move(*entry);
    m_inFlight.erase(entry);
    return request;
}

void TileSource::checkSize(QNetworkReply* reply)
{
    const qint64 announced = reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (announced <= maxTileBytes && reply->bytesAvailable() <= maxTileBytes)
        return;
    if (const auto request = release(reply)) {
        ReplyFacts facts = ReplyFacts::of(*reply);
        facts.wasTooLarge = true;
        settle(*request, facts, QByteArray());
        work();
    }
}

void TileSource::finish(QNetworkReply* reply)
{
    const auto request = release(reply);
    if (!request)
        return;
    ReplyFacts facts = ReplyFacts::of(*reply);
    facts.wasConditional = request->confirms.has_value();
    // Requests aborted here are disconnected first, so this is Qt's own timeout.
    facts.wasTimeout = facts.error == QNetworkReply::OperationCanceledError ||
                       facts.error == QNetworkReply::TimeoutError;
    const QByteArray body = reply->isOpen() ? reply->readAll() : QByteArray();
    facts.wasTooLarge = body.size() > maxTileBytes;
    settle(*request, facts, body);
    work();
}

void TileSource::dropLate(qint64 now)
{
    std::vector<std::unique_ptr<InFlight>> late;
    for (auto& request : m_inFlight) {
        const bool isWanted =
            request->confirms ? isVisible(request->tile) : m_onDisk.contains(request->tile);
        if (isWanted)
            request->unwantedSince.reset();
        else if (!request->unwantedSince)
            request->unwantedSince = now;
        if (now - request->startedAt >= requestDeadline)
            late.push_back(std::move(request));
        else if (!isWanted && now - *request->unwantedSince >= unwantedTime) {
            if (request->confirms)
                confirmLater(request->tile, *request->confirms); // once it is in view again
            request.reset();
        }
    }
    std::erase(m_inFlight, nullptr);
    for (const auto& request : late) {
        ReplyFacts facts = ReplyFacts::of(*request->reply);
        facts.wasTimeout = true;
        settle(*request, facts, QByteArray());
    }
}

void TileSource::settle(const InFlight& request, const ReplyFacts& facts, const QByteArray& body)
{
    const qint64 now = m_clock();
    const TileId tile = request.tile;
    const ReplyOutcome outcome = outcomeOf(facts);
    if (facts.status != 0) {
        m_timeoutsInARow = 0;
        setOffline(false);
    } else if (outcome == ReplyOutcome::Unreachable || (facts.wasTimeout && isTimeoutTooMany())) {
        // A server whose replies all time out counts as unreachable.
        m_nextProbe = now + probeInterval;
        setOffline(true);
    }

    // In the meantime it may have been read from the disk and queued again.
    std::erase_if(m_toConfirm, [&](const auto& entry) { return entry.first == tile; });
    switch (outcome) {
    case ReplyOutcome::Picture:
        m_arrived[tile] = {body, metaOf(facts, now), mayStore(facts)};
        emit changed();
        return;
    case ReplyOutcome::NotModified:
        m_failures.erase(tile);
        m_cache.writeMeta(tile, metaOf(facts, now, *request.confirms));
        return;
    case ReplyOutcome::Missing:
        m_failures[tile] = {now + missingRest, 0, true};
        emit changed(); // the caller may want a coarser one instead
        m_cache.remove(tile);
        return;
    case ReplyOutcome::Refused:
        pause(now + refusedRest);
        if (!m_saidRefused) {
            m_saidRefused = true;
            emit message(tr("The tile server refuses to send tiles (%1). It is left alone for ten "
                            "minutes.")
                             .arg(facts.status));
        }
        break;
    case ReplyOutcome::Busy:
        pause(retryTime(facts, now));
        break;
    case ReplyOutcome::Failed:
        fail(tile);
        break;
    case ReplyOutcome::Unreachable:
        break;
    }
    if (request.confirms)
        m_toConfirm.emplace_back(tile, *request.confirms);
}

/// Old timeouts do not count.
bool TileSource::isTimeoutTooMany()
{
    const qint64 now = m_clock();
    if (now - m_lastTimeout > timeoutMemory)
        m_timeoutsInARow = 0;
    m_lastTimeout = now;
    return ++m_timeoutsInARow >= maxInFlight;
}

void TileSource::fail(const TileId& tile)
{
    Failure& failure = m_failures[tile];
    failure.isMissing = false;
    ++failure.tries;
    qint64 wait = std::min(longestPause, (qint64(1) << failure.tries) * second);
    if (failure.tries >= maxTries) {
        // After a long delay the tries start again: a map may stay open for hours.
        failure.tries = 0;
        wait = longestPause;
    }
    std::uniform_real_distribution<double> spread(1.0 - jitter, 1.0 + jitter);
    failure.notBefore =
        m_clock() + static_cast<qint64>(static_cast<double>(wait) * spread(m_random));
}

void TileSource::pause(qint64 until)
{
    m_pausedUntil = std::max(m_pausedUntil, until);
}

void TileSource::setOffline(bool offline)
{
    if (offline == m_isOffline)
        return;
    m_isOffline = offline;
    emit changed();
}

} // namespace Tessa
