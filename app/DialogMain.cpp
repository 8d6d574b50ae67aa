#include "app/DialogMain.h"

#include "analysis/ui/DialogData.h"
#include "app/DialogProfile.h"
#include "app/MainActions.h"
#include "app/ProjectSession.h"
#include "app/Selector.h"
#include "app/SettingsSaver.h"
#include "app/dialogs/DialogAbout.h"
#include "app/dialogs/DialogDaySheet.h"
#include "app/dialogs/DialogHelp.h"
#include "app/dialogs/DialogPreferences.h"
#include "app/dialogs/DialogProfileInfo.h"
#include "app/settings/CommandLineOptions.h"
#include "app/settings/GraphSettingsStore.h"
#include "app/settings/InstalledProfile.h"
#include "app/settings/MapSettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "app/startup/Startup.h"
#include "base/Diagnostics.h"
#include "graph/ui/DialogDataGraph.h"
#include "instruments/ui/DialogDataView.h"
#include "map/MapSettings.h"
#include "map/ui/DialogDataMap.h"
#include "record/ui/DialogCard.h"
#include "ui/Messages.h"
#include "ui/ProgressDisplay.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>
#include <QSplitter>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QToolBar>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace KOLT {

namespace {

constexpr int settleMilliseconds = 20;
constexpr int startupMilliseconds = 1000;
constexpr int styleCheckMilliseconds = 1000;
constexpr QSize windowSize(1000, 800);
constexpr int listStretch = 1;
constexpr int pagesStretch = 2;
constexpr auto defaultVariant = "915";

/// Exits without destructors or further events.
void endProcessAtOnce(int exitCode)
{
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

} // namespace

DialogMain::DialogMain()
    : m_endProcess(endProcessAtOnce)
    , m_isEmuDisplay(CommandLineOptions::instance().isGiven("-emu"))
{
    m_project = new ProjectSession(m_profile, *this);
    createPanels();
    m_actions = new MainActions(*this);
    connect(m_actions, &MainActions::signalCommand, this, &DialogMain::slotMenu);
    connect(m_actions, &MainActions::signalRecent, this, &DialogMain::slotMenuRecent);
    connect(m_actions, &MainActions::signalExtrasAboutToShow, this, &DialogMain::slotMenuPrefAbout);
    if (!m_isEmuDisplay) {
        m_actions->createMenus();
        m_actions->setRecentFolders(m_recentFolders.folders());
    }
    enableExports();
    createToolBar();
    m_dataInWords = new QLabel(this);
    m_dataInWords->setTextFormat(Qt::PlainText); // file names may look like markup
    statusBar()->addPermanentWidget(m_dataInWords);
    m_progress = std::make_unique<ProgressDisplay>(*statusBar());
    createDialogs();
    setWindowIcon(QIcon(QStringLiteral(":/icons/app.svg")));
    setAcceptDrops(true);
    startTimers();
    resize(windowSize);
    m_splitter->setSizes({windowSize.width() * listStretch / (listStretch + pagesStretch),
                          windowSize.width() * pagesStretch / (listStretch + pagesStretch)});
    if (m_isEmuDisplay) {
        m_splitter->widget(0)->hide();
        m_cardDialog->hide();
        m_profileDialog->hide();
        m_toolBar->hide();
        // The status bar is shown only while it has a message.
        statusBar()->hide();
        connect(statusBar(), &QStatusBar::messageChanged, this,
                [this](const QString& text) { statusBar()->setVisible(!text.isEmpty()); });
        m_data->setCurrentPage(DialogData::Page::EmuView);
    }
    loadProfile();
    m_profileDialog->refresh();
    refreshTitle();
    qApp->installEventFilter(this);
    show();
}

DialogMain::~DialogMain()
{
    // They refer to the profile and the card, which are destroyed before the child widgets.
    delete takeCentralWidget();
    delete m_profileInfo;
    delete m_daySheet;
}

void DialogMain::createPanels()
{
    m_splitter = new QSplitter(this);
    auto* const column = new QSplitter(Qt::Vertical, m_splitter);
    m_cardDialog = new DialogCard(m_card, column);
    m_profileDialog = new DialogProfile(m_profile, column);
    column->addWidget(m_cardDialog);
    column->addWidget(m_profileDialog);
    column->setChildrenCollapsible(false);
    column->setSizes({1, 1});
    column->setStretchFactor(0, 1);
    column->setStretchFactor(1, 1);
    createDataWindow();
    m_splitter->addWidget(column);
    m_splitter->addWidget(m_data);
    m_splitter->setStretchFactor(0, listStretch);
    m_splitter->setStretchFactor(1, pagesStretch);
    m_splitter->setChildrenCollapsible(false);
    setCentralWidget(m_splitter);
    connect(m_cardDialog, &DialogCard::signalChanged, this, &DialogMain::slotCanChanged);
    connect(m_cardDialog, &DialogCard::signalLoadRecord, this, &DialogMain::slotLoadRecord);
    connect(m_cardDialog, &DialogCard::signalLoadCycle, this, &DialogMain::slotLoadCycle);
    connect(m_profileDialog, &DialogProfile::signalChanged, this,
            qOverload<>(&DialogMain::slotProfileChanged));
    connect(m_project, &ProjectSession::signalSelectionChanged, this, [this] {
        m_profileDialog->refresh();
        m_data->refresh(DataPage::Change::Selection);
    });
    connect(m_project, &ProjectSession::signalPathStored, this, &DialogMain::refreshTitle);
}

void DialogMain::createDataWindow()
{
    m_parts = KOLT::createDataWindow(
        m_profile, m_isEmuDisplay ? DialogData::Display::EmuOnly : DialogData::Display::Full,
        m_splitter);
    m_data = m_parts.window;
    connect(m_parts.graph, &DialogDataGraph::signalOrder, this,
            [this](const QStringList& fullNames) {
                m_profile.setDisplayOrder(fullNames);
                m_data->refresh(DataPage::Change::Selection);
            });
    connect(m_parts.graph, &DialogDataGraph::signalSettings, this,
            [this](const GraphSettings& settings) {
                storeGraphSettings(settings, SettingsStore::instance());
                m_settingsSaver.saveSoon();
            });
    connect(m_parts.map, &DialogDataMap::signalMessage, this, &DialogMain::showNotice);
    connect(m_parts.view, &DialogDataView::signalMessage, this, &DialogMain::showNotice);
}

void DialogMain::showNotice(const QString& message)
{
    m_notice = message;
    statusBar()->showMessage(message);
}

void DialogMain::createToolBar()
{
    m_toolBar = addToolBar(tr("Main Toolbar"));
    m_toolBar->setObjectName(QStringLiteral("mainToolBar"));
    m_toolBar->setContextMenuPolicy(Qt::PreventContextMenu); // its menu could hide the bar for good
    for (const Command command : {Command::OpenDataFolder, Command::ExportKml, Command::ExportCsv})
        m_toolBar->addAction((*m_actions)[command]);
    m_toolBar->addSeparator();
    m_profileSelector = new Selector(m_toolBar);
    m_profileSelector->setObjectName(QStringLiteral("profileSelector"));
    m_profileSelector->setToolTip(tr("Variant of the parameter profile"));
    m_unitSelector = new Selector(m_toolBar);
    m_unitSelector->setObjectName(QStringLiteral("unitSelector"));
    m_unitSelector->setToolTip(tr("Unit system"));
    m_unitSelector->addItem(tr("Metric"), QStringLiteral("0"));
    m_unitSelector->addItem(tr("Imperial"), QStringLiteral("1"));
    m_toolBar->addWidget(m_profileSelector);
    m_toolBar->addWidget(m_unitSelector);
    connect(m_profileSelector, qOverload<const QString&>(&Selector::signalActivated), this,
            qOverload<const QString&>(&DialogMain::slotProfileChanged));
    connect(m_unitSelector, qOverload<int>(&Selector::signalActivated), this,
            &DialogMain::slotUnitChanged);
}

void DialogMain::createDialogs()
{
    m_about = new DialogAbout(this);
    m_profileInfo = new DialogProfileInfo(m_profile, this);
    m_help =
        new DialogHelp(QString::fromUtf8(SettingsStore::instance().getText("Locale", "us")), this);
    m_preferences = new DialogPreferences(this);
    m_daySheet = new DialogDaySheet(m_profile, m_jobs, this);
    connect(m_profileInfo, &DialogProfileInfo::signalProfileChanged, this,
            &DialogMain::slotProfileFileChanged);
    connect(m_preferences, &DialogPreferences::signalProfileFileChanged, this,
            &DialogMain::slotProfileFileChanged);
    connect(m_preferences, &DialogPreferences::signalUnitChanged, this,
            &DialogMain::slotUnitChanged);
    connect(m_preferences, &DialogPreferences::signalMapChanged, this,
            [this] { m_parts.map->setSettings(loadMapSettings(SettingsStore::instance())); });
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

void DialogMain::loadProfile()
{
    const QString path = InstalledProfile::path();
    const SettingsStore& settings = SettingsStore::instance();
    const QString variant = QString::fromUtf8(settings.getText("Profile", defaultVariant));
    m_profile.loadVariants(path);
    m_isProfileLoaded = m_profile.loadProfil(path, m_profile.variantOrFirst(variant));
    m_profile.setUnitSystem(settings.getInteger("Unit", 0) == 1 ? UnitSystem::Imperial
                                                                : UnitSystem::Metric);
    refreshSelectors();
    m_profileInfo->refresh();
}

void DialogMain::refreshSelectors()
{
    m_isUpdating = true;
    m_profileSelector->clear();
    for (const Variant& variant : m_profile.variants()) {
        QPixmap swatch(12, 12);
        swatch.fill(variant.color);
        m_profileSelector->addItem(swatch, variant.name);
    }
    m_profileSelector->setCurrentText(m_profile.activeVariant());
    m_profileSelector->setEnabled(m_profileSelector->count() > 0);
    m_unitSelector->setCurrentIndex(static_cast<int>(m_profile.unitSystem()));
    m_isUpdating = false;
}

void DialogMain::reloadProfile()
{
    const double time = m_data->time();
    m_data->clear(); // it refers to the profile
    loadProfile();
    m_project->restoreSelection();
    m_profileDialog->reload();
    showReloaded();
    m_data->setTime(time);
    tellProfileFailure();
}

void DialogMain::showReloaded()
{
    if (m_card.dataSet() == nullptr)
        return;
    // Flights and track depend on the profile. For a flight the whole cycle is needed, so it is
    // read again if its files are still there.
    const auto* const picked = std::get_if<CycleChoice>(&m_choice);
    const bool isFlight = m_card.dataSet()->flight() != nullptr;
    const Files files = filesOf(m_choice);
    const auto isThere = [](const QString& path) { return QFileInfo::exists(path); };
    if (isFlight && !files.empty() && std::ranges::all_of(files, isThere)) {
        loadNow(m_choice);
        return;
    }
    m_card.reanalyse(picked != nullptr && !isFlight ? std::optional(picked->cycle) : std::nullopt);
    if (picked != nullptr)
        m_cardDialog->listFlights(static_cast<unsigned int>(picked->cycle));
    m_data->setData(*m_card.dataSet());
}

void DialogMain::slotTimeout()
{
    // Message boxes need a running event loop.
    if (SettingsStore::instance().isBroken())
        saveSettings(this);
    tellProfileFailure();
}

void DialogMain::tellProfileFailure()
{
    if (!m_isProfileLoaded)
        Messages::warn(this, tr("The profile file\n%1\ncannot be read, so no values can be shown. "
                                "Please install a valid one with \"Profile\" in the menu \"Help\".")
                                 .arg(InstalledProfile::path()));
}

void DialogMain::slotTimeoutStartup()
{
    m_jobs.run([this] {
        // The user may have opened a folder or selected parameters before the timer fired.
        if (m_card.folder().isEmpty() && !listFolder(Startup::lastPath())) {
            m_cardDialog->setMissingFolder(Startup::lastPath());
            statusBar()->showMessage(tr("The last folder %1 was not found. Open another one with "
                                        "\"Open Data Folder\".")
                                         .arg(Startup::lastPath()));
        }
        if (!m_project->isModified())
            m_project->readLast();
        refreshTitle();
    });
    // Without lists nobody can choose: the bare display shows the last cycle.
    if (m_isEmuDisplay && !m_card.cycles().empty())
        load(CycleChoice{m_card.cycles().rbegin()->first});
}

void DialogMain::slotCheckStyle()
{
    const QString path = Startup::styleFile();
    const QDateTime time = QFileInfo(path).lastModified();
    if (time == m_styleTime)
        return;
    m_styleTime = time;
    Diagnostics::print("Slot Load Style <%s>\n", qUtf8Printable(path));
    Startup::applyStyleSheet(*qApp);
}

void DialogMain::slotProfileChanged(const QString& variant)
{
    if (m_isUpdating)
        return;
    Diagnostics::print("slotProfileChanged <%s>\n", qUtf8Printable(variant));
    SettingsStore::instance().setText("Profile", variant.toUtf8());
    saveSettings(this);
    m_jobs.runLatest(JobQueue::Kind::Reload, [this] {
        reloadProfile();
        refreshTitle();
    });
}

void DialogMain::slotUnitChanged(int unit)
{
    if (m_isUpdating)
        return;
    SettingsStore::instance().setInteger("Unit", unit);
    saveSettings(this);
    m_profile.setUnitSystem(unit == 1 ? UnitSystem::Imperial : UnitSystem::Metric);
    refreshSelectors();
    m_profileInfo->refresh();
    m_profileDialog->refreshUnits();
    m_data->refresh(DataPage::Change::Units);
}

void DialogMain::slotProfileChanged()
{
    m_project->setModified();
    m_data->refresh(DataPage::Change::Selection);
}

void DialogMain::slotProfileFileChanged()
{
    m_jobs.runLatest(JobQueue::Kind::Reload, [this] { reloadProfile(); });
}

void DialogMain::refreshTitle()
{
    setWindowTitle(QStringLiteral("KOLT ") + Startup::lastPath().section(QLatin1Char('/'), -2));
}

bool DialogMain::event(QEvent* event)
{
    if (event->type() != QEvent::StatusTip)
        return QMainWindow::event(event);
    // A menu entry's status tip hides the current message, which is restored afterwards.
    const QString shown = statusBar()->currentMessage();
    if (m_tip.isEmpty() || shown != m_tip)
        m_messageBehindTip = shown;
    m_tip = static_cast<QStatusTipEvent*>(event)->tip();
    statusBar()->showMessage(m_tip.isEmpty() ? m_messageBehindTip : m_tip);
    return true;
}

bool DialogMain::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::ShiftModifier;
        if (key->key() == Qt::Key_Z && modifiers == Qt::ControlModifier && !key->isAutoRepeat())
            return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void DialogMain::closeEvent(QCloseEvent* event)
{
    if (m_isClosing)
        return;
    m_isClosing = true; // first: a message box below may let the user close again
    m_settingsSaver.flush();
    m_project->saveOnExit();
    event->accept();
    m_endProcess(EXIT_SUCCESS);
}

} // namespace KOLT
