#include "app/MenuDialogs.h"

#include "app/MainActions.h"
#include "app/dialogs/DialogAbout.h"
#include "app/dialogs/DialogDaySheet.h"
#include "app/dialogs/DialogHelp.h"
#include "app/dialogs/DialogPreferences.h"
#include "app/dialogs/DialogProfileInfo.h"
#include "app/settings/ProgramSettings.h"
#include "report/ui/DialogReport.h"

namespace KOLT {

namespace {

void showInFront(QWidget& window)
{
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

MenuDialogs::MenuDialogs(const Profile& profile, SettingsStore& settings, JobQueue& jobs,
                         QWidget& window)
    : m_about(new DialogAbout(&window))
    , m_profileInfo(new DialogProfileInfo(profile, &window))
    , m_help(new DialogHelp(ProgramSettings(settings).language(), &window))
    , m_preferences(new DialogPreferences(settings, &window))
    , m_daySheet(new DialogDaySheet(profile, settings, jobs, &window))
    , m_engineReport(new DialogReport(profile, &window))
{
}

MenuDialogs::~MenuDialogs()
{
    delete m_profileInfo;
    delete m_daySheet;
    delete m_engineReport;
}

void MenuDialogs::show(Command command) const
{
    switch (command) {
    case Command::About:
        showInFront(*m_about);
        break;
    case Command::ProfileInfo:
        showInFront(*m_profileInfo);
        break;
    case Command::Help:
        showInFront(*m_help);
        break;
    case Command::Preferences:
        showInFront(*m_preferences);
        break;
    default:
        break;
    }
}

} // namespace KOLT
