#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace KOLT::Library {

/// Where a library is: the archive is always a folder, the database a file in it or on a server.
struct LibraryAddress
{
    QString archive; ///< folder, absolute or relative
    QString server;  ///< "postgresql://user@host:port/database"; empty: SQLite beside the archive

    bool isServer() const { return !server.isEmpty(); }

    /// The database's file; empty for a server.
    QString sqliteFile() const;

    /// For messages: the file, or the server without anything secret.
    QString shown() const;

    bool operator==(const LibraryAddress&) const = default;
};

/// Options of libpq that the URL of a server may have ("?sslmode=require").
const QStringList& serverOptions();

/// Either an address or what is wrong with it.
struct ParsedAddress
{
    std::optional<LibraryAddress> address;
    QString error;
};

/// `library` is a folder or the URL of a server, which needs `archive` as well. A URL with a
/// password is refused: it belongs into libpq's password file (~/.pgpass).
ParsedAddress parseLibraryAddress(const QString& library, const QString& archive = {});

} // namespace KOLT::Library
