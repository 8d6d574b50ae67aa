#pragma once

#include <QString>

namespace KOLT::Cli {

struct Arguments;

/// The verb "episodes".
QString episodes(const Arguments& arguments);

} // namespace KOLT::Cli
