#pragma once

#include "app/settings/SettingsStore.h"
#include "cli/Arguments.h"
#include "profile/Profile.h"
#include "record/CardContainer.h"

#include <QByteArray>

namespace KOLT::Cli {

/// What the verbs work on: the profile, the folder and, where asked, the loaded data set. Each
/// operation returns what went wrong, empty on success.
class Recording
{
public:
    explicit Recording(const Arguments& arguments)
        : m_arguments(arguments)
    {
    }

    QString openProfile();
    QString openFolder();
    /// Loads the cycle, flight or files of the arguments.
    QString load();

    Profile& profile() { return m_profile; }

    CardContainer& card() { return m_card; }

private:
    const Arguments& m_arguments;
    Profile m_profile;
    CardContainer m_card{m_profile};
};

/// The settings of the program with windows, as far as they are there.
SettingsStore& installedSettings();

/// What to say of files that could not be read, empty where all could.
QString unreadError(const std::vector<QString>& names);

/// Writes to the standard output; false when that fails, as on a full disk.
bool writeOutput(const QByteArray& bytes);

/// Ends the output and returns what went wrong with it.
QString finishOutput();

} // namespace KOLT::Cli
