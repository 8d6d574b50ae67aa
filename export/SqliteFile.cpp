#include "export/SqliteFile.h"

#include "export/ExportText.h"

#include <QSqlError>
#include <QUuid>

namespace KOLT {

SqliteFile::~SqliteFile()
{
    close();
}

void SqliteFile::open(const QString& path)
{
    const auto driver = QStringLiteral("QSQLITE");
    if (!QSqlDatabase::isDriverAvailable(driver)) {
        m_error = ExportText::tr("The SQLite plug-in of Qt is missing on this computer.");
        return;
    }
    m_connection = QUuid::createUuid().toString();
    QSqlDatabase database = QSqlDatabase::addDatabase(driver, m_connection);
    database.setDatabaseName(path);
    if (!database.open())
        fail(database.lastError());
    // A file that is not complete is deleted, so it needs no journal, which would be a second file.
    for (const char* pragma : {"journal_mode = OFF", "synchronous = OFF",
                               "locking_mode = EXCLUSIVE", "temp_store = MEMORY"})
        execute(QStringLiteral("PRAGMA ") + QLatin1String(pragma));
}

void SqliteFile::execute(const QString& statement)
{
    if (hasFailed())
        return;
    QSqlQuery query(QSqlDatabase::database(m_connection));
    if (!query.exec(statement))
        fail(query.lastError());
}

bool SqliteFile::close()
{
    if (!m_connection.isEmpty()) {
        QSqlDatabase::database(m_connection).close();
        QSqlDatabase::removeDatabase(m_connection);
        m_connection.clear();
    }
    return !hasFailed();
}

void SqliteFile::fail(const QSqlError& error)
{
    if (m_error.isEmpty())
        m_error = error.databaseText().isEmpty() ? error.text() : error.databaseText();
}

QString SqliteFile::quotedName(QString name)
{
    return QLatin1Char('"') + name.replace(QLatin1Char('"'), QLatin1String("\"\"")) +
           QLatin1Char('"');
}

SqliteFile::Rows::Rows(SqliteFile& file, const QString& table, int columns)
    : m_file(file)
    , m_query(QSqlDatabase::database(file.m_connection))
{
    const QStringList places(columns, QStringLiteral("?"));
    if (!file.hasFailed() &&
        !m_query.prepare(QStringLiteral("INSERT INTO %1 VALUES (%2)")
                             .arg(quotedName(table), places.join(QLatin1Char(',')))))
        file.fail(m_query.lastError());
}

void SqliteFile::Rows::add(const QVariantList& row)
{
    if (m_file.hasFailed())
        return;
    // Values stay bound, and binding one costs more than inserting it.
    const bool isFirst = m_last.isEmpty();
    m_last.resize(row.size());
    for (qsizetype i = 0; i < row.size(); ++i) {
        if (!isFirst && m_last[i] == row[i])
            continue;
        m_query.bindValue(static_cast<int>(i), row[i]);
        m_last[i] = row[i];
    }
    if (!m_query.exec())
        m_file.fail(m_query.lastError());
}

} // namespace KOLT
