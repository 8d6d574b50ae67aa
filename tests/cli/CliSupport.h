#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

/// What the tests of kolt-cli have in common.
namespace KOLT::Test {

/// How a program ended, and what it said.
struct Result
{
    int status = -1;
    QByteArray output;
    QByteArray errors;

    QJsonObject json() const { return QJsonDocument::fromJson(output).object(); }

    QString lastError() const { return QString::fromUtf8(errors).trimmed().section('\n', -1); }
};

/// Runs a program as a shop would, with that home.
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
