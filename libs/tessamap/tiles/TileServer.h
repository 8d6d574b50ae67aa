#pragma once

#include "libs/tessamap/globe/TileId.h"

#include <QString>
#include <QStringList>
#include <QUrl>

namespace Tessa {

/// The address of a tile server as users write it: a template with {z}, {x} and {y}, or a base
/// address, to which "/{z}/{x}/{y}.png" is appended. An absolute path or a file address is a folder
/// of tiles instead. A value type.
class TileServer
{
public:
    /// The template of the public OpenStreetMap server.
    static QString defaultTemplate();

    /// An empty address means the default; an address without a scheme gets https. All known
    /// addresses of the public OpenStreetMap server become the default template.
    explicit TileServer(const QString& address = QString());

    /// Whether this is a usable http or https address, or a folder; it need not exist.
    bool isValid() const { return m_isValid; }

    /// Whether this is a folder of tiles instead of a server.
    bool isFolder() const { return !m_folder.isEmpty(); }

    /// The folder that all tiles must lie in.
    const QString& folder() const { return m_folder; }

    /// Where the tile's file would be, in order of preference; none for a server.
    QStringList files(const TileId& tile) const;

    bool isPublicServer() const { return m_template == defaultTemplate(); }

    QString urlTemplate() const { return m_template; }

    QUrl url(const TileId& tile) const;

    /// The map's attribution and the page that it links to; to be shown wherever its tiles are.
    QString attribution() const;
    QUrl attributionLink() const;

    /// A short unique folder name for this server's tiles, of hexadecimal digits.
    QString cacheKey() const;

    friend bool operator==(const TileServer&, const TileServer&) = default;

private:
    void readFolder(const QString& path);

    QString m_template;
    QString m_host;
    QString m_folder; ///< empty for a server
    bool m_isValid = false;
};

} // namespace Tessa
