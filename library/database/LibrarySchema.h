#pragma once

#include <QString>

namespace KOLT::Library {

class LibraryConnection;

/// The tables of the database (docs/formats/library.md) and how older ones become those of today.
inline constexpr int schemaVersion = 4;

/// What the database says of its version: 0 if it has no tables of ours. None on failure, which
/// the connection tells.
struct SchemaVersion
{
    int version = 0;
    bool isKnown = false;
};

SchemaVersion schemaVersionOf(LibraryConnection& connection);

/// Creates the tables, or brings those of an older version up to date, in one transaction. Another
/// program may do the same at the same time.
bool upgradeSchema(LibraryConnection& connection);

/// Drops all that upgradeSchema() creates, in a transaction of the caller.
bool dropSchema(LibraryConnection& connection);

} // namespace KOLT::Library
