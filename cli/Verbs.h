#pragma once

#include "cli/Export.h"
#include "cli/Overview.h"
#include "cli/Report.h"

#include <QString>

#include <array>

/// The verbs of kolt-cli. Each prints its result to the standard output and returns an error
/// message of one line, empty on success.
namespace KOLT::Cli {

struct Arguments;

QString list(const Arguments& arguments);
QString flights(const Arguments& arguments);
QString values(const Arguments& arguments);
QString events(const Arguments& arguments);

struct Verb
{
    const char* name;
    const char* description;
    bool choosesFiles; ///< takes --cycle or --files
    bool usesProfile;
    QString (*run)(const Arguments& arguments);
};

/// All verbs, in the order of the help.
inline constexpr std::array verbs{
    Verb{"list", "List the record files and engine cycles of a folder as JSON.", false, true,
         list},
    Verb{"flights", "Print the flights of a cycle with their figures as JSON.", true, true,
         flights},
    Verb{"values", "Print every sample of a parameter as JSON.", true, true, values},
    Verb{"events", "Print the moments at which limits were exceeded as JSON.", true, true, events},
    Verb{"overview", "Print the figures of all cycles and days of a folder as JSON.", false, true,
         overview},
    Verb{"report", "Print the cycles and flights of a folder for people, in metric units.", false,
         true, report},
    Verb{"export", "Write a cycle, a flight or files as CSV, KML or GPX; or every flight.", true,
         true, exportData},
};

} // namespace KOLT::Cli
