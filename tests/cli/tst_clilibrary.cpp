#include "tests/cli/CliSupport.h"
#include "tests/support/Systems.h"
#include "tests/support/TestFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QTest>

using namespace KOLT::Test;

/// Import and check, by running kolt-cli on the sample card.
class TestCliLibrary : public QObject
{
    Q_OBJECT

private slots:
    void importAndCheck();
    void absentLibraryIsNotMadeAnew();
    void failuresAreNamed();
    void commandLine();

private:
    Result library(const QStringList& arguments)
    {
        return run(m_home, KOLT_CLI, QStringList{"library"} + arguments);
    }

    QString path(const QString& name) const { return m_directory.filePath(name); }

    QTemporaryDir m_home;
    QTemporaryDir m_directory;
    const QString m_card = KOLT_SAMPLE_CARD;
};

void TestCliLibrary::importAndCheck()
{
    const QStringList import{"import",    m_card,       "--library", path("lib"),
                             "--profile", KOLT_PROFILE, "--variant", "915T"};
    const int files = static_cast<int>(QDir(m_card).entryList(QDir::Files).size());
    Result result = library(import);
    QCOMPARE(result.status, 0);
    qint64 bytes = 0;
    for (const QFileInfo& file : QDir(m_card).entryInfoList(QDir::Files))
        bytes += file.size();
    QCOMPARE(result.json(), (QJsonObject{{"copied", files},
                                         {"known", 0},
                                         {"beside", 0},
                                         {"failed", QJsonArray()},
                                         {"bytes", bytes}}));
    QCOMPARE(library(import).json()["known"].toInt(), files);
    result = library({"check", "--library", path("lib")});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.json()["files"].toInt(), files);
    // The file is found that somebody has changed.
    QDirIterator records(path("lib"), {"*.CAN"}, QDir::Files, QDirIterator::Subdirectories);
    const QString changed = records.next();
    QVERIFY(writeFile(changed, readFile(changed) + "x"));
    result = library({"check", "--library", path("lib")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.json()["damaged"].toArray(),
             QJsonArray{QDir(path("lib")).relativeFilePath(changed)});
}

void TestCliLibrary::absentLibraryIsNotMadeAnew()
{
    QVERIFY(writeFile(path("REC00001.CAN"), QByteArray(128, '\0')));
    QDir().mkpath(path("small"));
    QVERIFY(QFile::rename(path("REC00001.CAN"), path("small/REC00001.CAN")));
    const QStringList import{"import", path("small"), "--library", path("club")};
    QCOMPARE(library(import).status, 0);
    QVERIFY(QDir().rename(path("club"), path("unplugged")));
    for (const QStringList& arguments : {import, QStringList{"check", "--library", path("club")}}) {
        const Result result = library(arguments);
        QCOMPARE(result.status, 1);
        QVERIFY(result.output.isEmpty());
        QVERIFY2(result.lastError().contains(QDir::toNativeSeparators(path("club"))),
                 result.errors);
        QVERIFY(!QFileInfo::exists(path("club")));
    }
    QCOMPARE(library({"check", "--library", path("unplugged")}).status, 0);
}

void TestCliLibrary::failuresAreNamed()
{
    KOLT_NEEDS("links to files of the system");
    QDir().mkpath(path("bad"));
    QVERIFY(QFile::link("/proc/self/mem", path("bad/REC00002.CAN"))); // cannot be read
    QVERIFY(writeFile(path("bad/REC00001.CAN"), QByteArray(128, '\0')));
    const Result result = library({"import", path("bad"), "--library", path("bad library")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.json()["copied"].toInt(), 1);
    QCOMPARE(result.json()["failed"].toArray(), QJsonArray{"REC00002.CAN"});
    QVERIFY(result.errors.contains("REC00002.CAN: "));
    QCOMPARE(library({"import", path("no card"), "--library", path("bad library")}).status, 1);
}

void TestCliLibrary::commandLine()
{
    QCOMPARE(library({}).status, 2);
    QCOMPARE(library({"erase"}).status, 2);
    QCOMPARE(library({"import", m_card}).status, 2);
    QCOMPARE(library({"import", "--library", path("x")}).status, 2);
    QVERIFY(library({"--help"}).output.contains("import"));
    QVERIFY(library({"import", "--help"}).output.contains("CARD"));
    QVERIFY(!QFileInfo::exists(path("x")));
}

QTEST_GUILESS_MAIN(TestCliLibrary)
#include "tst_clilibrary.moc"
