#include "library/database/LibraryUpdate.h"

#include "library/database/FiguresText.h"
#include "profile/Profile.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <map>

namespace KOLT::Library {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::LibraryUpdate)
};

bool hasSameFiles(const ArchivedCycle& a, const ArchivedCycle& b)
{
    return std::ranges::equal(a.files, b.files, [](const ArchivedFile& x, const ArchivedFile& y) {
        return x.name == y.name && x.sha256 == y.sha256;
    });
}

/// The processes of one update, each with the cycles that it was given.
class Update
{
public:
    Update(LibraryDatabase& database, const UpdatePlan& plan, const UpdateOptions& options)
        : m_database(database)
        , m_options(options)
        , m_waiting(plan.cycles.begin(), plan.cycles.end())
        , m_progress{0, plan.cycles.size(), {}}
    {
    }

    UpdateResult run(const QStringList& removed)
    {
        for (const QString& folder : removed) {
            if (!m_database.removeCycle(folder)) {
                m_result.error = m_database.error();
                return m_result;
            }
        }
        const int wanted = m_options.worker.processes > 0 ? m_options.worker.processes
                                                          : QThread::idealThreadCount();
        const auto count = std::min<qsizetype>(wanted, m_progress.count);
        for (qsizetype i = 0; i < count; ++i)
            m_workers.push_back(std::make_unique<Worker>());
        for (const auto& worker : m_workers)
            start(*worker);
        if (!isDone())
            m_loop.exec();
        for (const auto& worker : m_workers) { // those that were killed
            if (worker->process != nullptr)
                worker->process->waitForFinished(killMilliseconds);
        }
        return std::move(m_result);
    }

private:
    static constexpr int killMilliseconds = 10'000;

    /// Two cycles each, so that none waits for the database.
    static constexpr std::size_t cyclesAhead = 2;

    struct Worker
    {
        std::unique_ptr<QProcess> process;
        std::deque<ArchivedCycle> given; ///< the first one is being worked on
        bool hasAnswered = false;        ///< since it was started
    };

    bool isDone() const
    {
        return m_isEnded || std::ranges::all_of(m_workers, [](const auto& worker) {
                   return worker->process == nullptr;
               });
    }

    void start(Worker& worker)
    {
        if (m_isEnded || m_waiting.empty())
            return;
        worker.hasAnswered = false;
        worker.process = std::make_unique<QProcess>();
        QProcess& process = *worker.process;
        process.setStandardErrorFile(QProcess::nullDevice());
        QObject::connect(&process, &QProcess::readyReadStandardOutput, &process,
                         [this, &worker] { read(worker); });
        QObject::connect(&process, &QProcess::finished, &process,
                         [this, &worker] { ended(worker); });
        QObject::connect(&process, &QProcess::errorOccurred, &process,
                         [this, &worker](QProcess::ProcessError error) {
                             if (error == QProcess::FailedToStart)
                                 notStarted(worker);
                         });
        give(worker);
        process.start(m_options.worker.program, m_options.worker.arguments);
        for (const ArchivedCycle& cycle : worker.given)
            process.write(lineOf(cycle) + '\n');
    }

    void give(Worker& worker)
    {
        while (worker.given.size() < cyclesAhead && !m_waiting.empty()) {
            worker.given.push_back(m_waiting.front());
            m_waiting.pop_front();
        }
    }

    /// While progress is told, which may process events, nothing else is taken up: an answer would
    /// be taken for one of another cycle. True if `again` is called later instead.
    template <typename Again>
    bool isPostponed(Worker& worker, Again again)
    {
        if (m_isTelling)
            QTimer::singleShot(0, worker.process.get(), again);
        return m_isTelling;
    }

    void read(Worker& worker)
    {
        if (isPostponed(worker, [this, &worker] { read(worker); }))
            return;
        while (!m_isEnded && worker.process->canReadLine() && !worker.given.empty()) {
            const QByteArray line = worker.process->readLine().trimmed();
            const ArchivedCycle cycle = worker.given.front();
            worker.given.pop_front();
            worker.hasAnswered = true;
            const std::size_t before = worker.given.size();
            take(cycle, line);
            if (m_isEnded)
                return;
            give(worker);
            for (std::size_t i = before; i < worker.given.size(); ++i)
                worker.process->write(lineOf(worker.given[i]) + '\n');
            if (worker.given.empty())
                worker.process->closeWriteChannel(); // it ends
        }
    }

    void take(const ArchivedCycle& cycle, const QByteArray& line)
    {
        const std::optional<FoundFigures> found = figuresFrom(line);
        if (found && found->folder != cycle.folder) // of another version, or out of step
            failed(
                cycle,
                Text::tr("the process answered for another recording, \"%1\"").arg(found->folder));
        else if (!found || !found->figures)
            failed(cycle, found ? found->error : Text::tr("its figures were not understood"));
        else if (m_database.storeCycle(cycle, *found->figures, m_options.source))
            stored(cycle, *found->figures);
        else
            end(m_database.error());
    }

    void stored(const ArchivedCycle& cycle, const CycleFigures& figures)
    {
        if (m_options.current) {
            const std::optional<ArchivedCycle> now = m_options.current(cycle.folder);
            if (!now) {
                if (!m_database.removeCycle(cycle.folder))
                    return end(m_database.error());
                return told(cycle);
            }
            if (!hasSameFiles(*now, cycle)) {
                m_waiting.push_back(*now);
                return;
            }
        }
        ++m_result.cycles;
        m_result.flights += static_cast<int>(figures.flights.size());
        told(cycle);
    }

    void failed(const ArchivedCycle& cycle, const QString& why)
    {
        m_result.failed << QStringLiteral("%1: %2").arg(cycle.folder, why);
        // Its files are known all the same, and that it has no figures.
        if (!m_database.storeCycle(cycle))
            return end(m_database.error());
        told(cycle);
    }

    void told(const ArchivedCycle& cycle)
    {
        ++m_progress.done;
        m_progress.folder = cycle.folder;
        m_isTelling = true;
        const bool goesOn = !m_options.progress || m_options.progress(m_progress);
        m_isTelling = false;
        if (goesOn)
            return;
        m_result.isCancelled = true;
        end({});
    }

    /// The process has ended; with cycles left, it should not have.
    void ended(Worker& worker)
    {
        if (isPostponed(worker, [this, &worker] { ended(worker); }))
            return;
        read(worker);
        if (m_isEnded)
            return;
        const int status = worker.process->exitCode();
        const bool isRefused = worker.process->exitStatus() == QProcess::NormalExit && status != 0;
        worker.process.release()->deleteLater(); // it is calling
        if (!worker.given.empty() && !worker.hasAnswered && isRefused) {
            end(Text::tr("%1 cannot work out figures: it ended with status %2")
                    .arg(QDir::toNativeSeparators(m_options.worker.program))
                    .arg(status));
            return;
        }
        if (!worker.given.empty()) {
            const ArchivedCycle culprit = worker.given.front();
            worker.given.pop_front();
            m_waiting.insert(m_waiting.begin(), worker.given.begin(), worker.given.end());
            worker.given.clear();
            failed(culprit, Text::tr("the process that worked out its figures ended unexpectedly"));
        }
        start(worker);
        if (isDone())
            m_loop.quit();
    }

    void notStarted(Worker& worker)
    {
        end(Text::tr("%1 could not be started: %2")
                .arg(QDir::toNativeSeparators(m_options.worker.program),
                     worker.process->errorString()));
    }

    /// Ends all, early.
    void end(const QString& error)
    {
        m_isEnded = true;
        m_result.error = error;
        for (const auto& worker : m_workers) {
            if (worker->process == nullptr)
                continue;
            worker->process->disconnect();
            worker->process->kill();
        }
        m_loop.quit();
    }

    LibraryDatabase& m_database;
    const UpdateOptions& m_options;
    std::deque<ArchivedCycle> m_waiting;
    UpdateProgress m_progress;
    bool m_isTelling = false;
    UpdateResult m_result;
    QEventLoop m_loop;
    bool m_isEnded = false;
    std::vector<std::unique_ptr<Worker>> m_workers;
};

} // namespace

FiguresWorker figuresWorker(const QString& archive, const Profile& profile)
{
    FiguresWorker worker;
    worker.program = QCoreApplication::applicationDirPath() + QStringLiteral("/kolt-cli");
#ifdef Q_OS_WIN
    worker.program += QStringLiteral(".exe");
#endif
    worker.arguments = {QStringLiteral("library"),   QStringLiteral("figures"),
                        QStringLiteral("--library"), QDir(archive).absolutePath(),
                        QStringLiteral("--profile"), QFileInfo(profile.path()).absoluteFilePath(),
                        QStringLiteral("--variant"), profile.activeVariant()};
    return worker;
}

Answer<UpdatePlan> planUpdate(LibraryDatabase& database, const std::vector<ArchivedCycle>& archive,
                              const QStringList& unreadable, const FiguresSource& now)
{
    const auto known = database.cycles();
    const auto stale = database.staleFolders(now);
    if (!known || !stale)
        return {{}, database.error()};
    std::map<QString, const ArchivedCycle*> old;
    for (const ArchivedCycle& cycle : known.value)
        old[cycle.folder] = &cycle;
    for (const QString& folder : stale.value)
        old[folder] = nullptr;
    Answer<UpdatePlan> plan;
    for (const ArchivedCycle& cycle : archive) {
        const auto found = old.find(cycle.folder);
        const bool isKnown =
            found != old.end() && found->second != nullptr && hasSameFiles(*found->second, cycle);
        if (!isKnown)
            plan.value.cycles << cycle;
        if (found != old.end())
            old.erase(found);
    }
    for (const auto& [folder, cycle] : old) {
        if (!unreadable.contains(folder))
            plan.value.removed << folder;
    }
    return plan;
}

UpdateResult updateLibrary(LibraryDatabase& database, const UpdatePlan& plan,
                           const UpdateOptions& options)
{
    return Update(database, plan, options).run(plan.removed);
}

} // namespace KOLT::Library
