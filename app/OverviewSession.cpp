#include "app/OverviewSession.h"

#include "analysis/ui/DialogData.h"
#include "analysis/ui/OverviewPage.h"
#include "analysis/ui/WelcomePanel.h"
#include "app/CardChoice.h"
#include "app/CardSession.h"
#include "app/JobQueue.h"
#include "app/settings/SampleFolder.h"
#include "base/Volumes.h"
#include "base/WriteGuard.h"
#include "record/ui/DialogCard.h"
#include "ui/Messages.h"

#include <QDir>
#include <QStackedWidget>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int volumeMilliseconds = 2000;

bool hasRecordFiles(const QString& folder)
{
    const QStringList names = QDir(folder).entryList(QDir::Files);
    return std::ranges::any_of(names, isRecordFileName);
}

} // namespace

OverviewSession::OverviewSession(const Profile& profile, CardSession& card, JobQueue& jobs,
                                 DialogCard& lists, DialogData& data)
    : m_card(card)
    , m_jobs(jobs)
    , m_lists(lists)
    , m_data(data)
    , m_runner(profile, card.container(), jobs)
    , m_front(new QStackedWidget)
    , m_welcome(new WelcomePanel(m_front))
    , m_page(new OverviewPage(profile, m_front))
{
    m_front->addWidget(m_page);
    m_front->addWidget(m_welcome);
    m_data.setFront(m_front);
    // From the start, so that the map behind it is first drawn when there is something to see.
    m_data.showFront(true);
    m_volumeTimer.setInterval(volumeMilliseconds);
    connect(&m_volumeTimer, &QTimer::timeout, this, &OverviewSession::offerVolumes);
    connect(&card, &CardSession::signalListed, this, &OverviewSession::showListed);
    connect(&lists, &DialogCard::signalOverview, this, &OverviewSession::showFront);
    connect(&m_runner, &OverviewRunner::signalStarted, this, [this] {
        m_marked = 0;
        m_told = 0;
        m_page->setOverview(m_runner.overview());
    });
    connect(&m_runner, &OverviewRunner::signalCleared, this,
            [this] { m_page->setOverview(nullptr); });
    connect(&m_runner, &OverviewRunner::signalProgress, this, &OverviewSession::showProgress);
    connect(m_page, &OverviewPage::signalOpen, this, &OverviewSession::open);
    connect(m_page, &OverviewPage::signalCancel, &m_runner, &OverviewRunner::cancel);
    connect(m_page, &OverviewPage::signalContinue, &m_runner, &OverviewRunner::resume);
    connect(m_page, &OverviewPage::signalImport, this, &OverviewSession::signalImport);
    connect(m_welcome, &WelcomePanel::signalChooseFolder, this,
            &OverviewSession::signalChooseFolder);
    connect(m_welcome, &WelcomePanel::signalSample, this, &OverviewSession::openSample);
    connect(m_welcome, &WelcomePanel::signalFolder, &m_card, &CardSession::open);
}

void OverviewSession::showListed()
{
    if (m_card.container().files().empty()) {
        m_runner.clear();
        m_welcome->showEmpty(m_lists.whyEmpty());
        showWelcome();
        return;
    }
    m_volumeTimer.stop();
    m_runner.start();
    m_front->setCurrentWidget(m_page);
    showFront();
}

void OverviewSession::showFirstStart()
{
    m_welcome->showFirstStart();
    showWelcome();
}

void OverviewSession::showMissing(const QString& folder)
{
    m_welcome->showEmpty(
        tr("The folder\n%1\nwas not found. Insert the card, or open another folder.").arg(folder));
    showWelcome();
}

void OverviewSession::showWelcome()
{
    m_front->setCurrentWidget(m_welcome);
    offerVolumes();
    m_volumeTimer.start();
    showFront();
}

void OverviewSession::showFront()
{
    m_data.showFront(true);
    if (m_front->currentWidget() == m_page)
        m_page->focusRows();
}

void OverviewSession::showProgress()
{
    m_page->setRunning(m_runner.isRunning());
    m_page->showProgress();
    const CardOverview* const overview = m_runner.overview();
    for (; overview != nullptr && m_marked < overview->completedCount(); ++m_marked) {
        const CycleOverview& cycle = overview->cycles()[m_marked];
        std::vector<StateMark> flights;
        for (const FlightOverview& flight : cycle.flights)
            flights.push_back(markOf(flight.worst));
        m_lists.setMarks(static_cast<unsigned int>(cycle.number), markOf(cycle.worst), flights);
    }
    for (; overview != nullptr && m_told < overview->trustedCount(); ++m_told) {
        const CycleOverview& cycle = overview->cycles()[m_told];
        emit signalTrust(cycle.number, *cycle.trust);
    }
}

void OverviewSession::beginReload()
{
    m_runner.clear();
}

void OverviewSession::endReload()
{
    if (!m_card.container().files().empty())
        m_runner.start();
}

void OverviewSession::refreshUnits()
{
    m_page->refreshUnits();
}

void OverviewSession::openSample()
{
    const QString folder = installSampleCard();
    if (folder.isEmpty())
        Messages::warn(m_welcome->window(),
                       tr("The sample card cannot be opened: it is missing in this installation, "
                          "or cannot be copied to the folder of the program's data."));
    else
        m_jobs.run([this, folder] { m_card.list(folder); });
}

void OverviewSession::open(int cycle, int flight)
{
    const CardChoice loaded = m_card.loaded();
    if (loaded.cycle == cycle && loaded.flight == flight) {
        m_data.showFront(false);
        return;
    }
    m_card.load({{}, cycle, flight});
    m_jobs.run([this, cycle, flight] {
        const CardChoice done = m_card.loaded();
        if (done.cycle != cycle)
            return;
        m_lists.listFlights(static_cast<unsigned int>(cycle));
        m_lists.showCycle(static_cast<unsigned int>(cycle), flight);
    });
}

void OverviewSession::offerVolumes()
{
    const QByteArray mounts = mountTable();
    if (mounts == m_mounts)
        return;
    m_mounts = mounts;
    std::vector<OfferedFolder> offered;
    for (const Volume& volume : removableVolumes(mounts)) {
        if (hasRecordFiles(volume.path))
            offered.push_back({volume.name, volume.path});
    }
    m_welcome->setVolumes(offered);
}

} // namespace KOLT
