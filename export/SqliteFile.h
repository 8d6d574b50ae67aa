#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <memory>

namespace KOLT {

/// A new SQLite file that is filled once. After the first failure all further calls do nothing, so
/// that error() is only asked for at the end.
class SqliteFile
{
public:
    SqliteFile() = default;
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;
    ~SqliteFile();

    /// Opens a file that is there and empty. No other file is written beside it.
    void open(const QString& path);
    void execute(const QString& statement);
    /// Closes the file. False if anything failed.
    bool close();

    bool hasFailed() const { return !m_error.isEmpty(); }

    /// The first failure, in the system's words.
    const QString& error() const { return m_error; }

    /// A name or a text as SQL has it.
    static QString quotedName(QString name);

    /// Inserts rows into one table. Must not outlive the file.
    class Rows
    {
    public:
        Rows(SqliteFile& file, const QString& table, int columns);

        void add(const QVariantList& row);

    private:
        SqliteFile& m_file;
        QSqlQuery m_query;
        QVariantList m_last;
    };

private:
    void fail(const QSqlError& error);

    QString m_connection; ///< empty: not open
    QString m_error;
};

} // namespace KOLT
