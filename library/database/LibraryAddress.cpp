#include "library/database/LibraryAddress.h"

#include <QCoreApplication>
#include <QDir>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>

namespace KOLT::Library {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::LibraryAddress)
};

bool isUrl(const QString& text)
{
    return text.contains(QLatin1String("://"));
}

ParsedAddress wrong(const QString& error)
{
    return {{}, error};
}

ParsedAddress parseServer(const QString& library, const QString& archive)
{
    const QUrl url(library);
    if (url.scheme() != QLatin1String("postgresql") && url.scheme() != QLatin1String("postgres"))
        return wrong(Text::tr("%1 is neither a folder nor the address of a PostgreSQL server, such "
                              "as postgresql://user@host/database")
                         .arg(url.toDisplayString(QUrl::RemovePassword)));
    if (!url.password().isEmpty() || QUrlQuery(url).hasQueryItem(QStringLiteral("password")))
        return wrong(Text::tr("Leave the password out of the address, where others can see it: put "
                              "it into the password file of PostgreSQL (~/.pgpass), or wait for "
                              "being asked"));
    if (!url.isValid() || url.path().size() < 2)
        return wrong(Text::tr("%1 names no database: postgresql://user@host/database")
                         .arg(url.toDisplayString(QUrl::RemovePassword)));
    const QList<std::pair<QString, QString>> options = QUrlQuery(url).queryItems();
    for (const auto& [key, value] : options) {
        if (!serverOptions().contains(key) || value.contains(QLatin1Char(';')) ||
            value.contains(QLatin1Char(' ')))
            return wrong(Text::tr("the option \"%1\" of the server's address is not known; known "
                                  "are %2")
                             .arg(key, serverOptions().join(QStringLiteral(", "))));
    }
    if (archive.isEmpty())
        return wrong(Text::tr("a library on a server needs the folder of its archive as well"));
    return {LibraryAddress{archive, library}, {}};
}

} // namespace

const QStringList& serverOptions()
{
    static const QStringList known{QStringLiteral("host"), QStringLiteral("sslmode"),
                                   QStringLiteral("sslrootcert"), QStringLiteral("connect_timeout"),
                                   QStringLiteral("passfile")};
    return known;
}

QString LibraryAddress::sqliteFile() const
{
    return isServer() ? QString() : QDir(archive).filePath(QStringLiteral("library.sqlite"));
}

QString LibraryAddress::shown() const
{
    return isServer() ? QUrl(server).toDisplayString(QUrl::RemovePassword | QUrl::RemoveQuery)
                      : QDir::toNativeSeparators(sqliteFile());
}

ParsedAddress parseLibraryAddress(const QString& library, const QString& archive)
{
    if (library.isEmpty())
        return wrong(Text::tr("no library is given"));
    if (isUrl(library))
        return parseServer(library, archive);
    if (!archive.isEmpty() && QDir(archive) != QDir(library))
        return wrong(Text::tr("only a library on a server has its archive elsewhere"));
    return {LibraryAddress{library, {}}, {}};
}

} // namespace KOLT::Library
