#include "app/ProjectBar.h"
#include "app/dialogs/DialogHelp.h"
#include "app/dialogs/DialogPreferences.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/support/Rows.h"

#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>

using namespace KOLT;
using namespace KOLT::Test;

/// Projects and profiles in the main window.
class TestMainProject : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:

    void initTestCase() { prepareOnce(); }

    void init()
    {
        QVERIFY(prepare());
        m_out = std::make_unique<QTemporaryDir>(); // not the open folder, which must not change
    }

    void cleanup()
    {
        m_window.reset();
        m_output.reset();
    }

    void unreadableProjectIsKeptAside();
    void projectIsKeptBetweenRuns();
    void savePromptsAnswers_data();
    void savePromptsAnswers();
    void saveAsAsksForAFile();
    void otherFilesAreNotOpened();
    void selectionOutlivesTheProcess();
    void otherVariantsAreRemembered();
    void argumentsAreOpened_data();
    void argumentsAreOpened();
    void brokenSettingsAreTold();
    void profileInstallation();
    void brokenProfileIsReplaced();

private:
    std::unique_ptr<QTemporaryDir> m_out;
};

void TestMainProject::unreadableProjectIsKeptAside()
{
    const QString path =
        QFile::decodeName(DataPaths::instance().dataPath()) + "/CurrentProject.xml";
    QVERIFY(writeFile(path, "<KoltProject><Par"));
    ModalBoxes boxes;
    boxes.answer("OK");
    QVERIFY(open());
    QVERIFY(boxes.seen().value(0).contains(path + ".broken"));
    QCOMPARE(readFile(path + ".broken"), "<KoltProject><Par");
    QVERIFY(!profile().selectedParameters().empty());
    QVERIFY(QFile::remove(path + ".broken"));

    // Without a profile nothing is selected, which must not overwrite the project file.
    const QByteArray project = "<KoltProject><Parameters><Parameter name=\"Speed\"/></Parameters>"
                               "</KoltProject>";
    QVERIFY(writeFile(path, project));
    QVERIFY(writeFile(InstalledProfile::path(), "broken"));
    boxes.answer("Cancel");
    QVERIFY(open());
    QTRY_COMPARE(boxes.seen().size(), 2);
    QVERIFY(boxes.seen().back().contains(InstalledProfile::path()));
    boxes.answer("OK");
    trigger(Command::SaveProject);
    QVERIFY(boxes.isDone());
    trigger(Command::Quit);
    QCOMPARE(m_exitCodes, QList<int>{0});
    QCOMPARE(readFile(path), project);
}

void TestMainProject::projectIsKeptBetweenRuns()
{
    QVERIFY(open());
    QVERIFY(!m_window->project().isModified());
    confirmSelection("Fuel");
    QVERIFY(m_window->project().isModified());
    const auto* const bar = m_window->findChild<ProjectBar*>();
    QCOMPARE(bar->text(), "CurrentProject *");
    QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!m_window->project().isModified());
    QCOMPARE(bar->text(), "CurrentProject");
    QVERIFY(m_window->statusBar()->currentMessage().endsWith("1 parameter(s) to " +
                                                             m_window->project().path()));
    const auto commands = bar->findChild<QToolButton*>("projectButton")->menu()->actions();
    QCOMPARE(commands.size(), 4);
    QCOMPARE(commands.front(), action(Command::NewProject));
    QTest::mouseClick(bar->findChild<QToolButton*>("helpButton"), Qt::LeftButton);
    QVERIFY(m_window->findChild<DialogHelp*>()->isVisible());
    QVERIFY(open());
    QTRY_COMPARE(profile().selectedParameters().size(), 1U);
    QCOMPARE(profile().selectedParameters().front()->name, "Speed");

    // The project is saved elsewhere and the settings are read again: the next start still restores
    // it.
    ModalBoxes boxes;
    boxes.answer(m_out->filePath("mine.xml"));
    trigger(Command::SaveProjectAs);
    confirmSelection("Fuel");
    m_window->close();
    trigger(Command::Quit); // must not end the process again
    QCOMPARE(m_exitCodes, QList<int>{0});
    QVERIFY(readFile(m_out->filePath("mine.xml")).contains("Fuel"));
    QVERIFY(readFile(SettingsStore::instance().fileName()).contains("mine.xml"));
    QVERIFY(open());
    QTRY_COMPARE(profile().selectedParameters().size(), 2U);
}

void TestMainProject::savePromptsAnswers_data()
{
    const Rows<Command, QString, bool, bool> row; // command, answer, isSaved, goesOn
    row("new, yes", Command::NewProject, "Yes", true, true);
    row("new, no", Command::NewProject, "No", false, true);
    row("new, cancel", Command::NewProject, "Cancel", false, false);
    row("open, yes", Command::OpenProject, "Yes", true, true);
    row("open, no", Command::OpenProject, "No", false, true);
    row("open, cancel", Command::OpenProject, "Cancel", false, false);
}

void TestMainProject::savePromptsAnswers()
{
    const auto [command, answer, isSaved, goesOn] = fetchRow<Command, QString, bool, bool>();
    QVERIFY(open());
    const QString path = m_out->filePath("mine.xml");
    ModalBoxes boxes;
    boxes.answer(path);
    trigger(Command::SaveProjectAs);
    confirmSelection("Fuel"); // Speed stays
    const QString other = m_cards->filePath("other.xml");
    QVERIFY(writeFile(other, "<KoltProject/>"));
    boxes.answer(answer);
    if (goesOn && command == Command::OpenProject)
        boxes.answer(other);
    trigger(command);
    QVERIFY(boxes.isDone());
    QCOMPARE(boxes.seen().value(1),
             "KOLT Warning|Current Project not saved !\nSave it now ?|Yes, No, Cancel");
    QCOMPARE(!readFile(path).contains("Fuel"), isSaved);
    QCOMPARE(profile().selectedParameters().empty(), goesOn);
    QCOMPARE(m_window->project().isModified(), !goesOn);
    QCOMPARE(m_window->project().path(), !goesOn                          ? path
                                         : command == Command::NewProject ? QString()
                                                                          : other);
}

void TestMainProject::saveAsAsksForAFile()
{
    QVERIFY(open());
    const QString file = m_out->filePath("mine");
    ModalBoxes boxes;
    boxes.answer(file);
    trigger(Command::SaveProjectAs);
    QVERIFY(QFile::exists(file + ".xml"));
    QCOMPARE(m_window->project().path(), file + ".xml");
    QCOMPARE(setting("LastProjectPath"), file + ".xml");
    boxes.answer("/proc/no/such.v1");
    boxes.answer("OK");
    confirmSelection("Fuel");
    trigger(Command::SaveProjectAs);
    QVERIFY(boxes.seen().back().contains("/proc/no/such.v1"));
    QVERIFY(m_window->project().isModified());

    boxes.answer("No");
    trigger(Command::NewProject);
    boxes.answer(m_out->filePath("new")); // a new project has no file yet
    trigger(Command::SaveProject);
    QVERIFY(boxes.isDone());
    QVERIFY(QFile::exists(m_out->filePath("new.xml")));
}

void TestMainProject::otherFilesAreNotOpened()
{
    QVERIFY(open());
    const QString mine = m_out->filePath("mine.xml");
    QVERIFY(writeFile(mine, "<KoltProject><Parameters><Parameter name='Fuel'/></Parameters>"
                            "<CanProperties><Property id='k' value='v'/></CanProperties>"
                            "</KoltProject>"));
    ModalBoxes boxes;
    boxes.answer(mine);
    trigger(Command::OpenProject);
    const QString bad = m_cards->filePath("bad.xml");
    for (const char* content : {"<KorvanProfile/>", "<KoltProject><Par", ""}) {
        QVERIFY(writeFile(bad, content));
        boxes.answer(bad);
        boxes.answer("OK");
        trigger(Command::OpenProject);
        QVERIFY(boxes.isDone() && boxes.seen().back().contains(bad));
        QCOMPARE(m_window->project().path(), mine);
        QCOMPARE(profile().selectedParameters().size(), 1U);
    }
    QCOMPARE(setting("LastProjectPath"), mine);
    trigger(Command::SaveProject);
    QVERIFY(readFile(mine).contains("id=\"k\""));
    QCOMPARE(readFile(bad), "");
}

void TestMainProject::selectionOutlivesTheProcess()
{
    const QString current =
        QFile::decodeName(DataPaths::instance().dataPath()) + "/CurrentProject.xml";
    QVERIFY(open());
    confirmSelection("Fuel");
    QTRY_VERIFY(readFile(current).contains("Speed") &&
                !readFile(current).contains("Fuel")); // saved in case the process is killed
    QVERIFY(m_window->project().isModified());        // but not saved by the user
    // Another process wrote the file; without changes this one must not overwrite it.
    QVERIFY(writeFile(current, "<KoltProject/>"));
    m_window->close();
    QCOMPARE(readFile(current), "<KoltProject/>");

    QVERIFY(open());
    confirmSelection("Speed");
    ModalBoxes boxes;
    boxes.answer("No");
    trigger(Command::NewProject);
    m_window->close();
    QVERIFY(readFile(current).contains("<Parameters/>"));
}

void TestMainProject::otherVariantsAreRemembered()
{
    SettingsStore::instance().setText("Profile", "850");
    QVERIFY(open());
    confirmSelection("Fuel"); // in addition to the other two
    const auto isSelected = [this] {
        return std::ranges::count(profile().selectedParameters(), "Only 850",
                                  &ProfileParameter::name) == 1;
    };
    QVERIFY(isSelected());
    SettingsStore::instance().setText("Profile", "915");
    m_window->close();
    QVERIFY(open());
    confirmSelection("Fuel"); // writes a project file with this variant's parameters
    m_window->close();
    QVERIFY(open());
    QVERIFY(!isSelected());
    auto* const selector = m_window->findChild<QComboBox*>("profileSelector");
    selector->setCurrentText("850");
    emit selector->activated(selector->currentIndex());
    QTRY_VERIFY(isSelected());
}

void TestMainProject::argumentsAreOpened_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("parameter");
    QTest::addRow("a folder") << QStringList{"FOLDER"} << "other"
                              << "Speed";
    QTest::addRow("a project") << QStringList{"PROJECT"} << "last"
                               << "Fuel";
    QTest::addRow("the first of each, among others")
        << QStringList{"-x", "", "/no/such", "XML", "PROJECT", "FOLDER/", "LAST"} << "other"
        << "Fuel";
    QTest::addRow("the value of an option is none") << QStringList{"-s", "FOLDER"} << "last"
                                                    << "Speed";
    QTest::addRow("neither folder nor project") << QStringList{"RECORD", "XML"} << "last"
                                                << "Speed";
}

void TestMainProject::argumentsAreOpened()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, folder);
    QFETCH(const QString, parameter);
    const QByteArray project = "<KoltProject><Parameters><Parameter name=\"%1\"/></Parameters>"
                               "</KoltProject>";
    const QString own = m_out->filePath("own.xml");
    QVERIFY(writeFile(own, QByteArray(project).replace("%1", "Fuel")));
    QVERIFY(writeFile(m_out->filePath("other.xml"), "<Other/>"));
    QVERIFY(writeFile(QFile::decodeName(DataPaths::instance().dataPath()) + "/CurrentProject.xml",
                      QByteArray(project).replace("%1", "Speed")));
    const QString last = this->folder("last");
    const QString other = this->folder("other");
    SettingsStore::instance().setText("LastPath", last.toUtf8());

    const auto parse = [](const QStringList& list) {
        std::vector<QByteArray> bytes{"kolt"};
        for (const QString& argument : list)
            bytes.push_back(QFile::encodeName(argument));
        std::vector<const char*> pointers(bytes.begin(), bytes.end());
        Startup::parseCommandLine(static_cast<int>(pointers.size()), pointers.data());
    };
    QStringList given = arguments;
    given.replaceInStrings("FOLDER", other)
        .replaceInStrings("LAST", last)
        .replaceInStrings("PROJECT", own)
        .replaceInStrings("XML", m_out->filePath("other.xml"))
        .replaceInStrings("RECORD", last + "/0.CAN");
    parse(given);
    const auto reset = qScopeGuard([&] { parse({}); });
    for (const QString& argument : given) {
        if (!given.contains("-s"))
            QVERIFY(m_output->text().contains("unknown option " + argument + "\n"));
    }

    QVERIFY(open());
    QVERIFY(waitFor([&] { return !profile().selectedParameters().empty(); }));
    QCOMPARE(m_window->card().folder(), m_cards->filePath(folder));
    QCOMPARE(profile().selectedParameters().size(), std::size_t(1));
    QCOMPARE(profile().selectedParameters().front()->name, parameter);
    QCOMPARE(m_window->windowTitle().section('/', -1), folder);
    if (parameter == "Fuel")
        QCOMPARE(m_window->project().path(), own);
}

void TestMainProject::brokenSettingsAreTold()
{
    const QString path = QFile::decodeName(SettingsStore::instance().fileName());
    QVERIFY(writeFile(path, "<KOLT><Prop"));
    SettingsStore::instance().load();
    ModalBoxes boxes;
    boxes.answer("OK");
    QVERIFY(open());
    QTRY_VERIFY(boxes.seen().value(0).contains(path + ".broken"));
    QVERIFY(QFile::remove(path + ".broken"));
}

void TestMainProject::profileInstallation()
{
    using InstalledProfile::Result;
    const QByteArray before = readFile(InstalledProfile::path());
    const QByteArray profile = newProfile;
    const QString file = m_cards->filePath("new.xml");
    for (const QByteArray& bad : {QByteArray("no xml"), QByteArray("<KoltProject/>"),
                                  QByteArray("<KorvanProfile/>"), profile.left(40)}) {
        QVERIFY(writeFile(file, bad));
        QCOMPARE(InstalledProfile::replaceWith(file), Result::NotAProfile);
    }
    QCOMPARE(InstalledProfile::replaceWith("/no/such.xml"), Result::NotAProfile);
    QCOMPARE(readFile(InstalledProfile::path()), before);
    QVERIFY(writeFile(file, profile));
    QCOMPARE(InstalledProfile::replaceWith(file), Result::Installed);
    QCOMPARE(readFile(InstalledProfile::path()), profile);
    QCOMPARE(readFile(InstalledProfile::path() + ".bak"), before);
    QCOMPARE(InstalledProfile::replaceWith(InstalledProfile::path()), Result::InUse);

    QVERIFY(open());
    QCOMPARE(m_window->profile().parameters().front().name, "New");
    ModalBoxes boxes;
    boxes.answer(m_cards->filePath("new.xml"));
    boxes.answer("OK");
    QVERIFY(writeFile(file, "<X/>"));
    trigger(Command::ProfileInfo);
    click(*m_window, "Install Profile...");
    QVERIFY(boxes.isDone());
    QVERIFY(boxes.seen().back().startsWith("KOLT Warning|Not a valid KOLT profile !"));

    auto* const preferences = m_window->findChild<DialogPreferences*>();
    const auto* const mistake = preferences->findChild<QLabel*>("mistake");
    trigger(Command::Preferences);
    QVERIFY(!mistake->isVisible());
    boxes.answer(file);
    click(*preferences, "Choose...");
    boxes.answer("OK");
    click(*preferences, "OK");
    QVERIFY(boxes.isDone());
    QVERIFY(preferences->isVisible() && mistake->isVisible());
    click(*preferences, "Cancel");
    trigger(Command::Preferences);
    QVERIFY(!mistake->isVisible());
}

void TestMainProject::brokenProfileIsReplaced()
{
    QVERIFY(writeFile(InstalledProfile::path(), "broken"));
    ModalBoxes boxes;
    boxes.answer("Use the shipped profile");
    QVERIFY(open());
    QTRY_VERIFY(boxes.isDone());
    QTRY_VERIFY(!profile().selectedParameters().empty());
    QCOMPARE(readFile(InstalledProfile::path() + ".bak"), "broken");
    QCOMPARE(readFile(InstalledProfile::path()), readFile(DataPaths::shippedProfileFile()));
}

QTEST_MAIN(TestMainProject)
#include "tst_mainproject.moc"
