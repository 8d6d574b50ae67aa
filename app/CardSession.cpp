#include "app/CardSession.h"

#include "app/JobQueue.h"
#include "record/ClockTime.h"
#include "ui/Messages.h"
#include "ui/ProgressDisplay.h"

#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace KOLT {

namespace {

QString fileName(const QString& path)
{
    return path.section(QLatin1Char('/'), -1);
}

QString shortList(QStringList names)
{
    constexpr int most = 10;
    if (names.size() > most) {
        names.resize(most);
        names.push_back(QStringLiteral("..."));
    }
    return names.join(QLatin1Char('\n'));
}

} // namespace

CardSession::CardSession(const Profile& profile, JobQueue& jobs, ProgressDisplay& progress,
                         QWidget& window)
    : m_card(profile)
    , m_jobs(jobs)
    , m_progress(progress)
    , m_window(window)
{
}

void CardSession::open(const QString& folder)
{
    m_jobs.run([this, folder] {
        if (list(folder))
            emit signalOpened(folder);
        else
            Messages::warn(
                &m_window,
                tr("The folder\n%1\ncannot be opened. Please check that it exists and can be read.")
                    .arg(folder));
    });
}

bool CardSession::list(const QString& folder)
{
    m_progress.begin(tr("Reading %1").arg(folder));
    const bool isOpen =
        m_card.readContainer(folder, [this](int percent) { m_progress.setPercent(percent); });
    m_progress.end();
    if (!isOpen)
        return false;
    m_jobs.dropWaiting(JobQueue::Kind::Choice); // made in the previous folder
    m_isOfFolder = false;
    emit signalListed();
    emit signalMessage(tr("%n record file(s)", nullptr, static_cast<int>(m_card.files().size())) +
                       QStringLiteral(", ") +
                       tr("%n engine cycle(s)", nullptr, static_cast<int>(m_card.cycles().size())));
    return true;
}

void CardSession::openDropped(const QStringList& paths)
{
    const QFileInfo first(paths.front());
    open(first.isDir() ? paths.front() : first.path());
    if (!first.isDir())
        m_jobs.run([this, paths] { loadDropped(paths); });
}

void CardSession::loadDropped(const QStringList& paths)
{
    const QString folder = QFileInfo(paths.front()).path();
    CardChoice choice;
    for (const QString& path : paths) {
        if (QFileInfo(path).path() == folder && m_card.files().contains(QFileInfo(path).fileName()))
            choice.files.push_back(path);
    }
    choice.files.sort(); // as when files are chosen in the list
    if (choice.isNone())
        Messages::warn(&m_window, tr("%1\nis not a record file. Record files end with .CAN, .can "
                                     "or .xcb.")
                                      .arg(paths.front()));
    else if (m_card.folder() == folder)
        loadNow(choice);
}

void CardSession::load(const CardChoice& choice)
{
    m_jobs.runLatest(JobQueue::Kind::Choice, [this, choice] { loadNow(choice); });
}

bool CardSession::canLoad(const CardChoice& choice) const
{
    const std::list<QString> files = filesOf(choice);
    return dataSet() == nullptr || files.empty() || m_card.canReadAny(files);
}

bool CardSession::read(const CardChoice& choice)
{
    const auto progress = [this](int percent) { m_progress.setPercent(percent); };
    if (!choice.cycle)
        return m_card.loadFiles(choice.files, progress);
    if (choice.isFlight())
        return m_card.loadFlight(*choice.cycle, static_cast<std::size_t>(choice.flight), progress);
    return m_card.loadCycle(*choice.cycle, progress);
}

void CardSession::loadNow(const CardChoice& choice)
{
    if (!canLoad(choice)) {
        emit signalRefused();
        tellRefused(choice);
        return;
    }
    emit signalLoading(nameOf(choice));
    m_progress.begin(tr("Loading %1").arg(nameOf(choice)));
    const bool isFound = read(choice);
    m_progress.end();
    if (dataSet() != nullptr) {
        m_loaded = choice;
        m_isOfFolder = true;
        if (choice.isFlight() && dataSet()->flight() == nullptr)
            m_loaded.flight = CardChoice::wholeCycle;
    }
    if (m_loaded.cycle && !m_loaded.isFlight())
        emit signalFlights(static_cast<unsigned int>(*m_loaded.cycle));
    emit signalLoaded(isFound && dataSet() != nullptr && dataSet()->unreadFiles.empty());
    if (dataSet() == nullptr)
        return;
    tellUnreadFiles();
    if (!isFound)
        emit signalMessage(
            tr("%1 was not found any more. The whole cycle is loaded.").arg(nameOf(choice)));
}

void CardSession::reanalyse()
{
    if (dataSet() == nullptr)
        return;
    const bool isFlight = dataSet()->flight() != nullptr;
    const CardChoice choice = loaded();
    const std::list<QString> files = filesOf(choice);
    if (isFlight && !files.empty() &&
        std::ranges::all_of(files, [](const QString& path) { return QFileInfo::exists(path); })) {
        loadNow(choice);
        return;
    }
    m_card.reanalyse(isFlight ? std::nullopt : choice.cycle);
    if (choice.cycle)
        emit signalFlights(static_cast<unsigned int>(*choice.cycle));
    emit signalReanalysed();
}

void CardSession::setClockOffset(int minutes)
{
    m_card.setClockOffset(minutes);
    if (m_card.folder().isEmpty())
        return;
    emit signalListed();
    if (loaded().cycle)
        emit signalFlights(static_cast<unsigned int>(*loaded().cycle));
    if (dataSet() != nullptr)
        emit signalReanalysed();
}

QString CardSession::nameOf(const CardChoice& choice) const
{
    if (choice.isNone())
        return {};
    if (!choice.cycle)
        return choice.files.size() == 1
                   ? fileName(choice.files.front())
                   : tr("%n record file(s)", nullptr, static_cast<int>(choice.files.size()));
    const auto found = m_card.cycles().find(*choice.cycle);
    const QString cycle = found == m_card.cycles().end() ? QString() : found->second.name;
    return choice.isFlight() ? tr("%1, flight %2").arg(cycle).arg(choice.flight + 1) : cycle;
}

std::list<QString> CardSession::filesOf(const CardChoice& choice) const
{
    if (!choice.cycle)
        return choice.files;
    std::list<QString> paths;
    if (const auto cycle = m_card.cycles().find(*choice.cycle); cycle != m_card.cycles().end()) {
        for (const QString& name : cycle->second.fileNames)
            paths.push_back(QStringLiteral("%1/%2").arg(m_card.folder(), name));
    }
    return paths;
}

ExportSubject CardSession::subject() const
{
    ExportSubject subject{m_loaded.cycle, {}};
    for (const QString& path : m_loaded.files)
        subject.files << fileName(path);
    return subject;
}

void CardSession::tellRefused(const CardChoice& choice)
{
    QStringList names;
    for (const QString& path : filesOf(choice))
        names.push_back(fileName(path));
    Messages::warn(&m_window,
                   tr("These files could not be read, and the data loaded before are still "
                      "shown:\n%1\nPlease check that the card is still inserted and that the "
                      "files can be read; then open the folder again.")
                       .arg(shortList(names)));
}

void CardSession::tellUnreadFiles()
{
    const std::vector<QString>& unread = dataSet()->unreadFiles;
    if (unread.empty())
        return;
    Messages::warn(&m_window,
                   tr("These files could not be read and are missing from the data shown:\n%1\n"
                      "Please check that the card is still inserted and that the files can "
                      "be read; then open the folder again.")
                       .arg(shortList({unread.begin(), unread.end()})));
}

QString describeData(const CardSession& card)
{
    const DataSet& dataSet = *card.dataSet();
    const CardChoice choice = card.loaded();
    const auto time = [](double seconds) {
        return clockTime(seconds).toString(QStringLiteral("hh:mm:ss"));
    };
    const auto fileCount = static_cast<int>(card.filesOf(choice).size());
    const bool namesCount = !choice.cycle && fileCount > 1;
    const QString files = CardSession::tr("%n file(s)", nullptr, fileCount);
    return CardSession::tr("%1, %2 samples, %3 to %4 (%5)")
        .arg(namesCount ? card.nameOf(choice)
                        : CardSession::tr("%1: %2").arg(card.nameOf(choice), files),
             QLocale().toString(static_cast<qulonglong>(dataSet.messages.sampleCount())),
             time(dataSet.startSeconds), time(dataSet.stopSeconds),
             durationText(dataSet.stopSeconds - dataSet.startSeconds));
}

} // namespace KOLT
