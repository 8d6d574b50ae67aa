#include "export/ExportFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace KOLT {

namespace {

/// The canonical path of the closest folder above `path` that is there, or of `path` itself.
QString existingPart(const QString& path)
{
    QFileInfo info(path);
    while (!info.exists() && !info.isRoot()) {
        const QFileInfo above(info.absolutePath());
        if (above.filePath() == info.filePath())
            break;
        info = above;
    }
    return info.canonicalFilePath();
}

} // namespace

ExportOutcome exportToFile(const QString& path,
                           const std::function<ExportStatus(QIODevice&)>& write)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {ExportStatus::Failed, file.errorString()};
    const ExportStatus status = write(file);
    if (status == ExportStatus::Done && file.commit())
        return {status, {}};
    if (status == ExportStatus::Cancelled)
        return {status, {}};
    return {ExportStatus::Failed, file.errorString()};
}

ExportStatus finishExport(QIODevice& device, bool isWritten)
{
    auto* const file = qobject_cast<QFileDevice*>(&device);
    const bool isOut = isWritten && (file == nullptr || file->flush());
    return isOut ? ExportStatus::Done : ExportStatus::Failed;
}

bool isWithin(const QString& folder, const QString& path)
{
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    const QString target = existingPart(QFileInfo(path).absoluteFilePath());
    if (canonical.isEmpty() || target.isEmpty())
        return false;
    return target == canonical ||
           target.startsWith(canonical.endsWith(QLatin1Char('/')) ? canonical
                                                                  : canonical + QLatin1Char('/'));
}

} // namespace KOLT
