// Random use of the whole window. KOLT_MONKEY_STEPS (200), KOLT_MONKEY_SEED (1), and
// KOLT_MONKEY_PAUSE, the milliseconds that the event loop may rest (0: not judged, as on a machine
// that is busy with other tests); scripts/monkey sets them.

#include "app/settings/DataPaths.h"
#include "app/settings/InstalledProfile.h"
#include "app/settings/SettingsStore.h"
#include "app/startup/Startup.h"
#include "library/archive/ArchiveCheck.h"
#include "resources/Resources.h"
#include "tests/monkey/Monkey.h"
#include "tests/support/TestFiles.h"

#include <QDesktopServices>
#include <QtTest>

using namespace KOLT;
using namespace KOLT::Test;

/// Takes the links that are clicked, in place of the system's programs.
class LinkTaker : public QObject
{
    Q_OBJECT

public:
    LinkTaker()
    {
        for (const QString& scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "take");
    }

    ~LinkTaker() override
    {
        for (const QString& scheme : schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }

    LinkTaker(const LinkTaker&) = delete;
    LinkTaker& operator=(const LinkTaker&) = delete;

public slots:

    void take(const QUrl&) {}

private:
    const QStringList schemes{"file", "http", "https"};
};

class TestMonkey : public QObject
{
    Q_OBJECT

private slots:
    void randomUse();
};

void TestMonkey::randomUse()
{
    const int steps = qEnvironmentVariableIntValue("KOLT_MONKEY_STEPS");
    const int seed = qEnvironmentVariableIntValue("KOLT_MONKEY_SEED");
    const int pause = qEnvironmentVariableIntValue("KOLT_MONKEY_PAUSE");
    QTemporaryDir home;
    QVERIFY(home.isValid());
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath("data")));
    qputenv("HOME", QFile::encodeName(home.path())); // where a library is proposed
    const LinkTaker links;
    QTemporaryDir folder;
    const QDir work(folder.path());
    QVERIFY(work.mkpath("card") && work.mkpath("broken") && work.mkpath("out"));
    QVERIFY(QDir::setCurrent(work.filePath("out"))); // where relative names lead
    const QDir sample(KOLT_SAMPLE);
    for (const QString& name : sample.entryList(QDir::Files))
        QVERIFY(QFile::copy(sample.filePath(name), work.filePath("card/" + name)));
    QVERIFY(writeFile(work.filePath("broken/empty.CAN"), {}));
    QVERIFY(writeFile(work.filePath("broken/noise.CAN"), QByteArray(5000, '\xa5')));
    QVERIFY(writeFile(work.filePath("broken/text.xml"), "<a><b"));

    initKoltResources();
    const DiagnosticsCapture output;
    Startup::loadSettings();
    QVERIFY(QDir().mkpath(QFile::decodeName(DataPaths::instance().dataPath())));
    QVERIFY(writeFile(InstalledProfile::path(), readFile(KOLT_PROFILE)));
    SettingsStore::instance().setText("LastPath", work.filePath("card").toUtf8());
    Startup::applyFontSize();
    Startup::applyStyleSheet(*qApp);

    using std::chrono::milliseconds;
    Watchdog watchdog(milliseconds(pause > 0 ? pause : 1 << 30), std::chrono::minutes(2));
    Monkey monkey(seed > 0 ? static_cast<unsigned>(seed) : 1U, folder.path(), watchdog);
    monkey.run(steps > 0 ? steps : 200);
    qInfo("%s; longest pause %lld ms", qPrintable(monkey.summary()), watchdog.longest());
    QStringList complaints = monkey.complaints();
    for (const Watchdog::Pause& one : watchdog.pauses())
        complaints << QString("%1 ms without events in %2").arg(one.milliseconds).arg(one.step);
    // Whatever was done, the recordings are as they were.
    for (const QString& name : sample.entryList(QDir::Files)) {
        if (readFile(sample.filePath(name)) != readFile(work.filePath("card/" + name)))
            complaints << "changed: " + name;
    }
    Library::Archive library;
    if (library.open(work.filePath("library"))) {
        const Library::CheckResult check = Library::checkArchive(library);
        qInfo("%d cycles in the library", check.cycles);
        for (const QString& name : check.damaged + check.missing + check.manifests)
            complaints << "damaged in the library: " + name;
    }
    QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join('\n')));
}

QTEST_MAIN(TestMonkey)
#include "tst_monkey.moc"
