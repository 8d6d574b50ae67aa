#pragma once

#include "library/database/LibraryDatabase.h"

#include <QStringList>

#include <functional>

namespace KOLT::Library {

/// How to start the program that works out figures: it gets folders of cycles by its standard
/// input and answers each with a line (kolt-cli library figures).
struct FiguresWorker
{
    QString program;
    QStringList arguments;
    int processes = 0; ///< 0: one for each core
};

struct UpdateProgress
{
    qsizetype done = 0;
    qsizetype count = 0;
    QString folder; ///< the last one
};

struct UpdateResult
{
    int cycles = 0;
    int flights = 0;
    QStringList failed; ///< "folder: why"
    QString error;      ///< of the database: nothing more was stored then
    bool isCancelled = false;
};

/// Works out the figures of cycles in processes of their own and stores each as it comes; a cycle
/// that makes its process fail is told, the rest goes on. Runs an event loop until all is done.
/// `progress` returns false to cancel: what is stored stays.
UpdateResult updateLibrary(LibraryDatabase& database, const QList<ArchivedCycle>& cycles,
                           const FiguresSource& source, const FiguresWorker& worker,
                           const std::function<bool(const UpdateProgress&)>& progress = {});

} // namespace KOLT::Library
