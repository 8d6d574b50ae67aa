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

/// The main window: lists of cycles, flights and parameters on the left, the data window on the
/// right. It owns the profile and the open card, connects the panels and runs the commands.
///
/// It is also an event filter on the application that swallows Ctrl+Z, which would undo edits in
/// text fields unnoticed. The window stays responsive while a folder or data are being loaded;
/// requests made meanwhile are queued.
class DialogMain : public QMainWindow
{
    Q_OBJECT

public:
    /// Ends the process with an exit code. May return in tests.
    using EndProcess = std::function<void(int exitCode)>;

    DialogMain();
    ~DialogMain() override;

    const Profile& profile() const { return m_profile; }

    const CardContainer& card() const { return m_card; }

    const ProjectSession& project() const { return *m_project; }

    bool isBusy() const { return m_jobs.isBusy(); }

    /// Replaces the immediate exit that the first close ends with.
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
        int flight = -1; ///< -1: the whole cycle
    };

    /// What the user loaded last; empty before the first load.
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
    ExportSubject m_subject; ///< source of the loaded data, for exports
    EndProcess m_endProcess;
    QString m_notice; ///< problem reported by a page, shown once
    QString m_tip;    ///< status tip of the menu entry under the pointer
    QString m_messageBehindTip;
    bool m_isEmuDisplay = false;
    bool m_isProfileLoaded = false;
    bool m_isClosing = false;
    bool m_isUpdating = false; ///< the program is filling the selectors
    QTimer m_timer;
    QTimer m_startupTimer;
    QTimer m_styleTimer;
    QDateTime m_styleTime; ///< modification time of the applied style file
    std::unique_ptr<ProgressDisplay> m_progress;
    ProjectSession* m_project = nullptr;
    MainActions* m_actions = nullptr;
    QSplitter* m_splitter = nullptr;
    DialogCard* m_cardDialog = nullptr;
    DialogProfile* m_profileDialog = nullptr;
    DataWindow m_parts;
    DialogData* m_data = nullptr; ///< same as m_parts.window
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
