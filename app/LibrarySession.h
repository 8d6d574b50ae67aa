#pragma once

#include "app/LibraryOpener.h"
#include "library/archive/Archive.h"
#include "library/ledger/EngineLedger.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

class QWidget;

namespace KOLT {

class CardSession;
class EngineWindow;
class InstallationsWindow;
class JobQueue;
class LibraryPage;
class Profile;
class SettingsStore;

namespace Library {
struct UpdateResult;
}

/// The user's library: opens the one of the settings when its page is shown for the first time,
/// opens what is chosen there like a card, and shows the ledgers of engines. Works out figures in
/// processes of the program. The arguments must outlive the session.
class LibrarySession : public QObject
{
    Q_OBJECT

public:
    LibrarySession(const Profile& profile, SettingsStore& settings, CardSession& card,
                   JobQueue& jobs, QWidget& window);
    ~LibrarySession() override;

    /// For the card panel, which takes ownership.
    LibraryPage* page() const;

    /// Opens the library of the settings, unless it is open. False, and the page says why, if there
    /// is none. With a server it processes events; false during that.
    bool open();

    /// The library of the settings is another one, or something was added to it.
    void reopen();

    /// Asks where the library is, and opens it.
    void choose();

    /// Lets the user move the library to another folder, and opens it there. From within a job.
    void move();

    /// Shows the ledger of an engine, or of the first one; or why there is none.
    void showEngine(const QString& engine);

    /// Shows which engine was in which unit, to be edited.
    void showInstallations();

    /// Sections of the engine report: the ledgers of those engines that the library knows; empty
    /// without a library.
    QString reportSection(const QStringList& engines);

    /// The folder that new notes are kept in: the library, which may be absent, or the data path
    /// without one.
    QString notesFolder() const;

    /// Notes were written into the library.
    void notesChanged();

    /// The archive has another state of this cycle, or has it no more.
    void noteCycle(const Library::ArchivedCycle& cycle);
    void noteRemoved(const QString& folder);

    /// Works out the figures that are missing or stale, as a job: after an import, or when the user
    /// wants it.
    void evaluate();

    /// Opens a cycle of the archive like a card, or a flight of it from 1; 0: all of the cycle.
    void openCycle(const QString& folder, int flight);
    /// The same, though its folder may be open already: there are more files in it.
    void reloadCycle(const QString& folder);

signals:
    /// For the status bar.
    void signalMessage(const QString& message);

private:
    void connectPage();
    EngineWindow& engineWindow();
    bool showAbsence(const QString& why, bool canRetry = true);
    /// As open(), but does not wait for a server that did not answer a short time ago.
    bool openQuietly();
    void takeInstallations();
    void read();
    void showPage();
    void update();
    void tell(const Library::UpdateResult& result);
    void listEngines(const QString& engine);
    void refreshEngine();
    void showNoEngine();
    void listInstallations();
    void showLedger(const QString& engine);
    void load(const QString& folder, int flight, bool isListedAgain);
    void nameAircraft(quint32 unit);
    template <typename Item>
    void save(Item item);
    int staleCount();

    const Profile& m_profile;
    SettingsStore& m_settings;
    CardSession& m_card;
    JobQueue& m_jobs;
    QWidget& m_window;
    QPointer<LibraryPage> m_page;
    QPointer<EngineWindow> m_engine;
    QPointer<InstallationsWindow> m_installations;
    Library::Archive m_archive;
    LibraryOpener m_opener;
    QString m_absence;                                    ///< why no library is open
    std::shared_ptr<Library::LibraryDatabase> m_database; ///< an update keeps its own
    Library::Logbook::Contents m_written;
    QTimer m_refresh; ///< after changes of the archive, of which many come together
    bool m_isUpdating = false;
    bool m_isMoving = false; ///< the database is closed
};

} // namespace KOLT
