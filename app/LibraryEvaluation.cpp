#include "app/LibraryEvaluation.h"

#include "library/ledger/EngineLedger.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProgressDialog>

#include <thread>

namespace KOLT {

using namespace Library;

namespace {

constexpr int unnoticedMilliseconds = 300;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::LibrarySession)
};

/// What the archive and the files of people say; read in a thread, as a shared folder may be slow.
struct ArchiveState
{
    std::vector<ArchivedCycle> cycles;
    QStringList damaged;
    std::vector<Installation> installations;
};

ArchiveState readArchive(const Archive& archive)
{
    ArchiveState state;
    QEventLoop loop;
    std::thread reader([&] {
        state.cycles = archive.cycles(&state.damaged);
        state.installations = installationsOf(Logbook(archive.root()).read());
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    reader.join();
    return state;
}

} // namespace

UpdateResult evaluateLibrary(const Archive& archive, LibraryDatabase& database,
                             const Profile& profile, QWidget& window,
                             const std::function<bool()>& isWanted)
{
    QProgressDialog dialog(Text::tr("Working out the figures of the library"), Text::tr("Cancel"),
                           0, 0, &window);
    dialog.setObjectName(QStringLiteral("libraryProgress"));
    dialog.setWindowTitle(Text::tr("Library"));
    dialog.setMinimumDuration(unnoticedMilliseconds);
    dialog.setAutoReset(false);
    dialog.setValue(0);
    const Archive ours = archive; // the session may open another one meanwhile
    const auto goesOn = [&] { return !dialog.wasCanceled() && isWanted(); };
    UpdateOptions options;
    options.source = figuresSource(profile);
    options.worker = figuresWorker(ours.root(), profile);
    options.current = [&](const QString& folder) { return ours.cycle(folder); };
    options.progress = [&](const UpdateProgress& progress) {
        dialog.setMaximum(static_cast<int>(progress.count));
        dialog.setValue(static_cast<int>(progress.done));
        return goesOn();
    };
    const ArchiveState state = readArchive(ours);
    if (!goesOn())
        return {0, 0, {}, {}, true};
    const auto plan = planUpdate(database, state.cycles, state.damaged, options.source);
    if (!plan)
        return {0, 0, {}, plan.error, false};
    if (!database.setInstallations(state.installations))
        return {0, 0, {}, database.error(), false};
    return updateLibrary(database, plan.value, options);
}

} // namespace KOLT
