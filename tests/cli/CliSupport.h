#pragma once

#include "tests/support/TestFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <optional>

/// Shared by the tests of kolt-cli.
namespace KOLT::Test {

/// How programs end the lines that they print.
#ifdef Q_OS_WIN
constexpr const char* lineEnd = "\r\n";
#else
constexpr const char* lineEnd = "\n";
#endif

/// Exit status and output of a program; -1 where it did not start or end.
struct Result
{
    int status = -1;
    QByteArray output;
    QByteArray errors;

    /// The output with "\n" at the end of each line.
    QByteArray text() const { return QByteArray(output).replace(lineEnd, "\n"); }

    QJsonObject json() const { return QJsonDocument::fromJson(output).object(); }

    QString lastError() const { return QString::fromUtf8(errors).trimmed().section('\n', -1); }
};

/// Runs a program with this folder as its home.
inline Result run(const QTemporaryDir& home, const QString& program, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_HOME", home.path());
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished(120'000))
        return {-1, {}, process.errorString().toUtf8()};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

/// The folder of the program's own files with this home. Windows takes no home from the
/// environment: there all have that of the user who runs the tests.
inline QString dataFolder([[maybe_unused]] const QTemporaryDir& home)
{
#ifdef Q_OS_WIN
    return QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                           "/../KOLT");
#else
    return home.filePath("KOLT");
#endif
}

/// One of the program's own files, as long as this lives; a former one comes back then.
class ProgramFile
{
public:
    /// Without a content there is no such file.
    ProgramFile(const QTemporaryDir& home, const QString& name,
                const std::optional<QByteArray>& content = {})
        : m_path(dataFolder(home) + '/' + name)
        , m_isReady(QDir().mkpath(dataFolder(home)) &&
                    (!QFile::exists(m_path) || QFile::rename(m_path, m_path + ".former")) &&
                    (!content || writeFile(m_path, *content)))
    {
    }

    ~ProgramFile()
    {
        QFile::remove(m_path);
        QFile::rename(m_path + ".former", m_path);
    }

    ProgramFile(const ProgramFile&) = delete;
    ProgramFile& operator=(const ProgramFile&) = delete;

    const QString& path() const { return m_path; }

    bool isReady() const { return m_isReady; }

private:
    QString m_path;
    bool m_isReady = false;
};

} // namespace KOLT::Test
