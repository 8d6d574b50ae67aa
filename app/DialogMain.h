#pragma once

#include "app/DataWindow.h"
#include "app/JobQueue.h"
#include "app/RecentFolders.h"
#include "app/SettingsSaver.h"
#include "export/ExportName.h"
#include "profile/Profile.h"
#include "record/CardContainer.h"

#include <QDateTime>
#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <list>
#include <memory>
#include <variant>

class QAction;
class QLabel;
class QSplitter;
class QToolBar;

namespace KOLT {

enum class Command;

class DialogAbout;
class DialogCard;
class DialogDaySheet;
class DialogHelp;
class DialogPreferences;
class DialogProfile;
class DialogProfileInfo;
class MainActions;
class ProgressDisplay;
class ProjectSession;
class Selector;

/// The top-level window: cycles and flights and the parameters at the left, the data to their
/// right. It owns the profile and the open card, joins the panels and runs the commands.
///
/// It is also the event filter of the whole application: Ctrl+Z would undo edits in fields behind
/// the user's back and reaches no widget. While a folder or data are loaded the window stays alive;
/// what is asked for meanwhile is done afterwards.
class DialogMain : public QMainWindow
{
    Q_OBJECT

public:
    /// Ends the process with an exit code; may return in tests.
    using EndProcess = std::function<void(int exitCode)>;

    DialogMain();
    ~DialogMain() override;

    const Profile& profile() const { return m_profile; }

    const CardContainer& card() const { return m_card; }

    const ProjectSession& project() const { return *m_project; }

    bool isBusy() const { return m_jobs.isBusy(); }

    /// What the first close does at last, in place of ending the process at once.
    void setEndProcess(EndProcess endProcess) { m_endProcess = std::move(endProcess); }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private slots:
    void slotMenu(QAction* action);
    void slotMenuRecent(QAction* action);
    void slotMenuPrefAbout();
    void slotProfileChanged(const QString& variant);
    void slotUnitChanged(int unit);
    void slotCanChanged();
    void slotLoadRecord(const std::list<QString>& paths);
    void slotLoadCycle(unsigned int cycle, int flight);
    void slotProfileChanged();
    void slotProfileFileChanged();
    void slotTimeout();
    void slotTimeoutStartup();
    void slotCheckStyle();

private:
    using Files = std::list<QString>;

    struct CycleChoice
    {
        int cycle = 0;
        int flight = -1; ///< -1: all of the cycle
    };

    /// What the user loaded last; nothing before the first time.
    using Choice = std::variant<std::monostate, Files, CycleChoice>;

    void createPanels();
    void createDataWindow();
    void showNotice(const QString& message);
    void createToolBar();
    void createDialogs();
    void startTimers();

    void loadProfile();
    void tellProfileFailure();
    void reloadProfile();
    void showReloaded();
    void refreshSelectors();

    void askForFolder();
    void openFolder(const QString& folder);
    void openDropped(const QStringList& paths);
    bool listFolder(const QString& folder);
    void load(const Choice& choice);
    bool canLoad(const Choice& choice);
    void loadNow(const Choice& choice);
    QString nameOf(const Choice& choice) const;
    Files filesOf(const Choice& choice) const;
    void openDaySheet();
    void enableExports();
    static ExportSubject subjectOf(const Choice& choice);
    void startExport(Command command);
    void tellUnreadFiles();
    void showDataInWords(const Choice& choice);
    void refreshTitle();

    Profile m_profile;
    CardContainer m_card{m_profile};
    JobQueue m_jobs;
    RecentFolders m_recentFolders;
    SettingsSaver m_settingsSaver{*this};
    Choice m_choice;
    ExportSubject m_subject; ///< where the loaded data came from
    EndProcess m_endProcess;
    QString m_notice; ///< what is wrong with a page, told once
    QString m_tip;    ///< of the menu entry below the pointer
    QString m_messageBehindTip;
    bool m_isEmuDisplay = false;
    bool m_isProfileLoaded = false;
    bool m_isClosing = false;
    bool m_isUpdating = false; ///< the selectors are filled by the program
    QTimer m_timer;
    QTimer m_startupTimer;
    QTimer m_styleTimer;
    QDateTime m_styleTime; ///< when the applied style file was written
    std::unique_ptr<ProgressDisplay> m_progress;
    ProjectSession* m_project = nullptr;
    MainActions* m_actions = nullptr;
    QSplitter* m_splitter = nullptr;
    DialogCard* m_cardDialog = nullptr;
    DialogProfile* m_profileDialog = nullptr;
    DataWindow m_parts;
    DialogData* m_data = nullptr; ///< of the parts
    DialogAbout* m_about = nullptr;
    DialogProfileInfo* m_profileInfo = nullptr;
    DialogHelp* m_help = nullptr;
    DialogPreferences* m_preferences = nullptr;
    DialogDaySheet* m_daySheet = nullptr;
    QToolBar* m_toolBar = nullptr;
    Selector* m_profileSelector = nullptr;
    Selector* m_unitSelector = nullptr;
    QLabel* m_dataInWords = nullptr;
};

} // namespace KOLT
