#include "app/settings/KnownLibraries.h"

#include "app/settings/DataPaths.h"
#include "base/Diagnostics.h"
#include "base/SafeFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace KOLT {

namespace {

QString cleanPath(const QString& folder)
{
    return QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
}

QString noteOf(const QString& folder)
{
    const QByteArray name =
        QCryptographicHash::hash(cleanPath(folder).toUtf8(), QCryptographicHash::Sha256).toHex();
    return QStringLiteral("%1/libraries/%2.txt")
        .arg(QFile::decodeName(DataPaths::instance().dataPath()),
             QString::fromLatin1(name.left(16)));
}

} // namespace

bool isKnownLibrary(const QString& folder)
{
    return QFileInfo::exists(noteOf(folder));
}

void rememberLibrary(const QString& folder)
{
    const QString path = noteOf(folder);
    if (QFileInfo::exists(path))
        return;
    QDir().mkpath(QFileInfo(path).absolutePath());
    const WriteResult result = replaceFile(path, cleanPath(folder).toUtf8() + '\n');
    if (!result)
        Diagnostics::print("rememberLibrary: %s: %s\n", qUtf8Printable(path),
                           qUtf8Printable(result.error));
}

} // namespace KOLT
