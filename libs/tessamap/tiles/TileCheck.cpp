#include "libs/tessamap/tiles/TileCheck.h"

#include "libs/tessamap/tiles/TileFolder.h"
#include "libs/tessamap/tiles/TilePicture.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>

namespace Tessa {

namespace {

constexpr int deadlineMilliseconds = 30000;
constexpr int mostEntries = 200; ///< of a folder that are looked at per zoom

/// Whether the folder has a usable tile of a zoom, as zoom/column/row. Counts those that are no
/// pictures.
bool hasTile(const TileFolder& tiles, const QString& folder, int zoom, int& unreadable)
{
    QDirIterator files(QStringLiteral("%1/%2").arg(folder).arg(zoom), QDir::Files,
                       QDirIterator::Subdirectories);
    for (int i = 0; i < mostEntries && files.hasNext(); ++i) {
        const QFileInfo file(files.next());
        bool isColumn = false;
        bool isRow = false;
        const TileId tile{zoom, file.dir().dirName().toInt(&isColumn),
                          file.completeBaseName().toInt(&isRow)};
        const auto body = isColumn && isRow && tile.isValid() ? tiles.read(tile) : std::nullopt;
        if (body && !decodeTile(*body).isNull())
            return true;
        unreadable += body ? 1 : 0;
    }
    return false;
}

} // namespace

TileCheck::TileCheck(QObject* parent)
    : QObject(parent)
{
    m_deadline.setSingleShot(true);
    connect(&m_fetcher, &TileFetcher::finished, this, &TileCheck::settle);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        m_fetcher.abortAll();
        emit finished(false, tr("The server does not answer."));
    });
}

void TileCheck::start(const QString& address, bool isNetworkEnabled)
{
    m_fetcher.abortAll();
    m_deadline.stop();
    const TileServer server(address);
    if (!server.isValid()) {
        emit finished(false, tr("This is neither an address nor a folder of tiles."));
    } else if (server.isFolder()) {
        checkFolder(server);
    } else if (!isNetworkEnabled) {
        emit finished(false, tr("Not tested: KOLT is kept off the network by KOLT_OFFLINE."));
    } else {
        m_deadline.start(deadlineMilliseconds);
        m_fetcher.start({}, server.url({}), QDateTime::currentMSecsSinceEpoch(), std::nullopt);
    }
}

void TileCheck::checkFolder(const TileServer& server)
{
    if (!QFileInfo(server.folder()).isDir()) {
        emit finished(false, tr("There is no such folder."));
        return;
    }
    const TileFolder tiles(server);
    QStringList zooms;
    int unreadable = 0;
    for (int zoom = 0; zoom <= TileId::maxZoom; ++zoom) {
        if (hasTile(tiles, server.folder(), zoom, unreadable))
            zooms << QString::number(zoom);
    }
    if (!zooms.isEmpty())
        emit finished(true, tr("The folder has tiles of zoom %1.").arg(zooms.join(u", ")));
    else if (unreadable > 0)
        emit finished(false, tr("The tiles in the folder are no PNG or JPEG pictures of 256 or 512 "
                                "pixels."));
    else
        emit finished(false, tr("There are no tiles in the folder. They are looked for as "
                                "zoom/column/row.png or .jpg."));
}

void TileCheck::settle(const FetchedTile& fetched)
{
    m_deadline.stop();
    const int status = fetched.facts.status;
    switch (outcomeOf(fetched.facts)) {
    case ReplyOutcome::Picture: {
        const int side = decodeTile(fetched.body).width();
        if (side > 0)
            emit finished(true, tr("The server sends tiles of %1 pixels.").arg(side));
        else
            emit finished(false, tr("The server answers, but not with a PNG or JPEG picture of 256 "
                                    "or 512 pixels."));
        return;
    }
    case ReplyOutcome::Missing:
        emit finished(false, tr("The server answers, but has no tile of the whole world (%1). It "
                                "may have tiles of a region, or the address is not complete.")
                                 .arg(status));
        return;
    case ReplyOutcome::Refused:
        emit finished(false, tr("The server refuses to send tiles (%1).").arg(status));
        return;
    case ReplyOutcome::Busy:
        emit finished(false, tr("The server is busy (%1). Try again later.").arg(status));
        return;
    default:
        emit finished(false, status == 0
                                 ? tr("The server cannot be reached.")
                                 : tr("The server answers with an error (%1).").arg(status));
    }
}

} // namespace Tessa
