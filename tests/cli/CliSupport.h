#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

/// Shared by the tests of kolt-cli.
namespace KOLT::Test {

/// Exit status and output of a program.
struct Result
{
    int status = -1;
    QByteArray output;
    QByteArray errors;

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
    process.waitForFinished(120'000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace KOLT::Test
