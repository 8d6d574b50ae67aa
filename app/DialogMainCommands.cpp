// The commands of the main window, opening folders and loading.
#include "analysis/ui/DialogData.h"
#include "app/DialogMain.h"
#include "app/MainActions.h"
#include "app/ProjectSession.h"
#include "app/SettingsSaver.h"
#include "app/dialogs/DialogAbout.h"
#include "app/dialogs/DialogDaySheet.h"
#include "app/dialogs/DialogHelp.h"
#include "app/dialogs/DialogPreferences.h"
#include "app/dialogs/DialogProfileInfo.h"
#include "app/settings/SettingsStore.h"
#include "app/startup/Startup.h"
#include "base/Diagnostics.h"
#include "record/ClockTime.h"
#include "record/ui/DialogCard.h"
#include "ui/Messages.h"
#include "ui/ProgressDisplay.h"

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMimeData>
#include <QStatusBar>

#include <utility>

namespace KOLT {

namespace {

QString shortList(QStringList names)
{
    constexpr int most = 10;
    if (names.size() > most) {
        names.resize(most);
        names.push_back(QStringLiteral("..."));
    }
    return names.join(QLatin1Char('\n'));
}

/// Shows the window, or raises it when it is open.
void showInFront(QWidget* window)
{
    window->show();
    window->raise();
    window->activateWindow();
}

/// Absolute paths of the dropped local files and folders.
QStringList droppedPaths(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            paths.push_back(QDir::cleanPath(url.toLocalFile()));
    }
    return paths;
}

} // namespace

void DialogMain::slotMenu(QAction* action)
{
    const int id = action->data().toInt();
    Diagnostics::print("DialogMain::slotMenu id %d\n", id);
    switch (static_cast<Command>(id)) {
    case Command::NewProject:
        m_project->newProject();
        break;
    case Command::OpenProject:
        m_project->open();
        break;
    case Command::OpenDataFolder:
        askForFolder();
        break;
    case Command::SaveProject:
        m_project->save();
        break;
    case Command::SaveProjectAs:
        m_project->saveAs();
        break;
    case Command::Quit:
        m_timer.stop();
        close();
        break;
    case Command::About:
        showInFront(m_about);
        break;
    case Command::ProfileInfo:
        showInFront(m_profileInfo);
        break;
    case Command::Help:
        showInFront(m_help);
        break;
    case Command::Preferences:
        showInFront(m_preferences);
        break;
    case Command::DaySheet:
        openDaySheet();
        break;
    case Command::ExportKml:
    case Command::ExportCsv:
    case Command::ExportGpx:
        m_jobs.run([this, id] { startExport(static_cast<Command>(id)); });
        break;
    }
}

void DialogMain::slotMenuPrefAbout()
{
    (*m_actions)[Command::Preferences]->setEnabled(true);
}

void DialogMain::slotMenuRecent(QAction* action)
{
    const QString folder = action->data().toString();
    if (QFileInfo(folder).isDir()) {
        openFolder(folder);
        return;
    }
    m_recentFolders.remove(folder);
    saveSettings(this);
    m_actions->setRecentFolders(m_recentFolders.folders());
    Messages::warn(this, tr("The folder\n%1\ndoes not exist any more. It was removed from the "
                            "list; if it is on a card, insert the card and open it again.")
                             .arg(folder));
}

void DialogMain::askForFolder()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Open SD Card"), Startup::lastPath());
    if (!folder.isEmpty())
        openFolder(folder);
}

void DialogMain::openFolder(const QString& folder)
{
    m_jobs.run([this, folder] {
        if (!listFolder(folder)) {
            Messages::warn(
                this,
                tr("The folder\n%1\ncannot be opened. Please check that it exists and can be read.")
                    .arg(folder));
            return;
        }
        SettingsStore::instance().setText("LastPath", folder.toUtf8());
        m_recentFolders.add(folder);
        saveSettings(this);
        m_actions->setRecentFolders(m_recentFolders.folders());
        refreshTitle();
    });
}

bool DialogMain::listFolder(const QString& folder)
{
    m_progress->begin(tr("Reading %1").arg(folder));
    const bool isOpen =
        m_card.readContainer(folder, [this](int percent) { m_progress->setPercent(percent); });
    m_progress->end();
    if (!isOpen)
        return false;
    m_jobs.dropWaiting(JobQueue::Kind::Choice); // made in the previous folder
    m_choice = {}; // the pages keep the previous folder's data until the next choice
    m_cardDialog->refresh();
    statusBar()->showMessage(
        tr("%n record file(s)", nullptr, static_cast<int>(m_card.files().size())) +
        QStringLiteral(", ") +
        tr("%n engine cycle(s)", nullptr, static_cast<int>(m_card.cycles().size())));
    return true;
}

void DialogMain::slotCanChanged()
{
    openFolder(m_card.folder());
}

void DialogMain::slotLoadRecord(const std::list<QString>& paths)
{
    // Sorted, whatever the order of the clicks: the first and last file determine start, date and
    // stop.
    Files ordered = paths;
    ordered.sort();
    load(ordered);
}

void DialogMain::slotLoadCycle(unsigned int cycle, int flight)
{
    load(CycleChoice{static_cast<int>(cycle), flight});
}

void DialogMain::load(const Choice& choice)
{
    m_jobs.runLatest(JobQueue::Kind::Choice, [this, choice] { loadNow(choice); });
}

bool DialogMain::canLoad(const Choice& choice)
{
    const Files files = filesOf(choice);
    if (m_card.dataSet() == nullptr || files.empty() || m_card.canReadAny(files))
        return true;
    if (const auto* const shown = std::get_if<Files>(&m_choice))
        m_cardDialog->showFiles(*shown);
    else if (const auto* const picked = std::get_if<CycleChoice>(&m_choice))
        m_cardDialog->showCycle(static_cast<unsigned int>(picked->cycle), picked->flight);
    else
        m_cardDialog->showNothing();
    QStringList names;
    for (const QString& path : files)
        names.push_back(path.section(QLatin1Char('/'), -1));
    Messages::warn(this, tr("These files could not be read, and the data loaded before are still "
                            "shown:\n%1\nPlease check that the card is still inserted and that the "
                            "files can be read; then open the folder again.")
                             .arg(shortList(names)));
    return false;
}

void DialogMain::loadNow(const Choice& choice)
{
    if (!canLoad(choice))
        return;
    m_data->beginLoading(tr("Loading %1 ...").arg(nameOf(choice)));
    m_dataInWords->clear();
    m_progress->begin(tr("Loading %1").arg(nameOf(choice)));
    const auto progress = [this](int percent) { m_progress->setPercent(percent); };
    bool isLoaded = false;
    if (const auto* const files = std::get_if<Files>(&choice)) {
        isLoaded = m_card.loadFiles(*files, progress);
    } else if (const auto* const picked = std::get_if<CycleChoice>(&choice)) {
        if (picked->flight >= 0) {
            isLoaded = m_card.loadFlight(picked->cycle, static_cast<std::size_t>(picked->flight),
                                         progress);
        } else {
            isLoaded = m_card.loadCycle(picked->cycle, progress);
            m_cardDialog->listFlights(static_cast<unsigned int>(picked->cycle));
        }
    }
    m_progress->end();
    enableExports();
    if (!isLoaded || m_card.dataSet() == nullptr || !m_card.dataSet()->unreadFiles.empty())
        m_cardDialog->setChoiceFailed();
    if (m_card.dataSet() == nullptr) {
        m_data->clear();
        return;
    }
    m_choice = choice;
    m_subject = subjectOf(choice);
    if (auto* const picked = std::get_if<CycleChoice>(&m_choice);
        picked != nullptr && picked->flight >= 0 && m_card.dataSet()->flight() == nullptr) {
        picked->flight = -1;
        m_cardDialog->listFlights(static_cast<unsigned int>(picked->cycle));
    }
    m_data->setData(*m_card.dataSet());
    showDataInWords(m_choice);
    if (m_isEmuDisplay && !m_notice.isEmpty()) // the page reported it before anything was loaded
        statusBar()->showMessage(std::exchange(m_notice, {}));
    tellUnreadFiles();
    if (!isLoaded)
        statusBar()->showMessage(
            tr("%1 was not found any more. The whole cycle is loaded.").arg(nameOf(choice)));
}

QString DialogMain::nameOf(const Choice& choice) const
{
    if (const auto* const files = std::get_if<Files>(&choice))
        return files->size() == 1
                   ? files->front().section(QLatin1Char('/'), -1)
                   : tr("%n record file(s)", nullptr, static_cast<int>(files->size()));
    const auto* const picked = std::get_if<CycleChoice>(&choice);
    if (picked == nullptr)
        return {};
    const auto found = m_card.cycles().find(picked->cycle);
    const QString cycle = found == m_card.cycles().end() ? QString() : found->second.name;
    return picked->flight < 0 ? cycle : tr("%1, flight %2").arg(cycle).arg(picked->flight + 1);
}

DialogMain::Files DialogMain::filesOf(const Choice& choice) const
{
    if (const auto* const files = std::get_if<Files>(&choice))
        return *files;
    Files paths;
    const auto* const picked = std::get_if<CycleChoice>(&choice);
    const auto cycle =
        picked != nullptr ? m_card.cycles().find(picked->cycle) : m_card.cycles().end();
    if (cycle != m_card.cycles().end()) {
        for (const QString& name : cycle->second.fileNames)
            paths.push_back(QStringLiteral("%1/%2").arg(m_card.folder(), name));
    }
    return paths;
}

void DialogMain::openDaySheet()
{
    // For a flight the sheet lists all flights of its cycle.
    Choice choice = m_choice;
    if (auto* const picked = std::get_if<CycleChoice>(&choice))
        picked->flight = -1;
    m_daySheet->open({m_card.folder(), nameOf(choice), filesOf(choice)});
}

void DialogMain::showDataInWords(const Choice& choice)
{
    const DataSet& dataSet = *m_card.dataSet();
    const std::size_t fileCount = filesOf(choice).size();
    const auto time = [](double seconds) {
        return clockTime(seconds).toString(QStringLiteral("hh:mm:ss"));
    };
    const QString files = tr("%n file(s)", nullptr, static_cast<int>(fileCount));
    const bool isCount = std::holds_alternative<Files>(choice) && fileCount > 1;
    m_dataInWords->setText(
        tr("%1, %2 samples, %3 to %4 (%5)")
            .arg(isCount ? nameOf(choice) : tr("%1: %2").arg(nameOf(choice), files),
                 QLocale().toString(static_cast<qulonglong>(dataSet.messages.sampleCount())),
                 time(dataSet.startSeconds), time(dataSet.stopSeconds),
                 durationText(dataSet.stopSeconds - dataSet.startSeconds)));
    m_dataInWords->setToolTip(
        tr("The loaded data; times since the recording unit was switched on"));
}

void DialogMain::tellUnreadFiles()
{
    const std::vector<QString>& unread = m_card.dataSet()->unreadFiles;
    if (unread.empty())
        return;
    Messages::warn(this,
                   tr("These files could not be read and are missing from the data shown:\n%1\n"
                      "Please check that the card is still inserted and that the files can "
                      "be read; then open the folder again.")
                       .arg(shortList({unread.begin(), unread.end()})));
}

void DialogMain::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedPaths(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void DialogMain::dropEvent(QDropEvent* event)
{
    const QStringList paths = droppedPaths(*event->mimeData());
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    // The drag source is blocked until this handler returns.
    QTimer::singleShot(0, this, [this, paths] { openDropped(paths); });
}

void DialogMain::openDropped(const QStringList& paths)
{
    const QFileInfo first(paths.front());
    if (first.isDir()) {
        openFolder(paths.front());
        return;
    }
    const QString folder = first.path();
    openFolder(folder);
    m_jobs.run([this, paths, folder] {
        Files files;
        for (const QString& path : paths) {
            if (QFileInfo(path).path() == folder &&
                m_card.files().contains(QFileInfo(path).fileName()))
                files.push_back(path);
        }
        files.sort(); // as when files are chosen in the list
        if (files.empty())
            Messages::warn(this, tr("%1\nis not a record file. Record files end with .CAN, .can or "
                                    ".xcb.")
                                     .arg(paths.front()));
        else if (m_card.folder() == folder)
            loadNow(files);
    });
}

} // namespace KOLT
