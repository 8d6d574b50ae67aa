#pragma once

#include "profile/ProfileParameter.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

/// The parsed command line of kolt-cli.
namespace KOLT::Cli {

struct Verb;

enum class ExportFormat { Csv, Kml, Kmz, Gpx, Candump, Dbc, Sqlite };

struct Arguments
{
    const Verb* verb = nullptr;
    QString folder;
    std::optional<int> cycle;
    std::optional<QStringList> files;
    QString profile;                 ///< empty: the installed profile
    std::optional<QString> variant;  ///< none: that of the settings
    std::optional<UnitSystem> units; ///< none: metric, in exports those of the settings
    std::optional<int> clockOffset;  ///< minutes; none: 0, for people that of the settings
    QString parameter;
    bool lampsOnly = false;
    bool headersOnly = false; ///< list: without a look at what the files hold

    double from = 0.0; ///< of the verb "cut": seconds on the counter
    double to = 0.0;

    // Of the verb "report", which prints text without them.
    QString pdf; ///< the file to write
    bool asJson = false;
    bool isGerman = false;
    bool isLetter = false; ///< instead of A4
    QString library;       ///< whose ledgers are added: a folder or a server; empty: none
    QString archive;       ///< of a library on a server

    // Of the verb "export"; "cut" has output and selection as well.
    ExportFormat format = ExportFormat::Csv;
    QString output;            ///< a file, "-"; a folder when all flights have a file each
    QString zip;               ///< of "cut", in place of output
    bool all = false;          ///< the whole card instead of a cycle or files
    std::optional<int> flight; ///< within the cycle, from 1
    QStringList selection;     ///< full names of parameters
    std::vector<std::pair<QByteArray, QByteArray>> settings; ///< keys and values
};

/// Either the arguments, a help text, or an error message.
struct ParseResult
{
    std::optional<Arguments> arguments;
    QString help;
    QString error;
};

/// `commandLine` starts with the program's name.
ParseResult parseArguments(const QStringList& commandLine);

} // namespace KOLT::Cli
