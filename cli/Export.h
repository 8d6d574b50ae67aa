#pragma once

#include <QString>

namespace KOLT::Cli {

struct Arguments;

/// The verb "export": CSV, KML and GPX.
QString exportData(const Arguments& arguments);

} // namespace KOLT::Cli
