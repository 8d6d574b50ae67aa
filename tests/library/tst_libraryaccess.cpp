#include "library/database/LibraryQueries.h"
#include "tests/library/DatabaseSupport.h"

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// Who may open a library, and what is told of one that cannot be used.
class TestLibraryAccess : public DatabaseTest
{
    Q_OBJECT

private slots:

    void readsOnly_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<bool>("isPossible");
        QTest::newRow("select") << "SELECT COUNT(*) AS n FROM cycle" << true;
        QTest::newRow("end") << "  select 1 as n ; \n" << true;
        QTest::newRow("with") << "WITH a AS (SELECT 1 AS n) SELECT n FROM a" << true;
        QTest::newRow("wrong") << "SELECT nothing FROM nowhere" << false;
        QTest::newRow("delete") << "DELETE FROM cycle" << false;
        QTest::newRow("update") << "UPDATE cycle SET unit = 1" << false;
        QTest::newRow("with delete") << "WITH a AS (SELECT 1) DELETE FROM cycle" << false;
        QTest::newRow("two") << "SELECT 1 AS n; DELETE FROM cycle" << false;
        QTest::newRow("out of the transaction") << "SELECT 1; COMMIT; DELETE FROM cycle" << false;
        QTest::newRow("pragma") << "PRAGMA query_only = OFF" << false;
        QTest::newRow("copy") << "VACUUM INTO '/tmp/kolt-copy.sqlite'" << false;
        QTest::newRow("program") << "COPY cycle TO PROGRAM 'cat'" << false;
        QTest::newRow("attach") << "ATTACH '/tmp/kolt-copy.sqlite' AS other" << false;
        QTest::newRow("comment first") << "/* SELECT */ DELETE FROM cycle" << false;
        QTest::newRow("into") << "SELECT * INTO copied FROM cycle" << false;
        QTest::newRow("rights") << "SELECT set_config('transaction_read_only', 'off', false)"
                                << false;
        QTest::newRow("nothing") << "" << false;
    }

    void readsOnly()
    {
        QFETCH(QString, sql);
        QFETCH(bool, isPossible);
        {
            LibraryDatabase database;
            QVERIFY(database.open(m_address, Access::Create));
            QVERIFY(database.storeCycle(someCycle(1), someFigures(1), someSource()));
        }
        const QJsonArray before = contentOf(m_address);
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::ReadOnly));
        const Answer<QJsonArray> answer = database.query(sql);
        QCOMPARE(answer.error.isEmpty(), isPossible);
        if (isPossible)
            QCOMPARE(answer.value, QJsonArray{QJsonObject({{"n", 1}})});
        QVERIFY(!QFile::exists("/tmp/kolt-copy.sqlite"));
        QCOMPARE(contentOf(m_address), before);
        QVERIFY(!database.query("SELECT 1 AS n").value.isEmpty()); // goes on after a failure
    }

    void newerAndOlderSchemas()
    {
        QJsonArray before;
        {
            LibraryDatabase database;
            QVERIFY(database.open(m_address, Access::Create));
            for (int i = 0; i < 10; ++i)
                QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
            before = contentOf(m_address);
        }
        // As version 1 had it.
        QStringList script{"DROP VIEW engine",
                           "DROP VIEW unit",
                           "DROP TABLE engine_band",
                           "DROP TABLE engine_unit",
                           "ALTER TABLE library_schema DROP COLUMN archive",
                           "UPDATE library_schema SET version = 1"};
        for (const char* index :
             {"cycle_by_unit", "cycle_by_engine", "cycle_by_time", "flight_by_duration",
              "episode_by_quantity", "fault_by_parameter", "file_by_hash"})
            script << QString("DROP INDEX ") + index;
        for (const QString& sql : script)
            execute(sql);
        LibraryDatabase database;
        QVERIFY(!database.open(m_address, Access::ReadOnly));
        QVERIFY(database.open(m_address, Access::ReadWrite));
        QCOMPARE(contentOf(m_address), before);
        execute("UPDATE library_schema SET version = 9999");
        for (const Access access : {Access::ReadOnly, Access::ReadWrite, Access::Create}) {
            QVERIFY(!database.open(m_address, access));
            QCOMPARE(database.status(), Status::TooNew);
            QVERIFY(database.error().contains("9999"));
        }
    }

    void absentLibraryIsTold()
    {
        LibraryDatabase database;
        for (const Access access : {Access::ReadOnly, Access::ReadWrite}) {
            QVERIFY(!database.open(m_address, access));
            QCOMPARE(database.status(), Status::Absent);
        }
        QVERIFY(!QFile::exists(m_folder->path() + "/library.sqlite"));
        const QString gone = m_address.isServer() ? m_library + "gone" : m_folder->path() + "/gone";
        QVERIFY(!database.open(
            *parseLibraryAddress(gone, m_folder->path() + (m_address.isServer() ? "" : "/gone"))
                 .address,
            Access::Create));
        QVERIFY(database.error().contains("gone"));
    }

    void isOfOneArchive()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        QCOMPARE(database.archive().value, QString());
        QVERIFY(database.claim("first"));
        QVERIFY(database.storeCycle(someCycle(1), someFigures(1), someSource()));
        QVERIFY(database.open(m_address, Access::Create));
        QVERIFY(database.claim("first"));
        // A file lies in its archive, whose mark may have been lost.
        QCOMPARE(database.claim("other"), !m_address.isServer());
        if (m_address.isServer()) {
            QVERIFY2(database.error().contains(m_folder->path()), qPrintable(database.error()));
            QCOMPARE(database.archive().value, QString("first"));
            QVERIFY(database.isOpen());
            QVERIFY(database.claim("other", LibraryDatabase::Claim::Take));
        }
        QCOMPARE(database.archive().value, QString("other"));
        checkWhole(m_address);
    }

    void damagedDatabaseIsToldAndMadeAnew()
    {
        if (m_address.isServer())
            QSKIP("the files of a server are its own business");
        for (const QByteArray& damage :
             {QByteArray("no database at all"), QByteArray(), QByteArray("*")}) {
            {
                LibraryDatabase database;
                QVERIFY(database.recreate(m_address));
                for (int i = 0; i < 20; ++i)
                    QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
            }
            QFile file(m_address.sqliteFile());
            QVERIFY(file.open(QIODevice::ReadWrite));
            if (damage == "*") { // pages in the middle, as from a bad disk
                file.seek(file.size() / 4);
                file.write(QByteArray(static_cast<int>(file.size() / 2), 'x'));
            } else if (damage.isEmpty()) {
                file.resize(file.size() / 3);
            } else {
                file.resize(0);
                file.write(damage.repeated(100));
            }
            file.close();
            LibraryDatabase database;
            const bool isOpen = database.open(m_address, Access::ReadWrite);
            const bool isFine = isOpen && LibraryQueries(database).flights({}, -1) &&
                                database.storeCycle(someCycle(30), someFigures(30), someSource());
            QVERIFY(!isFine);
            QCOMPARE(database.status(), Status::Damaged);
            QVERIFY2(database.error().contains("rebuild"), qPrintable(database.error()));
            QVERIFY2(database.recreate(m_address), qPrintable(database.error()));
            QVERIFY(database.storeCycle(someCycle(1), someFigures(1), someSource()));
            checkWhole(m_address);
        }
        QVERIFY(QFile::exists(m_address.sqliteFile() + ".broken"));
    }

    void lackingTableIsDamage()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        execute("DROP TABLE finding");
        QVERIFY(!database.storeCycle(someCycle(4), someFigures(4), someSource()));
        QCOMPARE(database.status(), Status::Damaged);
        QVERIFY(database.recreate(m_address));
        QVERIFY(database.storeCycle(someCycle(4), someFigures(4), someSource()));
        checkWhole(m_address);
    }

    void passwordsAreAskedFor()
    {
        if (!m_address.isServer())
            QSKIP("a file has no password");
        QVERIFY(m_server.addUserWithPassword("pilot" + QString(m_library.right(2)), "s3cret")
                    .isEmpty());
        QString url = m_library;
        url.replace("owner@", "pilot" + m_library.right(2) + "@");
        const LibraryAddress address = *parseLibraryAddress(url, m_folder->path()).address;
        LibraryDatabase database;
        QVERIFY(!database.open(address, Access::Create));
        QCOMPARE(database.status(), Status::NoPassword);
        QStringList answers{"wrong", "s3cret"};
        QString asked;
        QVERIFY(database.open(address, Access::Create, [&](const QString& server) {
            asked = server;
            return answers.isEmpty() ? std::optional<QString>() : answers.takeFirst();
        }));
        QCOMPARE(asked, url.section("://", 1).replace(QRegularExpression(":\\d+"), ""));
        QVERIFY(!database.error().contains("s3cret"));
        QVERIFY(!database.open(address, Access::Create,
                               [](const QString&) { return std::optional<QString>(); }));
        QCOMPARE(database.status(), Status::NoPassword);
        QVERIFY(!database.open(
            *parseLibraryAddress("postgresql://owner@127.0.0.1:1/x", m_folder->path()).address,
            Access::Create));
        QCOMPARE(database.status(), Status::Unreachable);
    }

    void addresses_data()
    {
        QTest::addColumn<QString>("library");
        QTest::addColumn<QString>("archive");
        QTest::addColumn<bool>("isFine");
        QTest::newRow("folder") << "/a"
                                << "" << true;
        QTest::newRow("the same folder") << "/a"
                                         << "/a/" << true;
        QTest::newRow("two folders") << "/a"
                                     << "/b" << false;
        QTest::newRow("nothing") << ""
                                 << "" << false;
        QTest::newRow("server") << "postgresql://u@h:1/d?sslmode=require"
                                << "/a" << true;
        QTest::newRow("no archive") << "postgresql://u@h/d"
                                    << "" << false;
        QTest::newRow("no database") << "postgresql://u@h"
                                     << "/a" << false;
        QTest::newRow("password") << "postgresql://u:p4ss@h/d"
                                  << "/a" << false;
        QTest::newRow("hidden password") << "postgresql://u@h/d?password=p4ss"
                                         << "/a" << false;
        QTest::newRow("option") << "postgresql://u@h/d?service=x"
                                << "/a" << false;
        QTest::newRow("other server") << "mysql://u:p4ss@h/d"
                                      << "/a" << false;
    }

    void addresses()
    {
        QFETCH(QString, library);
        QFETCH(QString, archive);
        QFETCH(bool, isFine);
        const ParsedAddress parsed = parseLibraryAddress(library, archive);
        QCOMPARE(parsed.address.has_value(), isFine);
        QCOMPARE(parsed.error.isEmpty(), isFine);
        QVERIFY(!parsed.error.contains("p4ss"));
    }
};

QTEST_GUILESS_MAIN(TestLibraryAccess)

#include "tst_libraryaccess.moc"
