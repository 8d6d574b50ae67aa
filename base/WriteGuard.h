#pragma once

#include <QString>

#include <memory>

/// Keeps KOLT from ever writing recordings. Every write is checked here (SafeFile.h); file names
/// that the user enters are checked as well, before the work begins. For any thread.
namespace KOLT {

/// Record files are recognised by their suffix "CAN", "can" or "xcb".
bool isRecordFileName(const QString& name);

/// Forbids writing to the folder and below it as long as the returned object lives.
[[nodiscard]] std::shared_ptr<const void> protectFolder(const QString& folder);

/// Sets KOLT's own folder, which may be written even below a protected one: the user may open the
/// home folder as a card.
void setOwnFolder(const QString& folder);

/// As long as the returned object exists, files with the names of record files may be written into
/// the folder, unless it is protected: for recordings that come with the program.
[[nodiscard]] std::shared_ptr<const void> allowRecordFiles(const QString& folder);

/// As long as the returned object exists, everything may be written below the folder, files with
/// the names of record files as well, also while it, a folder below or one above is protected: for
/// an archive of recordings, whose cycles are opened like cards.
[[nodiscard]] std::shared_ptr<const void> allowArchive(const QString& folder);

/// Whether a path is a folder or lies below it, after resolving links.
bool isBelow(const QString& folder, const QString& path);

/// Where a write to the path goes in the end: an absolute path without links. Links are followed
/// one by one, also those to what is not there (yet). Empty when they run in a circle.
QString resolvedPath(const QString& path);

/// Why the path must not be written, for the user: it leads into a protected folder, or it has the
/// name of a record file in upper or lower case. Empty when it may be written.
QString writeObjection(const QString& path);

} // namespace KOLT
