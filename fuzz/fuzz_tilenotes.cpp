// Reads arbitrary bytes as the notes of a cached tile and as the headers of a server's reply.

#include "fuzz/FuzzFile.h"
#include "libs/tessamap/tiles/TileReply.h"

#include <QDir>

using namespace Tessa;

namespace {

constexpr qint64 now = 1'800'000'000'000;
constexpr qint64 day = 86'400'000;

void readNotes(const QByteArray& notes)
{
    static QTemporaryDir root;
    static TileDiskCache cache;
    const TileId tile{1, 0, 1};
    cache.setPlace(root.path(), QStringLiteral("0123456789abcdef"));
    if (!cache.write(tile, "body", {}))
        std::abort();
    QFile file(root.path() + QStringLiteral("/0123456789abcdef/1/0/1.meta"));
    if (!file.open(QIODevice::WriteOnly) || file.write(notes) != notes.size())
        std::abort();
    file.close();
    const auto entry = cache.read(tile);
    // Noted lengths that differ remove the tile; otherwise its body is as written.
    if (entry && entry->body != "body")
        std::abort();
    if (entry && (entry->meta.etag.contains('\n') || entry->meta.lastModified.contains('\n')))
        std::abort();
}

void readHeaders(const QByteArray& text)
{
    const QList<QByteArray> lines = text.split('\n');
    const auto line = [&](qsizetype i) { return i < lines.size() ? lines[i] : QByteArray(); };
    ReplyFacts facts;
    facts.status = line(0).toInt();
    facts.cacheControl = line(1);
    facts.expires = line(2);
    facts.date = line(3);
    facts.age = line(4);
    facts.retryAfter = line(5);
    facts.etag = line(6);
    facts.lastModified = line(7);
    outcomeOf(facts);
    mayStore(facts);
    metaOf(facts, now);
    const qint64 retry = retryTime(facts, now);
    if (retry < now || retry > now + day)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    readNotes(bytes);
    readHeaders(bytes);
    return 0;
}
