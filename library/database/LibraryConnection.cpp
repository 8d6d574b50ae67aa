#include "library/database/LibraryConnection.h"

#include "base/SystemDrives.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStorageInfo>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>
#include <QUuid>

#include <algorithm>

namespace KOLT::Library {

namespace {

constexpr int busyMilliseconds = 60'000;
constexpr int defaultPort = 5432;

/// Held by whoever changes a library on a server; any number that other programs do not use.
constexpr qint64 writerLock = 0x4B4F'4C54'4C49'42LL;

/// Programs on several computers cannot share the memory that a write-ahead log needs.
bool isOnNetwork(const QString& path)
{
    const QString absolute = QDir::fromNativeSeparators(QFileInfo(path).absoluteFilePath());
    if (absolute.startsWith(QLatin1String("//")) || System::isNetworkDrive(absolute))
        return true;
    static const QStringList networks{
        QStringLiteral("nfs"),   QStringLiteral("nfs4"),   QStringLiteral("cifs"),
        QStringLiteral("smb"),   QStringLiteral("smbfs"),  QStringLiteral("smb2"),
        QStringLiteral("smb3"),  QStringLiteral("9p"),     QStringLiteral("afs"),
        QStringLiteral("afpfs"), QStringLiteral("webdav"), QStringLiteral("davfs")};
    const QString type =
        QString::fromLatin1(QStorageInfo(QFileInfo(absolute).path()).fileSystemType()).toLower();
    return networks.contains(type) || type.startsWith(QLatin1String("fuse."));
}

} // namespace

LibraryConnection::LibraryConnection(const LibraryAddress& address)
    : m_address(address)
    , m_name(QStringLiteral("KOLT library %1").arg(QUuid::createUuid().toString()))
{
    m_database = QSqlDatabase::addDatabase(
        isServer() ? QStringLiteral("QPSQL") : QStringLiteral("QSQLITE"), m_name);
}

LibraryConnection::~LibraryConnection()
{
    m_kept.clear();
    m_database.close();
    m_database = QSqlDatabase(); // no copy may be left when it is removed
    QSqlDatabase::removeDatabase(m_name);
}

bool LibraryConnection::hasDriver(bool isServer)
{
    return QSqlDatabase::isDriverAvailable(isServer ? QStringLiteral("QPSQL")
                                                    : QStringLiteral("QSQLITE"));
}

bool LibraryConnection::open(bool isReadOnly, const QString& password)
{
    return isServer() ? openServer(password) : openFile(isReadOnly);
}

bool LibraryConnection::openFile(bool isReadOnly)
{
    const QString file = m_address.sqliteFile();
    m_database.setDatabaseName(file);
    QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyMilliseconds);
    if (isReadOnly)
        options += QStringLiteral(";QSQLITE_OPEN_READONLY");
    m_database.setConnectOptions(options);
    if (!m_database.open())
        return fail(m_database.lastError());
    if (isReadOnly)
        return run(QStringLiteral("PRAGMA query_only = ON"));
    const bool isShared = isOnNetwork(file);
    const bool hasJournal = run(isShared ? QStringLiteral("PRAGMA journal_mode = DELETE")
                                         : QStringLiteral("PRAGMA journal_mode = WAL"));
    if (!hasJournal && failure() != Failure::Busy) // somebody works with the other one
        return false;
    return run(QStringLiteral("PRAGMA foreign_keys = ON")) &&
           run(isShared ? QStringLiteral("PRAGMA synchronous = FULL")
                        : QStringLiteral("PRAGMA synchronous = NORMAL"));
}

bool LibraryConnection::openServer(const QString& password)
{
    const QUrl url(m_address.server);
    m_database.setHostName(url.host());
    m_database.setPort(url.port(defaultPort));
    m_database.setDatabaseName(url.path().mid(1));
    m_database.setUserName(url.userName());
    m_database.setPassword(password);
    // A network that is gone is noticed within seconds, not when the system gives up.
    QStringList options{
        QStringLiteral("application_name=KOLT"), QStringLiteral("keepalives_idle=10"),
        QStringLiteral("keepalives_interval=5"), QStringLiteral("keepalives_count=2"),
        QStringLiteral("tcp_user_timeout=15000")};
    const QUrlQuery query(url);
    for (const QString& key : serverOptions()) {
        if (query.hasQueryItem(key))
            options << QStringLiteral("%1=%2").arg(key,
                                                   query.queryItemValue(key, QUrl::FullyDecoded));
    }
    if (!query.hasQueryItem(QStringLiteral("connect_timeout")))
        options << QStringLiteral("connect_timeout=10");
    m_database.setConnectOptions(options.join(QLatin1Char(';')));
    return m_database.open() || fail(m_database.lastError());
}

bool LibraryConnection::fail(const QSqlError& error)
{
    m_error = error;
    return false;
}

bool LibraryConnection::run(const QString& sql, const QVariantList& values)
{
    if (values.isEmpty()) { // which cannot be prepared, as it may be no query
        QSqlQuery query(m_database);
        return query.exec(sql) || fail(query.lastError());
    }
    QSqlQuery& query = runKept(sql, values);
    const bool isDone = query.isActive();
    query.finish(); // a statement that is not read to its end would hold locks
    return isDone;
}

QSqlQuery& LibraryConnection::runKept(const QString& sql, const QVariantList& values)
{
    Kept& kept = m_kept.try_emplace(sql, Kept{QSqlQuery(m_database)}).first->second;
    QSqlQuery& query = kept.query;
    if (!kept.isPrepared) {
        query.setForwardOnly(true);
        kept.isPrepared = query.prepare(sql);
    }
    for (int i = 0; i < values.size(); ++i)
        query.bindValue(i, values[i]);
    if (!kept.isPrepared || !query.exec()) {
        fail(query.lastError());
        kept.isPrepared = false; // it may work when it is prepared again
    }
    return query;
}

bool LibraryConnection::runScript(const QString& script)
{
    const QStringList statements = script.split(QStringLiteral(";\n"), Qt::SkipEmptyParts);
    return std::ranges::all_of(statements, [this](const QString& statement) {
        QSqlQuery query(m_database);
        return query.exec(statement) || fail(query.lastError());
    });
}

QSqlQuery LibraryConnection::select(const QString& sql, const QVariantList& values)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    bool isDone = query.prepare(sql);
    for (const QVariant& value : values)
        query.addBindValue(value);
    isDone = isDone && query.exec();
    if (!isDone)
        fail(query.lastError());
    return query;
}

bool LibraryConnection::begin()
{
    if (!isServer())
        return run(QStringLiteral("BEGIN IMMEDIATE"));
    if (!run(QStringLiteral("BEGIN")))
        return false;
    if (run(QStringLiteral("SELECT pg_advisory_xact_lock(%1)").arg(writerLock)))
        return true;
    rollback();
    return false;
}

bool LibraryConnection::beginReading()
{
    return run(isServer() ? QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY")
                          : QStringLiteral("BEGIN"));
}

bool LibraryConnection::commit()
{
    return run(QStringLiteral("COMMIT"));
}

void LibraryConnection::rollback()
{
    const QSqlError cause = m_error;
    run(QStringLiteral("ROLLBACK"));
    m_error = cause;
}

LibraryConnection::Failure LibraryConnection::failure() const
{
    if (m_error.type() == QSqlError::NoError)
        return Failure::None;
    const QString code = m_error.nativeErrorCode();
    if (isServer()) {
        // The texts of libpq are in the language of the system; there is no code for these.
        static const QRegularExpression password(QStringLiteral("passwor[dt]"),
                                                 QRegularExpression::CaseInsensitiveOption);
        const bool isConnecting = m_error.type() == QSqlError::ConnectionError;
        if (isConnecting || code.isEmpty() || code.startsWith(QLatin1String("08")) ||
            code.startsWith(QLatin1String("57P"))) {
            if (m_error.text().contains(password))
                return Failure::NoPassword;
            return isConnecting && m_error.text().contains(QLatin1String("FATAL: "))
                       ? Failure::Refused
                       : Failure::Lost;
        }
        if (code == QLatin1String("42P01") || code == QLatin1String("42703"))
            return Failure::NoTable;
        if (code == QLatin1String("42501") || code == QLatin1String("25006"))
            return Failure::ReadOnly;
        if (code == QLatin1String("53100"))
            return Failure::Full;
        return code.startsWith(QLatin1String("XX")) ? Failure::Damaged : Failure::Other;
    }
    constexpr int primaryCode = 0xFF;
    switch (code.toInt() & primaryCode) { // as in sqlite3.h
    case 5:
    case 6:
        return Failure::Busy;
    case 8:
        return Failure::ReadOnly;
    case 10:
    case 14:
        return Failure::Lost;
    case 11:
    case 26:
        return Failure::Damaged;
    case 13:
        return Failure::Full;
    default:
        return m_error.databaseText().contains(QLatin1String("no such ")) ? Failure::NoTable
                                                                          : Failure::Other;
    }
}

} // namespace KOLT::Library
