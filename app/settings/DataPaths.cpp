#include "app/settings/DataPaths.h"

#include "base/Diagnostics.h"
#include "base/SafeFile.h"
#include "base/WriteGuard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace KOLT {

namespace {

void installDefaultProfile(const QString& target)
{
    Diagnostics::print("targetFile <%s>\n", qUtf8Printable(target));
    if (QFile::exists(target))
        return;
    const QString source = DataPaths::shippedProfileFile();
    const bool copied{copyFile(source, target)};
    Diagnostics::print("copy <%s> <%s> %d\n", qUtf8Printable(source), qUtf8Printable(target),
                       copied ? 1 : 0);
}

void createMissing(const QByteArray& path, const char* label)
{
    const QString directory = QFile::decodeName(path);
    if (directory.isEmpty() || QDir(directory).exists())
        return;
    if (QDir().mkpath(directory))
        Diagnostics::print("%s created <%s>\n", label, path.constData());
    else
        Diagnostics::print("could not create %s <%s>\n", label, path.constData());
}

} // namespace

DataPaths& DataPaths::instance()
{
    static DataPaths paths;
    return paths;
}

DataPaths::DataPaths()
{
    m_resourcePath = QFile::encodeName(QCoreApplication::applicationDirPath()) + "/../resources/";
    const QString dataPath = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(dataPath);
    m_dataPath = QFile::encodeName(dataPath);
    setOwnFolder(dataPath);
    if (qEnvironmentVariableIsSet("USERPROFILE")) {
        const QByteArray profile = qgetenv("USERPROFILE");
        Diagnostics::print("USERPROFILE: <%s>\n", profile.constData());
        m_userDataPath = profile + "/Documents/KOLT/";
    }
    m_profilePath = m_dataPath;

    installDefaultProfile(profileFile());
    createMissing(m_dataPath, "DataPath");
    createMissing(m_userDataPath, "UserDataPath");
    createMissing(m_profilePath, "ProfileDataPath");

    Diagnostics::print("Data Path      : <%s>\n", m_dataPath.constData());
    Diagnostics::print("User Data Path : <%s>\n", m_userDataPath.constData());
    Diagnostics::print("Resource Path  : <%s>\n", m_resourcePath.constData());
    Diagnostics::print("Profile Path  : <%s>\n", m_profilePath.constData());
}

QString DataPaths::profileFile() const
{
    return QFile::decodeName(m_profilePath) + QStringLiteral("/Profile.xml");
}

QString DataPaths::shippedProfileFile()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../profiles/Profile.xml");
}

} // namespace KOLT
