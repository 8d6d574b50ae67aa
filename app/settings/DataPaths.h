#pragma once

#include <QByteArray>

namespace KOLT {

/// The directories that the program reads and writes (docs/formats/settings.md).
///
/// The first use creates those that are missing and puts the default profile in place; it needs the
/// application object, for the names and the directory of the program. A directory that cannot be
/// created is only logged.
class DataPaths
{
public:
    static DataPaths& instance();

    DataPaths();

    /// Settings, current project and profile; the system's per-user application data directory.
    QByteArray dataPath() const { return m_dataPath; }

    /// "<USERPROFILE>/Documents/KOLT/"; empty where that variable is not set.
    QByteArray userDataPath() const { return m_userDataPath; }

    /// Beside the program: "<executable directory>/../resources/".
    QByteArray resourcePath() const { return m_resourcePath; }

    /// Directory of the installed profile "Profile.xml".
    QByteArray profilePath() const { return m_profilePath; }

private:
    QByteArray m_dataPath;
    QByteArray m_userDataPath;
    QByteArray m_resourcePath;
    QByteArray m_profilePath;
};

} // namespace KOLT
