#include "app/settings/InstalledProfile.h"

#include "app/settings/DataPaths.h"
#include "base/Diagnostics.h"
#include "base/SafeFile.h"
#include "profile/Profile.h"

#include <QFile>
#include <QFileInfo>

namespace KOLT::InstalledProfile {

namespace {

/// Loaded without a variant, so that elements of all variants count.
bool isProfile(const QString& path)
{
    Profile profile;
    return profile.loadProfil(path, {}) && !profile.parameters().empty();
}

} // namespace

QString path()
{
    return DataPaths::instance().profileFile();
}

Result replaceWith(const QString& file)
{
    const QString target = path();
    if (!isProfile(file))
        return Result::NotAProfile;
    if (QFileInfo(file).canonicalFilePath() == QFileInfo(target).canonicalFilePath())
        return Result::InUse;
    const bool isSaved =
        !QFile::exists(target) || copyFile(target, freePath(target, QStringLiteral(".bak")));
    const bool isInstalled = isSaved && copyFile(file, target);
    Diagnostics::print("InstalledProfile::replaceWith <%s> %d\n", qUtf8Printable(file),
                       isInstalled ? 1 : 0);
    return isInstalled ? Result::Installed : Result::NotWritten;
}

} // namespace KOLT::InstalledProfile
