#pragma once

#include "cli/Cut.h"
#include "cli/Episodes.h"
#include "cli/Export.h"
#include "cli/Overview.h"
#include "cli/ProfileVerb.h"
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

/// What a verb works on; each includes those before it.
enum class Needs {
    Folder,
    Profile, ///< takes --profile and --variant
    Data     ///< takes --cycle or --files
};

struct Verb
{
    const char* name;
    const char* description;
    Needs needs;
    QString (*run)(const Arguments& arguments);

    bool usesProfile() const { return needs != Needs::Folder; }

    /// What stands before the folder, or the file in its place; empty for most.
    const char* action() const
    {
        return run == exportData    ? "csv|kml|kmz|gpx|candump|dbc|sqlite"
               : run == profileVerb ? "check"
                                    : "";
    }

    bool isOnFile() const { return run == profileVerb; }

    bool choosesFiles() const { return needs == Needs::Data; }

    /// Without --clock-offset; all others tell the unit's clock as it is.
    bool usesClockOfSettings() const { return run == report || run == exportData; }
};

/// All verbs, in the order of the help.
inline constexpr std::array verbs{
    Verb{"list", "List the record files and engine cycles of a folder as JSON.", Needs::Profile,
         list},
    Verb{"flights", "Print the flights of a cycle with their figures as JSON.", Needs::Data,
         flights},
    Verb{"values", "Print every sample of a parameter as JSON.", Needs::Data, values},
    Verb{"events", "Print the moments at which limits were exceeded as JSON.", Needs::Data, events},
    Verb{"episodes", "Print the exceedances as episodes, and when faults were set, as JSON.",
         Needs::Data, episodes},
    Verb{"overview", "Print the figures of all cycles and days of a folder as JSON.",
         Needs::Profile, overview},
    Verb{"report", "Print the cycles and flights of a folder for people, in metric units.",
         Needs::Profile, report},
    Verb{"export", "Write a cycle, a flight, files or the whole card in an open format.",
         Needs::Data, exportData},
    Verb{"cut", "Write what a cycle recorded in some time as a case file into a new folder.",
         Needs::Data, cut},
    Verb{"profile", "Check a profile file: print what is doubtful in it, a line for each.",
         Needs::Folder, profileVerb},
};

} // namespace KOLT::Cli
