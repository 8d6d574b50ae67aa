#pragma once

#include <QString>

namespace KOLT {

class Profile;

/// Which profile the limits and texts of a sheet come from, in one line: "Profile: Tow plane,
/// version 2.2, variant 915". What the profile does not have is left out.
QString profileLine(const Profile& profile);

} // namespace KOLT
