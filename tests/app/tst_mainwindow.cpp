#include "app/DialogMain.h"
#include "app/settings/CommandLineOptions.h"
#include "app/settings/SettingsStore.h"
#include "app/startup/Startup.h"
#include "resources/Resources.h"
#include "tests/support/RecordBytes.h"
#include "tests/support/TestFiles.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

using namespace KOLT;
using namespace KOLT::Test;

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void lastFolderIsListed();
    void undoKeyReachesNoWidget();
    void styleSheetOfTheCommandLineIsApplied();

private:
    QTemporaryDir m_home;
};

void TestMainWindow::initTestCase()
{
    // Nothing of the user's is touched.
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    initKoltResources();
}

void TestMainWindow::lastFolderIsListed()
{
    const QString folder = m_home.filePath("card");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(writeFile(folder + "/1.CAN", RecordBytes().date(2026, 7, 28).sample(1, 5).bytes()));
    const DiagnosticsCapture output;
    Startup::loadSettings();
    SettingsStore::instance().setText("LastPath", folder.toUtf8());
    DialogMain window;
    QCOMPARE(window.windowTitle(), "KOLT " + folder.section('/', -2));
    QTRY_COMPARE(window.card().files().size(), 1U);
    auto* const tree = window.findChild<QTreeWidget*>("cyclesTree");
    QTRY_COMPARE(tree->topLevelItemCount(), 2); // a day and its cycle
    tree->setCurrentItem(tree->topLevelItem(1));
    QTRY_VERIFY(window.card().dataSet() != nullptr);
    QCOMPARE(window.card().dataSet()->stopSeconds, 5.0);
}

void TestMainWindow::undoKeyReachesNoWidget()
{
    DialogMain window;
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.size(), QSize(1000, 800));
    qApp->installEventFilter(&window);
    QLineEdit edit;
    edit.show();
    QTest::keyClicks(&edit, "z");
    QCOMPARE(edit.text(), "z");
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(edit.text(), "z");
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(edit.selectedText(), "z");
    qApp->removeEventFilter(&window);
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit.text(), ""); // without the filter the field undoes
}

void TestMainWindow::styleSheetOfTheCommandLineIsApplied()
{
    const QTemporaryDir directory;
    const QByteArray path = QFile::encodeName(directory.filePath("my.css"));
    QVERIFY(
        writeFile(directory.filePath("my.css"), "Variables{w:7px;}QLabel{margin:$(w);} // end"));
    const DiagnosticsCapture output;
    const char* const arguments[] = {"kolt", "-s", path.constData()};
    Startup::parseCommandLine(3, arguments);
    Startup::applyStyleSheet(*qApp);
    QCOMPARE(qApp->styleSheet(), "QLabel{margin:7px;} ");
    const char* const missing[] = {"kolt", "-s", "/no/such.css"};
    Startup::parseCommandLine(3, missing);
    Startup::applyStyleSheet(*qApp);
    QCOMPARE(qApp->styleSheet(), "");
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
