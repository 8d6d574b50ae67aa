#include "tests/support/TestFiles.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace KOLT::Test;

/// Starts the real program and reads what it says of its steps.
class TestStartup : public QObject
{
    Q_OBJECT

private slots:

    void init() { m_home = std::make_unique<QTemporaryDir>(); }

    void stepsInOrder();
    void helpAndUnknownOptionsStartAllTheSame();
    void existingProfileAndBrokenSettingsAreKept();
    void userProfileDirectoryIsCreated();

private:
    QString dataPath() const { return m_home->filePath("KOLT"); }

    /// The output until the main window comes up; the program is then ended.
    QString start(const QStringList& arguments, const QString& userProfile = {}) const;

    std::unique_ptr<QTemporaryDir> m_home;
};

QString TestStartup::start(const QStringList& arguments, const QString& userProfile) const
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_HOME", m_home->path());
    environment.insert("LC_ALL", "C.UTF-8");
    environment.remove("USERPROFILE");
    if (!userProfile.isEmpty())
        environment.insert("USERPROFILE", userProfile);
    program.setProcessEnvironment(environment);
    program.start(KOLT_PROGRAM, arguments);
    QByteArray output;
    const bool reached = QTest::qWaitFor(
        [&] {
            program.waitForReadyRead(20);
            output += program.readAllStandardOutput();
            return output.contains("Translation IOS") && output.endsWith('\n');
        },
        20'000);
    const bool alive = program.state() == QProcess::Running;
    program.terminate();
    program.waitForFinished();
    return reached && alive ? QString::fromUtf8(output)
                            : "not started: " + QString::fromUtf8(output);
}

void TestStartup::stepsInOrder()
{
    const QString output = start({});
    QVERIFY2(output.startsWith("-------------------------------------------------\n"),
             qPrintable(output));
    qsizetype position = 0;
    for (const QString& step :
         {QStringLiteral("                Version  : KOLT 2.1.4\n                Compiled : "),
          QStringLiteral(
              "                CWD      : %1\n-------------------------------------------------\n")
              .arg(QDir::currentPath()),
          QStringLiteral("targetFile <%1/Profile.xml>\ncopy <").arg(dataPath()),
          QStringLiteral("> <%1/Profile.xml> 1\n").arg(dataPath()),
          QStringLiteral("Data Path      : <%1>\nUser Data Path : <>\nResource Path  : <")
              .arg(dataPath()),
          QStringLiteral("Profile Path  : <%1>\n").arg(dataPath()),
          QStringLiteral("could not open file <%1/KOLT.ini>\nreadXmlFile <%1/KOLT.ini> 0\n")
              .arg(dataPath()),
          QStringLiteral("Translation QT <us> "), QStringLiteral("Translation IOS <us> ")}) {
        const qsizetype found = output.indexOf(step, position);
        QVERIFY2(found >= position, qPrintable("missing: " + step + "\nin:\n" + output));
        position = found + step.size();
    }
    QVERIFY(!output.contains("Usage of"));
}

void TestStartup::helpAndUnknownOptionsStartAllTheSame()
{
    QVERIFY(start({"-h"}).contains("-s       [stylefile to load] default []\n\n"));
    const QString output = start({"--nonsense", "-s", "no.css"});
    QVERIFY(output.contains("unknown option --nonsense\nUsage of "));
    QVERIFY(output.contains("default [no.css]"));
}

void TestStartup::existingProfileAndBrokenSettingsAreKept()
{
    QVERIFY(QDir().mkpath(dataPath()));
    QVERIFY(writeFile(dataPath() + "/Profile.xml", "my own"));
    QVERIFY(writeFile(dataPath() + "/KOLT.ini", "[no xml]"));
    const QString output = start({});
    QVERIFY(!output.contains("copy <"));
    QCOMPARE(readFile(dataPath() + "/Profile.xml"), QByteArray("my own"));
    QCOMPARE(readFile(dataPath() + "/KOLT.ini"), QByteArray("[no xml]"));
    QVERIFY(output.contains("could not set content <"));
}

void TestStartup::userProfileDirectoryIsCreated()
{
    const QString user = m_home->filePath("user");
    const QString output = start({}, user);
    QVERIFY(output.contains(QStringLiteral("USERPROFILE: <%1>\ntargetFile").arg(user)));
    QVERIFY(
        output.contains(QStringLiteral("UserDataPath created <%1/Documents/KOLT/>\n").arg(user)));
    QVERIFY(QFileInfo(user + "/Documents/KOLT").isDir());
}

QTEST_GUILESS_MAIN(TestStartup)
#include "tst_startup.moc"
