#pragma once

#include <QString>

namespace KOLT::Cli {

struct Arguments;

/// The verb "cut".
QString cut(const Arguments& arguments);

} // namespace KOLT::Cli
