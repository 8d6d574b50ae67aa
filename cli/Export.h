#pragma once

#include <QString>

namespace KOLT::Cli {

struct Arguments;

/// The verb "export".
QString exportData(const Arguments& arguments);

} // namespace KOLT::Cli
