#include "app/ProfileOffer.h"

#include "app/SettingsSaver.h"
#include "app/dialogs/DialogProfileChanges.h"
#include "app/dialogs/InstallProfile.h"
#include "app/settings/DataPaths.h"
#include "app/settings/InstalledProfile.h"
#include "app/settings/ProgramSettings.h"
#include "profile/ProfileVersion.h"
#include "ui/NoticeBar.h"

namespace KOLT {

ProfileOffer::ProfileOffer(NoticeBar& bar, QWidget& window)
    : m_bar(bar)
    , m_window(window)
{
    connect(&bar, &NoticeBar::signalAction, this, &ProfileOffer::showChanges);
    connect(&bar, &NoticeBar::signalClosed, this, &ProfileOffer::refuse);
}

void ProfileOffer::takeNewest()
{
    const QString shipped = DataPaths::shippedProfileFile();
    const InstalledProfile::Newest found = InstalledProfile::takeNewest(shipped);
    m_isReplaced = found == InstalledProfile::Newest::Replaced;
    m_isOffered = found == InstalledProfile::Newest::Edited &&
                  profileVersion(shipped).version != ProgramSettings().refusedProfile();
}

void ProfileOffer::tell()
{
    const QString version = profileVersion(DataPaths::shippedProfileFile()).version;
    if (m_isReplaced)
        emit signalMessage(tr("The profile was replaced by version %1, which came with the "
                              "program. The previous one is kept beside it as a backup.")
                               .arg(version));
    if (m_isOffered)
        m_bar.showNotice(tr("Version %1 of the profile came with the program. Version %2 is still "
                            "in use, as it was edited.")
                             .arg(version, profileVersion(InstalledProfile::path()).version),
                         tr("Compare..."));
}

void ProfileOffer::showChanges()
{
    DialogProfileChanges dialog(InstalledProfile::path(), DataPaths::shippedProfileFile(),
                                &m_window);
    dialog.exec();
    switch (dialog.choice()) {
    case DialogProfileChanges::Choice::Install:
        if (installProfile(&m_window, DataPaths::shippedProfileFile()) !=
            InstalledProfile::Result::Installed)
            break;
        m_bar.hide();
        emit signalInstalled();
        break;
    case DialogProfileChanges::Choice::Keep:
        m_bar.hide();
        refuse();
        break;
    case DialogProfileChanges::Choice::None:
        break;
    }
}

void ProfileOffer::refuse()
{
    ProgramSettings().setRefusedProfile(profileVersion(DataPaths::shippedProfileFile()).version);
    saveSettings(&m_window);
}

} // namespace KOLT
