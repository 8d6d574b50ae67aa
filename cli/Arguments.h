#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What the user asked of kolt-cli.
namespace KOLT::Cli {

struct Verb;

struct Arguments
{
    const Verb* verb = nullptr;
    QString folder;
    std::optional<int> cycle;
    std::optional<QStringList> files;
    QString profile;                ///< empty: the installed one
    std::optional<QString> variant; ///< none: the one in the settings
    bool imperial = false;
    QString parameter;
    bool lampsOnly = false;
};

/// Either arguments, or a help text, or what is wrong with the command line.
struct ParseResult
{
    std::optional<Arguments> arguments;
    QString help;
    QString error;
};

/// `commandLine` starts with the program's name.
ParseResult parseArguments(const QStringList& commandLine);

} // namespace KOLT::Cli
