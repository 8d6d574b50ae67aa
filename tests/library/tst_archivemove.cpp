#include "library/archive/ArchiveLock.h"
#include "library/archive/ArchiveMove.h"
#include "tests/library/ArchiveSupport.h"
#include "tests/support/Rows.h"

#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// A library is moved as a whole or not at all, and the old one is never touched.
class TestArchiveMove : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void wholeLibraryIsCopied();
    void faultsLeaveNothing_data();
    void faultsLeaveNothing();
    void wrongTargetsAreTold_data();
    void wrongTargetsAreTold();
    void importGoesFirst();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    static CardContent allOf(const QString& root)
    {
        CardContent content;
        QDirIterator files(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            content[QDir(root).relativeFilePath(file)] = readFile(file);
        }
        return content;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    Archive m_archive;
    CardContent m_before;
};

void TestArchiveMove::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(writeCard(path("card"), summerCard()));
    QVERIFY(importInto(path("lib"), path("card")).isComplete());
    QVERIFY(writeCard(path("lib/notes"), {{"a.json", "{}"}}));
    QVERIFY(writeCard(path("lib"), {{"library.sqlite", "figures"}}));
    QVERIFY(m_archive.open(path("lib")));
    m_before = allOf(path("lib"));
}

void TestArchiveMove::wholeLibraryIsCopied()
{
    ArchiveMove move(m_archive, path("new"));
    bool isWritten = false;
    const MoveResult result = move.run([&](const MoveProgress&) {
        if (!std::exchange(isWritten, true)) // on another computer
            writeFile(path("lib/notes/b.json"), "written meanwhile");
        QVERIFY(!Archive::isArchive(path("new"))); // not before all is there
    });
    QVERIFY2(result.isComplete() && isWritten, qPrintable(result.error));
    m_before["notes/b.json"] = "written meanwhile";
    QCOMPARE(allOf(path("new")), m_before);
    QCOMPARE(allOf(path("lib")), m_before);
    QCOMPARE(result.files, static_cast<int>(m_before.size()));
    Archive moved;
    QVERIFY(moved.open(path("new")));
    QCOMPARE(moved.id(), m_archive.id());
    // What somebody has open may be half written, and can be made anew.
    QVERIFY(writeFile(path("lib/library.sqlite-wal"), "open elsewhere"));
    QVERIFY(ArchiveMove(m_archive, path("again")).run().isComplete());
    QCOMPARE(allOf(path("again")).contains("library.sqlite"), false);
}

void TestArchiveMove::faultsLeaveNothing_data()
{
    const Rows<QString, QString> row("fault", "told");
    row("the disk is full", "full", "cannot be written");
    row("the disk is gone", "gone", "cannot be written");
    row("a recording cannot be read", "unread", "cannot be read");
    row("the user cancels", "cancel", "");
}

void TestArchiveMove::faultsLeaveNothing()
{
    QFETCH(QString, fault);
    QFETCH(QString, told);
    if (fault == "unread") { // everybody may open this, and nobody can read its first byte
        QVERIFY(QFile::link("/proc/self/mem", path("lib/notes/z.json")));
        m_before["notes/z.json"] = {};
    }
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit before = limit;
    if (fault == "full") {             // a manifest is larger, the lock is not
        std::signal(SIGXFSZ, SIG_IGN); // NOLINT(cert-err33-c)
        limit.rlim_cur = 1000;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ArchiveMove move(m_archive, path("new"));
    const MoveResult result = move.run([&](const MoveProgress&) {
        if (fault == "gone")
            QDir().rename(path("new"), path("unplugged"));
        if (fault == "cancel")
            move.cancel();
    });
    setrlimit(RLIMIT_FSIZE, &before);
    QVERIFY(!result.isComplete());
    QCOMPARE(result.isCancelled, fault == "cancel");
    QVERIFY2(result.error.contains(told) && result.error.isEmpty() == told.isEmpty(),
             qPrintable(result.error));
    QVERIFY(!QFileInfo::exists(path("new"))); // nor was it made anew below a mount point
    QCOMPARE(allOf(path("lib")), m_before);
    if (fault == "unread")
        QVERIFY(QFile::remove(path("lib/notes/z.json")));
    QVERIFY(ArchiveMove(m_archive, path("new")).run().isComplete()); // once more, without it
}

void TestArchiveMove::wrongTargetsAreTold_data()
{
    const Rows<QString, QString> row("target", "told");
    row("within the library", "lib/new", "lies in the other");
    row("around it", ".", "lies in the other");
    row("itself", "lib", "lies in the other");
    row("nowhere", "absent/new", "Is its disk connected");
    row("in use", "card", "not empty");
    row("a file", "card/REC00001.CAN", "not empty");
}

void TestArchiveMove::wrongTargetsAreTold()
{
    QFETCH(QString, target);
    QFETCH(QString, told);
    const MoveResult result = ArchiveMove(m_archive, path(target)).run();
    QVERIFY2(result.error.contains(told), qPrintable(result.error));
    QCOMPARE(allOf(path("lib")), m_before);
    QVERIFY(!QFileInfo::exists(path("absent")));
}

void TestArchiveMove::importGoesFirst()
{
    QVERIFY(QDir().mkpath(path("lib/.incoming")));
    ArchiveLock lock(path("lib/.incoming/2026-11-22 abc.lock"));
    QVERIFY(lock.take(std::chrono::seconds(1)));
    QVERIFY(ArchiveMove(m_archive, path("new")).objection().contains("being imported"));
}

QTEST_GUILESS_MAIN(TestArchiveMove)
#include "tst_archivemove.moc"
