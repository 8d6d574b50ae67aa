#include "base/System.h"
#include "cli/Arguments.h"
#include "cli/Json.h"
#include "cli/LibraryDatabaseVerbs.h"
#include "cli/Recording.h"
#include "library/database/FiguresText.h"
#include "library/database/LibraryUpdate.h"
#include "library/ledger/EngineLedger.h"

#include <QFile>

#include <cstdio>

/// The verbs that fill the library's database.
namespace KOLT::Cli {

namespace {

using namespace KOLT::Library;

QString line(const QString& text)
{
    return text.simplified();
}

Arguments withProfile(const LibraryArguments& arguments)
{
    Arguments result;
    result.profile = arguments.options.value(QStringLiteral("profile"));
    if (arguments.options.contains(QStringLiteral("variant")))
        result.variant = arguments.options.value(QStringLiteral("variant"));
    return result;
}

QString failedText(const QStringList& failed)
{
    return QStringLiteral("%1 cycles have no figures: %2")
        .arg(failed.size())
        .arg(failed.mid(0, 3).join(QStringLiteral("; ")));
}

/// Which engine was in which unit, as people wrote it into the archive.
bool setInstallations(LibraryDatabase& database, const Archive& archive)
{
    return database.setInstallations(installationsOf(Logbook(archive.root()).read()));
}

UpdateOptions updateOptions(const Profile& profile, const Archive& archive)
{
    UpdateOptions options;
    options.source = figuresSource(profile);
    options.worker = figuresWorker(archive.root(), profile);
    options.current = [&archive](const QString& folder) { return archive.cycle(folder); };
    return options;
}

} // namespace

std::vector<LibraryOption> profileOptions()
{
    return {{"profile", "Parameter profile; default: the installed one.", "FILE"},
            {"variant", "Variant of the profile; default: the one in the settings.", "V"}};
}

QString openDatabase(const LibraryArguments& arguments, LibraryDatabase::Access access,
                     LibraryDatabase& database)
{
    const ParsedAddress parsed = parseLibraryAddress(arguments.library, arguments.archive);
    if (!parsed.address)
        return line(parsed.error);
    const auto prompt = [](const QString& server) -> std::optional<QString> {
        const auto password =
            System::readPassword(QStringLiteral("Password of %1: ").arg(server).toStdString());
        return password ? std::optional(QString::fromStdString(*password)) : std::nullopt;
    };
    return database.open(*parsed.address, access, prompt) ? QString() : line(database.error());
}

QString refreshDatabase(const LibraryArguments& arguments, const Archive& archive)
{
    const Arguments profileArguments = withProfile(arguments);
    Recording recording(profileArguments);
    if (const QString error = recording.openProfile(); !error.isEmpty())
        return error;
    LibraryDatabase database;
    if (const QString error = openDatabase(arguments, LibraryDatabase::Access::Create, database);
        !error.isEmpty())
        return error;
    if (!database.claim(archive.id()))
        return line(database.error());
    const UpdateOptions options = updateOptions(recording.profile(), archive);
    QStringList damaged; // the import has told them
    const std::vector<ArchivedCycle> cycles = archive.cycles(&damaged);
    const auto plan = planUpdate(database, cycles, damaged, options.source);
    if (!plan)
        return line(plan.error);
    if (!setInstallations(database, archive))
        return line(database.error());
    const UpdateResult result = updateLibrary(database, plan.value, options);
    if (!result.error.isEmpty())
        return line(result.error);
    return result.failed.isEmpty() ? QString() : line(failedText(result.failed));
}

QString libraryRebuild(const LibraryArguments& arguments)
{
    Archive archive;
    if (const QString error = openArchive(arguments, archive); !error.isEmpty())
        return error;
    const Arguments profileArguments = withProfile(arguments);
    Recording recording(profileArguments);
    if (const QString error = recording.openProfile(); !error.isEmpty())
        return error;
    LibraryDatabase database;
    QString error = openDatabase(arguments, LibraryDatabase::Access::Create, database);
    const auto claim = [&] {
        return database.claim(archive.id(), LibraryDatabase::Claim::Take) ? QString()
                                                                          : line(database.error());
    };
    if (error.isEmpty())
        error = claim();
    if (database.status() == LibraryDatabase::Status::Damaged)
        error = database.recreate(database.address()) ? claim() : line(database.error());
    if (!error.isEmpty())
        return error;
    QStringList damaged;
    const std::vector<ArchivedCycle> cycles = archive.cycles(&damaged);
    const UpdateOptions options = updateOptions(recording.profile(), archive);
    auto plan = planUpdate(database, cycles, damaged, options.source);
    if (!plan && database.status() == LibraryDatabase::Status::Damaged &&
        database.recreate(database.address()))
        plan = {};
    if (!plan)
        return line(plan.error);
    plan.value.cycles = QList<ArchivedCycle>(cycles.begin(), cycles.end());
    UpdateResult result = updateLibrary(database, plan.value, options);
    if (database.status() == LibraryDatabase::Status::Damaged) { // found while writing
        if (!database.recreate(database.address()))
            return line(database.error());
        result = updateLibrary(database, {plan.value.cycles, {}}, options);
    }
    if (result.error.isEmpty() && !setInstallations(database, archive))
        return line(database.error());
    error = printJson(
        {{QStringLiteral("cycles"), result.cycles}, {QStringLiteral("flights"), result.flights}});
    if (!error.isEmpty() || !result.error.isEmpty())
        return error.isEmpty() ? line(result.error) : error;
    for (const QString& folder : damaged)
        result.failed << QStringLiteral("%1: its manifest cannot be read").arg(folder);
    return result.failed.isEmpty() ? QString() : line(failedText(result.failed));
}

QString libraryFigures(const LibraryArguments& arguments)
{
    const Arguments profileArguments = withProfile(arguments);
    Recording recording(profileArguments);
    if (const QString error = recording.openProfile(); !error.isEmpty())
        return error;
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return QStringLiteral("the standard input cannot be read");
    for (QByteArray text = input.readLine(); !text.isEmpty(); text = input.readLine()) {
        const std::optional<ArchivedCycle> cycle = cycleFrom(text.trimmed());
        if (!cycle)
            return QStringLiteral("the standard input is not that of a rebuild");
        const FoundFigures found = findCycleFigures(recording.profile(), arguments.archive, *cycle);
        writeOutput(lineOf(found) + '\n');
        if (const QString error = finishOutput(); !error.isEmpty())
            return error;
    }
    return {};
}

} // namespace KOLT::Cli
