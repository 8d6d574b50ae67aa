#include "library/ui/DialogImport.h"
#include "library/ui/ImportText.h"
#include "tests/library/ArchiveSupport.h"
#include "tests/support/Buttons.h"
#include "tests/support/ModalBoxes.h"
#include "tests/support/Rows.h"

#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

class TestDialogImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void firstImportCreatesTheLibrary();
    void proposedFolderCanBeMade();
    void absentLibraryIsTold();
    void unreadFilesAreListed();
    void closingCancels();
    void wrongImportIsTakenBack();
    void sentences_data();
    void sentences();

private:
    QString path(const QString& name) const { return m_directory->filePath(name); }

    QString state() const
    {
        return m_dialog->findChild<QLabel*>(QStringLiteral("importState"))->text();
    }

    QAbstractButton* button(const char* name) const
    {
        return m_dialog->findChild<QAbstractButton*>(QLatin1String(name));
    }

    static constexpr int patience = 60000; ///< milliseconds: a copy waits for the disk

    /// Presses "Import" and waits for the end.
    void import()
    {
        QSignalSpy finished(&m_dialog->runner(), &ImportRunner::signalFinished);
        button("importStart")->click();
        QTRY_VERIFY_WITH_TIMEOUT(!finished.isEmpty() || !m_dialog->runner().isRunning(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(!m_dialog->runner().isRunning(), patience);
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<DialogImport> m_dialog;
    DiagnosticsCapture m_output;
};

void TestDialogImport::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_dialog = std::make_unique<DialogImport>();
    QVERIFY(writeCard(path("card"), summerCard()));
}

void TestDialogImport::firstImportCreatesTheLibrary()
{
    m_dialog->open({}, path("card"));
    QVERIFY(!button("importTakeBack")->isEnabled());
    QVERIFY(!button("importCancel")->isEnabled());
    m_dialog->findChild<QLineEdit*>(QStringLiteral("importLibrary"))->setText(path("lib"));
    QSignalSpy settings(m_dialog.get(), &DialogImport::signalSettings);
    QSignalSpy cycles(&m_dialog->runner(), &ImportRunner::signalCycleChanged);
    import();
    QVERIFY2(state().startsWith("12 of 12 files are safe; 0 were here before."),
             qPrintable(state()));
    QCOMPARE(cycles.size(), 3);
    QCOMPARE(settings.size(), 1);
    QCOMPARE(settings[0][0].value<ArchiveSettings>().folder, path("lib"));
    QCOMPARE(cyclesIn(path("lib")).size(), 3);
    QVERIFY(button("importTakeBack")->isEnabled() && button("importStart")->isEnabled());
    import();
    QVERIFY(state().startsWith("12 of 12 files are safe; 12 were here before."));
}

/// Also for a user whose folder of documents is known by name only.
void TestDialogImport::proposedFolderCanBeMade()
{
    const QByteArray home = qgetenv("HOME");
    const auto back = qScopeGuard([&] { qputenv("HOME", home); });
    qputenv("HOME", QFile::encodeName(m_directory->path()));
    if (QDir::homePath() != m_directory->path())
        QSKIP("this system takes the home folder from elsewhere");
    m_dialog->open({}, path("card"));
    import();
    QVERIFY2(state().startsWith("12 of 12 files are safe"), qPrintable(state()));
    QCOMPARE(cyclesIn(path("KOLT Library")).size(), 3);
}

void TestDialogImport::absentLibraryIsTold()
{
    m_dialog->open({path("unplugged")}, path("card"));
    import();
    QVERIFY2(state().contains(QDir::toNativeSeparators(path("unplugged"))), qPrintable(state()));
    QVERIFY(!QFileInfo::exists(path("unplugged")));
    // A folder with other things in it is not taken, either.
    m_dialog->open({}, path("card"));
    m_dialog->findChild<QLineEdit*>(QStringLiteral("importLibrary"))->setText(path("card"));
    import();
    QVERIFY(state().contains("not empty"));
    m_dialog->findChild<QLineEdit*>(QStringLiteral("importCard"))->setText(path("no card"));
    m_dialog->findChild<QLineEdit*>(QStringLiteral("importLibrary"))->setText(path("lib"));
    import();
    QVERIFY(state().contains("no card"));
}

void TestDialogImport::unreadFilesAreListed()
{
    // Everybody may open this, and nobody can read its first byte.
    QVERIFY(QFile::link("/proc/self/mem", path("card/REC00013.CAN")));
    m_dialog->open({}, path("card"));
    m_dialog->findChild<QLineEdit*>(QStringLiteral("importLibrary"))->setText(path("lib"));
    import();
    auto* const failed = m_dialog->findChild<QTreeWidget*>(QStringLiteral("importFailed"));
    QVERIFY2(state().startsWith("12 of 13 files are safe"), qPrintable(state()));
    QVERIFY(failed->isVisibleTo(m_dialog.get()));
    QCOMPARE(failed->topLevelItem(0)->text(0), "REC00013.CAN");
    QVERIFY(!failed->topLevelItem(0)->text(1).isEmpty());
    QVERIFY(state().contains("Do not erase the card"));
}

void TestDialogImport::closingCancels()
{
    CardContent large;
    for (int i = 1; i <= 200; ++i)
        large[recordName(i)] = engineRun(i, 1, clockOf(7, 1), 4711, i).begin()->second;
    QVERIFY(writeCard(path("large"), large));
    m_dialog->open({}, path("large"));
    m_dialog->findChild<QLineEdit*>(QStringLiteral("importLibrary"))->setText(path("lib"));
    QSignalSpy finished(&m_dialog->runner(), &ImportRunner::signalFinished);
    button("importStart")->click();
    QVERIFY(m_dialog->runner().isRunning());
    m_dialog->close();
    QTRY_VERIFY_WITH_TIMEOUT(!m_dialog->runner().isRunning(), patience);
    const auto result = finished[0][0].value<ImportResult>();
    QVERIFY(result.isCancelled && result.safe() < 200);
    QVERIFY(m_dialog->isVisible() && state().contains("Do not erase the card"));
    m_dialog->close();
    QVERIFY(!m_dialog->isVisible());
    m_dialog->open({path("lib")}, path("large"));
    import();
    QVERIFY2(state().startsWith("200 of 200 files are safe"), qPrintable(state()));
}

void TestDialogImport::wrongImportIsTakenBack()
{
    importInto(path("lib"), path("card"));
    m_dialog->open({path("lib")}, path("card"));
    QSignalSpy removed(&m_dialog->runner(), &ImportRunner::signalCycleRemoved);
    ModalBoxes boxes;
    boxes.handle([](QDialog& dialog) {
        auto* const list = dialog.findChild<QTreeWidget*>(QStringLiteral("importList"));
        QCOMPARE(list->topLevelItemCount(), 1);
        dialog.findChild<QAbstractButton*>(QStringLiteral("takeBack"))->click();
        QVERIFY(list->topLevelItem(0)->isDisabled());
        dialog.accept();
    });
    boxes.answer("&Yes");
    button("importTakeBack")->click();
    QVERIFY(boxes.isDone());
    QVERIFY(boxes.seen().join(' ').contains("12 file"));
    QCOMPARE(removed.size(), 3);
    QCOMPARE(cyclesIn(path("lib")), QStringList());
}

void TestDialogImport::sentences_data()
{
    const Rows<int, int, int, bool, QString, QString> row("copied", "known", "failed", "cancelled",
                                                          "begin", "end");
    row("all", 16, 12, 0, false, "28 of 28 files are safe; 12 were here before.", "does not have.");
    row("some failed", 10, 12, 6, false, "22 of 28 files are safe; 12 were here before.",
        "when the cause is removed.");
    row("cancelled", 4, 0, 0, true, "4 of 28 files are safe; 0 were here before.",
        "import it again.");
}

void TestDialogImport::sentences()
{
    QFETCH(int, copied);
    QFETCH(int, known);
    QFETCH(int, failed);
    QFETCH(bool, cancelled);
    QFETCH(QString, begin);
    QFETCH(QString, end);
    ImportResult result;
    result.files = 28;
    result.copied = copied;
    result.known = known;
    result.isCancelled = cancelled;
    result.failed.resize(failed);
    const QString sentence = sentenceOf(result);
    QVERIFY2(sentence.startsWith(begin) && sentence.endsWith(end), qPrintable(sentence));
}

QTEST_MAIN(TestDialogImport)
#include "tst_dialogimport.moc"
