#pragma once

#include <QJsonObject>

namespace KOLT {

struct EngineReport;

namespace Cli {

/// What the engine report holds, metric, with seconds on the counter (docs/report.md).
QJsonObject jsonReport(const EngineReport& report);

} // namespace Cli

} // namespace KOLT
