#pragma once

#include "library/database/LibraryAddress.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariantList>

#include <map>
#include <optional>

namespace KOLT::Library {

/// One connection to SQLite or PostgreSQL: what differs between both is here. Belongs to the thread
/// that makes it.
class LibraryConnection
{
public:
    enum class Failure {
        None,
        Busy,
        Damaged,
        Full,
        ReadOnly,
        Lost,
        Refused,
        NoPassword,
        NoTable,
        Other
    };

    explicit LibraryConnection(const LibraryAddress& address);
    ~LibraryConnection();
    LibraryConnection(const LibraryConnection&) = delete;
    LibraryConnection& operator=(const LibraryConnection&) = delete;

    static bool hasDriver(bool isServer);

    /// Creates SQLite's file if it is not there, unless it is read only. `password` of a server;
    /// null: that of the password file.
    bool open(bool isReadOnly, const QString& password = {});

    bool isServer() const { return m_address.isServer(); }

    /// A statement that is kept: for those that are executed often. '?' stands for a value.
    bool run(const QString& sql, const QVariantList& values = {});
    /// The same, to read what it returns. Valid until the statement is run again.
    QSqlQuery& runKept(const QString& sql, const QVariantList& values = {});
    /// Several statements without values, each ended by ";\n".
    bool runScript(const QString& script);
    /// A statement of its own, to be read forwards.
    QSqlQuery select(const QString& sql, const QVariantList& values = {});

    /// Begins to change the database. Only one program at a time can: others wait here.
    bool begin();
    /// Begins to read, without any changes by this or by others.
    bool beginReading();
    bool commit();
    void rollback();

    /// Of the last statement that failed.
    const QSqlError& error() const { return m_error; }

    Failure failure() const;

private:
    struct Kept
    {
        QSqlQuery query;
        bool isPrepared = false;
    };

    bool openFile(bool isReadOnly);
    bool openServer(const QString& password);
    bool fail(const QSqlError& error);

    LibraryAddress m_address;
    QString m_name;
    QSqlDatabase m_database;
    std::map<QString, Kept> m_kept;
    QSqlError m_error;
};

/// Rolls back unless it was committed.
class Transaction
{
public:
    explicit Transaction(LibraryConnection& connection)
        : m_connection(connection)
        , m_isOpen(connection.begin())
    {
    }

    ~Transaction()
    {
        if (m_isOpen)
            m_connection.rollback();
    }

    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    bool isOpen() const { return m_isOpen; }

    bool commit()
    {
        const bool isDone = m_isOpen && m_connection.commit();
        m_isOpen = m_isOpen && !isDone;
        return isDone;
    }

private:
    LibraryConnection& m_connection;
    bool m_isOpen;
};

} // namespace KOLT::Library
