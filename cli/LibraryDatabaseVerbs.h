#pragma once

#include "cli/Library.h"
#include "library/database/LibraryDatabase.h"

/// The verbs of kolt-cli library that work with the database. Each prints its result and returns an
/// error message, empty on success.
namespace KOLT::Cli {

QString libraryList(const LibraryArguments& arguments);
QString libraryEngines(const LibraryArguments& arguments);
QString libraryQuery(const LibraryArguments& arguments);
QString libraryRebuild(const LibraryArguments& arguments);

/// Works out figures for another process of the program (library/database/LibraryUpdate.h).
QString libraryFigures(const LibraryArguments& arguments);

/// Asks at the terminal for the password of a server, if there is one.
QString openDatabase(const LibraryArguments& arguments, Library::LibraryDatabase::Access access,
                     Library::LibraryDatabase& database);

/// Brings the database up to date with the archive, after an import: what is new, has got files, or
/// was found with another profile or program.
QString refreshDatabase(const LibraryArguments& arguments, const Library::Archive& archive);

/// The options of verbs that work out figures.
std::vector<LibraryOption> profileOptions();

} // namespace KOLT::Cli
