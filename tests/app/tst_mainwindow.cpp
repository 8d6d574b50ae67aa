#include "app/DialogMain.h"
#include "app/settings/CommandLineOptions.h"
#include "app/startup/Startup.h"
#include "tests/support/TestFiles.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace KOLT;
using namespace KOLT::Test;

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void undoKeyReachesNoWidget();
    void styleSheetOfTheCommandLineIsApplied();
};

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
