#pragma once

#include "libs/tessamap/globe/TileId.h"

#include <QString>
#include <QUrl>

namespace Tessa {

/// The address of a tile server as users write it: a template with {z}, {x} and {y}, or a base
/// address, to which "/{z}/{x}/{y}.png" is appended. A value type.
class TileServer
{
public:
    /// The template of the public OpenStreetMap server.
    static QString defaultTemplate();

    /// An empty address means the default; an address without a scheme gets https. All known
    /// addresses of the public OpenStreetMap server become the default template.
    explicit TileServer(const QString& address = QString());

    /// Whether this is a usable http or https address.
    bool isValid() const { return m_isValid; }

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
    QString m_template;
    QString m_host;
    bool m_isValid = false;
};

} // namespace Tessa
