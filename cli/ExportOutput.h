#pragma once

#include "export/ExportFile.h"

namespace KOLT::Cli {

/// exportToFile(); "-" stands for the standard output, which keeps what was written before a
/// failure.
ExportOutcome exportTo(const QString& output, const std::function<ExportStatus(QIODevice&)>& write);

/// Why the output must not be written; empty if it may be.
QString outputObjection(const QString& output);

/// The error message for an output that could not be written.
QString outputError(const QString& output, const QString& reason);

} // namespace KOLT::Cli
