#pragma once

#include "libs/tessamap/globe/TileId.h"
#include "libs/tessamap/tiles/TileServer.h"

#include <QByteArray>

#include <optional>

namespace Tessa {

/// Reads tiles from a folder that the user has chosen. Only regular files of at most maxTileBytes
/// that really lie in the folder are opened: not what a link leads to elsewhere, nor a pipe, which
/// would block for ever. Nothing is written.
class TileFolder
{
public:
    explicit TileFolder(TileServer server = TileServer())
        : m_server(std::move(server))
    {
    }

    /// Whether there is a file for the tile; its content is not checked.
    bool contains(const TileId& tile) const { return !path(tile).isEmpty(); }

    /// The file's content; nothing if there is no usable file.
    std::optional<QByteArray> read(const TileId& tile) const;

private:
    QString path(const TileId& tile) const;

    TileServer m_server;
};

} // namespace Tessa
