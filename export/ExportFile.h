#pragma once

#include "export/ExportProgress.h"

#include <QString>

#include <functional>

class QIODevice;

namespace KOLT {

struct ExportOutcome
{
    ExportStatus status = ExportStatus::Failed;
    QString error; ///< of the system, when it failed
};

/// Replaces the file by what `write` puts out (base/SafeFile.h); unless that is done, a file that
/// was there before stays as it was.
ExportOutcome exportToFile(const QString& path,
                           const std::function<ExportStatus(QIODevice&)>& write);

/// How a work ends that has been written to the device: what a file still buffers is put out first.
ExportStatus finishExport(QIODevice& device, bool isWritten);

} // namespace KOLT
