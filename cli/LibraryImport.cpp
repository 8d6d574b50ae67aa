#include "app/settings/KnownLibraries.h"
#include "base/Diagnostics.h"
#include "cli/Json.h"
#include "cli/LibraryDatabaseVerbs.h"
#include "library/archive/ArchiveCheck.h"
#include "library/archive/CardImport.h"

#include <QJsonArray>

namespace KOLT::Cli {

namespace {

using namespace KOLT::Library;

/// Whether a server says that there is an archive already.
bool hasArchiveElsewhere(const LibraryArguments& arguments)
{
    LibraryDatabase database;
    return arguments.library != arguments.archive &&
           openDatabase(arguments, LibraryDatabase::Access::ReadOnly, database).isEmpty() &&
           !database.archive().value.isEmpty();
}

/// The first import creates the library. One that was there before is not made anew: its disk may
/// be unplugged.
QString openOrCreate(const LibraryArguments& arguments, Archive& archive)
{
    if (!Archive::isArchive(arguments.archive) && !isKnownLibrary(arguments.archive) &&
        !hasArchiveElsewhere(arguments)) {
        if (const QString error = Archive::create(arguments.archive); !error.isEmpty())
            return error;
    }
    const QString error = openArchive(arguments, archive);
    if (error.isEmpty())
        rememberLibrary(arguments.archive);
    return error;
}

QJsonArray jsonOf(const QStringList& names)
{
    return QJsonArray::fromStringList(names);
}

/// Errors are one line each on this command line.
QString line(const QString& text)
{
    return text.simplified();
}

} // namespace

QString importCard(const LibraryArguments& arguments)
{
    Archive archive;
    if (const QString error = openOrCreate(arguments, archive); !error.isEmpty())
        return line(error);
    CardImport import(archive, arguments.operand);
    const ImportResult result = import.run();
    if (result.files == 0)
        return line(result.error);
    const QString databaseError = refreshDatabase(arguments, archive);
    QStringList failed;
    for (const ImportResult::Failure& failure : result.failed) {
        failed << failure.name;
        Diagnostics::print("%s: %s\n", qUtf8Printable(failure.name),
                           qUtf8Printable(line(failure.reason)));
    }
    const QString error = printJson({{QStringLiteral("copied"), result.copied},
                                     {QStringLiteral("known"), result.known},
                                     {QStringLiteral("beside"), result.beside},
                                     {QStringLiteral("failed"), jsonOf(failed)},
                                     {QStringLiteral("bytes"), result.bytes}});
    if (!error.isEmpty())
        return error;
    if (!result.error.isEmpty())
        return line(result.error);
    return failed.isEmpty() ? databaseError
                            : QStringLiteral("%1 of %2 files are not in the library")
                                  .arg(failed.size())
                                  .arg(result.files);
}

QString checkLibrary(const LibraryArguments& arguments)
{
    Archive archive;
    if (const QString error = openArchive(arguments, archive); !error.isEmpty())
        return line(error);
    const CheckResult result = checkArchive(archive);
    const QString error = printJson({{QStringLiteral("cycles"), result.cycles},
                                     {QStringLiteral("files"), result.files},
                                     {QStringLiteral("bytes"), result.bytes},
                                     {QStringLiteral("damaged"), jsonOf(result.damaged)},
                                     {QStringLiteral("missing"), jsonOf(result.missing)},
                                     {QStringLiteral("unlisted"), jsonOf(result.unlisted)},
                                     {QStringLiteral("manifests"), jsonOf(result.manifests)}});
    if (!error.isEmpty())
        return error;
    return result.isSound() ? QString()
                            : QStringLiteral("%1 files are damaged, %2 are missing, %3 manifests "
                                             "cannot be read")
                                  .arg(result.damaged.size())
                                  .arg(result.missing.size())
                                  .arg(result.manifests.size());
}

} // namespace KOLT::Cli
