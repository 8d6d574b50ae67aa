#pragma once

#include "cli/Arguments.h"

#include <QString>

/// The verbs of kolt-cli. Each prints its result to the standard output; the text returned says
/// what went wrong, in one line, and is empty on success.
namespace KOLT::Cli {

QString list(const Arguments& arguments);
QString flights(const Arguments& arguments);
QString values(const Arguments& arguments);
QString events(const Arguments& arguments);
QString report(const Arguments& arguments);

} // namespace KOLT::Cli
