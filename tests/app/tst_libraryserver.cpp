#include "app/LibraryOpener.h"
#include "app/dialogs/DialogLibrary.h"
#include "library/archive/Archive.h"
#include "library/ui/LibraryPage.h"
#include "tests/support/LibraryData.h"
#include "tests/support/PostgresServer.h"

#include <QApplication>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// The window with a library on a server.
class TestLibraryServer : public QObject
{
    Q_OBJECT

private slots:

    void init() { QVERIFY(m_folder.isValid()); }

    void silenceDoesNotStopTheWindow()
    {
        auto silent = std::make_unique<QTcpServer>(); // takes connections, and says nothing
        QVERIFY(silent->listen(QHostAddress::LocalHost));
        const LibraryAddress address{m_folder.path(),
                                     QString("postgresql://pilot@127.0.0.1:%1/club?sslmode=disable")
                                         .arg(silent->serverPort())};
        QWidget window;
        window.show();
        LibraryOpener opener(window);
        LibraryDatabase database;
        QString told;
        bool isNested = true;
        QTimer user;
        connect(&user, &QTimer::timeout, this, [&] {
            auto* const dialog = window.findChild<QProgressDialog*>();
            if (dialog == nullptr || !dialog->isVisible())
                return;
            told = dialog->labelText();
            LibraryDatabase other;
            isNested = opener.open(other, address);
            QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
        });
        user.start(10);
        QVERIFY(!opener.open(database, address));
        QVERIFY2(told.contains("127.0.0.1"), qPrintable(told));
        QVERIFY(!isNested);
        QVERIFY(opener.error().contains("has not answered"));
        QVERIFY(opener.isResting());
        QVERIFY(!database.isOpen());
        silent.reset(); // ends the attempt
        QVERIFY(!opener.open(database, address));
        QVERIFY2(opener.error().contains("does not answer"), qPrintable(opener.error()));
    }

    void passwordIsAskedForAgain()
    {
        startServer();
        QCOMPARE(m_server.addUserWithPassword("pilot", "s3cret"), QString());
        const LibraryAddress address{m_folder.path(),
                                     m_server.newDatabase().replace("owner@", "pilot@")};
        QWidget window;
        window.show();
        LibraryOpener opener(window);
        LibraryDatabase database;
        QStringList asked;
        const auto answer = [&](QStringList passwords) {
            QTimer user;
            connect(&user, &QTimer::timeout, this, [&] {
                auto* const dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
                if (dialog == nullptr || !dialog->isVisible())
                    return;
                asked << dialog->labelText();
                auto* const line = dialog->findChild<QLineEdit*>();
                QVERIFY(line->echoMode() == QLineEdit::Password);
                const QString password = passwords.isEmpty() ? QString() : passwords.takeFirst();
                QTest::keyClicks(line, password);
                QTest::keyClick(line, password.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
            });
            user.start(10);
            return opener.open(database, address);
        };
        QVERIFY(!answer({"wrong"})); // and then gives up
        QCOMPARE(asked.size(), 2);
        QVERIFY(!asked[0].contains("not accepted") && asked[1].contains("not accepted"));
        QVERIFY(asked[0].contains("pilot@127.0.0.1/"));
        QVERIFY2(opener.error().contains("wants a password"), qPrintable(opener.error()));
        QVERIFY(!opener.isResting());
        QVERIFY2(answer({"wrong", "s3cret"}), qPrintable(opener.error()));
        QVERIFY(database.isOpen());
    }

    void serverThatDiesIsToldAndTriedAgain()
    {
        startServer();
        LibraryDatabase database;
        QVERIFY(database.open({m_folder.path(), m_server.newDatabase()},
                              LibraryDatabase::Access::Create));
        QVERIFY(database.storeCycle(someCycle(1), someFigures(1), someSource()));
        LibraryPage page;
        page.setLibrary(database, {});
        page.show();
        auto* const retry = page.findChild<QPushButton*>("retryLibrary");
        QVERIFY(page.findChild<QTreeView*>()->isVisible() && !retry->isVisible());
        m_server.stop();
        m_isRunning = false;
        page.setLibrary(database, {});
        QVERIFY(retry->isVisible());
        QVERIFY2(page.note().contains("does not answer"), qPrintable(page.note()));
        QVERIFY(!database.isOpen());
        QSignalSpy wanted(&page, &LibraryPage::signalShown);
        QTest::mouseClick(retry, Qt::LeftButton);
        QCOMPARE(wanted.size(), 1);
    }

    void serverIsEntered()
    {
        QCOMPARE(Archive::create(m_folder.path()), QString());
        DialogLibrary dialog({});
        dialog.show();
        auto* const server = dialog.findChild<QGroupBox*>("libraryServer");
        auto* const mistake = dialog.findChild<QLabel*>("mistake");
        QVERIFY(!server->isChecked());
        dialog.accept();
        QVERIFY(mistake->isVisible() && mistake->text().contains("folder"));
        QTest::keyClicks(dialog.findChild<QLineEdit*>("libraryFolder"), m_folder.path());
        server->setChecked(true);
        const auto field = [&](const char* name) { return server->findChild<QLineEdit*>(name); };
        QTest::keyClicks(field("libraryHost"), "club.example");
        server->findChild<QSpinBox*>()->setValue(5433);
        dialog.accept();
        QVERIFY2(mistake->isVisible() && mistake->text().contains("names no database"),
                 qPrintable(mistake->text()));
        QTest::keyClicks(field("libraryDatabase"), "kolt");
        QTest::keyClicks(field("libraryUser"), "pilot:s3cret");
        dialog.accept(); // no password by the back door
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
        QCOMPARE(dialog.accepted().server, "postgresql://pilot%3As3cret@club.example:5433/kolt");
        QCOMPARE(QDir(dialog.accepted().archive), QDir(m_folder.path()));
        const DialogLibrary again(dialog.accepted());
        QCOMPARE(again.findChild<QLineEdit*>("libraryUser")->text(), "pilot:s3cret");
    }

private:
    void startServer()
    {
        if (!m_isRunning)
            QCOMPARE(m_server.start(), QString());
        m_isRunning = true;
    }

    QTemporaryDir m_folder;
    PostgresServer m_server;
    bool m_isRunning = false;
};

QTEST_MAIN(TestLibraryServer)

#include "tst_libraryserver.moc"
