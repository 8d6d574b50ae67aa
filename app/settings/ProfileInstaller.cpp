#include "app/settings/ProfileInstaller.h"

#include "app/settings/DataPaths.h"
#include "base/Diagnostics.h"
#include "base/SafeFile.h"
#include "profile/Profile.h"

#include <QFile>
#include <QFileInfo>

namespace KOLT::ProfileInstaller {

namespace {

QString freeBackupName(const QString& path)
{
    QString backup = path + QStringLiteral(".bak");
    for (int i = 2; QFile::exists(backup); ++i)
        backup = QStringLiteral("%1.%2.bak").arg(path).arg(i);
    return backup;
}

/// Loaded without a variant, which takes the elements of all variants.
bool isProfile(const QString& path)
{
    Profile profile;
    return profile.loadProfil(path, {}) && !profile.parameters().empty();
}

} // namespace

QString installedPath()
{
    return QFile::decodeName(DataPaths::instance().profilePath()) + QStringLiteral("/Profile.xml");
}

Result install(const QString& path)
{
    const QString target = installedPath();
    if (!isProfile(path))
        return Result::NotAProfile;
    if (QFileInfo(path).canonicalFilePath() == QFileInfo(target).canonicalFilePath())
        return Result::InUse;
    const bool isSaved = !QFile::exists(target) || copyFile(target, freeBackupName(target));
    const bool isInstalled = isSaved && copyFile(path, target);
    Diagnostics::print("ProfileInstaller::install <%s> %d\n", qUtf8Printable(path),
                       isInstalled ? 1 : 0);
    return isInstalled ? Result::Installed : Result::NotWritten;
}

} // namespace KOLT::ProfileInstaller
