#pragma once

#include "library/database/CycleFigures.h"
#include "library/database/LibraryAddress.h"

#include <QDate>
#include <QJsonArray>
#include <QString>
#include <QVariantList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QSqlQuery;

namespace KOLT::Library {

class LibraryConnection;

/// A result, or why there is none, for the user. What was asked for is empty then.
template <typename T>
struct Answer
{
    T value{};
    QString error;

    explicit operator bool() const { return error.isEmpty(); }
};

/// That an engine was in a unit for some time, as people say: it takes the place of the engine
/// that the headers of the files name.
struct Installation
{
    QString engine;
    quint32 unit = 0;
    QDate from; ///< invalid: from the beginning
    QDate to;   ///< the last day; invalid: until now
};

/// The database of a library (docs/formats/library.md): SQLite or PostgreSQL, with one schema and
/// one set of statements. All of it can be made again from the archive.
///
/// An object is a connection and belongs to the thread that opens it. Each change is a transaction
/// of its own; changes of several programs at once wait for each other. Functions that return bool
/// or Answer tell the reason of a failure by error().
class LibraryDatabase
{
public:
    enum class Access {
        ReadOnly,
        ReadWrite, ///< of a database that is there
        Create     ///< makes it if it is not there. The archive's folder must be
    };

    enum class Status {
        Closed,
        Open,
        Absent,      ///< no such folder or database: a disk that is not plugged in?
        Unreachable, ///< the server does not answer, or the user may not
        NoPassword,  ///< the server wants one, and none is known or it is wrong
        Damaged,     ///< recreate() helps
        TooNew,      ///< written by a newer version of the program
        Unsupported, ///< no driver: PostgreSQL on Windows
        Failed
    };

    /// Asks for the password of "user@host/database"; none: the user gave up.
    using PasswordPrompt = std::function<std::optional<QString>(const QString& server)>;

    LibraryDatabase();
    ~LibraryDatabase();
    LibraryDatabase(const LibraryDatabase&) = delete;
    LibraryDatabase& operator=(const LibraryDatabase&) = delete;

    /// Opens it and brings an older schema up to date, unless it is read only.
    bool open(const LibraryAddress& address, Access access, const PasswordPrompt& prompt = {});
    void close();

    /// Opens an empty database in place of what is there: a file is moved to
    /// "library.sqlite.broken", a server's tables are dropped.
    bool recreate(const LibraryAddress& address, const PasswordPrompt& prompt = {});

    Status status() const { return m_status; }

    bool isOpen() const { return m_status == Status::Open; }

    const LibraryAddress& address() const { return m_address; }

    /// Of the last failure, for the user: what happened, to what, what to do.
    const QString& error() const { return m_error; }

    /// Whether this program can use a server.
    static bool hasServers();

    /// Empty if the server of the address answers, whatever it says; otherwise the error for the
    /// user. Takes up to some seconds, and may be called in any thread.
    static QString silence(const LibraryAddress& address);

    /// The id of the archive that it is of; empty: of none yet.
    Answer<QString> archive();

    enum class Claim { Ask, Take };
    /// Whether the database is of the archive with this id. One that is of none yet becomes its
    /// own; so does, with `Take`, any other, and always a file beside the archive. To be asked
    /// before an update: that removes what is not in the archive, and the shared folder of a
    /// server's library may not be connected on this computer.
    bool claim(const QString& archiveId, Claim claim = Claim::Ask);

    /// Takes a cycle in or replaces what is known of it. Without figures those that are kept stay
    /// if the files are the same.
    bool storeCycle(const ArchivedCycle& cycle);
    bool storeCycle(const ArchivedCycle& cycle, const CycleFigures& figures,
                    const FiguresSource& source);
    bool removeCycle(const QString& folder);

    /// Replaces all of them, and says anew for all cycles which engine they are of. Does nothing if
    /// it has these.
    bool setInstallations(const std::vector<Installation>& installations);

    /// All cycles by folder, with their files alone: to be compared with those of the archive.
    Answer<std::vector<ArchivedCycle>> cycles();
    /// The folders of those whose figures were found with something else, or not yet.
    Answer<QStringList> staleFolders(const FiguresSource& now);

    /// Between both, all that is read is of the same moment, whatever others change.
    bool beginReading();
    void endReading();

    /// A bound statement for reading. Placeholders are '?'. The query is not active on failure. It
    /// must not outlive the connection.
    QSqlQuery select(const QString& sql, const QVariantList& values = {});

    /// Rows of a statement that only reads, as `kolt-cli library query` prints them. Anything but
    /// one statement that reads is refused; the database must be open read only.
    Answer<QJsonArray> query(const QString& sql);

private:
    bool fail(Status status, const QString& error);
    bool failed();
    bool connect(bool isReadOnly, const PasswordPrompt& prompt);
    bool checkSchema(Access access);

    std::unique_ptr<LibraryConnection> m_connection;
    LibraryAddress m_address;
    Status m_status = Status::Closed;
    QString m_error;
};

} // namespace KOLT::Library
