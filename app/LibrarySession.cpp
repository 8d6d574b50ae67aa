#include "app/LibrarySession.h"

#include "app/CardSession.h"
#include "app/JobQueue.h"
#include "app/LibraryEvaluation.h"
#include "app/SettingsSaver.h"
#include "app/dialogs/DialogLibrary.h"
#include "app/settings/DataPaths.h"
#include "app/settings/KnownLibraries.h"
#include "app/settings/LibrarySettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "library/ui/DialogMove.h"
#include "library/ui/LibraryPage.h"
#include "ui/Messages.h"

#include <QDir>
#include <QInputDialog>
#include <QPointer>

namespace KOLT {

using namespace Library;

LibrarySession::LibrarySession(const Profile& profile, SettingsStore& settings, CardSession& card,
                               JobQueue& jobs, QWidget& window)
    : m_profile(profile)
    , m_settings(settings)
    , m_card(card)
    , m_jobs(jobs)
    , m_window(window)
    , m_page(new LibraryPage)
    , m_opener(window)
{
    connectPage();
    constexpr int settlingMilliseconds = 500;
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(settlingMilliseconds);
    connect(&m_refresh, &QTimer::timeout, this, [this] {
        if (m_database == nullptr)
            return;
        showPage();
        refreshEngine();
    });
}

LibrarySession::~LibrarySession()
{
    // The page may live longer than the database.
    if (m_page != nullptr)
        m_page->showNote({});
}

LibraryPage* LibrarySession::page() const
{
    return m_page;
}

void LibrarySession::connectPage()
{
    connect(m_page, &LibraryPage::signalShown, this, [this] {
        if (loadLibraryAddress(m_settings).isServer())
            QTimer::singleShot(0, this, [this] { open(); }); // not while the page is being shown
        else
            open();
    });
    connect(m_page, &LibraryPage::signalOpen, this, &LibrarySession::openCycle);
    connect(m_page, &LibraryPage::signalChooseLibrary, this, &LibrarySession::choose);
    connect(m_page, &LibraryPage::signalEngine, this, &LibrarySession::showEngine);
    connect(m_page, &LibraryPage::signalInstallations, this, &LibrarySession::showInstallations);
    connect(m_page, &LibraryPage::signalName, this, &LibrarySession::nameAircraft);
    connect(m_page, &LibraryPage::signalUpdate, this, &LibrarySession::evaluate);
}

bool LibrarySession::open()
{
    const LibraryAddress address = loadLibraryAddress(m_settings);
    if (m_opener.isOpening())
        return false;
    if (m_database != nullptr && m_database->isOpen() && m_database->address() == address &&
        QFileInfo(m_archive.root()).isDir())
        return true;
    if (m_isMoving)
        return false;
    m_page->showNote({}); // it must not use the database any more
    m_database.reset();
    if (address.archive.isEmpty())
        return showAbsence(LibraryPage::noLibraryText(), false);
    if (!m_archive.open(address.archive))
        return showAbsence(m_archive.error());
    showAbsence(tr("Opening the library %1").arg(address.shown()), false);
    auto database = std::make_shared<LibraryDatabase>();
    const bool isOpen = m_opener.open(*database, address);
    if (!isOpen || !database->claim(m_archive.id()))
        return showAbsence(isOpen ? database->error() : m_opener.error());
    m_absence.clear();
    m_database = std::move(database);
    rememberLibrary(address.archive);
    takeInstallations();
    showPage();
    refreshEngine();
    listInstallations();
    return true;
}

bool LibrarySession::showAbsence(const QString& why, bool canRetry)
{
    m_absence = why;
    m_page->showNote(why, canRetry);
    m_database.reset();
    showNoEngine();
    return false;
}

bool LibrarySession::openQuietly()
{
    return (m_database == nullptr || !m_database->isOpen()) && m_opener.isResting() ? false
                                                                                    : open();
}

/// The files in the archive count: the database may be new, or another computer has changed them.
void LibrarySession::takeInstallations()
{
    read();
    const auto known = LibraryQueries(*m_database).installations();
    const auto text = [](const std::vector<Installation>& installations) {
        QStringList lines;
        for (const Installation& one : installations)
            lines << QStringLiteral("%1 %2 %3 %4")
                         .arg(one.engine)
                         .arg(one.unit)
                         .arg(one.from.toString(Qt::ISODate), one.to.toString(Qt::ISODate));
        lines.sort();
        return lines;
    };
    const std::vector<Installation> written = installationsOf(m_written);
    if (known && text(known.value) != text(written) && !m_database->setInstallations(written))
        emit signalMessage(m_database->error());
}

void LibrarySession::read()
{
    m_written = Logbook(m_archive.root()).read();
    if (!m_written.damaged.isEmpty())
        emit signalMessage(tr("Cannot be read, and is left out: %1")
                               .arg(QDir::toNativeSeparators(m_written.damaged.constFirst())));
}

void LibrarySession::showPage()
{
    m_refresh.stop(); // it would do the same once more
    m_page->setLibrary(*m_database, m_written);
    m_page->setNoted(notedFolders(*m_database, m_written.notes).value);
    m_page->setStale(staleCount());
}

void LibrarySession::reopen()
{
    m_database.reset();
    m_page->showNote({});
    open();
}

void LibrarySession::choose()
{
    DialogLibrary dialog(loadLibraryAddress(m_settings), &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    storeLibraryAddress(dialog.accepted(), m_settings);
    saveSettings(&m_window);
    reopen();
    if (m_database == nullptr)
        Messages::warn(&m_window, m_page->note());
}

void LibrarySession::move()
{
    LibraryAddress address = loadLibraryAddress(m_settings);
    Archive archive;
    if (!archive.open(address.archive)) {
        Messages::warn(&m_window, archive.error());
        return;
    }
    m_isMoving = true;
    showAbsence(tr("The library is being moved."));
    DialogMove dialog(archive, &m_window);
    dialog.exec();
    m_isMoving = false;
    if (!dialog.moved().isEmpty()) {
        address.archive = dialog.moved();
        storeLibraryAddress(address, m_settings);
        saveSettings(&m_window);
    }
    reopen();
}

int LibrarySession::staleCount()
{
    const auto sums = LibraryQueries(*m_database).sums({});
    if (sums && sums.value.cycles == 0) // a new database of an old archive
        return static_cast<int>(m_archive.cycles().size());
    const auto stale = m_database->staleFolders(figuresSource(m_profile));
    return stale ? static_cast<int>(stale.value.size()) : 0;
}

void LibrarySession::evaluate()
{
    m_jobs.run([this] { update(); });
}

void LibrarySession::update()
{
    if (m_isUpdating || !open())
        return;
    m_isUpdating = true;
    const std::shared_ptr<LibraryDatabase> database = m_database;
    const UpdateResult result = evaluateLibrary(m_archive, *database, m_profile, m_window,
                                                [&] { return m_database == database; });
    m_isUpdating = false;
    if (m_database != database) // the user has turned to another library
        return;
    tell(result);
    showPage();
    refreshEngine();
}

void LibrarySession::tell(const UpdateResult& result)
{
    if (!result.error.isEmpty())
        Messages::warn(&m_window, result.error);
    else if (!result.failed.isEmpty())
        Messages::warn(&m_window, tr("Some recordings could not be evaluated:\n%1")
                                      .arg(result.failed.mid(0, 10).join(QLatin1Char('\n'))));
    else if (result.cycles > 0)
        emit signalMessage(tr("%n recording(s) evaluated", nullptr, result.cycles));
}

void LibrarySession::openCycle(const QString& folder, int flight)
{
    load(folder, flight, false);
}

void LibrarySession::reloadCycle(const QString& folder)
{
    load(folder, 0, true);
}

void LibrarySession::load(const QString& folder, int flight, bool isListedAgain)
{
    const QString path = m_archive.pathOf(folder);
    m_jobs.run([this, path, flight, isListedAgain] {
        const bool isListed = !isListedAgain && m_card.container().folder() == path;
        const QPointer<QWidget> focus = m_window.focusWidget();
        const bool isGood = isListed || m_card.list(path);
        // The overview of the folder took the focus, and would leave it to the map: the keys could
        // not go on in the tree.
        if (focus != nullptr && m_page->isAncestorOf(focus))
            focus->setFocus();
        if (!isGood) {
            Messages::warn(&m_window, tr("The folder\n%1\nof the library cannot be opened. Is its "
                                         "disk connected?")
                                          .arg(QDir::toNativeSeparators(path)));
            return;
        }
        // A folder of the archive has one cycle: 0, if its first file is missing.
        const auto& cycles = m_card.container().cycles();
        if (!cycles.empty())
            m_card.load(
                {{}, cycles.begin()->first, flight > 0 ? flight - 1 : CardChoice::wholeCycle});
    });
}

QString LibrarySession::notesFolder() const
{
    const QString folder = loadLibraryAddress(m_settings).archive;
    return folder.isEmpty() ? QString::fromUtf8(DataPaths::instance().dataPath()) : folder;
}

void LibrarySession::noteCycle(const ArchivedCycle& cycle)
{
    if (!openQuietly())
        return;
    if (!m_database->storeCycle(cycle))
        emit signalMessage(m_database->error());
    m_refresh.start();
}

void LibrarySession::noteRemoved(const QString& folder)
{
    if (!openQuietly())
        return;
    if (!m_database->removeCycle(folder))
        emit signalMessage(m_database->error());
    m_refresh.start();
}

void LibrarySession::notesChanged()
{
    if (m_database == nullptr)
        return;
    read();
    m_page->setNoted(notedFolders(*m_database, m_written.notes).value); // the tree stays open
    listInstallations();
    refreshEngine();
}

} // namespace KOLT
