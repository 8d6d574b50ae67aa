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

} // namespace InstalledProfile
} // namespace KOLT
