#pragma once

#include <QByteArray>
#include <QString>

namespace KOLT {

/// The program's directories (docs/formats/settings.md).
///
/// The first use creates missing directories and installs the default profile; it needs the
/// application object. Failures are only printed.
class DataPaths
{
public:
    static DataPaths& instance();

    DataPaths();

    /// The system's per-user application data directory: settings, current project, profile.
    QByteArray dataPath() const { return m_dataPath; }

    /// "<USERPROFILE>/Documents/KOLT/"; empty where that variable is not set.
    QByteArray userDataPath() const { return m_userDataPath; }

    /// "<executable directory>/../resources/".
    QByteArray resourcePath() const { return m_resourcePath; }

    /// Directory of the installed profile.
    QByteArray profilePath() const { return m_profilePath; }

    QByteArray settingsFile() const { return m_dataPath + "/KOLT.ini"; }

    /// The installed profile, "Profile.xml".
    QString profileFile() const;

    /// The profile that came with the program.
    static QString shippedProfileFile();

private:
    QByteArray m_dataPath;
    QByteArray m_userDataPath;
    QByteArray m_resourcePath;
    QByteArray m_profilePath;
};

} // namespace KOLT
