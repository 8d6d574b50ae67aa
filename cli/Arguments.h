#pragma once

#include "profile/ProfileParameter.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

/// What the user asked of kolt-cli.
namespace KOLT::Cli {

struct Verb;

enum class ExportFormat { Csv, Kml, Gpx };

struct Arguments
{
    const Verb* verb = nullptr;
    QString folder;
    std::optional<int> cycle;
    std::optional<QStringList> files;
    QString profile;                 ///< empty: the installed one
    std::optional<QString> variant;  ///< none: the one in the settings
    std::optional<UnitSystem> units; ///< none: metric, in exports those of the settings
    QString parameter;
    bool lampsOnly = false;

    // Of the verb "export".
    ExportFormat format = ExportFormat::Csv;
    QString output;            ///< file, or folder when all flights are exported
    bool all = false;          ///< every flight of the card, in place of cycle and files
    std::optional<int> flight; ///< of the cycle, from 1
    QStringList selection;     ///< full names of the selected parameters
    std::vector<std::pair<QByteArray, QByteArray>> settings; ///< key and value
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
