// The commands of the main window, and what the card session reports.
#include "analysis/ui/DialogData.h"
#include "app/CardSession.h"
#include "app/DialogMain.h"
#include "app/DialogProfile.h"
#include "app/ExportCommand.h"
#include "app/ImportSession.h"
#include "app/LibrarySession.h"
#include "app/MenuDialogs.h"
#include "app/NotesSession.h"
#include "app/OverviewSession.h"
#include "app/ProjectSession.h"
#include "app/SettingsSaver.h"
#include "app/StatusBar.h"
#include "app/TrustSession.h"
#include "app/dialogs/DialogDaySheet.h"
#include "app/settings/ExportSettingsStore.h"
#include "app/settings/ProgramSettings.h"
#include "base/Diagnostics.h"
#include "export/RecordingNote.h"
#include "record/ui/DialogCard.h"
#include "report/ui/DialogReport.h"
#include "ui/Messages.h"

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>

namespace KOLT {

namespace {

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
    const auto command = static_cast<Command>(id);
    switch (command) {
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
    case Command::ProfileInfo:
    case Command::Help:
    case Command::Preferences:
        m_dialogs->show(command);
        break;
    case Command::DaySheet:
        openDaySheet();
        break;
    case Command::EngineReport:
        openEngineReport();
        break;
    case Command::ImportCard:
        if (!m_isClosing)
            m_import->open();
        break;
    case Command::Engine:
        if (m_library != nullptr)
            m_library->showEngine({});
        break;
    case Command::Notes:
        if (m_notes != nullptr)
            m_notes->show();
        break;
    case Command::Recording:
        if (m_trust != nullptr)
            m_trust->show();
        break;
    case Command::ExportKml:
    case Command::ExportCsv:
    case Command::ExportGpx:
        m_jobs.run([this, command] { exportData(command); });
        break;
    }
}

// Runs as a job of the queue until the dialog is closed, so that neither data set nor profile
// change meanwhile.
void DialogMain::exportData(Command command)
{
    if (m_card->dataSet() == nullptr)
        return;
    const TrustList trust = m_trust != nullptr ? m_trust->trust() : nullptr;
    const QString note =
        sourceNote(profile(), trust != nullptr ? trust->findings : std::vector<TrustFinding>());
    const QString path = runExport(command, m_settings, profile(), *m_card->dataSet(),
                                   m_card->subject(), note, this);
    m_data->setListSettings(loadListSettings(m_settings));
    if (!path.isEmpty())
        m_status->showMessage(tr("Exported to %1").arg(QDir::toNativeSeparators(path)));
}

void DialogMain::slotMenuPrefAbout()
{
    (*m_actions)[Command::Preferences]->setEnabled(true);
}

void DialogMain::slotMenuRecent(QAction* action)
{
    const QString folder = action->data().toString();
    if (QFileInfo(folder).isDir()) {
        m_card->open(folder);
        return;
    }
    m_recentFolders.remove(folder);
    saveSettings(this);
    offerRecentFolders();
    Messages::warn(this, tr("The folder\n%1\ndoes not exist any more. It was removed from the "
                            "list; if it is on a card, insert the card and open it again.")
                             .arg(folder));
}

void DialogMain::offerRecentFolders()
{
    m_actions->setRecentFolders(m_recentFolders.folders());
}

void DialogMain::openLastFolder()
{
    const QString folder = ProgramSettings(m_settings).lastFolder();
    // The user may have opened a folder or selected parameters before the timer fired.
    const bool isListed = !card().folder().isEmpty() || m_card->list(folder);
    if (isListed && isFirstStart() && m_overview != nullptr) {
        m_overview->showFirstStart();
        m_status->clearMessage(); // it counts no files
    }
    if (!isListed) {
        m_cardDialog->setMissingFolder(folder);
        if (m_overview != nullptr)
            m_overview->showMissing(folder);
        m_status->showMessage(tr("The last folder %1 was not found. Open another one with "
                                 "\"Open Data Folder\".")
                                  .arg(folder));
    }
    if (!m_project->isModified())
        m_project->readLast();
    refreshTitle();
}

void DialogMain::tellSaved(const QString& path)
{
    const auto count = static_cast<int>(profile().selectedParameters().size());
    m_status->showMessage(tr("Saved the project with %n parameter(s) to %1", nullptr, count)
                              .arg(QDir::toNativeSeparators(path)));
}

bool DialogMain::isFirstStart() const
{
    return card().folder() == QLatin1String(".") && card().files().empty();
}

void DialogMain::showListed()
{
    m_cardDialog->refresh();
    for (const Command command : {Command::DaySheet, Command::EngineReport})
        (*m_actions)[command]->setEnabled(!card().files().empty());
}

void DialogMain::askForFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Open SD Card"), ProgramSettings(m_settings).lastFolder());
    if (!folder.isEmpty())
        m_card->open(folder);
}

void DialogMain::noteOpened(const QString& folder)
{
    ProgramSettings(m_settings).setLastFolder(folder);
    m_recentFolders.add(folder);
    saveSettings(this);
    offerRecentFolders();
    refreshTitle();
}

void DialogMain::slotCanChanged()
{
    m_card->open(card().folder());
}

void DialogMain::slotLoadRecord(const std::list<QString>& paths)
{
    CardChoice choice{paths, {}, CardChoice::wholeCycle};
    // Sorted, whatever the order of the clicks: the first and last file determine start, date and
    // stop.
    choice.files.sort();
    m_card->load(choice);
}

void DialogMain::slotLoadCycle(unsigned int cycle, int flight)
{
    m_card->load({{}, static_cast<int>(cycle), flight});
}

void DialogMain::showLoaded(bool isComplete)
{
    m_actions->setExportsEnabled(m_card->dataSet() != nullptr);
    if (!isComplete)
        m_cardDialog->setChoiceFailed();
    m_profileDialog->showData(m_card->dataSet());
    if (m_card->dataSet() == nullptr) {
        m_data->clear();
        return;
    }
    m_data->setData(*m_card->dataSet());
    m_status->showData(describeData(*m_card));
    if (m_isEmuDisplay) // the page reported it before anything was loaded
        m_status->repeatNotice();
}

void DialogMain::selectLoaded()
{
    const CardChoice loaded = m_card->loaded();
    if (loaded.cycle)
        m_cardDialog->showCycle(static_cast<unsigned int>(*loaded.cycle), loaded.flight);
    else if (!loaded.isNone())
        m_cardDialog->showFiles(loaded.files);
    else
        m_cardDialog->showNothing();
}

void DialogMain::openDaySheet()
{
    // For a flight the sheet lists all flights of its cycle.
    CardChoice choice = m_card->loaded();
    choice.flight = CardChoice::wholeCycle;
    m_dialogs->daySheet().open({card().folder(), card().cycles(), m_card->nameOf(choice),
                                m_card->filesOf(choice), choice.cycle, card().clockOffset()});
}

void DialogMain::openEngineReport()
{
    m_dialogs->engineReport().open(
        {card().folder(), card().clockOffset(), loadExportFolder(m_settings, "Csv"),
         [this](const QStringList& engines) {
             return m_library != nullptr ? m_library->reportSection(engines) : QString();
         }});
}

void DialogMain::slotOpenFlight(const QString& folder, int cycle, int flight)
{
    if (folder != card().folder()) {
        m_status->showMessage(tr("The sheet is of another folder: %1").arg(folder));
        return;
    }
    activateWindow();
    if (m_overview != nullptr)
        m_overview->open(cycle, flight);
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
    QTimer::singleShot(0, this, [this, paths] { m_card->openDropped(paths); });
}

} // namespace KOLT
