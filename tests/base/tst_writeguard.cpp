#include "base/SafeFile.h"
#include "base/WriteGuard.h"
#include "tests/support/Rows.h"
#include "tests/support/Systems.h"
#include "tests/support/TestFiles.h"

#include <QDir>

using namespace KOLT;
using namespace KOLT::Test;

/// Paths that must never be written.
class TestWriteGuard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void pathsAreJudged_data();
    void pathsAreJudged();
    void protectionEndsWithItsHolder();
    void lastOfTheLinksIsReplaced();

private:
    QString path(const QString& name) const { return m_directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_directory;
};

void TestWriteGuard::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QDir directory(m_directory->path());
    for (const char* folder : {"home/card/sub", "home/card-copy", "home/.kolt"})
        QVERIFY(directory.mkpath(folder));
    const std::initializer_list<std::pair<const char*, const char*>> links{
        {"home/card", "link"},
        {"home/card/new.csv", "dangling"},
        {"dangling", "to the dangling one"},
        {"home/card/a.CAN", "record.csv"},
        {"home/.kolt/own.CAN", "own.csv"},
        {"circle", "circle"}};
    for (const auto& [target, name] : links)
        QVERIFY(QFile::link(path(target), path(name)));
    QVERIFY(QFile::link("../../outside.csv", path("home/card/way out")));
    QVERIFY(writeFile(path("home/card/a.CAN"), "recorded"));
}

void TestWriteGuard::pathsAreJudged_data()
{
    const Rows<QString, QString, bool> row; // protected folder, path, is allowed
    row("in it", "home/card", "home/card/new.csv", false);
    row("deep below, folders missing", "home/card", "home/card/x/y/new.csv", false);
    row("the folder itself", "home/card", "home/card", false);
    row("folder opened with dots", "home/card/sub/..", "home/card/new.csv", false);
    row("beside it", "home/card", "home/card-copy/new.csv", true);
    row("up and out", "home/card", "home/card/../new.csv", true);
    row("no folder", "no such", "new.csv", true);
    row("own folder", "home", "home/.kolt/Project.xml", true);
    row("beside the own folder", "home", "home/Project.xml", false);
    row("recordings below the own folder", "home/.kolt/card", "home/.kolt/card/x.xml", false);
    row("record file elsewhere", "no such", "home/card-copy/b.CAN", false);
    row("its suffix in other letters", "no such", "home/b.Can", false);
    row("the other suffixes", "no such", "home/b.xcb", false);
    row("not quite a suffix", "no such", "home/CAN", true);
#ifndef Q_OS_WIN // it has no such links
    row("through a link", "home/card", "link/new.csv", false);
    row("through a link and up", "home/card", "link/../card/new.csv", false);
    row("dangling link", "home/card", "dangling", false);
    row("link to a dangling link", "home/card", "to the dangling one", false);
    row("folder opened by its link", "link", "home/card/new.csv", false);
    row("link leading out", "home/card", "home/card/way out", true);
    row("circle", "home/card", "circle", false);
    row("link to a record file", "no such", "record.csv", false);
    row("record file in the own folder", "home", "own.csv", false);
#endif
}

void TestWriteGuard::pathsAreJudged()
{
    const auto [folder, name, isAllowed] = fetchRow<QString, QString, bool>();
    setOwnFolder(path("home/.kolt"));
    const auto protection = protectFolder(path(folder));
    QVERIFY2(writeObjection(path(name)).isEmpty() == isAllowed,
             qPrintable(writeObjection(path(name))));
    const WriteResult result = replaceFile(path(name), "x");
    QCOMPARE(result.status == WriteResult::Status::Refused, !isAllowed);
    QCOMPARE(QFileInfo::exists(resolvedPath(path(name))) &&
                 readFile(resolvedPath(path(name))) == "x",
             bool{result});
    QCOMPARE(readFile(path("home/card/a.CAN")), "recorded");
}

void TestWriteGuard::protectionEndsWithItsHolder()
{
    setOwnFolder({});
    auto first = protectFolder(path("home/card"));
    auto second = protectFolder(path("home/card"));
    for (auto* holder : {&first, &second}) {
        QVERIFY(!writeObjection(path("home/card/new.csv")).isEmpty());
        holder->reset();
    }
    QVERIFY(writeObjection(path("home/card/new.csv")).isEmpty());
}

void TestWriteGuard::lastOfTheLinksIsReplaced()
{
    KOLT_NEEDS("links");
    QVERIFY(bool{replaceFile(path("to the dangling one"), "new")});
    QVERIFY(QFileInfo(path("dangling")).isSymLink());
    QCOMPARE(readFile(path("home/card/new.csv")), "new");
}

QTEST_GUILESS_MAIN(TestWriteGuard)
#include "tst_writeguard.moc"
