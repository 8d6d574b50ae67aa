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

/// Replaces the file by what `write` puts out; what is there and is no regular file (a folder, a
/// pipe, a device), links followed, is left alone, which counts as a failure. Unless that is done
/// and all of it has reached the disk, a file that was there before stays as it was, and no other
/// is left behind.
ExportOutcome exportToFile(const QString& path,
                           const std::function<ExportStatus(QIODevice&)>& write);

/// How a work ends that has been written to the device: what a file still buffers is put out first.
ExportStatus finishExport(QIODevice& device, bool isWritten);

/// Whether the path lies in the folder or below it, links followed. Exports never go where the
/// recordings are.
bool isWithin(const QString& folder, const QString& path);

} // namespace KOLT
