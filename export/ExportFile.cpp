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

bool writeAll(QIODevice& device, std::string_view bytes)
{
    // A full disk accepts a part; the error is only set by writing the rest.
    const auto size = static_cast<qint64>(bytes.size());
    for (qint64 done = 0; done < size;) {
        const qint64 taken = device.write(bytes.data() + done, size - done);
        if (taken <= 0)
            return false;
        done += taken;
    }
    return true;
}

ExportStatus finishExport(QIODevice& device, bool isWritten)
{
    auto* const file = qobject_cast<QFileDevice*>(&device);
    const bool isOut = isWritten && (file == nullptr || file->flush());
    return isOut ? ExportStatus::Done : ExportStatus::Failed;
}

} // namespace KOLT
