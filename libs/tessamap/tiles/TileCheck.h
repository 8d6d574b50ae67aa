#pragma once

#include "libs/tessamap/tiles/TileFetcher.h"
#include "libs/tessamap/tiles/TileServer.h"

#include <QObject>
#include <QTimer>

namespace Tessa {

/// Tries whether a tile server, or a folder of tiles, gives a tile, and says in a sentence what was
/// found. A server is asked once, for the tile of the whole world.
class TileCheck : public QObject
{
    Q_OBJECT

public:
    explicit TileCheck(QObject* parent = nullptr);

    /// Must name the application.
    void setUserAgent(const QByteArray& userAgent) { m_fetcher.setUserAgent(userAgent); }

    /// Ends a check that is under way. `address`: see TileServer.
    void start(const QString& address, bool isNetworkEnabled);

signals:
    /// `isGood`: there is a tile that can be shown.
    void finished(bool isGood, const QString& text);

private:
    void checkFolder(const TileServer& server);
    void settle(const FetchedTile& fetched);

    TileFetcher m_fetcher;
    QTimer m_deadline;
};

} // namespace Tessa
