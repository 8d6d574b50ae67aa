#include "tests/support/TestFiles.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace KOLT::Test;

/// Starts the real program and checks its output.
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

    /// Runs the program until its main window opens and returns the output.
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
    for (QString step :
         {"                Version  : KOLT 2.1.4\n                Compiled : ",
          "                CWD      : CURRENT\n-------------------------------------------------\n",
          "targetFile <DATA/Profile.xml>\ncopy <", "> <DATA/Profile.xml> 1\n",
          "Data Path      : <DATA>\nUser Data Path : <>\nResource Path  : <",
          "Profile Path  : <DATA>\n",
          "could not open file <DATA/KOLT.ini>\nreadXmlFile <DATA/KOLT.ini> 0\n",
          "Translation QT <us> ", "Translation IOS <us> "}) {
        step.replace("DATA", dataPath()).replace("CURRENT", QDir::currentPath());
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
