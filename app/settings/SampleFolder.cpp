#include "app/settings/SampleFolder.h"

#include "app/settings/DataPaths.h"
#include "base/Diagnostics.h"
#include "base/SafeFile.h"
#include "base/WriteGuard.h"

#include <QDir>
#include <QFile>

namespace KOLT {

QString installSampleCard()
{
    const QDir source(QFile::decodeName(DataPaths::instance().resourcePath() + "sample"));
    const QString target =
        QFile::decodeName(DataPaths::instance().dataPath()) + QStringLiteral("/SampleCard");
    const QStringList names = source.entryList(QDir::Files, QDir::Name);
    if (names.isEmpty())
        Diagnostics::print("installSampleCard: There are no recordings in %s\n",
                           qUtf8Printable(source.path()));
    if (names.isEmpty() || !QDir().mkpath(target))
        return {};
    const auto permission = allowRecordFiles(target);
    for (const QString& name : names) {
        const QString from = source.filePath(name);
        const QString to = target + QLatin1Char('/') + name;
        if (QFileInfo(to).size() == QFileInfo(from).size() && QFile::exists(to))
            continue;
        if (const WriteResult copied = copyFile(from, to); !copied) {
            Diagnostics::print("installSampleCard: Could not write %s: %s\n", qUtf8Printable(to),
                               qUtf8Printable(copied.error));
            return {};
        }
        QFile::setPermissions(to, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    }
    return target;
}

} // namespace KOLT
