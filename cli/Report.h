#pragma once

#include <QString>

namespace KOLT::Cli {

struct Arguments;

/// The verb "report": prints cycles and flights as tables.
QString report(const Arguments& arguments);

} // namespace KOLT::Cli
