#include "libs/tessamap/tiles/TileDiskCache.h"
#include "libs/tessamap/tiles/TileReply.h"
#include "libs/tessamap/tiles/TileServer.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

#include <QDateTime>
#include <QDir>
#include <QUrl>

#include <sys/stat.h>

using namespace Tessa;
using KOLT::Test::readFile;
using KOLT::Test::Rows;
using KOLT::Test::writeFile;

namespace {

constexpr TileId tile{9, 268, 178};
constexpr qint64 now = 1'700'000'000'000; // 14 Nov 2023 22:13:20 GMT
constexpr qint64 day = 24LL * 3600 * 1000;

/// A cache in a folder of its own.
struct Cache : TileDiskCache
{
    Cache() { setPlace(folder.path(), QStringLiteral("0123456789abcdef")); }

    ~Cache() { waitForIdle(); }

    QString path(const QString& name) const
    {
        return folder.filePath(QStringLiteral("0123456789abcdef/9/") + name);
    }

    QTemporaryDir folder;
};

} // namespace

class TestTileCache : public QObject
{
    Q_OBJECT

private slots:
    void tileIds();
    void serverAddresses_data();
    void serverAddresses();
    void lifetimes();
    void whatIsWrittenIsRead();
    void damagedFiles_data();
    void damagedFiles();
    void onlyPlainFilesAreOpened();
    void placeThatCannotBeWritten();
    void leastRecentlyUsedGoFirst();
    void roomIsMadeWhileWriting();
};

void TestTileCache::tileIds()
{
    QCOMPARE((TileId{3, 5, 6}.parent()), (TileId{2, 2, 3}));
    QCOMPARE((TileId{0, 0, 0}.parent()), (TileId{0, 0, 0}));
    QCOMPARE((TileId{3, 5, 6}.ancestor(9)), (TileId{0, 0, 0}));
    QCOMPARE((TileId{3, -1, 6}.wrapped()), (TileId{3, 7, 6}));
    QCOMPARE((TileId{3, 17, 6}.wrapped()), (TileId{3, 1, 6}));
    QVERIFY((TileId{3, 7, 7}.isValid()));
    for (const TileId& bad :
         {TileId{-1, 0, 0}, TileId{3, 8, 0}, TileId{3, 0, -1}, TileId{31, 0, 0}})
        QVERIFY(!bad.isValid());
}

void TestTileCache::serverAddresses_data()
{
    // `url`: of tile 9/268/178; empty when the address cannot be used.
    const Rows<QString, QString, QString> row("address", "url", "attribution");
    const QString publicUrl = QStringLiteral("https://tile.openstreetmap.org/9/268/178.png");
    const QString contributors = QStringLiteral("(c) OpenStreetMap contributors");
    row("", publicUrl, contributors);
    row("http://tile.openstreetmap.org", publicUrl, contributors);
    row("tile.openstreetmap.org/", publicUrl, contributors);
    row("http://A.tile.openstreetmap.org/{z}/{x}/{y}.png", publicUrl, contributors);
    row(" https://maps.example/base// ", "https://maps.example/base/9/268/178.png", "maps.example");
    row("http://10.0.0.7:8080", "http://10.0.0.7:8080/9/268/178.png", "10.0.0.7");
    row("https://m.example/t?k=ab&z={z}&y={y}&x={x}", "https://m.example/t?k=ab&z=9&y=178&x=268",
        "m.example");
    row("https://tile.openstreetmap.de/", "https://tile.openstreetmap.de/9/268/178.png",
        contributors + ", tile.openstreetmap.de");
    row("https://m.example/{z}/{x}.png", "", "");
    row("ftp://m.example", "", "");
    row("http://", "", "");
}

void TestTileCache::serverAddresses()
{
    QFETCH(QString, address);
    QFETCH(QString, url);
    QFETCH(QString, attribution);
    const TileServer server(address);
    QCOMPARE(server.isValid(), !url.isEmpty());
    QCOMPARE(server.url(tile), QUrl(url));
    QCOMPARE(server.attribution(), attribution);
    QCOMPARE(server.attributionLink().isEmpty(), attribution.isEmpty());
    QCOMPARE(server.cacheKey().size(), 16);
    QCOMPARE(server.cacheKey() == TileServer().cacheKey(), server.isPublicServer());
}

void TestTileCache::lifetimes()
{
    const auto seconds = [](const char* cacheControl, const char* expires = "",
                            const char* age = "") {
        ReplyFacts facts;
        facts.date = "Tue, 14 Nov 2023 22:03:20 GMT"; // a clock that is 10 minutes behind
        facts.cacheControl = cacheControl;
        facts.expires = expires;
        facts.age = age;
        return (metaOf(facts, now).expires - now) / 1000;
    };
    QCOMPARE(seconds(""), 7 * day / 1000);
    QCOMPARE(seconds("public, Max-Age=90"), 90);
    QCOMPARE(seconds("max-age=90", "", "60"), 30); // less its age in a proxy
    QCOMPARE(seconds("max-age=90", "", "600"), 0);
    QCOMPARE(seconds("max-age=90", "Tue, 14 Nov 2023 23:00:00 GMT"), 90);
    QCOMPARE(seconds("no-cache, max-age=90"), 0);
    QCOMPARE(seconds("max-age=soon"), 7 * day / 1000);
    QCOMPARE(seconds("", "Tue, 14 Nov 2023 23:03:20 GMT"), 3600);
    QCOMPARE(seconds("", "Tue, 14 Nov 2023 01:00:00 GMT"), 0); // in the past
    QCOMPARE(seconds("", "-1"), 0);
    QCOMPARE(seconds("max-age=99999999999"), 366 * day / 1000);
}

void TestTileCache::whatIsWrittenIsRead()
{
    TileDiskCache switchedOff;
    QVERIFY(!switchedOff.write(tile, "picture", {}));
    QVERIFY(!switchedOff.read(tile) && !switchedOff.contains(tile));

    Cache cache;
    const TileMeta meta{"W/\"a: b\"", "Tue, 14 Nov 2023 22:13:20 GMT", now + day};
    QVERIFY(cache.write(tile, "picture", meta));
    QVERIFY(cache.write(tile, "another", meta)); // replaces it
    const auto entry = cache.read(tile);
    QVERIFY(entry);
    QCOMPARE(entry->body, QByteArray("another"));
    QVERIFY(entry->meta == meta);
    QCOMPARE(readFile(cache.path("268/178.png")), entry->body);
    QCOMPARE(QDir(cache.path("268")).entryList(QDir::Files),
             (QStringList{"178.meta", "178.png"})); // no temporary files

    QVERIFY(cache.writeMeta(tile, {"\"c\"", "", now}));
    QCOMPARE(cache.read(tile)->meta.etag, QByteArray("\"c\""));
    // A header cannot add lines to the notes.
    QVERIFY(cache.writeMeta(tile, {"x\nexpires: 9", "", now}));
    QVERIFY(cache.read(tile)->meta == (TileMeta{"", "", now}));
    cache.remove(tile);
    QVERIFY(!cache.contains(tile));
    QVERIFY(!cache.writeMeta(tile, meta));
}

void TestTileCache::damagedFiles_data()
{
    // The tile is kept, but has expired.
    const Rows<QString, QByteArray, bool> row("file", "content", "isKept");
    row("no notes", "178.meta", "", true);
    row("notes are no text", "178.meta", QByteArray(200, '\0'), true);
    row("notes cut short", "178.meta", "expires: 17\nsi", true);
    row("no expiry", "178.meta", "expires: soon\nsize: 7\n", true);
    row("notes without end", "178.meta", QByteArray("expires: 9\nsize: 7\n").repeated(1000), true);
    row("notes of another tile", "178.meta", "expires: 1700000000000\nsize: 9\n", false);
    row("tile cut short", "178.png", "pic", false);
    row("tile empty", "178.png", "", false);
    row("tile too large", "178.png", QByteArray(5 << 20, 'x'), false);
}

void TestTileCache::damagedFiles()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(bool, isKept);
    Cache cache;
    QVERIFY(cache.write(tile, "picture", {"\"a\"", "", now + day}));
    QVERIFY(writeFile(cache.path("268/" + file), content));
    const auto entry = cache.read(tile);
    QCOMPARE(entry.has_value(), isKept);
    QCOMPARE(cache.contains(tile), isKept);
    if (isKept) {
        QCOMPARE(entry->body, QByteArray("picture"));
        QVERIFY(entry->meta == TileMeta{});
    }
    QVERIFY(cache.write(tile, "renewed", {"\"b\"", "", now}));
    QCOMPARE(cache.read(tile)->meta.etag, QByteArray("\"b\""));
}

void TestTileCache::onlyPlainFilesAreOpened()
{
    Cache cache;
    const QString elsewhere = cache.folder.filePath("elsewhere");
    for (const QString name : {"178.png", "178.meta", "178.png.part", "178.meta.part"}) {
        QVERIFY(cache.write(tile, "picture", {"", "", now}));
        const QString path = cache.path("268/" + name);
        QFile::remove(path);
        QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
        const bool isTile = name == "178.png";
        QCOMPARE(cache.contains(tile), !isTile);
        QCOMPARE(cache.read(tile).has_value(), !isTile);
        QVERIFY(cache.write(tile, "renewed", {"", "", now})); // replaces it
        QCOMPARE(cache.read(tile)->body, QByteArray("renewed"));

        QVERIFY(writeFile(elsewhere, "kept"));
        QFile::remove(path);
        QVERIFY(QFile::link(elsewhere, path));
        QVERIFY(cache.write(tile, "picture", {"", "", now}));
        QCOMPARE(readFile(elsewhere), QByteArray("kept"));
    }
}

void TestTileCache::placeThatCannotBeWritten()
{
    QTemporaryDir folder;
    // With a file in place of the folder, root cannot write either.
    QVERIFY(writeFile(folder.filePath("tiles"), "in the way"));
    TileDiskCache cache;
    cache.setPlace(folder.filePath("tiles"), QStringLiteral("0123456789abcdef"));
    QVERIFY(!cache.write(tile, "picture", {}));
    QVERIFY(!cache.read(tile));
    cache.remove(tile);
    cache.waitForIdle();
    QCOMPARE(readFile(folder.filePath("tiles")), QByteArray("in the way"));
}

void TestTileCache::leastRecentlyUsedGoFirst()
{
    Cache cache;
    cache.waitForIdle();
    const auto path = [&](int x) { return cache.path(QStringLiteral("%1/0.png").arg(x)); };
    const QDateTime longAgo = QDateTime::currentDateTimeUtc().addDays(-100);
    for (int x = 0; x < 20; ++x) {
        QVERIFY(cache.write({9, x, 0}, QByteArray(10000, 'x'), {"", "", now}));
        QFile file(path(x));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(longAgo.addSecs(x * 60), QFileDevice::FileModificationTime));
    }
    QVERIFY(cache.read({9, 0, 0})); // the oldest is used again
    const QString root = cache.folder.path();
    QDir(root).mkpath("holidays/9/1");
    const QString foreign = cache.folder.filePath("holidays/9/1/1.png");
    QVERIFY(writeFile(foreign, QByteArray(500000, 'x')));

    const std::atomic<bool> goOn{false};
    const qint64 left = TileDiskCache::makeRoom(root, 150000, goOn);
    QVERIFY(left <= 135000 && left > 120000);
    QVERIFY(QFile::exists(foreign));
    QVERIFY(QFile::exists(path(0)));
    for (int x = 1; x < 20; ++x) {
        const bool isKept = x >= 8;
        QCOMPARE(QFile::exists(path(x)), isKept);
        QCOMPARE(QFile::exists(path(x).chopped(3) + "meta"), isKept);
    }
    // Within the limit: nothing is deleted.
    QCOMPARE(TileDiskCache::makeRoom(root, 150000, goOn), left);
}

void TestTileCache::roomIsMadeWhileWriting()
{
    Cache cache;
    cache.setLimit(100000);
    for (int x = 0; x < 50; ++x)
        QVERIFY(cache.write({9, x, 0}, QByteArray(10000, 'x'), {"", "", now}));
    cache.waitForIdle();
    int left = 0;
    for (int x = 0; x < 50; ++x)
        left += cache.contains({9, x, 0}) ? 1 : 0;
    // Up to the limit once more may have been written since the last check.
    QVERIFY2(left >= 8 && left <= 20, qPrintable(QString::number(left)));
}

QTEST_GUILESS_MAIN(TestTileCache)
#include "tst_tilecache.moc"
