// Creates and connects the parts of the main window.
#include "analysis/ui/DialogData.h"
#include "app/CardSession.h"
#include "app/CaseCommand.h"
#include "app/DialogMain.h"
#include "app/DialogProfile.h"
#include "app/GraphJump.h"
#include "app/ImportSession.h"
#include "app/LibrarySession.h"
#include "app/MainActions.h"
#include "app/MenuDialogs.h"
#include "app/NotesSession.h"
#include "app/OpenCycleNotice.h"
#include "app/OverviewSession.h"
#include "app/ProfileOffer.h"
#include "app/ProfileSelectors.h"
#include "app/ProjectBar.h"
#include "app/ProjectSession.h"
#include "app/RecordingNotice.h"
#include "app/Selector.h"
#include "app/StatusBar.h"
#include "app/TrustSession.h"
#include "app/dialogs/DialogDaySheet.h"
#include "app/dialogs/DialogPreferences.h"
#include "app/dialogs/DialogProfileInfo.h"
#include "app/settings/GraphSettingsStore.h"
#include "app/settings/MapSettingsStore.h"
#include "app/settings/PageSettingsStore.h"
#include "app/settings/ProgramSettings.h"
#include "app/settings/WindowState.h"
#include "app/startup/Startup.h"
#include "graph/ui/DialogDataGraph.h"
#include "graph/ui/EpisodeCard.h"
#include "instruments/ui/DialogDataView.h"
#include "library/ui/LibraryPage.h"
#include "map/ui/DialogDataMap.h"
#include "record/ui/DialogCard.h"
#include "report/ui/DialogReport.h"
#include "ui/Messages.h"
#include "ui/NoticeBar.h"

#include <QFileInfo>
#include <QScreen>
#include <QSplitter>
#include <QToolBar>

namespace KOLT {

namespace {

constexpr int settleMilliseconds = 20;
constexpr int startupMilliseconds = 1000;
constexpr int styleCheckMilliseconds = 1000;

} // namespace

void DialogMain::createPanels()
{
    m_splitter = new QSplitter(this);
    m_column = new QSplitter(Qt::Vertical, m_splitter);
    m_cardDialog = new DialogCard(m_card->container(), m_column);
    auto* const project = new ProjectBar(*m_actions, *m_project, this); // first with the Tab key
    m_profileDialog = new DialogProfile(m_profile.profile(), m_column);
    m_profileDialog->setTopRow(project);
    m_column->addWidget(m_cardDialog);
    m_column->addWidget(m_profileDialog);
    m_column->setChildrenCollapsible(false);
    m_column->setSizes({1, 1});
    m_column->setStretchFactor(0, 1);
    m_column->setStretchFactor(1, 1);
    m_parts = createDataWindow(
        profile(), m_settings,
        m_isEmuDisplay ? DialogData::Display::EmuOnly : DialogData::Display::Full, m_splitter);
    m_data = m_parts.window;
    m_splitter->addWidget(m_column);
    m_splitter->addWidget(m_data);
    m_splitter->setStretchFactor(0, 1);
    m_splitter->setStretchFactor(1, 2);
    m_splitter->setChildrenCollapsible(false);
    setCentralWidget(m_splitter);
}

void DialogMain::createBars()
{
    setStatusBar(m_status);
    if (!m_isEmuDisplay) {
        m_actions->createMenus();
        offerRecentFolders();
    }
    m_actions->setExportsEnabled(false);
    for (const Command command : {Command::DaySheet, Command::EngineReport})
        (*m_actions)[command]->setEnabled(false); // nothing is listed yet
    m_toolBar = addToolBar(tr("Main Toolbar"));
    m_toolBar->setObjectName(QStringLiteral("mainToolBar"));
    m_toolBar->setContextMenuPolicy(Qt::PreventContextMenu); // its menu could hide the bar for good
    for (const Command command : {Command::OpenDataFolder, Command::ExportKml, Command::ExportCsv})
        m_toolBar->addAction((*m_actions)[command]);
    m_toolBar->addSeparator();
    m_selectors = std::make_unique<ProfileSelectors>(*m_toolBar);
    connect(m_actions, &MainActions::signalCommand, this, &DialogMain::slotMenu);
    connect(m_actions, &MainActions::signalRecent, this, &DialogMain::slotMenuRecent);
    connect(m_actions, &MainActions::signalExtrasAboutToShow, this, &DialogMain::slotMenuPrefAbout);
    connect(m_selectors->variant(), qOverload<const QString&>(&Selector::signalActivated), this,
            qOverload<const QString&>(&DialogMain::slotProfileChanged));
    connect(m_selectors->units(), qOverload<int>(&Selector::signalActivated), this,
            &DialogMain::slotUnitChanged);
}

void DialogMain::createDialogs()
{
    m_dialogs = std::make_unique<MenuDialogs>(profile(), m_settings, m_jobs, *this);
    DialogPreferences* const preferences = &m_dialogs->preferences();
    connect(&m_dialogs->profileInfo(), &DialogProfileInfo::signalProfileChanged, this,
            &DialogMain::slotProfileFileChanged);
    connect(preferences, &DialogPreferences::signalProfileFileChanged, this,
            &DialogMain::slotProfileFileChanged);
    m_card->setClockOffset(ProgramSettings(m_settings).clockOffset());
    connect(preferences, &DialogPreferences::signalClockOffset, this, &DialogMain::setClockOffset);
    connect(preferences, &DialogPreferences::signalUnitChanged, this, &DialogMain::slotUnitChanged);
    connect(preferences, &DialogPreferences::signalMapChanged, this,
            [this] { m_parts.map->setSettings(loadMapSettings(m_settings)); });
    DialogDaySheet* const sheet = &m_dialogs->daySheet();
    connect(sheet, &DialogDaySheet::signalOpen, this, &DialogMain::slotOpenFlight);
    connect(sheet, &DialogDaySheet::signalMessage, this,
            [this](const QString& message) { m_status->showMessage(message); });
    m_import = std::make_unique<ImportSession>(m_settings, *m_card, *this);
    connect(m_import.get(), &ImportSession::signalMessage, this,
            [this](const QString& message) { m_status->showMessage(message); });
    DialogReport* const report = &m_dialogs->engineReport();
    connect(report, &DialogReport::signalRead, this,
            [this, report] { m_jobs.run([report] { report->read(); }); });
    connect(report, &DialogReport::signalMessage, this,
            [this](const QString& message) { m_status->showMessage(message); });
}

void DialogMain::createOverview()
{
    if (m_isEmuDisplay)
        return;
    m_overview =
        std::make_unique<OverviewSession>(profile(), *m_card, m_jobs, *m_cardDialog, *m_data);
    connect(m_overview.get(), &OverviewSession::signalChooseFolder, this,
            &DialogMain::askForFolder);
    connect(m_overview.get(), &OverviewSession::signalImport, m_import.get(), &ImportSession::open);
    m_trust =
        std::make_unique<TrustSession>(profile(), *m_card, m_jobs, *m_cardDialog, *m_data, *this);
    connect(m_overview.get(), &OverviewSession::signalTrust, m_trust.get(),
            &TrustSession::noteCycle);
    m_library = std::make_unique<LibrarySession>(profile(), m_settings, *m_card, m_jobs, *this);
    m_cardDialog->addTab(m_library->page(), tr("Library"));
    connect(m_library.get(), &LibrarySession::signalMessage, this,
            [this](const QString& message) { m_status->showMessage(message); });
    connect(&m_dialogs->preferences(), &DialogPreferences::signalLibrary, m_library.get(),
            &LibrarySession::choose);
    connect(&m_dialogs->preferences(), &DialogPreferences::signalMoveLibrary, m_library.get(),
            [this] {
                if (m_import->isRunning())
                    Messages::inform(this, tr("A card is being imported into the library. Move it "
                                              "when that is done."));
                else
                    m_jobs.run([this] { m_library->move(); });
            });
    connect(m_import.get(), &ImportSession::signalCycleChanged, m_library.get(),
            &LibrarySession::noteCycle);
    connect(m_import.get(), &ImportSession::signalCycleRemoved, m_library.get(),
            &LibrarySession::noteRemoved);
    connect(m_import.get(), &ImportSession::signalChanged, m_library.get(),
            &LibrarySession::evaluate);
    m_notes = std::make_unique<NotesSession>(*m_card, *m_library, *m_data, *this);
    connect(m_notes.get(), &NotesSession::signalMarks, m_parts.graph, &DialogDataGraph::setNotes);
    connect(m_notes.get(), &NotesSession::signalMarks, m_parts.map, &DialogDataMap::setNotes);
}

void DialogMain::connectCard()
{
    connect(m_cardDialog, &DialogCard::signalChanged, this, &DialogMain::slotCanChanged);
    connect(m_cardDialog, &DialogCard::signalLoadRecord, this, &DialogMain::slotLoadRecord);
    connect(m_cardDialog, &DialogCard::signalLoadCycle, this, &DialogMain::slotLoadCycle);
    CardSession* const card = m_card.get();
    connect(card, &CardSession::signalListed, this, &DialogMain::showListed);
    connect(card, &CardSession::signalOpened, this, &DialogMain::noteOpened);
    connect(card, &CardSession::signalFlights, m_cardDialog, &DialogCard::listFlights);
    connect(card, &CardSession::signalLoading, this, [this](const QString& name) {
        m_data->beginLoading(tr("Loading %1 ...").arg(name));
        m_status->showData({});
    });
    connect(card, &CardSession::signalLoaded, this, &DialogMain::showLoaded);
    connect(card, &CardSession::signalReanalysed, this, [this] {
        m_profileDialog->showData(m_card->dataSet());
        m_data->setData(*m_card->dataSet());
    });
    connect(card, &CardSession::signalRefused, this, &DialogMain::selectLoaded);
    connect(card, &CardSession::signalMessage, this,
            [this](const QString& message) { m_status->showMessage(message); });
}

void DialogMain::createNotices()
{
    const auto makeBar = [this](const char* name) {
        auto* const bar = new NoticeBar(m_data);
        bar->setObjectName(QLatin1String(name));
        m_data->addBar(bar);
        return bar;
    };
    NoticeBar* const offer = makeBar("profileOffer");
    NoticeBar* const notice = makeBar("recordingNotice");
    NoticeBar* const grown = makeBar("cycleNotice");
    NoticeBar* const added = makeBar("graphNotice");
    m_graphJump = std::make_unique<GraphJump>(m_profile.profile(), m_parts, *added);
    m_profileOffer = std::make_unique<ProfileOffer>(*offer, *this);
    connect(m_profileOffer.get(), &ProfileOffer::signalInstalled, this,
            &DialogMain::slotProfileFileChanged);
    connect(m_profileOffer.get(), &ProfileOffer::signalMessage, m_status, &StatusBar::showNotice);
    if (m_isEmuDisplay)
        return;
    m_recordingNotice = std::make_unique<RecordingNotice>(profile(), *m_card, *notice);
    connect(m_recordingNotice.get(), &RecordingNotice::signalVariant, this,
            qOverload<const QString&>(&DialogMain::slotProfileChanged));
    m_cycleNotice = std::make_unique<OpenCycleNotice>(*m_card, *grown);
    connect(m_import.get(), &ImportSession::signalCycleChanged, m_cycleNotice.get(),
            &OpenCycleNotice::noteCycle);
    connect(m_import.get(), &ImportSession::signalCycleRemoved, m_cycleNotice.get(),
            &OpenCycleNotice::noteRemoved);
    connect(m_cycleNotice.get(), &OpenCycleNotice::signalShow, m_library.get(),
            &LibrarySession::reloadCycle);
}

void DialogMain::connectPanels()
{
    connect(m_profileDialog, &DialogProfile::signalChanged, this,
            qOverload<>(&DialogMain::slotProfileChanged));
    connect(m_graphJump.get(), &GraphJump::signalSelectionChanged, this, [this] {
        m_profileDialog->reload(); // keeps the draft
        m_project->setModified();
        m_data->refresh(DataPage::Change::Selection);
    });
    connect(m_project, &ProjectSession::signalSelectionChanged, this, [this] {
        m_graphJump->forget();
        m_profileDialog->refresh();
        m_data->refresh(DataPage::Change::Selection);
    });
    connect(m_project, &ProjectSession::signalPathStored, this, &DialogMain::refreshTitle);
    connect(m_project, &ProjectSession::signalSaved, this, &DialogMain::tellSaved);
    connect(m_parts.graph, &DialogDataGraph::signalOrder, this,
            [this](const QStringList& fullNames) {
                m_profile.profile().setDisplayOrder(fullNames);
                m_profileDialog->refreshOrder();
                m_data->refresh(DataPage::Change::Selection);
            });
    connect(m_parts.graph, &DialogDataGraph::signalSettings, this,
            [this](const GraphSettings& settings) {
                storeGraphSettings(settings, m_settings);
                m_settingsSaver.saveSoon();
            });
    connect(m_parts.map, &DialogDataMap::signalSettings, this, [this](const MapSettings& settings) {
        if (storeMapChanges(loadMapSettings(m_settings), settings, m_settings))
            m_settingsSaver.saveSoon();
    });
    connect(m_parts.map, &DialogDataMap::signalOpenSettings, this, [this] {
        m_dialogs->show(Command::Preferences);
        m_dialogs->preferences().focusTileServer();
    });
    for (const EpisodeCard* card : m_parts.cards) {
        const auto write = [this](CaseForm form) {
            return [this, form](const GraphTarget& target) {
                m_jobs.run([this, form, target] {
                    const QString path = writeCaseFile(profile(), *m_card, target, form, this);
                    if (!path.isEmpty())
                        m_status->showMessage(tr("Case file written to %1").arg(path));
                });
            };
        };
        connect(card, &EpisodeCard::signalCaseFile, this, write(CaseForm::Folder));
        connect(card, &EpisodeCard::signalCaseZip, this, write(CaseForm::Zip));
    }
    connect(m_data, &DialogData::signalPageSettings, this, [this](const PageSettings& settings) {
        storePageSettings(settings, m_settings);
        m_settingsSaver.saveSoon();
    });
    connect(m_parts.map, &DialogDataMap::signalMessage, m_status, &StatusBar::showNotice);
    connect(m_parts.view, &DialogDataView::signalMessage, m_status, &StatusBar::showNotice);
}

void DialogMain::startTimers()
{
    m_timer.setSingleShot(true);
    m_startupTimer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &DialogMain::slotTimeout);
    connect(&m_startupTimer, &QTimer::timeout, this, &DialogMain::slotTimeoutStartup);
    connect(&m_styleTimer, &QTimer::timeout, this, &DialogMain::slotCheckStyle);
    m_timer.start(settleMilliseconds);
    m_startupTimer.start(startupMilliseconds);
    // Only a style sheet from "-s" can change while the program runs.
    const QString styleFile = Startup::styleFile();
    if (!styleFile.startsWith(QLatin1Char(':'))) {
        m_styleTime = QFileInfo(styleFile).lastModified();
        m_styleTimer.start(styleCheckMilliseconds);
    }
}

void DialogMain::stripToDisplay()
{
    resize(WindowState::firstSize.boundedTo(screen()->availableSize()));
    m_splitter->widget(0)->hide();
    m_cardDialog->hide();
    m_profileDialog->hide();
    m_toolBar->hide();
    // The status bar is shown only while it has a message.
    m_status->hide();
    connect(m_status, &QStatusBar::messageChanged, this,
            [this](const QString& text) { m_status->setVisible(!text.isEmpty()); });
    m_data->setCurrentPage(DialogData::Page::EmuView);
}

} // namespace KOLT
