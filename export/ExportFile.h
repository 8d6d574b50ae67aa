#pragma once

#include "export/ExportProgress.h"

#include <QString>

#include <functional>
#include <string_view>

class QIODevice;

namespace KOLT {

struct ExportOutcome
{
    ExportStatus status = ExportStatus::Failed;
    QString error; ///< the system's message, if it failed
};

/// Replaces the file by the output of `write` (base/SafeFile.h). Unless `write` returns Done, an
/// existing file stays unchanged.
ExportOutcome exportToFile(const QString& path,
                           const std::function<ExportStatus(QIODevice&)>& write);

/// Writes all bytes to the device; false when it did not take them.
bool writeAll(QIODevice& device, std::string_view bytes);

/// The status of an export after its last write: flushes a file first. `isWritten`: all writes
/// succeeded.
ExportStatus finishExport(QIODevice& device, bool isWritten);

} // namespace KOLT
