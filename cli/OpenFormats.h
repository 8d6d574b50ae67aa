#pragma once

#include <QString>

namespace KOLT {

class Profile;

namespace Cli {

class Recording;

struct Arguments;

/// "export dbc": the profile for the tools of other makers.
QString exportDbc(const Arguments& arguments, const Profile& profile);

/// "export sqlite": cycles of an open folder in one database.
QString exportDatabase(const Arguments& arguments, Recording& recording);

} // namespace Cli

} // namespace KOLT
