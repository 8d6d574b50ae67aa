#pragma once

class QWidget;

namespace KOLT {

enum class Command;

class DialogAbout;
class DialogDaySheet;
class DialogHelp;
class DialogPreferences;
class DialogProfileInfo;
class DialogReport;
class JobQueue;
class Profile;
class SettingsStore;

/// The windows that menu commands open. They are created hidden and kept.
class MenuDialogs
{
public:
    /// Profile, settings and queue must outlive this object.
    MenuDialogs(const Profile& profile, SettingsStore& settings, JobQueue& jobs, QWidget& window);
    /// Deletes the windows that use the profile or the queue.
    ~MenuDialogs();
    MenuDialogs(const MenuDialogs&) = delete;
    MenuDialogs& operator=(const MenuDialogs&) = delete;

    /// Shows the window of a command, or raises it when it is open; ignores other commands.
    void show(Command command) const;

    DialogProfileInfo& profileInfo() const { return *m_profileInfo; }

    DialogPreferences& preferences() const { return *m_preferences; }

    DialogDaySheet& daySheet() const { return *m_daySheet; }

    DialogReport& engineReport() const { return *m_engineReport; }

private:
    DialogAbout* m_about;
    DialogProfileInfo* m_profileInfo;
    DialogHelp* m_help;
    DialogPreferences* m_preferences;
    DialogDaySheet* m_daySheet;
    DialogReport* m_engineReport;
};

} // namespace KOLT
