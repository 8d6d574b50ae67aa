#pragma once

#include <QString>

namespace KOLT {

/// The profile file that the program uses, and how another one takes its place.
namespace ProfileInstaller {

enum class Result {
    Installed,
    InUse,       ///< it is the installed one already
    NotAProfile, ///< unreadable, no XML, or no parameters
    NotWritten   ///< the old profile is untouched
};

/// "Profile.xml" in the data path.
QString installedPath();

/// Checks the file and puts a copy of it in the place of the installed profile, of which a backup
/// stays beside it: "Profile.xml.bak", or "Profile.xml.2.bak" and so on where that name is taken.
Result install(const QString& path);

} // namespace ProfileInstaller
} // namespace KOLT
