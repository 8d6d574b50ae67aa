#include "libs/tessamap/tiles/TileServer.h"

#include <QCryptographicHash>
#include <QDir>

namespace Tessa {

namespace {

bool isPublicHost(const QString& host)
{
    // The numbered mirrors of earlier years are the same server.
    return host == QLatin1String("tile.openstreetmap.org") ||
           host.endsWith(QLatin1String(".tile.openstreetmap.org"));
}

bool hasPlaceholders(const QString& address)
{
    return address.contains(QLatin1String("{z}")) && address.contains(QLatin1String("{x}")) &&
           address.contains(QLatin1String("{y}"));
}

QString withPlaceholders(QString address)
{
    if (address.contains(QLatin1String("{z}")) || address.contains(QLatin1String("{x}")) ||
        address.contains(QLatin1String("{y}")))
        return address;
    while (address.endsWith(QLatin1Char('/')))
        address.chop(1);
    return address + QLatin1String("/{z}/{x}/{y}.png");
}

QString filled(QString urlTemplate, const TileId& tile)
{
    return urlTemplate.replace(QLatin1String("{z}"), QString::number(tile.zoom))
        .replace(QLatin1String("{x}"), QString::number(tile.x))
        .replace(QLatin1String("{y}"), QString::number(tile.y))
        .replace(QLatin1String("{s}"), QLatin1String("a"));
}

} // namespace

QString TileServer::defaultTemplate()
{
    return QStringLiteral("https://tile.openstreetmap.org/{z}/{x}/{y}.png");
}

TileServer::TileServer(const QString& address)
{
    QString text = address.trimmed();
    if (text.isEmpty())
        text = defaultTemplate();
    if (text.startsWith(QLatin1String("file:"), Qt::CaseInsensitive))
        text = QUrl(text).toLocalFile();
    if (QDir::isAbsolutePath(text)) {
        readFolder(QDir::fromNativeSeparators(text));
        return;
    }
    if (!text.contains(QLatin1String("://")))
        text.prepend(QLatin1String("https://"));
    m_template = withPlaceholders(text);

    const QUrl sample(filled(m_template, TileId{}), QUrl::StrictMode);
    m_host = sample.host().toLower();
    m_isValid =
        sample.isValid() && !m_host.isEmpty() && hasPlaceholders(m_template) &&
        (sample.scheme() == QLatin1String("http") || sample.scheme() == QLatin1String("https"));
    if (m_isValid && isPublicHost(m_host)) {
        m_template = defaultTemplate();
        m_host = QUrl(filled(m_template, TileId{})).host();
    }
}

/// The folder is what precedes the first part with a placeholder. No part after it may lead out.
void TileServer::readFolder(const QString& path)
{
    const bool isPlain = !path.contains(QLatin1Char('{'));
    m_template = withPlaceholders(path);
    const qsizetype end =
        m_template.lastIndexOf(QLatin1Char('/'), m_template.indexOf(QLatin1Char('{')));
    m_folder = QDir::cleanPath(m_template.left(end + 1));
    const QStringList parts = m_template.mid(end + 1).split(QLatin1Char('/'));
    m_isValid = (isPlain || hasPlaceholders(m_template)) && !parts.contains(QLatin1String(".."));
}

QStringList TileServer::files(const TileId& tile) const
{
    if (!isFolder() || !m_isValid)
        return {};
    const QString file = filled(m_template, tile);
    QStringList files{file};
    // The template of a plain folder says ".png", but many have other formats.
    if (m_template.endsWith(QLatin1String("/{z}/{x}/{y}.png"))) {
        for (const char* const suffix : {"jpg", "jpeg"})
            files << file.chopped(3) + QLatin1String(suffix);
    }
    return files;
}

QUrl TileServer::url(const TileId& tile) const
{
    return m_isValid && !isFolder() ? QUrl(filled(m_template, tile)) : QUrl();
}

QString TileServer::attribution() const
{
    if (!m_isValid)
        return QString();
    if (isFolder()) // nobody knows from where the tiles are
        return QDir(m_folder).dirName();
    const QString contributors = QStringLiteral("(c) OpenStreetMap contributors");
    if (isPublicServer())
        return contributors;
    if (m_host.contains(QLatin1String("openstreetmap")))
        return contributors + QLatin1String(", ") + m_host;
    return m_host;
}

QUrl TileServer::attributionLink() const
{
    if (!m_isValid)
        return QUrl();
    if (isFolder())
        return QUrl::fromLocalFile(m_folder);
    if (m_host.contains(QLatin1String("openstreetmap")))
        return QUrl(QStringLiteral("https://www.openstreetmap.org/copyright"));
    QUrl link;
    link.setScheme(QUrl(filled(m_template, TileId{})).scheme());
    link.setHost(m_host);
    link.setPath(QStringLiteral("/"));
    return link;
}

QString TileServer::cacheKey() const
{
    const QByteArray hash =
        QCryptographicHash::hash(m_template.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(16));
}

} // namespace Tessa
