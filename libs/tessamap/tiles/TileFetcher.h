#pragma once

#include "libs/tessamap/globe/TileId.h"
#include "libs/tessamap/tiles/TileReply.h"

#include <QNetworkAccessManager>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Tessa {

/// A request that has ended.
struct FetchedTile
{
    TileId tile;
    std::optional<TileMeta> confirms; ///< of a conditional request: the notes of the tile on disk
    ReplyFacts facts;
    QByteArray body;
};

/// Requests tiles from a server, with limits on the time and the size of each reply. Times in
/// milliseconds since 1970.
class TileFetcher : public QObject
{
    Q_OBJECT

public:
    static constexpr int maxInFlight = 6;

    TileFetcher();
    ~TileFetcher() override;

    /// Must name the application.
    void setUserAgent(const QByteArray& userAgent) { m_userAgent = userAgent; }

    void setTransferTimeout(int milliseconds) { m_transferTimeout = milliseconds; }

    /// With `confirms` the server is asked whether the tile has changed.
    void start(const TileId& tile, const QUrl& url, qint64 now, std::optional<TileMeta> confirms);

    int inFlightCount() const { return static_cast<int>(m_inFlight.size()); }

    bool isInFlight(const TileId& tile) const;

    void abortAll();

    /// Ends requests that have taken 30 s, however slowly data still arrive.
    std::vector<FetchedTile> takeOverdue(qint64 now);

    /// Aborts and returns requests that were not wanted for 500 ms: until then the view may come
    /// back. `isConfirming`: whether the request is conditional.
    using IsWanted = std::function<bool(const TileId& tile, bool isConfirming)>;
    std::vector<FetchedTile> takeUnwanted(qint64 now, const IsWanted& isWanted);

    /// When one of the two above will have something.
    std::optional<qint64> nextMoment() const;

signals:
    /// A reply is complete, has failed or is too large.
    void finished(const Tessa::FetchedTile& fetched);

private:
    struct Request;
    using Requests = std::vector<std::unique_ptr<Request>>;

    std::unique_ptr<Request> release(const QNetworkReply* reply);
    void checkSize(QNetworkReply* reply);
    void finish(QNetworkReply* reply);
    std::vector<FetchedTile> take(const std::function<bool(Request&)>& isOver);

    QByteArray m_userAgent{"TessaMap/1"};
    int m_transferTimeout = 15000;
    QNetworkAccessManager m_network;
    Requests m_inFlight;
};

} // namespace Tessa
