#include "app/TrustSession.h"

#include "analysis/ui/DialogData.h"
#include "analysis/ui/DialogRecording.h"
#include "app/CardSession.h"
#include "app/JobQueue.h"
#include "record/CardFiles.h"
#include "record/ui/DialogCard.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr int fileMilliseconds = 20;
/// Until the pages have been painted.
constexpr int dataMilliseconds = 100;

} // namespace

TrustSession::TrustSession(const Profile& profile, CardSession& card, JobQueue& jobs,
                           DialogCard& lists, DialogData& data, QWidget& window)
    : m_profile(profile)
    , m_card(card)
    , m_jobs(jobs)
    , m_lists(lists)
    , m_data(data)
    , m_dialog(new DialogRecording(&window))
{
    for (const auto& [timer, milliseconds] :
         {std::pair(&m_fileTimer, fileMilliseconds), std::pair(&m_dataTimer, dataMilliseconds)}) {
        timer->setSingleShot(true);
        timer->setInterval(milliseconds);
    }
    connect(&m_fileTimer, &QTimer::timeout, this,
            [this] { m_jobs.run([this] { lookAtFiles(); }); });
    connect(&m_dataTimer, &QTimer::timeout, this, [this] { m_jobs.run([this] { lookAtData(); }); });
    connect(&card, &CardSession::signalListed, this, [this] {
        m_files.reset();
        m_known.clear();
        m_fileTimer.start();
    });
    connect(&card, &CardSession::signalLoading, this, &TrustSession::startLoading);
    connect(&card, &CardSession::signalLoaded, this, &TrustSession::endLoading);
    connect(&card, &CardSession::signalReanalysed, this, [this] {
        if (!m_card.loaded().isNone()) // dates of files and data may have moved
            m_dataFiles = files();
        m_dataTimer.start();
    });
    connect(&lists, &DialogCard::signalCycleMark, this, [this](unsigned int cycle, int flight) {
        showCycle(static_cast<int>(cycle), [flight](const TrustFinding& finding) {
            return flight >= 0 && std::ranges::find(finding.marks, static_cast<std::size_t>(flight),
                                                    &FlightMark::flight) != finding.marks.end();
        });
    });
    connect(&lists, &DialogCard::signalFileMark, this, &TrustSession::showFile);
    connect(&data, &DialogData::signalFinding, this, &TrustSession::show);
    connect(m_dialog, &DialogRecording::signalTime, this, &TrustSession::goTo);
}

TrustSession::~TrustSession() = default;

std::shared_ptr<const CardFiles> TrustSession::files()
{
    if (m_files == nullptr)
        m_files = std::make_shared<const CardFiles>(m_card.container());
    return m_files;
}

void TrustSession::lookAtFiles()
{
    for (const auto& [number, cycle] : m_card.container().cycles()) {
        if (m_known.contains(number)) // from the samples, which tell more
            continue;
        const std::vector<TrustFinding>& findings = m_known[number] =
            cycleFileTrust(*files(), number, {m_profile.engineType()});
        m_lists.setTrust(static_cast<unsigned int>(number), findings);
    }
}

void TrustSession::noteCycle(int cycle, const RecordingTrust& trust)
{
    m_known[cycle] = trust.findings;
    m_lists.setTrust(static_cast<unsigned int>(cycle), trust.findings);
}

void TrustSession::refresh()
{
    m_known.clear();
    m_fileTimer.start();
}

void TrustSession::startLoading()
{
    m_dataTimer.stop();
    m_dialog->setNote(tr("Loading ..."));
}

void TrustSession::endLoading()
{
    if (m_card.dataSet() == nullptr) {
        showLoaded();
        return;
    }
    m_dataFiles = files();
    m_dataTimer.start();
}

TrustList TrustSession::trust()
{
    if (m_card.dataSet() == nullptr || m_dataFiles == nullptr)
        return nullptr;
    return trustOf(m_profile, *m_dataFiles, *m_card.dataSet(), {m_profile.engineType()});
}

void TrustSession::lookAtData()
{
    const TrustList found = trust();
    if (found == nullptr)
        return;
    m_data.setTrust(found);
    const CardChoice loaded = m_card.loaded();
    if (loaded.cycle && !loaded.isFlight())
        noteCycle(*loaded.cycle, *found);
    showLoaded();
}

void TrustSession::showLoaded()
{
    m_shownCycle.reset();
    const TrustList found = trust();
    if (found == nullptr) {
        m_dialog->setNote(tr("Nothing is loaded. Choose a cycle or a flight."));
        return;
    }
    const CardChoice loaded = m_card.loaded();
    m_dialog->setFindings(loaded.isNone() ? tr("Loaded data") : m_card.nameOf(loaded),
                          found->findings);
}

void TrustSession::show(int finding)
{
    m_jobs.run([this, finding] {
        showLoaded();
        m_dialog->select(finding);
        raise();
    });
}

void TrustSession::raise()
{
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void TrustSession::showCycle(int cycle, const std::function<bool(const TrustFinding&)>& isWanted)
{
    const auto known = m_known.find(cycle);
    if (known == m_known.end())
        return;
    const std::vector<TrustFinding>& findings = known->second;
    m_shownCycle = cycle;
    m_dialog->setFindings(m_card.nameOf({{}, cycle, CardChoice::wholeCycle}), findings);
    const auto wanted = std::ranges::find_if(findings, isWanted);
    m_dialog->select(wanted != findings.end() ? static_cast<int>(wanted - findings.begin()) : 0);
    raise();
}

void TrustSession::showFile(const QString& name)
{
    const auto namesFile = [&name](const TrustFinding& finding) {
        return std::ranges::find(finding.files, name) != finding.files.end();
    };
    for (const auto& [cycle, findings] : m_known) {
        if (std::ranges::any_of(findings, namesFile)) {
            showCycle(cycle, namesFile);
            return;
        }
    }
}

void TrustSession::goTo(double seconds)
{
    const CardChoice loaded = m_card.loaded();
    const DataSet* const dataSet = m_card.dataSet();
    const bool isLoaded =
        !m_shownCycle ||
        (loaded.cycle == m_shownCycle && (!loaded.isFlight() || (seconds >= dataSet->startSeconds &&
                                                                 seconds <= dataSet->stopSeconds)));
    if (!isLoaded)
        m_card.load({{}, *m_shownCycle, CardChoice::wholeCycle});
    m_jobs.run([this, seconds, cycle = m_shownCycle, isLoaded] {
        if (!isLoaded && m_card.loaded().cycle != cycle) // it could not be loaded
            return;
        if (!isLoaded)
            m_lists.showCycle(static_cast<unsigned int>(*cycle), CardChoice::wholeCycle);
        m_data.showFront(false);
        m_data.setTime(seconds);
    });
}

} // namespace KOLT
