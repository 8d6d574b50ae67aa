#pragma once

#include <QString>

#include <vector>

namespace KOLT {

/// Something in a profile file that loading takes silently, or with a line in the log, although it
/// is hardly meant.
struct ProfileFinding
{
    int line = 0; ///< in the file, from 1
    QString text; ///< a sentence
};

/// What is doubtful in a profile file, for all of its variants, by line (docs/formats/profile.md,
/// "Check"). A file that is no profile has one finding.
std::vector<ProfileFinding> checkProfile(const QString& path);

} // namespace KOLT
