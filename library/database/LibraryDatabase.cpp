#include "library/database/LibraryDatabase.h"

#include "base/SafeFile.h"
#include "base/WriteGuard.h"
#include "library/database/CycleStore.h"
#include "library/database/LibraryConnection.h"
#include "library/database/LibrarySchema.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QUrl>

namespace KOLT::Library {

namespace {

constexpr int passwordAttempts = 3;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::LibraryDatabase)
};

/// "user@host/database", for whoever is asked for the password.
QString serverName(const LibraryAddress& address)
{
    const QUrl url(address.server);
    const QString name = url.host() + url.path();
    return url.userName().isEmpty() ? name : url.userName() + QLatin1Char('@') + name;
}

LibraryDatabase::Status statusOf(LibraryConnection::Failure failure)
{
    using Failure = LibraryConnection::Failure;
    using Status = LibraryDatabase::Status;
    switch (failure) {
    case Failure::Damaged:
    case Failure::NoTable: // the version said that it is there
        return Status::Damaged;
    case Failure::Lost:
    case Failure::Refused:
        return Status::Unreachable;
    case Failure::NoPassword:
        return Status::NoPassword;
    default:
        return Status::Failed;
    }
}

QString reasonOf(const LibraryConnection& connection)
{
    using Failure = LibraryConnection::Failure;
    const QSqlError& error = connection.error(); // whose text() adds what the driver tried
    const QString told =
        (error.databaseText().isEmpty() ? error.text() : error.databaseText()).simplified();
    switch (connection.failure()) {
    case Failure::Damaged:
    case Failure::NoTable:
        return Text::tr("it is damaged (%1). Nothing is lost: make it again from the archive, with "
                        "\"Rebuild\" or kolt-cli library rebuild")
            .arg(told);
    case Failure::Busy:
        return Text::tr("another program has been writing to it for a minute. Try again later");
    case Failure::Full:
        return Text::tr("the disk is full. Make room and try again");
    case Failure::ReadOnly:
        return connection.isServer()
                   ? Text::tr("its user lacks the right to do this (%1). Ask whoever looks after "
                              "the server")
                         .arg(told)
                   : Text::tr("it may not be written: %1").arg(told);
    case Failure::Refused:
        return Text::tr("the server refuses the connection: %1").arg(told);
    case Failure::Lost:
        return connection.isServer()
                   ? Text::tr("the server does not answer: %1").arg(told)
                   : Text::tr("it cannot be read or written (%1). Is the disk still there?")
                         .arg(told);
    case Failure::NoPassword:
        return Text::tr("the server wants a password (%1). Put it into the password file of "
                        "PostgreSQL (~/.pgpass)")
            .arg(told);
    default:
        return told;
    }
}

} // namespace

LibraryDatabase::LibraryDatabase() = default;
LibraryDatabase::~LibraryDatabase() = default;

bool LibraryDatabase::hasServers()
{
    return LibraryConnection::hasDriver(true);
}

QString LibraryDatabase::silence(const LibraryAddress& address)
{
    LibraryConnection connection(address);
    if (connection.open(true) || connection.failure() != LibraryConnection::Failure::Lost)
        return {};
    return Text::tr("The library %1: %2").arg(address.shown(), reasonOf(connection));
}

bool LibraryDatabase::fail(Status status, const QString& error)
{
    m_error = error;
    if (!isOpen() || status == Status::Damaged || status == Status::Unreachable)
        m_status = status;
    return false;
}

bool LibraryDatabase::failed()
{
    return fail(statusOf(m_connection->failure()),
                Text::tr("The library %1: %2").arg(m_address.shown(), reasonOf(*m_connection)));
}

void LibraryDatabase::close()
{
    m_connection.reset();
    m_status = Status::Closed;
}

bool LibraryDatabase::open(const LibraryAddress& address, Access access,
                           const PasswordPrompt& prompt)
{
    close();
    m_address = address;
    m_error.clear();
    if (!LibraryConnection::hasDriver(address.isServer()))
        return fail(Status::Unsupported,
                    address.isServer()
                        ? Text::tr("This installation cannot use a PostgreSQL server: the driver "
                                   "of the toolkit for it is missing (on Debian the package "
                                   "libqt6sql6-psql; on Windows there is none). A library in a "
                                   "folder needs no server")
                        : Text::tr("The driver of the toolkit for SQLite is missing (on Debian the "
                                   "package libqt6sql6-sqlite)"));
    if (!address.isServer()) {
        // An empty file in place of an absent library would hide that its disk is not there.
        if (!QFileInfo(address.archive).isDir())
            return fail(Status::Absent,
                        Text::tr("There is no folder %1. Is the disk of the library plugged in?")
                            .arg(QDir::toNativeSeparators(address.archive)));
        const bool isThere = QFileInfo::exists(address.sqliteFile());
        if (!isThere && access != Access::Create)
            return fail(Status::Absent,
                        Text::tr("There is no library %1. It is made by the first import, or from "
                                 "an archive with kolt-cli library rebuild")
                            .arg(address.shown()));
        const QString objection = writeObjection(address.sqliteFile());
        if (access != Access::ReadOnly && !objection.isEmpty())
            return fail(Status::Failed, objection);
    }
    return connect(access == Access::ReadOnly, prompt) && checkSchema(access);
}

bool LibraryDatabase::connect(bool isReadOnly, const PasswordPrompt& prompt)
{
    QString password;
    for (int attempt = 0;; ++attempt) {
        m_connection = std::make_unique<LibraryConnection>(m_address);
        if (m_connection->open(isReadOnly, password))
            return true;
        const bool mayAsk =
            m_connection->failure() == LibraryConnection::Failure::NoPassword && prompt;
        if (!mayAsk || attempt == passwordAttempts)
            return failed();
        const std::optional<QString> answer = prompt(serverName(m_address));
        if (!answer)
            return failed();
        password = *answer;
    }
}

bool LibraryDatabase::checkSchema(Access access)
{
    const SchemaVersion found = schemaVersionOf(*m_connection);
    if (!found.isKnown)
        return failed();
    if (found.version > schemaVersion)
        return fail(Status::TooNew,
                    Text::tr("The library %1 was written by a newer version of KOLT (its database "
                             "has version %2, this program knows %3). Use that version, or give "
                             "this one a library of its own")
                        .arg(m_address.shown())
                        .arg(found.version)
                        .arg(schemaVersion));
    if (found.version == 0 && access != Access::Create)
        return fail(Status::Absent,
                    Text::tr("There is no library in %1 yet. It is made by the first import, or "
                             "from an archive with kolt-cli library rebuild")
                        .arg(m_address.shown()));
    if (found.version < schemaVersion) {
        if (access == Access::ReadOnly)
            return fail(Status::Failed,
                        Text::tr("The library %1 was written by an older version of KOLT. Any "
                                 "import brings it up to date, and so does kolt-cli library "
                                 "rebuild")
                            .arg(m_address.shown()));
        if (!upgradeSchema(*m_connection))
            return failed();
    }
    m_status = Status::Open;
    return true;
}

bool LibraryDatabase::recreate(const LibraryAddress& address, const PasswordPrompt& prompt)
{
    close();
    m_address = address;
    m_error.clear();
    if (address.isServer()) {
        if (!LibraryConnection::hasDriver(true))
            return open(address, Access::Create, prompt); // tells it
        if (!connect(false, prompt))
            return false;
        const SchemaVersion found = schemaVersionOf(*m_connection);
        if (!found.isKnown)
            return failed();
        Transaction transaction(*m_connection);
        const bool isEmpty =
            transaction.isOpen() && (found.version == 0 || dropSchema(*m_connection));
        if (!isEmpty || !transaction.commit())
            return failed();
        return checkSchema(Access::Create);
    }
    const QString file = address.sqliteFile();
    const QString objection = writeObjection(file);
    if (!objection.isEmpty())
        return fail(Status::Failed, objection);
    if (QFileInfo::exists(file) && moveAside(file).isEmpty())
        return fail(Status::Failed, Text::tr("%1 cannot be moved aside. Is the folder read-only?")
                                        .arg(QDir::toNativeSeparators(file)));
    // What belongs to the old file would spoil the new one.
    for (const char* suffix : {"-wal", "-shm", "-journal"}) {
        const QString beside = file + QLatin1String(suffix);
        if (QFileInfo::exists(beside) && moveAside(beside).isEmpty())
            return fail(Status::Failed,
                        Text::tr("%1 cannot be moved aside. Is the folder read-only?")
                            .arg(QDir::toNativeSeparators(beside)));
    }
    return open(address, Access::Create, prompt);
}

Answer<QString> LibraryDatabase::archive()
{
    QSqlQuery query = select(QStringLiteral("SELECT archive FROM library_schema"));
    if (!query.isActive() || !query.next())
        return {{}, m_error};
    return {query.value(0).toString(), {}};
}

bool LibraryDatabase::claim(const QString& archiveId, Claim claim)
{
    const Answer<QString> known = archive();
    if (!known || known.value == archiveId || archiveId.isEmpty())
        return known.error.isEmpty();
    if (!known.value.isEmpty() && claim == Claim::Ask && m_address.isServer())
        return fail(m_status,
                    Text::tr("The library %1 is that of another folder than %2. Is the shared "
                             "folder connected there? If this folder is to take its place, make "
                             "the database anew with kolt-cli library rebuild")
                        .arg(m_address.shown(), QDir::toNativeSeparators(m_address.archive)));
    return m_connection->run(QStringLiteral("UPDATE library_schema SET archive = ?"),
                             {archiveId}) ||
           m_connection->failure() == LibraryConnection::Failure::ReadOnly || failed();
}

bool LibraryDatabase::storeCycle(const ArchivedCycle& cycle)
{
    if (!isOpen())
        return false;
    return CycleStore(*m_connection).store(cycle) || failed();
}

bool LibraryDatabase::storeCycle(const ArchivedCycle& cycle, const CycleFigures& figures,
                                 const FiguresSource& source)
{
    if (!isOpen())
        return false;
    return CycleStore(*m_connection).store(cycle, figures, source) || failed();
}

bool LibraryDatabase::removeCycle(const QString& folder)
{
    if (!isOpen())
        return false;
    return CycleStore(*m_connection).remove(folder) || failed();
}

bool LibraryDatabase::setInstallations(const std::vector<Installation>& installations)
{
    if (!isOpen())
        return false;
    return CycleStore(*m_connection).install(installations) || failed();
}

bool LibraryDatabase::beginReading()
{
    if (!isOpen())
        return false;
    return m_connection->beginReading() || failed();
}

void LibraryDatabase::endReading()
{
    if (m_connection != nullptr)
        m_connection->rollback();
}

QSqlQuery LibraryDatabase::select(const QString& sql, const QVariantList& values)
{
    if (!isOpen())
        return QSqlQuery(QSqlDatabase());
    QSqlQuery query = m_connection->select(sql, values);
    if (!query.isActive())
        failed();
    return query;
}

Answer<std::vector<ArchivedCycle>> LibraryDatabase::cycles()
{
    Answer<std::vector<ArchivedCycle>> answer;
    QSqlQuery query = select(
        QStringLiteral("SELECT c.folder, f.name, f.sha256, f.bytes FROM cycle c LEFT JOIN file f "
                       "ON f.cycle = c.id ORDER BY c.folder, f.name"));
    if (!query.isActive())
        return {{}, m_error};
    while (query.next()) {
        const QString folder = query.value(0).toString();
        if (answer.value.empty() || answer.value.back().folder != folder)
            answer.value.emplace_back().folder = folder;
        if (!query.isNull(1))
            answer.value.back().files.push_back({query.value(1).toString(),
                                                 query.value(2).toString(),
                                                 query.value(3).toLongLong()});
    }
    return answer;
}

Answer<QStringList> LibraryDatabase::staleFolders(const FiguresSource& now)
{
    Answer<QStringList> answer;
    QSqlQuery query =
        select(QStringLiteral("SELECT c.folder FROM cycle c LEFT JOIN source s ON s.id = c.source "
                              "WHERE s.id IS NULL OR s.profile <> ? OR s.profile_version <> ? "
                              "OR s.profile_sha256 <> ? OR s.variant <> ? OR s.program <> ? "
                              "ORDER BY c.folder"),
               {boundText(now.profile), boundText(now.profileVersion), boundText(now.profileSha256),
                boundText(now.variant), boundText(now.program)});
    if (!query.isActive())
        return {{}, m_error};
    while (query.next())
        answer.value << query.value(0).toString();
    return answer;
}

} // namespace KOLT::Library
