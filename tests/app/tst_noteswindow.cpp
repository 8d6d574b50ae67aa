#include "graph/ui/DialogDataGraph.h"
#include "graph/ui/WidgetGraphBase.h"
#include "library/ledger/Logbook.h"
#include "library/ui/NotesWindow.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/library/ArchiveSupport.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// Notes are written in their window, lie in the library or in the data path, and are found again
/// wherever the recording is.
class TestNotesWindow : public QObject, MainWindowFixture
{
    Q_OBJECT

private slots:

    void initTestCase() { prepareOnce(); }

    void init();

    void cleanup()
    {
        m_window.reset();
        m_output.reset();
    }

    void notesLieInTheDataPath();
    void notesFollowTheRecordingIntoTheLibrary();
    void absentLibraryTakesNoNotes();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    static QString dataPath() { return QFile::decodeName(DataPaths::instance().dataPath()); }

    NotesWindow& notes() const { return *m_window->findChild<NotesWindow*>(); }

    QTreeWidget& table() const { return *notes().findChild<QTreeWidget*>("recordingNotes"); }

    const Graph& graph() const { return m_window->findChild<DialogDataGraph*>()->widget().graph(); }

    /// Presses a button of the window and enters a text.
    void write(const QString& button, const QString& text, const QString& answer = {})
    {
        ModalBoxes boxes;
        boxes.handle([&](QDialog& dialog) {
            dialog.findChild<QPlainTextEdit*>()->setPlainText(text);
            dialog.accept();
        });
        if (!answer.isEmpty())
            boxes.answer(answer);
        click(notes(), button);
        m_seen = boxes.seen();
        QVERIFY(boxes.isDone());
    }

    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < table().topLevelItemCount(); ++row)
            texts << table().topLevelItem(row)->text(1) + ": " + table().topLevelItem(row)->text(2);
        return texts;
    }

    static QStringList filesIn(const QString& root)
    {
        return QDir(root + "/notes").entryList({"*.json"}, QDir::Files);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_seen;
};

void TestNotesWindow::init()
{
    QVERIFY(prepare());
    m_folder = std::make_unique<QTemporaryDir>();
    QDir(dataPath() + "/notes").removeRecursively();
    SettingsStore::instance().setText("LibraryFolder", {});
}

void TestNotesWindow::notesLieInTheDataPath()
{
    const QString card = folder("card", 2);
    const QString before = hashOf(readFile(card + "/0.CAN"));
    QVERIFY(openCycle(card));
    trigger(Command::Notes);
    QVERIFY(notes().isVisible());
    m_window->findChild<DialogData*>()->setTime(13.0);
    write("Moment...", "Oil smells\n<b>hot</b>");
    QTRY_COMPARE(shown(), QStringList{"moment: Oil smells <b>hot</b>"});
    write("Cycle...", "First run");
    QTRY_COMPARE(shown().size(), 2);
    QCOMPARE(graph().notes().size(), 1U); // a cycle is no moment
    QCOMPARE(graph().notes()[0].seconds, 13.0);
    QCOMPARE(filesIn(dataPath()).size(), 2);
    QCOMPARE(QDir(card).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 4);
    QCOMPARE(hashOf(readFile(card + "/0.CAN")), before);

    // Another cycle has none of them; this one has them when it is loaded again.
    auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
    QTreeWidgetItem* const first = tree->currentItem();
    tree->setCurrentItem(tree->topLevelItem(tree->topLevelItemCount() - 1));
    QTRY_COMPARE(shown(), QStringList());
    write("Cycle...", "Second run");
    QTRY_COMPARE(shown(), QStringList{"cycle: Second run"});
    QVERIFY(graph().notes().empty());
    tree->setCurrentItem(first);
    QTRY_COMPARE(shown().size(), 2);
    const auto row = static_cast<int>(shown().indexOf("moment: Oil smells <b>hot</b>"));
    QVERIFY(row >= 0);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                      table().visualItemRect(table().topLevelItem(row)).center());
    QCOMPARE(m_window->findChild<DialogData*>()->time(), 13.0);
    write("Change...", "Oil smells no more");
    QTRY_VERIFY(shown().contains("moment: Oil smells no more"));
    QCOMPARE(graph().notes()[0].text, "Oil smells no more");
    QCOMPARE(filesIn(dataPath()).size(), 3);
}

void TestNotesWindow::notesFollowTheRecordingIntoTheLibrary()
{
    // Each begins with this file, and ends before the next. The second continues the first; the
    // last one is the beginning, after which the folder is named anew.
    const QList<int> parts{9, 11, 7};
    const CardContent run = engineRun(7, 6, clockOf(7, 3), 4711, 1);
    // Another run of the unit begins with the very same file, under another name.
    const CardContent twin = engineRun(21, 6, clockOf(8, 3), 4711, 1);
    QVERIFY(writeCard(path("twin"), twin));
    QVERIFY(importInto(path("lib"), path("twin")).isComplete());
    SettingsStore::instance().setText("LibraryFolder", path("lib").toUtf8());
    QStringList wanted;
    for (const int first : parts) {
        QList<int> begins = parts;
        begins << 13;
        std::ranges::sort(begins);
        const int behind = *std::ranges::upper_bound(begins, first);
        CardContent part;
        for (int i = first; i < behind; ++i)
            part[recordName(i)] = run.at(recordName(i));
        const QString card = path(QString("card %1").arg(first));
        QVERIFY(writeCard(card, part));
        QVERIFY(importInto(path("lib"), card).isComplete());
        QString folder;
        Archive archive;
        QVERIFY(archive.open(path("lib")));
        for (const ArchivedCycle& cycle : archive.cycles()) {
            if (std::ranges::any_of(cycle.files, [&](const ArchivedFile& file) {
                    return file.name == recordName(first);
                }))
                folder = archive.pathOf(cycle.folder);
        }
        m_window.reset();
        QVERIFY(openCycle(folder));
        trigger(Command::Notes);
        QTRY_COMPARE(shown().size(), wanted.size()); // those of the parts before
        m_window->findChild<DialogData*>()->setTime(4.0 + (first - 7) * 600.0 + 50.0);
        write("Moment...", QString("in %1").arg(first));
        wanted << QString("moment: in %1").arg(first);
        QTRY_COMPARE(shown().size(), wanted.size());
    }
    wanted.sort();
    QStringList found = shown();
    found.sort();
    QCOMPARE(found, wanted);
    QCOMPARE(filesIn(path("lib")).size(), wanted.size());
    QCOMPARE(filesIn(dataPath()), QStringList());

    // Its twin has only what is written on it, and the card of a part has its own.
    m_window.reset();
    QVERIFY(openCycle(path("twin")));
    trigger(Command::Notes);
    write("Moment...", "on the twin");
    QTRY_COMPARE(shown(), QStringList{"moment: on the twin"});
    m_window.reset();
    QVERIFY(openCycle(path("card 9")));
    trigger(Command::Notes);
    QTRY_COMPARE(shown(), QStringList{"moment: in 9"});
    QTRY_COMPARE(graph().notes().size(), 1U);
}

void TestNotesWindow::absentLibraryTakesNoNotes()
{
    SettingsStore::instance().setText("LibraryFolder", path("mounted").toUtf8());
    QVERIFY(QDir().mkpath(path("mounted"))); // the disk is not
    QVERIFY(openCycle(folder("card")));
    trigger(Command::Notes);
    write("Moment...", "lost?", "OK");
    QVERIFY2(m_seen.join('\n').contains("Nothing was saved"), qPrintable(m_seen.join('\n')));
    QVERIFY(QDir(path("mounted")).isEmpty());
    QCOMPARE(filesIn(dataPath()), QStringList());
}

QTEST_MAIN(TestNotesWindow)
#include "tst_noteswindow.moc"
