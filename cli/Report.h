#pragma once

#include <QString>

namespace KOLT::Cli {

struct Arguments;

/// The verb "report": cycles and flights as tables.
QString report(const Arguments& arguments);

} // namespace KOLT::Cli
