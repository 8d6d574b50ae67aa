#include "export/ExportFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Export)
};

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

/// What the system says. Where it took only a part of what was written, that is often nothing.
QString errorOf(const QSaveFile& file)
{
    const QString unknown = QSaveFile().errorString();
    return file.error() == QFileDevice::NoError || file.errorString() == unknown
               ? Text::tr("Not everything could be written. The disk may be full.")
               : file.errorString();
}

} // namespace

ExportOutcome exportToFile(const QString& path,
                           const std::function<ExportStatus(QIODevice&)>& write)
{
    // A pipe or a device would be replaced by a file, not written to.
    const QFileInfo target(path);
    if (target.exists() && !target.isFile())
        return {ExportStatus::Failed, Text::tr("This is no regular file.")};
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {ExportStatus::Failed, file.errorString()};
    const ExportStatus status = write(file);
    if (status == ExportStatus::Done && file.commit())
        return {status, {}};
    if (status == ExportStatus::Cancelled)
        return {status, {}};
    return {ExportStatus::Failed, errorOf(file)};
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
