#include "app/settings/InstalledProfile.h"

#include "app/settings/DataPaths.h"
#include "base/Diagnostics.h"
#include "base/SafeFile.h"
#include "profile/Profile.h"
#include "profile/ProfileVersion.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace KOLT::InstalledProfile {

namespace {

/// Loaded without a variant, so that elements of all variants count.
bool isProfile(const QString& path)
{
    Profile profile;
    return profile.loadProfil(path, {}) && !profile.parameters().empty();
}

/// Versions that were shipped before hashes were kept.
constexpr std::array shippedBefore{
    "a09ef5029a758faf15200eb6e5c53383add3fee7b27b320eef3480c1c9cd1c0d",
    "ca1561028d1dbb6a529adc20fc6a33435b061e98d58e9436ca0794142f3675d0",
    "f2332f6573957685631084228ec71621f9625c67b986e32b075b15324a5b329c",
};

QString hashFile()
{
    return path() + QStringLiteral(".shipped");
}

/// SHA-256 in hexadecimal; empty when the file cannot be read.
QByteArray hashOf(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result().toHex()
                                                                 : QByteArray();
}

QByteArray rememberedHash()
{
    constexpr qint64 hashBytes = 64;
    QFile file(hashFile());
    return file.open(QIODevice::ReadOnly) ? file.read(hashBytes) : QByteArray();
}

void remember(const QByteArray& hash)
{
    if (hash != rememberedHash())
        replaceFile(hashFile(), hash + '\n');
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

Newest takeNewest(const QString& shipped)
{
    const QByteArray hash = hashOf(path());
    const QByteArray newest = hashOf(shipped);
    if (hash.isEmpty() || newest.isEmpty())
        return Newest::InUse;
    if (hash == newest) {
        remember(hash);
        return Newest::InUse;
    }
    const ProfileVersion own = profileVersion(path());
    const ProfileVersion other = profileVersion(shipped);
    if (own.profileId != other.profileId || !isNewerVersion(other.version, own.version))
        return Newest::InUse;
    const bool isAsShipped =
        hash == rememberedHash() ||
        std::ranges::any_of(shippedBefore, [&](const char* known) { return hash == known; });
    if (!isAsShipped)
        return Newest::Edited;
    if (replaceWith(shipped) != Result::Installed)
        return Newest::InUse;
    remember(newest);
    return Newest::Replaced;
}

} // namespace KOLT::InstalledProfile
