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
    void toolkitHasNothingToWarnOf();
    void twoStartAtOnce();

private:
    QString dataPath() const { return m_home->filePath("KOLT"); }

    std::unique_ptr<QProcess> launch(const QStringList& arguments,
                                     const QString& userProfile = {}) const;

    /// Runs the program until its main window opens and returns the output.
    QString start(const QStringList& arguments, const QString& userProfile = {}) const;

    std::unique_ptr<QTemporaryDir> m_home;
};

namespace {

/// Reads until the program has written the text; false if it ends before.
bool waitForOutput(QProcess& program, const QByteArray& text, QByteArray& output)
{
    const bool reached = QTest::qWaitFor(
        [&] {
            program.waitForReadyRead(20);
            output += program.readAllStandardOutput();
            return output.contains(text) && output.endsWith('\n');
        },
        20'000);
    return reached && program.state() == QProcess::Running;
}

void finish(QProcess& program)
{
    program.terminate();
    program.waitForFinished();
}

} // namespace

std::unique_ptr<QProcess> TestStartup::launch(const QStringList& arguments,
                                              const QString& userProfile) const
{
    auto program = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_HOME", m_home->path());
    environment.insert("XDG_RUNTIME_DIR", m_home->path()); // only the user can read it
    environment.insert("LC_ALL", "C.UTF-8");
    environment.remove("USERPROFILE");
    if (!userProfile.isEmpty())
        environment.insert("USERPROFILE", userProfile);
    program->setProcessEnvironment(environment);
    program->start(KOLT_PROGRAM, arguments);
    return program;
}

QString TestStartup::start(const QStringList& arguments, const QString& userProfile) const
{
    const auto program = launch(arguments, userProfile);
    QByteArray output;
    const bool isStarted = waitForOutput(*program, "Translation IOS", output);
    finish(*program);
    return isStarted ? QString::fromUtf8(output) : "not started: " + QString::fromUtf8(output);
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

/// Apart from what the fixed order of the first steps brings with it.
void TestStartup::toolkitHasNothingToWarnOf()
{
    const auto program = launch({});
    QByteArray output;
    QVERIFY2(waitForOutput(*program, "CardContainer::readContainer", output), output);
    finish(*program);
    QCOMPARE(QString::fromUtf8(program->readAllStandardError()),
             "Attribute Qt::AA_ShareOpenGLContexts must be set before QCoreApplication is "
             "created.\n");
}

void TestStartup::twoStartAtOnce()
{
    const auto one = launch({});
    const auto other = launch({});
    for (QProcess* program : {one.get(), other.get()}) {
        QByteArray output;
        QVERIFY2(waitForOutput(*program, "CardContainer::readContainer", output), output);
        QVERIFY(output.contains("variant <850>")); // read from a whole profile
    }
    finish(*one);
    finish(*other);
    QCOMPARE(QDir(dataPath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({"Profile.xml", "Profile.xml.shipped"}));
}

QTEST_GUILESS_MAIN(TestStartup)
#include "tst_startup.moc"
