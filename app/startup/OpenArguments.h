#pragma once

#include <QString>

#include <string>
#include <vector>

namespace KOLT {

/// What the user asks for by a path on the command line, or with "Open with" in a file manager.
struct OpenArguments
{
    QString folder;  ///< absolute; empty for none
    QString project; ///< absolute; empty for none
};

/// The first existing folder and the first KOLT project file among the arguments. Others are
/// ignored.
OpenArguments findOpenArguments(const std::vector<std::string>& arguments);

} // namespace KOLT
