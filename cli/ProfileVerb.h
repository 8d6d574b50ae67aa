#pragma once

#include <QString>

namespace KOLT::Cli {

struct Arguments;

/// The verb "profile": "profile check FILE" prints what is doubtful in a profile file.
QString profileVerb(const Arguments& arguments);

} // namespace KOLT::Cli
