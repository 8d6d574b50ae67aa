#include "export/ExportFile.h"

#include "base/SafeFile.h"

#include <QFileDevice>

namespace KOLT {

ExportOutcome exportToFile(const QString& path,
                           const std::function<ExportStatus(QIODevice&)>& write)
{
    ExportStatus status = ExportStatus::Failed;
    const WriteResult result = replaceFile(path, [&](QIODevice& device) {
        status = write(device);
        return status == ExportStatus::Done;
    });
    if (result)
        return {ExportStatus::Done, {}};
    if (status == ExportStatus::Cancelled)
        return {status, {}};
    return {ExportStatus::Failed, result.error};
}

ExportStatus finishExport(QIODevice& device, bool isWritten)
{
    auto* const file = qobject_cast<QFileDevice*>(&device);
    const bool isOut = isWritten && (file == nullptr || file->flush());
    return isOut ? ExportStatus::Done : ExportStatus::Failed;
}

} // namespace KOLT
