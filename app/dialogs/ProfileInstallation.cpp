#include "app/dialogs/ProfileInstallation.h"

#include "app/settings/ProfileInstaller.h"
#include "ui/Messages.h"

#include <QCoreApplication>
#include <QFileDialog>

namespace KOLT {

namespace {

struct ProfileInstallation
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ProfileInstallation)
};

} // namespace

QString askForProfile(QWidget* parent)
{
    return QFileDialog::getOpenFileName(
        parent, ProfileInstallation::tr("Install Profile"), QString(),
        ProfileInstallation::tr("Profile Files (*.xml);;All Files (*)"));
}

bool installProfile(QWidget* parent, const QString& path)
{
    switch (ProfileInstaller::install(path)) {
    case ProfileInstaller::Result::Installed:
        Messages::inform(parent, ProfileInstallation::tr("The profile\n%1\nis installed as\n%2\n"
                                                         "The previous one is kept beside it as a "
                                                         "backup.")
                                     .arg(path, ProfileInstaller::installedPath()));
        return true;
    case ProfileInstaller::Result::InUse:
        Messages::inform(parent,
                         ProfileInstallation::tr("This profile is already in use:\n%1").arg(path));
        return false;
    case ProfileInstaller::Result::NotAProfile:
        Messages::warn(parent, ProfileInstallation::tr("Not a valid KOLT profile !") +
                                   QLatin1Char('\n') + path);
        return false;
    case ProfileInstaller::Result::NotWritten:
        Messages::warn(parent,
                       ProfileInstallation::tr("The profile could not be written to\n%1\nPlease "
                                               "check that the folder can be written and is not "
                                               "full. The previous profile is still in use.")
                           .arg(ProfileInstaller::installedPath()));
        return false;
    }
    return false;
}

} // namespace KOLT
