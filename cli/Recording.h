#pragma once

#include "app/settings/SettingsStore.h"
#include "cli/Arguments.h"
#include "profile/Profile.h"
#include "record/CardContainer.h"

#include <QByteArray>

namespace KOLT::Cli {

/// The profile, the folder and the loaded data that a verb works on. Each operation returns an
/// error message, empty on success.
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

    /// All of these, for a verb that works on loaded data.
    QString openAndLoad();

    Profile& profile() { return m_profile; }

    CardContainer& card() { return m_card; }

private:
    const Arguments& m_arguments;
    Profile m_profile;
    CardContainer m_card{m_profile};
};

/// The settings of the installed program; empty when it has none yet.
SettingsStore& installedSettings();

/// Error message that names the files that could not be read; empty when there are none.
QString unreadError(const std::vector<QString>& names);

/// Writes to the standard output; false on failure, such as a full disk.
bool writeOutput(const QByteArray& bytes);

/// Flushes the standard output; returns an error message, empty when all of it was written.
QString finishOutput();

} // namespace KOLT::Cli
