#pragma once

#include "app/DataWindow.h"
#include "app/JobQueue.h"
#include "app/ProfileSession.h"
#include "app/RecentFolders.h"
#include "app/SettingsSaver.h"
#include "app/WidgetNames.h"

#include <QDateTime>
#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <list>
#include <memory>

class QAction;
class QSplitter;
class QToolBar;

namespace KOLT {

enum class Command;

class CardContainer;
class CardSession;
class DialogCard;
class DialogProfile;
class FocusRing;
class KeyCommands;
class GraphJump;
class ImportSession;
class LibrarySession;
class MainActions;
class NotesSession;
class MenuDialogs;
class OpenCycleNotice;
class OverviewSession;
class ProfileOffer;
class ProfileSelectors;
class ProjectSession;
class RecordingNotice;
class SettingsStore;
class StatusBar;
class TrustSession;
class WindowMemory;

/// The main window: lists of cycles, flights and parameters on the left, the data window on the
/// right. It creates the parts, connects them and dispatches the commands. The work is done by the
/// parts: the profile in use, the open card and the project.
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

    const Profile& profile() const { return m_profile.profile(); }

    const CardContainer& card() const;

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
    void slotOpenFlight(const QString& folder, int cycle, int flight);
    void slotProfileChanged();
    void slotProfileFileChanged();
    void slotTimeout();
    void slotTimeoutStartup();
    void slotCheckStyle();

private:
    void createBars();
    void createPanels();
    void createDialogs();
    void createOverview();
    void showListed();
    void createNotices();
    void connectCard();
    void connectPanels();
    void startTimers();
    void stripToDisplay();

    void loadProfile();
    void reloadProfile();
    void tellProfileFailure();
    void setClockOffset(int minutes);
    void refreshTitle();

    void openLastFolder();
    bool isFirstStart() const;
    void askForFolder();
    void noteOpened(const QString& folder);
    void offerRecentFolders();
    void showLoaded(bool isComplete);
    void selectLoaded();
    void openDaySheet();
    void tellSaved(const QString& path);
    void openEngineReport();
    void exportData(Command command);

    SettingsStore& m_settings;
    ProfileSession m_profile{*this};
    JobQueue m_jobs;
    RecentFolders m_recentFolders;
    SettingsSaver m_settingsSaver{*this};
    EndProcess m_endProcess;
    const bool m_isEmuDisplay;
    bool m_isClosing = false;
    QTimer m_timer;
    QTimer m_startupTimer;
    QTimer m_styleTimer;
    QDateTime m_styleTime; ///< modification time of the applied style file
    StatusBar* m_status;
    std::unique_ptr<CardSession> m_card;
    ProjectSession* m_project;
    MainActions* m_actions;
    QToolBar* m_toolBar = nullptr;
    std::unique_ptr<ProfileSelectors> m_selectors;
    QSplitter* m_splitter = nullptr;
    QSplitter* m_column = nullptr; ///< the lists, in m_splitter
    DialogCard* m_cardDialog = nullptr;
    DialogProfile* m_profileDialog = nullptr;
    DataWindow m_parts;
    DialogData* m_data = nullptr;                ///< same as m_parts.window
    std::unique_ptr<OverviewSession> m_overview; ///< none on the bare display
    std::unique_ptr<TrustSession> m_trust;       ///< likewise
    std::unique_ptr<LibrarySession> m_library;   ///< likewise
    std::unique_ptr<NotesSession> m_notes;       ///< likewise
    std::unique_ptr<MenuDialogs> m_dialogs;
    std::unique_ptr<ImportSession> m_import;
    std::unique_ptr<ProfileOffer> m_profileOffer;
    std::unique_ptr<GraphJump> m_graphJump;
    std::unique_ptr<RecordingNotice> m_recordingNotice; ///< none on the bare display
    std::unique_ptr<OpenCycleNotice> m_cycleNotice;     ///< likewise
    WidgetNames m_names;
    std::unique_ptr<FocusRing> m_ring;
    std::unique_ptr<KeyCommands> m_keys;
    std::unique_ptr<WindowMemory> m_memory; ///< likewise
};

} // namespace KOLT
