#include "app/JobQueue.h"
#include "app/dialogs/ClockOffsetBox.h"
#include "app/dialogs/DialogPreferences.h"
#include "app/dialogs/DialogProfileChanges.h"
#include "app/dialogs/DialogProfileInfo.h"
#include "graph/ui/DialogDataGraph.h"
#include "graph/ui/EpisodeCard.h"
#include "graph/ui/WidgetGraphBase.h"
#include "instruments/ui/DialogDataView.h"
#include "record/CaseFile.h"
#include "record/ui/DialogCard.h"
#include "tests/app/MainWindowFixture.h"
#include "ui/DataPage.h"
#include "ui/NoticeBar.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

using namespace KOLT;
using namespace KOLT::Test;

class TestMainWindow : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:

    void initTestCase() { prepareOnce(); }

    void init() { QVERIFY(prepare()); }

    void cleanup()
    {
        m_window.reset();
        m_output.reset();
    }

    void fromTheLastFolderToTheTable();
    void menusAndShortcuts();
    void preferencesReachTheWindow();
    void profileInstalledFromItsDialogIsRead();
    void statusBarKeepsItsText();
    void recentFolders();
    void droppedFilesAreLoaded();
    void secondSelectionDuringALoadIsQueued();
    void vanishedFilesAreTold();
    void pulledCardLeavesWhatIsShown();
    void unitAndVariantSelectors();
    void barOffersTheVariantThatFits();
    void clockOffsetMovesListsAndPages();
    void newerProfileIsOfferedOnce();
    void graphMovesTimeAndColumns();
    void findingIsShownInTheGraph();
    void caseFileIsWritten();
    void undoKeyReachesNoWidget();
    void styleSheetOfTheCommandLineIsApplied();
    void exportsNeedData();
    void emuDisplay();
    void brokenViewIsToldInTheStatusBar();

private:
    void drop(const QStringList& paths);
};

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
    QCoreApplication::processEvents(); // the drop is handled after its event
}

void TestMainWindow::fromTheLastFolderToTheTable()
{
    const QString card = folder("card");
    SettingsStore::instance().setText("LastPath", card.toUtf8());
    QVERIFY(open());
    QCOMPARE(m_window->windowTitle(), "KOLT " + card.section('/', -2));
    QCOMPARE(m_window->card().files().size(), 2U);
    auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
    QCOMPARE(tree->topLevelItemCount(), 2); // a day and its cycle
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(tree->topLevelItem(1)).center());
    QVERIFY(dataSet() == nullptr); // loading is delayed
    QTRY_VERIFY(dataSet() != nullptr && !m_window->isBusy());
    QCOMPARE(dataSet()->stopSeconds, 19.0);
    QCOMPARE(table()->rowCount(), 20);
    QCOMPARE(table()->columnCount(), 3); // the time and the default parameters
    confirmSelection("Fuel");
    QCOMPARE(table()->columnCount(), 2);
    QCOMPARE(table()->headerData(1, Qt::Horizontal).toString(), "Speed");
    const auto labels = m_window->findChildren<QLabel*>();
    QVERIFY(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->text().startsWith("Cycle 1: 2 file") &&
               label->text().contains("20 samples") && label->textFormat() == Qt::PlainText;
    }));
}

void TestMainWindow::menusAndShortcuts()
{
    QVERIFY(open());
    QStringList shown;
    for (const QAction* menu : m_window->menuBar()->actions()) {
        shown << menu->text();
        for (const QAction* action : menu->menu()->actions())
            shown << (action->isSeparator() ? "-" : action->data().toString());
    }
    QCOMPARE(shown.join(' '), "&File 2 - 6 &Extras 15 17 18 21 20 22 23 24 25 26 &Help 8 9");
    QStringList bar;
    for (const QAction* action : m_window->findChild<QToolBar*>()->actions())
        bar << action->data().toString();
    QCOMPARE(bar.mid(0, 3), (QStringList{"2", "17", "18"}));
    QStringList texts;
    for (const QAction* action : m_window->actions())
        texts << QStringList{action->data().toString(), action->text(),
                             action->shortcut().toString(), action->toolTip(), action->statusTip()}
                     .join('|');
    for (const char* expected :
         {"0|&New Project|Ctrl+N|Create new Project|Create new Project",
          "1|&Open Project|Ctrl+O|Open Project|Open Project File",
          "2|&Open Data Folder|Ctrl+C|Open Data Folder|Open Data Folder",
          "4|&Save Project|Ctrl+S|Save Project|Save Project File",
          "5|&Save Project as||Save Project as|Save Project File as",
          "6|&Quit|Ctrl+Q|Quit Application|Quit Application",
          "8|About||Show License Information|Show License Information",
          "9|Profile||Show Profile Information|Show Profile Information",
          "10|Help|F1|Help Window|Help Window",
          "15|Preferences||Open Preferences Dialog|Open Preferences Dialog",
          "17|Export Google KML File||Export Google Earth KML File|Export Google Earth KML File",
          "18|Export CSV File||Export CSV File|Export CSV File"})
        QVERIFY2(texts.contains(expected), expected);
    QTest::keyClick(m_window.get(), Qt::Key_F1);
    QVERIFY(m_output->text().contains("DialogMain::slotMenu id 10\n"));
    QTRY_VERIFY(QApplication::activeWindow() != nullptr);
    QApplication::setActiveWindow(m_window.get());
    ModalBoxes boxes;
    boxes.answer({});
    QTest::keyClick(m_window.get(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(boxes.seen(), QStringList{"Open SD Card"});
}

void TestMainWindow::preferencesReachTheWindow()
{
    QVERIFY(open());
    trigger(Command::Preferences);
    auto* const dialog = m_window->findChild<DialogPreferences*>();
    QVERIFY(dialog->isVisible());
    dialog->findChildren<QComboBox*>().at(2)->setCurrentIndex(1);
    dialog->findChild<QSpinBox*>()->setValue(19);
    auto* const apply = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Apply);
    QTest::mouseClick(apply, Qt::LeftButton);
    QCOMPARE(profile().unitSystem(), UnitSystem::Imperial);
    QCOMPARE(m_window->findChild<QComboBox*>("unitSelector")->currentIndex(), 1);
    auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
    QCOMPARE(tree->font().pixelSize(), 19);

    // New palettes make the toolkit draw and keep the pictures of all widgets again.
    const qint64 palette = tree->palette().cacheKey();
    dialog->findChildren<QComboBox*>().at(2)->setCurrentIndex(0);
    QTest::mouseClick(apply, Qt::LeftButton);
    QCOMPARE(profile().unitSystem(), UnitSystem::Metric);
    QCOMPARE(tree->palette().cacheKey(), palette);

    QVERIFY(installNewProfile([&] {
        click(*dialog, "Choose...");
        QTest::mouseClick(apply, Qt::LeftButton);
    }));
    dialog->findChild<QSpinBox*>()->setValue(12);
    QTest::mouseClick(apply, Qt::LeftButton);
}

void TestMainWindow::profileInstalledFromItsDialogIsRead()
{
    QVERIFY(open());
    QVERIFY(installNewProfile(
        [this] { click(*m_window->findChild<DialogProfileInfo*>(), "Install Profile..."); }));
}

void TestMainWindow::statusBarKeepsItsText()
{
    SettingsStore::instance().setText("LastPath", folder("card").toUtf8());
    QVERIFY(open());
    const auto shown = [this] { return m_window->statusBar()->currentMessage(); };
    const auto hover = [&](const QString& tip) {
        QStatusTipEvent event(tip);
        QApplication::sendEvent(m_window->menuBar(), &event);
        return shown();
    };
    const QString told = "2 record file(s), 1 engine cycle(s)";
    QCOMPARE(shown(), told);
    auto* const bar = m_window->statusBar()->findChild<QProgressBar*>();
    QCOMPARE(bar->value(), 100); // 100 % stays visible for a moment
    QVERIFY(bar->isVisible());
    for (const char* tip : {"Open Data Folder", "Quit"})
        QCOMPARE(hover(tip), tip);
    QCOMPARE(hover({}), told);
    hover("Quit");
    m_window->statusBar()->showMessage("loaded meanwhile");
    QCOMPARE(hover({}), "loaded meanwhile");
    QTRY_VERIFY(!bar->isVisible());
}

void TestMainWindow::recentFolders()
{
    const QString first = folder("first");
    const QString second = folder("second");
    QVERIFY(open());
    for (const QString& path : {first, second}) {
        drop({path});
        QTRY_COMPARE(m_window->card().folder(), path);
    }
    const auto offered = [&] {
        QMap<QString, QAction*> actions; // by position and path
        for (QAction* action : m_window->menuBar()->actions().front()->menu()->actions()) {
            if (action->data().toString().startsWith('/'))
                actions[QString::number(actions.size()) + action->data().toString()] = action;
        }
        return actions;
    };
    QCOMPARE(offered().keys(), (QStringList{"0" + second, "1" + first}));
    offered()["1" + first]->trigger();
    QCOMPARE(m_window->card().folder(), first);
    QCOMPARE(offered().keys(), (QStringList{"0" + first, "1" + second}));
    QCOMPARE(setting("LastPath"), first);
    QVERIFY(QDir(second).removeRecursively());
    ModalBoxes boxes;
    boxes.answer("OK");
    offered()["1" + second]->trigger();
    QVERIFY2(boxes.seen().value(0).contains(second), qPrintable(boxes.seen().join('/')));
    QCOMPARE(offered().keys(), QStringList{"0" + first});
    QCOMPARE(m_window->card().folder(), first);
    for (int i = 0; i < 12; ++i)
        drop({folder(QString::number(i))});
    QCOMPARE(RecentFolders(SettingsStore::instance()).folders().size(), RecentFolders::maxFolders);
}

void TestMainWindow::droppedFilesAreLoaded()
{
    const QString card = folder("card");
    QVERIFY(writeFile(card + "/notes.txt", "x"));
    QVERIFY(open());
    drop({card + "/1.CAN", card + "/0.CAN"});
    QTRY_VERIFY(dataSet() != nullptr);
    QCOMPARE(dataSet()->messages.sampleCount(), 20U);
    QCOMPARE(dataSet()->startSeconds, 0.0); // sorted by name, not by the order of the drop
    QCOMPARE(dataSet()->stopSeconds, 19.0);
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

    SettingsStore::instance().setText("LastPath", folder("card", 2).toUtf8());
    QVERIFY(open());
    // Requests the other cycle from an event that is handled while the first is being loaded.
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
    auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
    tree->setCurrentItem(tree->topLevelItem(1));
    QTRY_VERIFY(isAsked && !m_window->isBusy());
    QCOMPARE(dataSet()->dateTime.date(), QDate(2026, 7, 29));
}

void TestMainWindow::vanishedFilesAreTold()
{
    const QString card = folder("card");
    SettingsStore::instance().setText("LastPath", card.toUtf8());
    QVERIFY(open());
    QVERIFY(QFile::remove(card + "/1.CAN"));
    ModalBoxes boxes;
    boxes.answer("OK");
    QMetaObject::invokeMethod(m_window.get(), "slotLoadCycle", Q_ARG(unsigned, 1), Q_ARG(int, -1));
    QTRY_VERIFY(boxes.isDone() && !m_window->isBusy());
    QVERIFY(boxes.seen().front().startsWith("KOLT Warning|"));
    QVERIFY(boxes.seen().front().contains("1.CAN"));
    QCOMPARE(dataSet()->messages.sampleCount(), 10U); // the rest is there
}

void TestMainWindow::pulledCardLeavesWhatIsShown()
{
    const QString card = folder("card", 2);
    QVERIFY(openCycle(card));
    auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
    auto* const rawData = m_window->findChild<QTreeWidget*>("rawDataTree");
    QTreeWidgetItem* const shown = tree->selectedItems().value(0);
    const auto words = [this] {
        QString text;
        for (const QLabel* label : m_window->statusBar()->findChildren<QLabel*>())
            text += label->text();
        return text;
    };
    QVERIFY2(words().contains("20 samples"), qPrintable(words()));
    const DataSet* const data = dataSet();
    QTemporaryDir elsewhere;
    QVERIFY(QDir().rename(card, elsewhere.filePath("card")));
    for (QTreeWidgetItem* other : {tree->topLevelItem(3), rawData->topLevelItem(1)}) {
        ModalBoxes boxes;
        boxes.answer("OK");
        other->treeWidget()->setCurrentItem(other);
        QTRY_VERIFY(boxes.isDone() && !m_window->isBusy());
        QVERIFY(boxes.seen().front().contains("still shown"));
        QCOMPARE(dataSet(), data);
        QCOMPARE(tree->selectedItems(), QList{shown});
        QVERIFY(rawData->selectedItems().isEmpty());
    }
    QVERIFY(table()->rowCount() > 0);
    QVERIFY2(words().contains("20 samples"), qPrintable(words()));
    // It is put in again.
    QVERIFY(QDir().rename(elsewhere.filePath("card"), card));
    tree->setCurrentItem(tree->topLevelItem(3));
    QVERIFY(waitFor([&] { return dataSet()->dateTime.date() == QDate(2026, 7, 29); }));
}

void TestMainWindow::unitAndVariantSelectors()
{
    QVERIFY(openCycle(folder("card")));
    auto* const pages = m_window->findChild<DialogData*>();
    pages->setTime(7.0);
    const auto* const model = table();
    const auto header = [&] { return model->headerData(1, Qt::Horizontal).toString(); };
    QCOMPARE(header(), "Fuel\n[l]");
    const auto pick = [&](const char* selector, Qt::Key key) {
        auto* const box = m_window->findChild<QComboBox*>(selector);
        box->setFocus();
        QTest::keyClick(box, key);
    };
    pick("unitSelector", Qt::Key_Down);
    QCOMPARE(header(), "Fuel\n[gal]");
    QCOMPARE(model->index(3, 1).data().toString(), "3.0");
    QCOMPARE(setting("Unit"), "1");
    QVERIFY(QDir(m_cards->filePath("card")).removeRecursively()); // the card is pulled out
    pick("profileSelector", Qt::Key_Down);
    QVERIFY(m_output->text().contains("slotProfileChanged <850>\n"));
    QCOMPARE(setting("Profile"), "850");
    QCOMPARE(profile().parameters().size(), 3U);
    QCOMPARE(profile().selectedParameters().size(), 2U); // kept
    QCOMPARE(profile().unitSystem(), UnitSystem::Imperial);
    QCOMPARE(pages->time(), 7.0);
    QCOMPARE(model->rowCount(), 20); // the data are still there
    confirmSelection("Only 850");
    pick("profileSelector", Qt::Key_Up);
    QCOMPARE(profile().activeVariant(), "915");
    QCOMPARE(profile().selectedParameters().size(), 2U);
    pick("profileSelector", Qt::Key_Down);
    QCOMPARE(profile().selectedParameters().size(), 3U); // and so is what only this variant has
}

/// Waits for what the bar above the pages says; the last one is about the recording.
void TestMainWindow::barOffersTheVariantThatFits()
{
    QVERIFY(writeFile(InstalledProfile::path(),
                      "<KorvanProfile><Variants><Variant name='915' engineType='915*'/>"
                      "<Variant name='850' engineType='850*'/></Variants>" +
                          device({"name='p' id='1' dataType='FLOAT'"}) + "</KorvanProfile>"));
    const QString card = folder("card");
    for (int i = 0; i < 2; ++i)
        QVERIFY(
            writeFile(QStringLiteral("%1/%2.CAN").arg(card).arg(i),
                      RecordBytes().text(3, "850 B").date(2026, 7, i).sample(1, i * 50).bytes()));
    QVERIFY(openCycle(card));
    const NoticeBar* const bar = m_window->findChild<NoticeBar*>("recordingNotice");
    const auto* const text = bar->findChild<QLabel*>();
    QVERIFY(bar->isVisible());
    QVERIFY2(text->text().contains("\"850 B\""), qPrintable(text->text()));
    QCOMPARE(profile().activeVariant(), "915"); // nothing changes by itself
    click(*bar, "Use variant 850");
    QVERIFY(waitFor([this] { return profile().activeVariant() == "850"; }));
    QCOMPARE(setting("Profile"), "850");
    QVERIFY(!bar->isVisible());

    // A file from the middle of the run; the bar is closed for it.
    emit m_window->findChild<DialogCard*>()->signalLoadRecord({card + "/1.CAN"});
    QVERIFY(waitFor([&] { return bar->isVisible(); }));
    QVERIFY2(text->text().contains("50 s late"), qPrintable(text->text()));
    QVERIFY(labelled(*bar, "Use variant") == nullptr);
    QTest::mouseClick(bar->findChild<QToolButton*>("closeNotice"), Qt::LeftButton);
    emit m_window->findChild<DialogCard*>()->signalLoadRecord({card + "/0.CAN"});
    emit m_window->findChild<DialogCard*>()->signalLoadRecord({card + "/1.CAN"});
    QVERIFY(waitFor([&] { return dataSet()->startSeconds == 50.0; }));
    QVERIFY(!bar->isVisible());

    // A case from the middle has the date of counter 0.
    CaseRequest request;
    request.cycle = m_window->card().cycles().begin()->first;
    request.from = 40.0;
    request.to = 60.0;
    request.folder = m_cards->filePath("case");
    QCOMPARE(writeCase(m_window->card(), request).error, "");
    m_window.reset();
    QVERIFY(openCycle(request.folder));
    QCOMPARE(dataSet()->startSeconds, 50.0);
    QVERIFY(!m_window->findChild<NoticeBar*>("recordingNotice")->isVisible());
}

void TestMainWindow::clockOffsetMovesListsAndPages()
{
    QVERIFY(openCycle(folder("card")));
    auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
    m_window->findChild<DialogData*>()->setTime(7.0);
    QCOMPARE(dataSet()->dateTime.toString("dd hh:mm"), "28 12:00");
    trigger(Command::Preferences);
    auto* const dialog = m_window->findChild<DialogPreferences*>();
    auto* const box = dialog->findChild<ClockOffsetBox*>();
    box->selectAll();
    QTest::keyClicks(box, "-13:30");
    QTest::mouseClick(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Apply),
                      Qt::LeftButton);
    QCOMPARE(setting("ClockOffset"), "-810");
    QVERIFY(waitFor([&] { return dataSet()->dateTime.toString("dd hh:mm") == "27 22:30"; }));
    QVERIFY(tree->topLevelItem(0)->text(0).contains("27"));
    QVERIFY(tree->topLevelItem(1)->text(0).contains("22:30") ||
            tree->topLevelItem(1)->text(1).contains("22:30"));
    QVERIFY(tree->currentItem() == tree->topLevelItem(1));
    QCOMPARE(m_window->findChild<DialogData*>()->time(), 7.0);
    box->setValue(0);
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Apply)->click();
}

/// The shipped profile is that beside the program; the installed one is an edited older one.
void TestMainWindow::newerProfileIsOfferedOnce()
{
    SettingsStore::instance().setText("ProfileRefused", {});
    QVERIFY(writeFile(InstalledProfile::path(),
                      "<KorvanProfile version='1.9' profileId='KOLT-TUG'>" +
                          device({"name='Mine' id='1' dataType='FLOAT'"}) + "</KorvanProfile>"));
    QVERIFY(open());
    const NoticeBar* bar = m_window->findChild<NoticeBar*>("profileOffer");
    QVERIFY(waitFor([&] { return bar->isVisible(); }));
    QString shown;
    QTimer::singleShot(0, m_window.get(), [&] {
        auto* const dialog = m_window->findChild<DialogProfileChanges*>();
        shown = dialog->findChild<QPlainTextEdit*>()->toPlainText();
        click(*dialog, "Keep Mine");
    });
    click(*bar, "Compare...");
    QVERIFY2(shown.contains("Parameters removed (1): D/Mine"), qPrintable(shown));
    QVERIFY(!bar->isVisible());
    QVERIFY(!setting("ProfileRefused").isEmpty());
    m_window.reset();
    QVERIFY(open());
    QTest::qWait(100); // it is told 20 ms after the start
    QVERIFY(!m_window->findChild<NoticeBar*>("profileOffer")->isVisible());
    QCOMPARE(profile().parameters().front().name, "Mine");
}

void TestMainWindow::graphMovesTimeAndColumns()
{
    QVERIFY(openCycle(folder("card")));
    auto* const data = m_window->findChild<DialogData*>();
    auto* const graph = m_window->findChild<DialogDataGraph*>();
    emit graph->signalCursor(7.5F, 1.0);
    QCOMPARE(data->time(), 7.5);
    QCOMPARE(data->page(DialogData::Page::Map).time(), 7.5);
    const auto columns = [&] {
        const auto name = [this](int column) {
            return table()->headerData(column, Qt::Horizontal).toString().section('\n', 0, 0);
        };
        return name(1) + ' ' + name(2);
    };
    for (const QStringList& order : {QStringList{"Speed", "Fuel"}, {"Fuel", "Speed"}}) {
        emit graph->signalOrder({"D/" + order[0], "D/" + order[1]});
        QCOMPARE(columns(), order.join(' '));
    }
    GraphSettings settings;
    settings.hasEvents = false;
    emit graph->signalSettings(settings);
    m_window->close(); // before the pause after which it would be saved
    QCOMPARE(setting("GraphEvents"), "false");
}

void TestMainWindow::findingIsShownInTheGraph()
{
    QVERIFY(openCycle(folder("card")));
    confirmSelection("Fuel"); // only Speed is left
    auto* const data = m_window->findChild<DialogData*>();
    const auto* const widget = &m_window->findChild<DialogDataGraph*>()->widget();
    const auto selected = [this] {
        QStringList names;
        for (const ProfileParameter* parameter : profile().selectedParameters())
            names << parameter->name;
        return names.join(' ');
    };
    const auto show = [&] { emit data->signalShowInGraph({"D/Fuel", 5.0, 8.0}); };
    show();
    QVERIFY(widget->isVisible() && widget->hasFocus());
    QCOMPARE(data->time(), 5.0);
    QCOMPARE(widget->graph().markers(), (TimeRange{5.0, 8.0}));
    QVERIFY(waitFor([&] { return widget->graph().window() == TimeRange{-25.0, 38.0}; }));
    QCOMPARE(selected(), "Fuel Speed");
    const NoticeBar* const bar = m_window->findChild<NoticeBar*>("graphNotice");
    click(*bar, "Undo");
    QCOMPARE(selected(), "Speed");
    QVERIFY(!bar->isVisible());
    // A draft is kept, and what the user confirms stays.
    const auto speed = [this] {
        QList<QTreeWidgetItem*> found;
        for (const auto* tree : m_window->findChildren<QTreeWidget*>())
            found << tree->findItems("Speed", Qt::MatchExactly | Qt::MatchRecursive);
        return found.first();
    };
    speed()->setCheckState(0, Qt::Unchecked);
    show();
    QCOMPARE(selected(), "Fuel Speed");
    QCOMPARE(speed()->checkState(0), Qt::Unchecked);
    QCoreApplication::processEvents(); // the draft is updated by a timer
    click(*m_window, "Confirm Selection");
    QCOMPARE(selected(), "Fuel");
    QVERIFY(!bar->isVisible());
}

void TestMainWindow::caseFileIsWritten()
{
    QVERIFY(openCycle(folder("card")));
    ModalBoxes boxes;
    boxes.answer(m_cards->path());
    emit m_window->findChildren<EpisodeCard*>().first()->signalCaseFile({"D/Speed", 35.0, 36.0});
    const QString written = m_cards->filePath("Case 1 Speed 00-00-35");
    QVERIFY(waitFor([&] { return QDir(written).exists(); }));
    QVERIFY(m_window->statusBar()->currentMessage().contains(written));
    const QString zip = m_cards->filePath("mail.zip");
    boxes.answer(zip);
    emit m_window->findChildren<EpisodeCard*>().first()->signalCaseZip({"D/Speed", 35.0, 36.0});
    QVERIFY(waitFor([&] { return QFileInfo(zip).size() > 1000; }));
    m_window.reset();
    QVERIFY(openCycle(written)); // like a card
    QCOMPARE(dataSet()->startSeconds, 5.0);
    QCOMPARE(dataSet()->stopSeconds, 19.0);
    // Not into the card.
    boxes.answer(written);
    boxes.answer("OK");
    emit m_window->findChildren<EpisodeCard*>().first()->signalCaseFile({"D/Speed", 10.0, 11.0});
    QVERIFY(waitFor([&] { return boxes.isDone(); }));
    QCOMPARE(QDir(written).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 0);
}

void TestMainWindow::undoKeyReachesNoWidget()
{
    QVERIFY(open());
    QCOMPARE(m_window->size(), QSize(1000, 800));
    QLineEdit edit;
    edit.show();
    QTest::keyClicks(&edit, "z");
    QCOMPARE(edit.text(), "z");
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit.text(), "z");
    edit.undo();
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(edit.text(), ""); // Ctrl+Shift+Z would redo
    edit.redo();
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(edit.selectedText(), "z");
    qApp->removeEventFilter(m_window.get());
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit.text(), ""); // without the filter the field does undo
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

    QVERIFY(open()); // changes of the file are applied at once
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
    QVERIFY(open());
    for (const Command command : {Command::ExportKml, Command::ExportCsv, Command::ExportGpx})
        QVERIFY(!action(command)->isEnabled());
    QVERIFY(openCycle(folder("card")));

    ModalBoxes boxes;
    const QString path = m_cards->filePath("out.csv");
    boxes.answer(path);
    boxes.handle([this](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), "Export CSV File");
        // A request made meanwhile waits, as the data set is in use.
        QMetaObject::invokeMethod(m_window.get(), "slotLoadCycle", Q_ARG(unsigned, 1),
                                  Q_ARG(int, -1));
        QVERIFY(m_window->isBusy() && dataSet() != nullptr);
        click(dialog, "Export...");
    });
    trigger(Command::ExportCsv);
    QVERIFY(boxes.isDone());
    QTRY_VERIFY(!m_window->isBusy());
    QCOMPARE(readFile(path).count('\n'), 1 + 191); // 19 s
    QCOMPARE(setting("CsvExportDir"), m_cards->path());
    // Without a position there is no path to export.
    for (const Command command : {Command::ExportKml, Command::ExportGpx}) {
        boxes.handle([](QDialog& dialog) {
            QVERIFY(!labelled(dialog, "Export...")->isEnabled());
            dialog.reject();
        });
        trigger(command);
    }
    QVERIFY(boxes.isDone());
}

void TestMainWindow::emuDisplay()
{
    SettingsStore::instance().setText("LastPath", folder("card", 2).toUtf8());
    const char* const arguments[] = {"kolt", "-emu"};
    Startup::parseCommandLine(2, arguments);
    QVERIFY(open());
    Startup::parseCommandLine(1, arguments);
    QVERIFY(m_window->findChild<QMenuBar*>() == nullptr);
    QVERIFY(!m_window->findChild<QToolBar*>()->isVisible());
    for (const auto* tree : m_window->findChildren<QTreeWidget*>())
        QVERIFY(!tree->isVisible());
    QTRY_VERIFY(dataSet() != nullptr);
    QCOMPARE(dataSet()->dateTime.date(), QDate(2026, 7, 29)); // the last cycle
    QTRY_VERIFY(!m_window->isBusy() && m_window->findChild<DialogDataView*>()->isVisible());
    QVERIFY(!m_window->findChild<QTabBar*>()->isVisible());
    const auto& map = m_window->findChild<DialogData*>()->page(DialogData::Page::Map);
    QVERIFY(!dynamic_cast<const QWidget&>(map).isVisible());
}

void TestMainWindow::brokenViewIsToldInTheStatusBar()
{
    QVERIFY(open());
    const QString path = m_cards->filePath("panel.v");
    QVERIFY(writeFile(path, "<view width='9' height='9'><dial/></view>"));
    m_window->findChild<DialogDataView*>()->setViewFile(path);
    m_window->findChild<DialogData*>()->setCurrentPage(DialogData::Page::EmuView);
    QTRY_VERIFY(m_window->statusBar()->currentMessage().contains("panel.v:1:29"));
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
