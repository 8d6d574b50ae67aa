#pragma once

#include <QString>

namespace KOLT::Cli {

struct Arguments;

/// The verb "overview": each cycle of a folder and the sums of each day, as JSON.
QString overview(const Arguments& arguments);

} // namespace KOLT::Cli
