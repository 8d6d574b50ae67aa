#pragma once

#include <QString>

namespace KOLT {

/// The installed profile file and its replacement by another one.
namespace ProfileInstaller {

enum class Result {
    Installed,
    InUse,       ///< it is already the installed one
    NotAProfile, ///< unreadable, no XML, or no parameters
    NotWritten   ///< the installed profile is unchanged
};

/// "Profile.xml" in the data path.
QString installedPath();

/// Checks the file and replaces the installed profile by a copy of it. Keeps a backup of the old
/// one beside it: "Profile.xml.bak", or "Profile.xml.2.bak" and so on where that name is taken.
Result install(const QString& path);

} // namespace ProfileInstaller
} // namespace KOLT
