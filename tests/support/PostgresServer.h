#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

/// A PostgreSQL server of a test's own on 127.0.0.1, which ends with the test, however that ends.
/// It does not run as root, so that it gives its rights away when the test has them.
namespace KOLT::Test {

class PostgresServer
{
public:
    /// Empty when it runs; otherwise what is missing.
    QString start()
    {
        const QStringList versions =
            QDir("/usr/lib/postgresql").entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        if (versions.isEmpty())
            return "PostgreSQL is not installed: run scripts/setup";
        m_programs = "/usr/lib/postgresql/" + versions.last() + "/bin/";
        removeLeftovers();
        // Not the folder of the tests, which nobody else may be able to enter.
        m_folder = std::make_unique<QTemporaryDir>(
            QString("/tmp/kolt-postgres-%1-XXXXXX").arg(QCoreApplication::applicationPid()));
        const QByteArray path = QFile::encodeName(m_folder->path());
        if (!m_folder->isValid() ||
            (geteuid() == 0 && ::chown(path.constData(), nobody, nobody) != 0))
            return "there is no folder for the server";
        QProcess initdb;
        if (const QString error = run(initdb, "initdb",
                                      {"-D", data(), "-U", "owner", "-A", "trust", "-N", "-E",
                                       "UTF8", "--locale=C.UTF-8"});
            !error.isEmpty())
            return error;
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost);
        m_port = probe.serverPort();
        probe.close();
        m_server.setProcessChannelMode(QProcess::MergedChannels);
        launch(m_server, "postgres",
               {"-D", data(), "-F", "-h", "127.0.0.1", "-p", QString::number(m_port), "-k",
                m_folder->path()});
        QByteArray told;
        while (!told.contains("ready to accept connections")) {
            if (m_server.state() == QProcess::NotRunning || !m_server.waitForReadyRead(60'000))
                return "the server did not start: " + QString::fromUtf8(told);
            told += m_server.readAll();
        }
        return {};
    }

    ~PostgresServer() { stop(); }

    void stop()
    {
        if (m_server.state() == QProcess::NotRunning)
            return;
        ::kill(static_cast<pid_t>(m_server.processId()), SIGINT); // without waiting for clients
        if (!m_server.waitForFinished(30'000))
            m_server.kill();
    }

    /// The address of a new, empty database.
    QString newDatabase()
    {
        const QString name = QString("library%1").arg(++m_databases);
        return sql("CREATE DATABASE " + name, "postgres").isEmpty() ? address(name) : QString();
    }

    QString address(const QString& database, const QString& user = "owner") const
    {
        return QString("postgresql://%1@127.0.0.1:%2/%3").arg(user).arg(m_port).arg(database);
    }

    /// Executes it with psql; returns an error.
    QString sql(const QString& statement, const QString& database)
    {
        QProcess psql;
        psql.start("psql",
                   {"-q", "-v", "ON_ERROR_STOP=1", "-d", address(database), "-c", statement});
        psql.waitForFinished(60'000);
        return psql.exitCode() == 0 ? QString() : QString::fromUtf8(psql.readAllStandardError());
    }

    /// Lets this user in with a password only.
    QString addUserWithPassword(const QString& user, const QString& password)
    {
        const QString error =
            sql(QString("CREATE USER %1 SUPERUSER PASSWORD '%2'").arg(user, password), "postgres");
        QFile rules(data() + "/pg_hba.conf");
        if (!error.isEmpty() || !rules.open(QIODevice::ReadWrite))
            return "the rules of the server cannot be changed " + error;
        const QByteArray old = rules.readAll();
        rules.seek(0);
        rules.write("host all " + user.toUtf8() + " 127.0.0.1/32 scram-sha-256\n" + old);
        rules.close();
        return sql("SELECT pg_reload_conf()", "postgres");
    }

private:
    static constexpr uid_t nobody = 65534;

    /// Folders of tests that were killed: these have their process in the name.
    static void removeLeftovers()
    {
        for (const QFileInfo& folder :
             QDir("/tmp").entryInfoList({"kolt-postgres-*-*"}, QDir::Dirs | QDir::NoSymLinks)) {
            const auto test = static_cast<pid_t>(folder.fileName().section('-', 2, 2).toInt());
            if (test > 0 && ::kill(test, 0) != 0 && errno == ESRCH)
                QDir(folder.filePath()).removeRecursively();
        }
    }

    QString data() const { return m_folder->path() + "/data"; }

    void launch(QProcess& process, const QString& program, const QStringList& arguments)
    {
        QStringList all{"--pdeathsig", "INT"};
        if (geteuid() == 0)
            all << "--reuid" << QString::number(nobody) << "--regid" << QString::number(nobody)
                << "--clear-groups";
        process.setWorkingDirectory("/");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LC_ALL", "C.UTF-8");
        process.setProcessEnvironment(environment);
        process.start("setpriv", all << m_programs + program << arguments);
    }

    QString run(QProcess& process, const QString& program, const QStringList& arguments)
    {
        process.setProcessChannelMode(QProcess::MergedChannels);
        launch(process, program, arguments);
        if (process.waitForFinished(120'000) && process.exitCode() == 0)
            return {};
        return program + " failed: " + QString::fromUtf8(process.readAll());
    }

    QString m_programs;
    std::unique_ptr<QTemporaryDir> m_folder; ///< goes when the server has ended
    QProcess m_server;
    quint16 m_port = 0;
    int m_databases = 0;
};

} // namespace KOLT::Test
