#include "app/dialogs/InstallProfile.h"

#include "ui/DialogFolders.h"
#include "ui/Messages.h"

#include <QCoreApplication>
#include <QFileDialog>

namespace KOLT {

namespace {

struct InstallProfile
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::InstallProfile)
};

} // namespace

QString askForProfile(QWidget* parent)
{
    const auto folderKind = QStringLiteral("Profile");
    const QString path = QFileDialog::getOpenFileName(
        parent, InstallProfile::tr("Install Profile"), DialogFolders::proposal(folderKind, {}),
        InstallProfile::tr("Profile Files (*.xml);;All Files (*)"));
    DialogFolders::note(folderKind, path);
    return path;
}

InstalledProfile::Result installProfile(QWidget* parent, const QString& path)
{
    const InstalledProfile::Result result = installProfileSilently(parent, path);
    if (result == InstalledProfile::Result::Installed)
        Messages::inform(parent, InstallProfile::tr("The profile\n%1\nis installed as\n%2\n"
                                                    "The previous one is kept beside it as a "
                                                    "backup.")
                                     .arg(path, InstalledProfile::path()));
    return result;
}

InstalledProfile::Result installProfileSilently(QWidget* parent, const QString& path)
{
    const InstalledProfile::Result result = InstalledProfile::replaceWith(path);
    switch (result) {
    case InstalledProfile::Result::Installed:
        break;
    case InstalledProfile::Result::InUse:
        Messages::inform(parent,
                         InstallProfile::tr("This profile is already in use:\n%1").arg(path));
        break;
    case InstalledProfile::Result::NotAProfile:
        Messages::warn(parent,
                       InstallProfile::tr("Not a valid KOLT profile !") + QLatin1Char('\n') + path);
        break;
    case InstalledProfile::Result::NotWritten:
        Messages::warn(parent, InstallProfile::tr("The profile could not be written to\n%1\nPlease "
                                                  "check that the folder can be written and is not "
                                                  "full. The previous profile is still in use.")
                                   .arg(InstalledProfile::path()));
        break;
    }
    return result;
}

} // namespace KOLT
