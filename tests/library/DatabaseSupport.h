#pragma once

#include "library/database/LibraryDatabase.h"
#include "tests/support/LibraryData.h"
#include "tests/support/PostgresServer.h"

#include <QJsonObject>
#include <QTest>

#include <memory>

/// What the tests of the library's database share.
namespace KOLT::Test {

using namespace Library;

using Access = LibraryDatabase::Access;
using Status = LibraryDatabase::Status;

inline constexpr int cycleCount = 60;

inline QJsonArray ask(const LibraryAddress& address, const QString& sql)
{
    LibraryDatabase database;
    if (!database.open(address, Access::ReadOnly))
        qWarning("%s", qUtf8Printable(database.error()));
    const Answer<QJsonArray> answer = database.query(sql);
    if (!answer)
        qWarning("%s", qUtf8Printable(answer.error));
    return answer.value;
}

/// All that must hold of a database, whatever happened to its writers.
inline void checkWhole(const LibraryAddress& address)
{
    for (const char* table : {"flight", "episode", "fault"})
        QCOMPARE(ask(address, QString("SELECT c.folder FROM cycle c WHERE c.%1s <> (SELECT "
                                      "COUNT(*) FROM %1 x WHERE x.cycle = c.id)")
                                  .arg(table)),
                 QJsonArray());
    QCOMPARE(ask(address, "SELECT c.folder FROM cycle c WHERE c.files <> (SELECT COUNT(*) FROM "
                          "file x WHERE x.cycle = c.id)"),
             QJsonArray());
    QCOMPARE(ask(address, "SELECT engine, quantity, state, micros FROM engine_band "
                          "ORDER BY engine, quantity, state"),
             ask(address, "SELECT c.engine, b.quantity, b.state, CAST(SUM(b.micros) AS BIGINT) AS "
                          "micros FROM band b JOIN cycle c ON c.id = b.cycle "
                          "GROUP BY c.engine, b.quantity, b.state "
                          "ORDER BY c.engine, b.quantity, b.state"));
    QStringList kept{"engine", "unit", "cycles"};
    QStringList counted{"engine", "unit", "CAST(COUNT(*) AS BIGINT) AS cycles"};
    for (const char* column : {"flights", "starts", "episodes", "limits", "run_micros",
                               "recorded_micros", "air_seconds", "fuel_micros"}) {
        kept << column;
        counted << QString("CAST(SUM(%1) AS BIGINT) AS %1").arg(column);
    }
    for (const char* counter : {"hours", "starts"}) {
        kept << QString("%1_readings").arg(counter);
        counted << QString("COUNT(unit_%1_last) AS %1_readings").arg(counter);
    }
    QCOMPARE(ask(address,
                 QString("SELECT %1 FROM engine_unit ORDER BY engine, unit").arg(kept.join(", "))),
             ask(address, QString("SELECT %1 FROM cycle GROUP BY engine, unit ORDER BY engine, "
                                  "unit")
                              .arg(counted.join(", "))));
}

/// What must not depend on how cycles came into the library.
inline QJsonArray contentOf(const LibraryAddress& address)
{
    QJsonArray all;
    for (const char* sql :
         {"SELECT folder, unit, engine, day, files, run_seconds, flights, episodes FROM cycle "
          "ORDER BY folder",
          "SELECT * FROM engine ORDER BY engine", "SELECT * FROM unit ORDER BY unit",
          "SELECT * FROM engine_band ORDER BY engine, quantity, state",
          "SELECT * FROM engine_unit ORDER BY engine, unit"})
        all.append(ask(address, sql));
    return all;
}

/// Each test runs on both databases, on one that is not there yet.
class DatabaseTest : public QObject
{
    Q_OBJECT

private slots:

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QFETCH_GLOBAL(QString, kind);
        if (kind == "PostgreSQL") {
            if (!m_hasServer) {
                const QString error = m_server.start();
                QVERIFY2(error.isEmpty(), qPrintable(error));
                m_hasServer = true;
            }
            m_library = m_server.newDatabase();
            QVERIFY(!m_library.isEmpty());
        } else {
            m_library = m_folder->path();
        }
        m_address = *parseLibraryAddress(m_library, m_folder->path()).address;
    }

    void initTestCase_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("SQLite") << "SQLite";
        QTest::newRow("PostgreSQL") << "PostgreSQL";
    }

protected:
    /// Past the program.
    void execute(const QString& sql)
    {
        if (m_address.isServer()) {
            QCOMPARE(m_server.sql(sql, m_library.section('/', -1)), QString());
            return;
        }
        QProcess sqlite;
        sqlite.start("sqlite3", {"-bail", m_address.sqliteFile(), sql});
        QVERIFY(sqlite.waitForFinished(30'000));
        QCOMPARE(sqlite.readAllStandardError(), QByteArray());
        QCOMPARE(sqlite.exitCode(), 0);
    }

    PostgresServer m_server;
    bool m_hasServer = false;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_library; ///< as on a command line
    LibraryAddress m_address;
};

} // namespace KOLT::Test
