#include "libs/tessamap/tiles/TileFolder.h"

#include "libs/tessamap/tiles/TileReply.h"

#include <QFile>
#include <QFileInfo>

namespace Tessa {

/// Empty if there is no usable file.
QString TileFolder::path(const TileId& tile) const
{
    const QString folder = QFileInfo(m_server.folder()).canonicalFilePath();
    if (folder.isEmpty())
        return {};
    const QString inside = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    for (const QString& file : m_server.files(tile)) {
        const QFileInfo info(file);
        if (info.isFile() && info.size() <= maxTileBytes &&
            info.canonicalFilePath().startsWith(inside))
            return file;
    }
    return {};
}

std::optional<QByteArray> TileFolder::read(const TileId& tile) const
{
    const QString name = path(tile);
    QFile file(name);
    if (name.isEmpty() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.read(maxTileBytes);
}

} // namespace Tessa
