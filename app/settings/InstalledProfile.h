#pragma once

#include <QString>

namespace KOLT {

/// The profile file in the data path, which the program uses.
namespace InstalledProfile {

enum class Result {
    Installed,
    InUse,       ///< the file is the installed profile
    NotAProfile, ///< unreadable, not XML, or without parameters
    NotWritten   ///< the old profile is unchanged
};

/// "Profile.xml" in the data path.
QString path();

/// Copies a file over the installed profile, which is kept as "Profile.xml.bak", or
/// "Profile.xml.2.bak" and so on if that exists.
Result replaceWith(const QString& file);

/// What takeNewest() did about the profile that came with the program.
enum class Newest {
    InUse,    ///< it is installed, or the installed one is as new, or another one
    Replaced, ///< the installed one was older and not edited: it was replaced
    Edited,   ///< the installed one is older, and edited: the user has to choose
};

/// Replaces the installed profile if the shipped one has the same "profileId" and a newer version,
/// and the installed one is as it was shipped once. Remembers what was installed by a hash in
/// "Profile.xml.shipped", for the next version.
Newest takeNewest(const QString& shipped);

} // namespace InstalledProfile
} // namespace KOLT
