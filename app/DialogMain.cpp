#include "app/DialogMain.h"

#include "analysis/ui/DialogData.h"
#include "app/CardSession.h"
#include "app/DialogProfile.h"
#include "app/FocusRing.h"
#include "app/GraphJump.h"
#include "app/ImportSession.h"
#include "app/KeyCommands.h"
#include "app/LibrarySession.h"
#include "app/MainActions.h"
#include "app/MenuDialogs.h"
#include "app/NotesSession.h"
#include "app/OpenCycleNotice.h"
#include "app/OverviewSession.h"
#include "app/ProfileOffer.h"
#include "app/ProfileSelectors.h"
#include "app/ProjectSession.h"
#include "app/RecordingNotice.h"
#include "app/SettingsSaver.h"
#include "app/StatusBar.h"
#include "app/TrustSession.h"
#include "app/WindowMemory.h"
#include "app/dialogs/DialogProfileInfo.h"
#include "app/settings/CommandLineOptions.h"
#include "app/settings/ProgramSettings.h"
#include "app/startup/OpenArguments.h"
#include "app/startup/Startup.h"
#include "base/Diagnostics.h"
#include "record/ui/DialogCard.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QStatusTipEvent>

#include <cstdio>
#include <cstdlib>

namespace KOLT {

namespace {

/// Exits without destructors or further events.
void endProcessAtOnce(int exitCode)
{
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

} // namespace

DialogMain::DialogMain()
    : m_settings(SettingsStore::instance())
    , m_recentFolders(m_settings)
    , m_endProcess(endProcessAtOnce)
    , m_isEmuDisplay(CommandLineOptions::instance().isGiven("-emu"))
    , m_status(new StatusBar(this))
    , m_card(
          std::make_unique<CardSession>(m_profile.profile(), m_jobs, m_status->progress(), *this))
    , m_project(new ProjectSession(m_profile.profile(), *this))
    , m_actions(new MainActions(*this))
{
    createPanels();
    createBars();
    createDialogs();
    connectCard();
    createOverview();
    createNotices();
    connectPanels();
    setWindowIcon(QIcon(QStringLiteral(":/icons/app.svg")));
    setAcceptDrops(true);
    startTimers();
    m_ring = std::make_unique<FocusRing>(*this);
    m_keys = std::make_unique<KeyCommands>(*this, *m_data);
    if (m_isEmuDisplay)
        stripToDisplay();
    else
        m_memory = std::make_unique<WindowMemory>(
            WindowMemory::Parts{*this, *m_splitter, *m_column, *m_data}, m_settings,
            m_settingsSaver);
    m_profileOffer->takeNewest();
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
}

const CardContainer& DialogMain::card() const
{
    return m_card->container();
}

void DialogMain::loadProfile()
{
    m_profile.load();
    m_selectors->refresh(profile());
    m_dialogs->profileInfo().refresh();
}

void DialogMain::reloadProfile()
{
    const double time = m_data->time();
    if (m_overview != nullptr)
        m_overview->beginReload();
    m_data->clear(); // it refers to the profile
    m_graphJump->forget();
    loadProfile();
    m_project->restoreSelection();
    m_profileDialog->reload();
    m_card->reanalyse();
    m_data->setTime(time);
    if (m_overview != nullptr)
        m_overview->endReload();
    if (m_trust != nullptr)
        m_trust->refresh();
    tellProfileFailure();
}

void DialogMain::tellProfileFailure()
{
    if (!m_profile.tellFailure())
        return;
    m_status->showMessage(tr("The profile that came with the program is in use. The broken one is "
                             "kept beside it as a backup."));
    m_jobs.runLatest(JobQueue::Kind::Reload, [this] {
        reloadProfile();
        if (!m_project->isModified() && profile().selectedParameters().empty())
            m_project->readLast(); // it was of no use without a profile
    });
}

void DialogMain::setClockOffset(int minutes)
{
    m_jobs.run([this, minutes] {
        const double time = m_data->time();
        m_card->setClockOffset(minutes);
        m_data->setTime(time);
        if (!m_card->loaded().isNone())
            selectLoaded();
    });
}

void DialogMain::slotTimeout()
{
    // Message boxes need a running event loop.
    if (m_settings.isBroken())
        saveSettings(this);
    tellProfileFailure();
    if (!m_isEmuDisplay)
        m_profileOffer->tell();
}

void DialogMain::slotTimeoutStartup()
{
    const OpenArguments wanted = findOpenArguments(CommandLineOptions::instance().unknown());
    // First: the last folder and project are opened only where there is no other.
    if (!wanted.folder.isEmpty())
        m_card->open(wanted.folder);
    m_jobs.run([this] { openLastFolder(); });
    if (!wanted.project.isEmpty())
        m_jobs.run([this, wanted] { m_project->openFile(wanted.project); });
    // Without lists nobody can choose: the bare display shows the last cycle.
    if (m_isEmuDisplay && !card().cycles().empty())
        m_card->load({{}, card().cycles().rbegin()->first, CardChoice::wholeCycle});
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
    Diagnostics::print("slotProfileChanged <%s>\n", qUtf8Printable(variant));
    m_profile.chooseVariant(variant);
    m_jobs.runLatest(JobQueue::Kind::Reload, [this] {
        reloadProfile();
        refreshTitle();
    });
}

void DialogMain::slotUnitChanged(int unit)
{
    m_profile.chooseUnits(static_cast<UnitSystem>(unit));
    m_selectors->refresh(profile());
    m_dialogs->profileInfo().refresh();
    m_profileDialog->refreshUnits();
    m_data->refresh(DataPage::Change::Units);
    if (m_overview != nullptr)
        m_overview->refreshUnits();
}

void DialogMain::slotProfileChanged()
{
    m_graphJump->forget();
    m_project->setModified();
    m_data->refresh(DataPage::Change::Selection);
}

void DialogMain::slotProfileFileChanged()
{
    m_jobs.runLatest(JobQueue::Kind::Reload, [this] { reloadProfile(); });
}

void DialogMain::refreshTitle()
{
    setWindowTitle(QStringLiteral("KOLT ") +
                   ProgramSettings(m_settings).lastFolder().section(QLatin1Char('/'), -2));
}

bool DialogMain::event(QEvent* event)
{
    if (event->type() == QEvent::ThemeChange)
        Startup::applyLook(*qApp);
    if (event->type() != QEvent::StatusTip)
        return QMainWindow::event(event);
    m_status->showTip(static_cast<QStatusTipEvent*>(event)->tip());
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
    m_import->end(); // what is complete stays
    event->accept();
    m_endProcess(EXIT_SUCCESS);
}

} // namespace KOLT
