#include "analysis/DataPage.h"
#include "analysis/DialogData.h"
#include "analysis/DialogDataTable.h"
#include "analysis/DialogDataView.h"
#include "app/DialogMain.h"
#include "app/JobQueue.h"
#include "app/MainActions.h"
#include "app/ProfileInstaller.h"
#include "app/ProjectSession.h"
#include "app/RecentFolders.h"
#include "app/dialogs/DialogPreferences.h"
#include "app/project/Project.h"
#include "app/settings/CommandLineOptions.h"
#include "app/settings/DataPaths.h"
#include "app/settings/SettingsStore.h"
#include "app/startup/Startup.h"
#include "resources/Resources.h"
#include "tests/support/ModalBoxes.h"
#include "tests/support/RecordBytes.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/TestFiles.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

using namespace KOLT;
using namespace KOLT::Test;

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void fromTheLastFolderToTheTable();
    void menusAndShortcuts();
    void commandTexts_data();
    void commandTexts();
    void confirmedSelectionReachesThePages();
    void unreadableProjectIsKeptAside();
    void variantsKeepTheSelectionAndTheData();
    void preferencesReachTheWindow();
    void projectIsKeptBetweenRuns();
    void savePromptsAnswers_data();
    void savePromptsAnswers();
    void saveAsAsksForAFile();
    void recentFolders();
    void droppedFilesAreLoaded();
    void secondSelectionDuringALoadIsQueued();
    void vanishedFilesAreTold();
    void unitAndVariantSelectors();
    void profileInstallation();
    void unreadableProfileIsTold();
    void firstCloseSavesAndEnds();
    void undoKeyReachesNoWidget();
    void styleSheetOfTheCommandLineIsApplied();
    void exportsNeedData();
    void emuDisplay();
    void brokenViewIsToldInTheStatusBar();

private:
    void open();
    QString folder(const QString& name, int cycles = 1);
    void trigger(Command command);
    void confirmSelection(const QString& parameter);
    QTreeWidgetItem* cycleItem(int index) const;
    void drop(const QStringList& paths);

    QAbstractItemModel* table() const
    {
        return m_window->findChild<DialogDataTable*>()->findChild<QTableView*>()->model();
    }

    QString setting(const char* key) const { return SettingsStore::instance().getText(key); }

    QTemporaryDir m_home;
    std::unique_ptr<QTemporaryDir> m_cards;
    std::unique_ptr<DialogMain> m_window;
    QList<int> m_exitCodes;
    std::unique_ptr<DiagnosticsCapture> m_output;
};

void TestMainWindow::initTestCase()
{
    // Nothing of the user's is touched.
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    initKoltResources();
    const DiagnosticsCapture output;
    DataPaths::instance();
    Startup::applyFontSize();
    Startup::applyStyleSheet(*qApp);
}

void TestMainWindow::init()
{
    m_output = std::make_unique<DiagnosticsCapture>();
    m_cards = std::make_unique<QTemporaryDir>();
    const QString data = QFile::decodeName(DataPaths::instance().dataPath());
    for (const char* name : {"/CurrentProject.xml", "/Profile.xml.bak", "/KOLT.ini"})
        QFile::remove(data + name);
    QVERIFY(writeFile(
        ProfileInstaller::installedPath(),
        "<KorvanProfile name='Test'><Variants><Variant name='915'/><Variant name='850'/></Variants>"
        "<UnitConversions><Unit unitMetric='l' unitImperial='gal' factor='2' offset='0'/>"
        "</UnitConversions><Device name='D'>"
        "<Parameter name='Speed' id='1' dataType='FLOAT' koltDataType='EngineSpeed'/>"
        "<Parameter name='Fuel' id='1' startByte='4' dataType='FLOAT' precision='1' unitMetric='l' "
        "unitImperial='gal' koltDataType='FuelA'/>"
        "<Parameter name='Only 850' id='2' dataType='FLOAT' variant='850'/>"
        "</Device></KorvanProfile>"));
    SettingsStore& settings = SettingsStore::instance();
    settings.setText("LastPath", m_cards->path().toUtf8());
    settings.setText("Profile", "915");
    settings.setInteger("Unit", 0);
    for (int i = 1; i <= RecentFolders::maxFolders; ++i)
        settings.setText("RecentFolder" + QByteArray::number(i), {});
    Startup::loadSettings();
    m_exitCodes.clear();
}

void TestMainWindow::cleanup()
{
    m_window.reset();
    m_output.reset();
}

/// Opens the window and waits until it has started up.
void TestMainWindow::open()
{
    m_window = std::make_unique<DialogMain>();
    m_window->setEndProcess([this](int exitCode) { m_exitCodes << exitCode; });
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QApplication::setActiveWindow(m_window.get());
    QTRY_VERIFY(!m_window->card().folder().isEmpty() && !m_window->isBusy());
}

/// A folder with cycles of two files, each with a sample a second.
QString TestMainWindow::folder(const QString& name, int cycles)
{
    const QString path = m_cards->filePath(name);
    QDir().mkpath(path);
    for (int cycle = 0; cycle < cycles; ++cycle) {
        for (int file = 0; file < 2; ++file) {
            RecordBytes bytes;
            if (file > 0)
                bytes.date(2026, 7, 28 + cycle, 12, 0, 10);
            for (int i = 0; i < 10; ++i)
                bytes.sample(1, file * 10 + i, floats(static_cast<float>(i), 1.5F));
            writeFile(QStringLiteral("%1/%2.CAN").arg(path).arg(10 * cycle + file), bytes.bytes());
        }
    }
    return path;
}

void TestMainWindow::trigger(Command command)
{
    for (QAction* action : m_window->actions()) {
        if (action->data().toInt() == static_cast<int>(command))
            action->trigger();
    }
}

/// Checks a parameter and confirms, as a user does.
void TestMainWindow::confirmSelection(const QString& parameter)
{
    for (auto* tree : m_window->findChildren<QTreeWidget*>()) {
        for (QTreeWidgetItem* item :
             tree->findItems(parameter, Qt::MatchExactly | Qt::MatchRecursive))
            item->setCheckState(0,
                                item->checkState(0) == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
    QCoreApplication::processEvents(); // the draft is shown when all of a device is checked
    for (auto* button : m_window->findChildren<QPushButton*>()) {
        if (button->text() == "Confirm Selection")
            QTest::mouseClick(button, Qt::LeftButton);
    }
}

QTreeWidgetItem* TestMainWindow::cycleItem(int index) const
{
    auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        if (tree->topLevelItem(i)->flags().testFlag(Qt::ItemIsSelectable) && index-- == 0)
            return tree->topLevelItem(i);
    }
    return nullptr;
}

void TestMainWindow::drop(const QStringList& paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls << QUrl::fromLocalFile(path);
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &event);
    QCoreApplication::processEvents(); // the drop itself only returns
}

void TestMainWindow::fromTheLastFolderToTheTable()
{
    const QString card = folder("card");
    SettingsStore::instance().setText("LastPath", card.toUtf8());
    open();
    QCOMPARE(m_window->windowTitle(), "KOLT " + card.section('/', -2));
    QCOMPARE(m_window->card().files().size(), 2U);
    auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
    QCOMPARE(tree->topLevelItemCount(), 2); // a day and its cycle
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(tree->topLevelItem(1)).center());
    QVERIFY(m_window->card().dataSet() == nullptr); // it waits for the hand to rest
    QTRY_VERIFY(m_window->card().dataSet() != nullptr && !m_window->isBusy());
    QCOMPARE(m_window->card().dataSet()->stopSeconds, 19.0);
    QCOMPARE(table()->rowCount(), 20);
    QCOMPARE(table()->columnCount(), 3); // a first start shows something
    const auto labels = m_window->findChildren<QLabel*>();
    QVERIFY(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->text().startsWith("Cycle 1: 2 file") && label->text().contains("20 samples");
    }));
}

void TestMainWindow::menusAndShortcuts()
{
    open();
    QStringList shown;
    for (const QAction* menu : m_window->menuBar()->actions()) {
        shown << menu->text();
        for (const QAction* action : menu->menu()->actions())
            shown << (action->isSeparator() ? "-" : action->data().toString());
    }
    QCOMPARE(shown.join(' '), "&File 2 - 6 &Extras 15 17 18 21 20 &Help 8 9");
    QStringList bar;
    for (const QAction* action : m_window->findChild<QToolBar*>()->actions())
        bar << action->data().toString();
    QCOMPARE(bar.mid(0, 3), (QStringList{"2", "17", "18"}));
    QTest::keyClick(m_window.get(), Qt::Key_F1);
    QVERIFY(m_output->text().contains("DialogMain::slotMenu id 10\n"));
    QTRY_VERIFY(QApplication::activeWindow() != nullptr);
    QApplication::setActiveWindow(m_window.get());
    ModalBoxes boxes;
    boxes.answer({});
    QTest::keyClick(m_window.get(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(boxes.seen(), QStringList{"Open SD Card"});
}

void TestMainWindow::commandTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<QString>("tips"); // tool tip, status tip

    const auto row = [](int id, const char* text, const char* shortcut, const char* tips) {
        QTest::addRow("%d", id) << QString(text) << QString(shortcut) << QString(tips);
    };
    row(0, "&New Project", "Ctrl+N", "Create new Project|Create new Project");
    row(1, "&Open Project", "Ctrl+O", "Open Project|Open Project File");
    row(2, "&Open Data Folder", "Ctrl+C", "Open Data Folder|Open Data Folder");
    row(4, "&Save Project", "Ctrl+S", "Save Project|Save Project File");
    row(5, "&Save Project as", "", "Save Project as|Save Project File as");
    row(6, "&Quit", "Ctrl+Q", "Quit Application|Quit Application");
    row(8, "About", "", "Show License Information|Show License Information");
    row(9, "Profile", "", "Show Profile Information|Show Profile Information");
    row(10, "Help", "F1", "Help Window|Help Window");
    row(15, "Preferences", "", "Open Preferences Dialog|Open Preferences Dialog");
    row(17, "Export Google KML File", "",
        "Export Google Earth KML File|Export Google Earth KML File");
    row(18, "Export CSV File", "", "Export CSV File|Export CSV File");
}

void TestMainWindow::commandTexts()
{
    m_window = std::make_unique<DialogMain>();
    const auto actions = m_window->actions();
    const auto found = std::ranges::find_if(actions, [](const QAction* action) {
        return action->data().toString() == QTest::currentDataTag();
    });
    QVERIFY(found != actions.end());
    QTEST((*found)->text(), "text");
    QTEST((*found)->shortcut().toString(), "shortcut");
    QTEST((*found)->toolTip() + '|' + (*found)->statusTip(), "tips");
}

void TestMainWindow::confirmedSelectionReachesThePages()
{
    SettingsStore::instance().setText("LastPath", folder("card").toUtf8());
    open();
    m_window->findChild<QTreeWidget*>("cyclesTree")->setCurrentItem(cycleItem(0));
    QTRY_VERIFY(m_window->card().dataSet() != nullptr && !m_window->isBusy());
    auto* const model = table();
    QCOMPARE(model->columnCount(), 3);
    confirmSelection("Fuel");
    QCOMPARE(model->columnCount(), 2);
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), "Speed");
}

void TestMainWindow::unreadableProjectIsKeptAside()
{
    const QString path =
        QFile::decodeName(DataPaths::instance().dataPath()) + "/CurrentProject.xml";
    QVERIFY(writeFile(path, "<KoltProject><Par"));
    ModalBoxes boxes;
    boxes.answer("OK");
    open();
    QVERIFY(boxes.seen().value(0).contains(path + ".broken"));
    QCOMPARE(readFile(path + ".broken"), "<KoltProject><Par");
    QVERIFY(!m_window->profile().selectedParameters().empty());
    QVERIFY(QFile::remove(path + ".broken"));

    // Without a profile nothing is selected, and what is in the file is not overwritten by that.
    const QByteArray project = "<KoltProject><Parameters><Parameter name=\"Speed\"/></Parameters>"
                               "</KoltProject>";
    QVERIFY(writeFile(path, project));
    QVERIFY(writeFile(ProfileInstaller::installedPath(), "broken"));
    boxes.answer("OK");
    open();
    QTRY_VERIFY(boxes.isDone());
    boxes.answer("OK");
    trigger(Command::SaveProject);
    QVERIFY(boxes.isDone());
    trigger(Command::Quit);
    QCOMPARE(readFile(path), project);
}

void TestMainWindow::variantsKeepTheSelectionAndTheData()
{
    const QString card = folder("card");
    SettingsStore::instance().setText("LastPath", card.toUtf8());
    SettingsStore::instance().setText("Profile", "850");
    open();
    m_window->findChild<QTreeWidget*>("cyclesTree")->setCurrentItem(cycleItem(0));
    QTRY_VERIFY(m_window->card().dataSet() != nullptr && !m_window->isBusy());
    const auto selected = [&] { return m_window->profile().selectedParameters().size(); };
    QCOMPARE(selected(), 3U);
    QVERIFY(QDir(card).removeRecursively()); // the card is pulled out
    auto* const selector = m_window->findChild<QComboBox*>("profileSelector");
    selector->setFocus();
    QTest::keyClick(selector, Qt::Key_Up);
    QCOMPARE(m_window->profile().activeVariant(), "915");
    QCOMPARE(selected(), 2U);
    QCOMPARE(table()->rowCount(),
             20); // the data are still there
    QTest::keyClick(selector, Qt::Key_Down);
    QCOMPARE(selected(), 3U); // and so is what only this variant has
}

void TestMainWindow::preferencesReachTheWindow()
{
    open();
    trigger(Command::Preferences);
    auto* const dialog = m_window->findChild<DialogPreferences*>();
    QVERIFY(dialog->isVisible());
    dialog->findChildren<QComboBox*>().at(1)->setCurrentIndex(1);
    dialog->findChild<QSpinBox*>()->setValue(19);
    auto* const apply = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Apply);
    QTest::mouseClick(apply, Qt::LeftButton);
    QCOMPARE(m_window->profile().unitSystem(), UnitSystem::Imperial);
    QCOMPARE(m_window->findChild<QComboBox*>("unitSelector")->currentIndex(), 1);
    QCOMPARE(m_window->findChild<QTreeWidget*>("cyclesTree")->font().pixelSize(), 19);

    const QString file = m_cards->filePath("new.xml");
    QVERIFY(writeFile(file, "<KorvanProfile><Device name='E'><Parameter name='New' id='1'/>"
                            "</Device></KorvanProfile>"));
    ModalBoxes boxes;
    boxes.answer(file);
    boxes.answer("OK"); // installed
    for (auto* button : dialog->findChildren<QPushButton*>()) {
        if (button->text() == "Choose...")
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QTest::mouseClick(apply, Qt::LeftButton);
    QVERIFY(boxes.isDone());
    QCOMPARE(m_window->profile().parameters().front().name, "New");
    dialog->findChild<QSpinBox*>()->setValue(Startup::defaultFontPixels);
    QTest::mouseClick(apply, Qt::LeftButton);
}

void TestMainWindow::projectIsKeptBetweenRuns()
{
    open();
    QVERIFY(!m_window->project().isModified());
    confirmSelection("Fuel");
    QVERIFY(m_window->project().isModified());
    QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!m_window->project().isModified());
    open();
    QTRY_COMPARE(m_window->profile().selectedParameters().size(), 1U);
    QCOMPARE(m_window->profile().selectedParameters().front()->name, "Speed");

    // Saved elsewhere, and the settings read afresh: the next start still comes back to it.
    ModalBoxes boxes;
    boxes.answer(m_cards->filePath("mine.xml"));
    trigger(Command::SaveProjectAs);
    confirmSelection("Fuel");
    m_window->close();
    QCOMPARE(m_exitCodes, QList<int>{0});
    QVERIFY(readFile(m_cards->filePath("mine.xml")).contains("Fuel"));
    QVERIFY(readFile(SettingsStore::instance().fileName()).contains("mine.xml"));
    open();
    QTRY_COMPARE(m_window->profile().selectedParameters().size(), 2U);
}

void TestMainWindow::savePromptsAnswers_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("isSaved");
    QTest::addColumn<bool>("goesOn");

    for (const Command command : {Command::NewProject, Command::OpenProject}) {
        const int id = static_cast<int>(command);
        const auto row = [&](const char* text, bool isSaved, bool goesOn) {
            QTest::addRow("%d %s", id, text) << id << QString(text) << isSaved << goesOn;
        };
        row("Yes", true, true);
        row("No", false, true);
        row("Cancel", false, false);
    }
}

void TestMainWindow::savePromptsAnswers()
{
    QFETCH(int, command);
    QFETCH(QString, answer);
    QFETCH(bool, isSaved);
    QFETCH(bool, goesOn);
    open();
    confirmSelection("Fuel"); // Speed stays
    const QString path = m_window->project().path();
    const QString other = m_cards->filePath("other.xml");
    QVERIFY(writeFile(other, "<KoltProject/>"));
    ModalBoxes boxes;
    boxes.answer(answer);
    if (goesOn && command == static_cast<int>(Command::OpenProject))
        boxes.answer(other);
    trigger(static_cast<Command>(command));
    QVERIFY(boxes.isDone());
    QCOMPARE(boxes.seen().front(),
             "KOLT Warning|Current Project not saved !\nSave it now ?|Yes, No, Cancel");
    QCOMPARE(QFile::exists(path), isSaved);
    QCOMPARE(m_window->profile().selectedParameters().empty(), goesOn);
    QCOMPARE(m_window->project().isModified(), !goesOn);
    const bool isNew = command == static_cast<int>(Command::NewProject);
    QCOMPARE(m_window->project().path(), !goesOn ? path : isNew ? QString() : other);
}

void TestMainWindow::saveAsAsksForAFile()
{
    open();
    const QString file = m_cards->filePath("mine");
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
}

void TestMainWindow::recentFolders()
{
    const QString first = folder("first");
    const QString second = folder("second");
    open();
    for (const QString& path : {first, second}) {
        drop({path});
        QTRY_COMPARE(m_window->card().folder(), path);
    }
    QMenu* const menu = m_window->menuBar()->actions().front()->menu();
    const auto offered = [&] {
        QStringList folders;
        for (const QAction* action : menu->actions()) {
            if (action->data().toString().startsWith('/'))
                folders << action->data().toString();
        }
        return folders;
    };
    QCOMPARE(offered(), (QStringList{second, first}));
    const auto choose = [&](const QString& path) {
        for (QAction* action : menu->actions()) {
            if (action->data().toString() == path)
                action->trigger();
        }
    };
    choose(first);
    QCOMPARE(m_window->card().folder(), first);
    QCOMPARE(offered(), (QStringList{first, second}));
    QCOMPARE(setting("LastPath"), first);
    QVERIFY(QDir(second).removeRecursively());
    ModalBoxes boxes;
    boxes.answer("OK");
    choose(second);
    QVERIFY2(boxes.seen().value(0).contains(second), qPrintable(boxes.seen().join('/')));
    QCOMPARE(offered(), QStringList{first});
    QCOMPARE(m_window->card().folder(), first);
    for (int i = 0; i < 12; ++i)
        drop({folder(QString::number(i))});
    QCOMPARE(RecentFolders().folders().size(), RecentFolders::maxFolders);
}

void TestMainWindow::droppedFilesAreLoaded()
{
    const QString card = folder("card");
    open();
    drop({card + "/0.CAN"});
    QTRY_VERIFY(m_window->card().dataSet() != nullptr);
    QCOMPARE(m_window->card().dataSet()->messages.sampleCount(), 10U);
    QVERIFY(writeFile(card + "/notes.txt", "x"));
    ModalBoxes boxes;
    boxes.answer("OK");
    drop({card + "/notes.txt"});
    QVERIFY(boxes.seen().value(0).contains("notes.txt"));
}

void TestMainWindow::secondSelectionDuringALoadIsQueued()
{
    JobQueue jobs;
    QStringList log;
    jobs.run([&] {
        log << "begin";
        jobs.runLatest(JobQueue::Kind::Choice, [&] { log << "first choice"; });
        jobs.run([&] { log << "command"; });
        jobs.runLatest(JobQueue::Kind::Choice, [&] { log << "last choice"; });
        QVERIFY(jobs.isBusy());
        log << "end";
    });
    QCOMPARE(log, (QStringList{"begin", "end", "command", "last choice"}));
    QVERIFY(!jobs.isBusy());

    const QString card = folder("card", 2);
    SettingsStore::instance().setText("LastPath", card.toUtf8());
    open();
    // Asks for the other cycle from within the events that are handled while the first is loaded.
    bool isAsked = false;
    QTimer during;
    connect(&during, &QTimer::timeout, this, [&] {
        if (!m_window->isBusy() || isAsked)
            return;
        isAsked = true;
        QMetaObject::invokeMethod(m_window.get(), "slotLoadCycle", Q_ARG(unsigned int, 2U),
                                  Q_ARG(int, -1));
    });
    during.start(0);
    m_window->findChild<QTreeWidget*>("cyclesTree")->setCurrentItem(cycleItem(0));
    QTRY_VERIFY(isAsked && !m_window->isBusy());
    QCOMPARE(m_window->card().dataSet()->dateTime.date(), QDate(2026, 7, 29));
}

void TestMainWindow::vanishedFilesAreTold()
{
    const QString card = folder("card");
    SettingsStore::instance().setText("LastPath", card.toUtf8());
    open();
    QVERIFY(QFile::remove(card + "/1.CAN"));
    ModalBoxes boxes;
    boxes.answer("OK");
    m_window->findChild<QTreeWidget*>("cyclesTree")->setCurrentItem(cycleItem(0));
    QTRY_VERIFY(boxes.isDone() && !m_window->isBusy());
    QVERIFY(boxes.seen().front().startsWith("KOLT Warning|"));
    QVERIFY(boxes.seen().front().contains("1.CAN"));
    QCOMPARE(m_window->card().dataSet()->messages.sampleCount(), 10U); // the rest is there
}

void TestMainWindow::unitAndVariantSelectors()
{
    const QString card = folder("card");
    SettingsStore::instance().setText("LastPath", card.toUtf8());
    open();
    m_window->findChild<QTreeWidget*>("cyclesTree")->setCurrentItem(cycleItem(0));
    QTRY_VERIFY(m_window->card().dataSet() != nullptr && !m_window->isBusy());
    auto* const pages = m_window->findChild<DialogData*>();
    pages->setTime(7.0);
    const auto* const model = table();
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), "Fuel\n[l]");
    const auto pick = [&](const char* selector, Qt::Key key) {
        auto* const box = m_window->findChild<QComboBox*>(selector);
        box->setFocus();
        QTest::keyClick(box, key);
    };
    pick("unitSelector", Qt::Key_Down);
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), "Fuel\n[gal]");
    QCOMPARE(model->index(3, 1).data().toString(), "3.0");
    QCOMPARE(setting("Unit"), "1");
    pick("profileSelector", Qt::Key_Down);
    QVERIFY(m_output->text().contains("slotProfileChanged <850>\n"));
    QCOMPARE(setting("Profile"), "850");
    QCOMPARE(m_window->profile().parameters().size(), 3U);
    QCOMPARE(m_window->profile().selectedParameters().size(), 2U); // kept
    QCOMPARE(m_window->profile().unitSystem(), UnitSystem::Imperial);
    QCOMPARE(pages->time(), 7.0);
    QCOMPARE(model->rowCount(), 20);
}

void TestMainWindow::profileInstallation()
{
    using ProfileInstaller::Result;
    const QByteArray before = readFile(ProfileInstaller::installedPath());
    const QByteArray profile = "<KorvanProfile><Device name='E'><Parameter name='New' id='1'/>"
                               "</Device></KorvanProfile>";
    const QString file = m_cards->filePath("new.xml");
    for (const QByteArray& bad : {QByteArray("no xml"), QByteArray("<KoltProject/>"),
                                  QByteArray("<KorvanProfile/>"), profile.left(40)}) {
        QVERIFY(writeFile(file, bad));
        QCOMPARE(ProfileInstaller::install(file), Result::NotAProfile);
    }
    QCOMPARE(ProfileInstaller::install("/no/such.xml"), Result::NotAProfile);
    QCOMPARE(readFile(ProfileInstaller::installedPath()), before);
    QVERIFY(writeFile(file, profile));
    QCOMPARE(ProfileInstaller::install(file), Result::Installed);
    QCOMPARE(readFile(ProfileInstaller::installedPath()), profile);
    QCOMPARE(readFile(ProfileInstaller::installedPath() + ".bak"), before);
    QCOMPARE(ProfileInstaller::install(ProfileInstaller::installedPath()), Result::InUse);

    open();
    QCOMPARE(m_window->profile().parameters().front().name, "New");
    ModalBoxes boxes;
    boxes.answer(m_cards->filePath("new.xml"));
    boxes.answer("OK");
    QVERIFY(writeFile(file, "<X/>"));
    trigger(Command::ProfileInfo);
    for (auto* button : m_window->findChildren<QPushButton*>()) {
        if (button->text() == "Install Profile...")
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QVERIFY(boxes.isDone());
    QVERIFY(boxes.seen().back().startsWith("KOLT Warning|Not a valid KOLT profile !"));
}

void TestMainWindow::unreadableProfileIsTold()
{
    QVERIFY(writeFile(ProfileInstaller::installedPath(), "broken"));
    ModalBoxes boxes;
    boxes.answer("OK");
    open();
    QTRY_COMPARE(boxes.seen().size(), 1);
    QVERIFY(boxes.seen().front().contains(ProfileInstaller::installedPath()));
}

void TestMainWindow::firstCloseSavesAndEnds()
{
    open();
    confirmSelection("Fuel");
    trigger(Command::Quit);
    QCOMPARE(m_exitCodes, QList<int>{0});
    QVERIFY(readFile(m_window->project().path()).contains("\"Speed\""));
    m_window->close();
    QCOMPARE(m_exitCodes.size(), 1);
}

void TestMainWindow::undoKeyReachesNoWidget()
{
    open();
    QCOMPARE(m_window->size(), QSize(1000, 800));
    qApp->installEventFilter(m_window.get());
    QLineEdit edit;
    edit.show();
    QTest::keyClicks(&edit, "z");
    QCOMPARE(edit.text(), "z");
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(edit.text(), "z");
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(edit.selectedText(), "z");
    qApp->removeEventFilter(m_window.get());
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit.text(), ""); // without the filter the field undoes
}

void TestMainWindow::styleSheetOfTheCommandLineIsApplied()
{
    const QString file = m_cards->filePath("my.css");
    const QByteArray path = QFile::encodeName(file);
    QVERIFY(writeFile(file, "Variables{w:7px;}QLabel{margin:$(w);} // end"));
    const char* const arguments[] = {"kolt", "-s", path.constData()};
    Startup::parseCommandLine(3, arguments);
    Startup::applyStyleSheet(*qApp);
    QCOMPARE(qApp->styleSheet(), "QLabel{margin:7px;} ");

    open(); // what changes in the file is applied at once
    QFile changed(file);
    QVERIFY(changed.open(QIODevice::ReadWrite));
    QVERIFY(changed.write("QLabel{margin:3px;}") > 0 && changed.resize(19));
    QVERIFY(changed.setFileTime(QDateTime::currentDateTime().addSecs(60),
                                QFileDevice::FileModificationTime));
    changed.close();
    QTRY_COMPARE(qApp->styleSheet(), "QLabel{margin:3px;}");
    QVERIFY(m_output->text().contains("Slot Load Style <" + file + ">\n"));

    const char* const missing[] = {"kolt", "-s", "/no/such.css"};
    Startup::parseCommandLine(3, missing);
    Startup::applyStyleSheet(*qApp);
    QCOMPARE(qApp->styleSheet(), "");
    const char* const none[] = {"kolt"};
    Startup::parseCommandLine(1, none);
}

void TestMainWindow::exportsNeedData()
{
    open();
    const auto action = [this](Command command) {
        const auto actions = m_window->actions();
        return *std::ranges::find_if(actions, [command](const QAction* a) {
            return a->data().toInt() == static_cast<int>(command);
        });
    };
    for (const Command command : {Command::ExportKml, Command::ExportCsv, Command::ExportGpx})
        QVERIFY(!action(command)->isEnabled());
    const QString card = folder("card");
    drop({card});
    QTRY_COMPARE(m_window->card().files().size(), 2U);
    QMetaObject::invokeMethod(m_window.get(), "slotLoadCycle", Q_ARG(unsigned, 1), Q_ARG(int, -1));
    QTRY_VERIFY(m_window->card().dataSet() != nullptr && !m_window->isBusy());

    ModalBoxes boxes;
    const QString path = m_cards->filePath("out.csv");
    boxes.answer(path);
    boxes.handle([this](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), "Export CSV File");
        // What is asked for meanwhile waits: the data set must stay.
        QMetaObject::invokeMethod(m_window.get(), "slotLoadCycle", Q_ARG(unsigned, 1),
                                  Q_ARG(int, -1));
        QVERIFY(m_window->isBusy() && m_window->card().dataSet() != nullptr);
        for (auto* button : dialog.findChildren<QPushButton*>()) {
            if (button->text() == "Export...")
                QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    action(Command::ExportCsv)->trigger();
    QVERIFY(boxes.isDone());
    QTRY_VERIFY(!m_window->isBusy());
    QCOMPARE(readFile(path).count('\n'), 1 + 191); // 19 s
    QCOMPARE(setting("CsvExportDir"), m_cards->path());
    // Without a position there is no path to export.
    for (const Command command : {Command::ExportKml, Command::ExportGpx}) {
        boxes.handle([](QDialog& dialog) {
            for (const auto* button : dialog.findChildren<QPushButton*>())
                QVERIFY(button->text() != "Export..." || !button->isEnabled());
            dialog.reject();
        });
        action(command)->trigger();
    }
    QVERIFY(boxes.isDone());
}

void TestMainWindow::emuDisplay()
{
    SettingsStore::instance().setText("LastPath", folder("card", 2).toUtf8());
    const char* const arguments[] = {"kolt", "-emu"};
    Startup::parseCommandLine(2, arguments);
    open();
    Startup::parseCommandLine(1, arguments);
    QVERIFY(m_window->findChild<QMenuBar*>() == nullptr);
    QVERIFY(!m_window->findChild<QToolBar*>()->isVisible());
    for (const auto* tree : m_window->findChildren<QTreeWidget*>())
        QVERIFY(!tree->isVisible());
    QTRY_VERIFY(m_window->card().dataSet() != nullptr);
    QCOMPARE(m_window->card().dataSet()->dateTime.date(), QDate(2026, 7, 29)); // the latest
    QTRY_VERIFY(!m_window->isBusy() && m_window->findChild<DialogDataView*>()->isVisible());
    QVERIFY(!m_window->findChild<QTabBar*>()->isVisible());
    const auto& map = m_window->findChild<DialogData*>()->page(DialogData::Page::Map);
    QVERIFY(!dynamic_cast<const QWidget&>(map).isVisible());
}

void TestMainWindow::brokenViewIsToldInTheStatusBar()
{
    open();
    const QString path = m_cards->filePath("panel.v");
    QVERIFY(writeFile(path, "<view width='9' height='9'><dial/></view>"));
    m_window->findChild<DialogDataView*>()->setViewFile(path);
    m_window->findChild<DialogData*>()->setCurrentPage(DialogData::Page::EmuView);
    QTRY_VERIFY(m_window->statusBar()->currentMessage().contains(path + ":1:29"));
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
