#pragma once

#include <QString>

#include <memory>

/// What must never be written: recordings. Whatever KOLT writes asks here (SafeFile.h), and so does
/// whoever lets the user name a file, before the work begins. GUI thread only.
namespace KOLT {

/// Record files are known by the suffix of their name, "CAN", "can" or "xcb".
bool isRecordFileName(const QString& name);

/// As long as what is returned lives, nothing is written into the folder or below it.
[[nodiscard]] std::shared_ptr<const void> protectFolder(const QString& folder);

/// KOLT's own folder, which may be written also where it lies below a protected one: somebody may
/// open the home folder.
void setOwnFolder(const QString& folder);

/// Where a write to the path goes in the end: an absolute path without links. Links are followed
/// one by one, also those to what is not there (yet). Empty when they run in a circle.
QString resolvedPath(const QString& path);

/// Why the path must not be written, in words for the user: it leads into a protected folder, or
/// its name is one of a record file, in whatever case. Empty when it may be written.
QString writeObjection(const QString& path);

} // namespace KOLT
