#pragma once

#include "libs/tessamap/globe/TileId.h"

#include <QString>
#include <QUrl>

namespace Tessa {

/// Address of a tile server, as users write it: a template with {z}, {x} and {y}, or a plain base
/// address, to which "/z/x/y.png" is added. A value.
class TileServer
{
public:
    /// Of the public OpenStreetMap server.
    static QString defaultTemplate();

    /// An empty address means the default; one without a scheme gets https. Addresses of the public
    /// OpenStreetMap server, however they are written, become its only proper one.
    explicit TileServer(const QString& address = QString());

    /// False for what is no http or https address: then there is nothing to ask.
    bool isValid() const { return m_isValid; }

    bool isPublicServer() const { return m_template == defaultTemplate(); }

    QString urlTemplate() const { return m_template; }

    QUrl url(const TileId& tile) const;

    /// Whom the picture is owed to, and where to read more: to be shown wherever its tiles are.
    QString attribution() const;
    QUrl attributionLink() const;

    /// A short folder name of its own for the tiles of this server, of hexadecimal digits.
    QString cacheKey() const;

    friend bool operator==(const TileServer&, const TileServer&) = default;

private:
    QString m_template;
    QString m_host;
    bool m_isValid = false;
};

} // namespace Tessa
