#include "app/dialogs/ProfileInstallation.h"

#include "app/Messages.h"
#include "app/ProfileInstaller.h"

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
    return QFileDialog::getOpenFileName(parent, ProfileInstallation::tr("Install Profile"),
                                        QString(),
                                        ProfileInstallation::tr("Profile Files (*.xml)"));
}

bool installProfile(QWidget* parent, const QString& path)
{
    switch (ProfileInstaller::install(path)) {
    case ProfileInstaller::Result::Installed:
        Messages::inform(parent, ProfileInstallation::tr("The profile\n%1\nis installed. A backup "
                                                         "of the one before stays beside it.")
                                     .arg(path));
        return true;
    case ProfileInstaller::Result::NotAProfile:
        Messages::warn(parent, ProfileInstallation::tr("Not a valid KOLT profile !") +
                                   QLatin1Char('\n') + path);
        return false;
    case ProfileInstaller::Result::NotWritten:
        Messages::warn(parent,
                       ProfileInstallation::tr("The profile could not be written to\n%1\nPlease "
                                               "check that the folder can be written and is not "
                                               "full. The profile before is still in use.")
                           .arg(ProfileInstaller::installedPath()));
        return false;
    }
    return false;
}

} // namespace KOLT
