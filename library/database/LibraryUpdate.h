#pragma once

#include "library/database/LibraryDatabase.h"

#include <QStringList>

#include <functional>

namespace KOLT::Library {

/// How to start the program that works out figures: it reads cycles from its standard input and
/// answers each with a line (FiguresText.h). Such a program is kolt-cli.
struct FiguresWorker
{
    QString program;
    QStringList arguments;
    int processes = 0; ///< 0: one for each core
};

/// kolt-cli beside the running program, with the profile of the figures.
FiguresWorker figuresWorker(const QString& archive, const Profile& profile);

/// What of an archive the database has to learn.
struct UpdatePlan
{
    QList<ArchivedCycle> cycles; ///< new, with other files, or with stale figures
    QStringList removed;         ///< folders that the archive no longer has
};

/// `archive` are all cycles of the archive, `unreadable` the folders of those whose manifest is
/// damaged: what is known of them stays.
Answer<UpdatePlan> planUpdate(LibraryDatabase& database, const std::vector<ArchivedCycle>& archive,
                              const QStringList& unreadable, const FiguresSource& now);

struct UpdateProgress
{
    qsizetype done = 0;
    qsizetype count = 0;
    QString folder; ///< the last one
};

struct UpdateOptions
{
    FiguresSource source;
    FiguresWorker worker;
    /// The cycle as the archive has it now, if it still has it: others may have added files while
    /// figures were worked out.
    std::function<std::optional<ArchivedCycle>(const QString& folder)> current;
    /// Returns false to cancel: what is stored stays.
    std::function<bool(const UpdateProgress&)> progress;
};

struct UpdateResult
{
    int cycles = 0;
    int flights = 0;
    QStringList failed; ///< "folder: why"
    QString error;      ///< of database or worker: nothing more was stored then
    bool isCancelled = false;

    bool isComplete() const { return failed.isEmpty() && error.isEmpty() && !isCancelled; }
};

/// Works out the figures of cycles in processes of their own and stores each as it comes; a cycle
/// that makes its process fail is told, and the rest goes on. Runs an event loop until all is done,
/// in any thread.
UpdateResult updateLibrary(LibraryDatabase& database, const UpdatePlan& plan,
                           const UpdateOptions& options);

} // namespace KOLT::Library
