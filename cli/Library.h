#pragma once

#include "library/archive/Archive.h"

#include <QHash>
#include <QString>
#include <QStringList>

/// "kolt-cli library VERB": the verbs that work on a library in place of a card.
namespace KOLT::Cli {

struct LibraryArguments
{
    QString operand; ///< the card, or the query; empty where the verb has none
    QString library; ///< a folder, or the address of a database server
    QString archive; ///< the folder with the recordings, also where --library is that
    QHash<QString, QString> options; ///< those of the verb that were given, by name
};

struct LibraryOption
{
    const char* name;
    const char* description;
    const char* value; ///< empty for a switch
};

struct LibraryVerb
{
    const char* name;
    const char* description;
    const char* operand; ///< "CARD"; empty for none
    std::vector<LibraryOption> options;
    /// Prints the result and returns an error message of one line, empty on success.
    QString (*run)(const LibraryArguments& arguments);
};

/// All of them, in the order of the help.
const std::vector<LibraryVerb>& libraryVerbs();

/// What to do, a help text, or an error message.
struct LibraryParseResult
{
    const LibraryVerb* verb = nullptr;
    LibraryArguments arguments;
    QString help;
    QString error;
};

/// `given` is what follows "library" on the command line.
LibraryParseResult parseLibrary(const QStringList& given);

/// Does it. Returns the exit status.
int runLibrary(const QStringList& given);

/// Opens the archive of the arguments; returns an error message or nothing.
QString openArchive(const LibraryArguments& arguments, Library::Archive& archive);

// cli/LibraryImport.cpp
QString importCard(const LibraryArguments& arguments);
QString checkLibrary(const LibraryArguments& arguments);

} // namespace KOLT::Cli
