#include "libs/tessamap/tiles/TileCheck.h"
#include "libs/tessamap/tiles/TileSource.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/Rows.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <atomic>
#include <future>
#include <sys/stat.h>
#include <thread>

using namespace Tessa;
using namespace Tessa::Test;

namespace {

constexpr qint64 second = 1000;
constexpr qint64 day = 24 * 3600 * second;
constexpr TileId first{5, 3, 4};
constexpr TileId other{5, 3, 5};

QByteArray picture(const char* format = "png", int side = 256, QColor color = Qt::red)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(color);
    // Some content, so that truncation does damage.
    for (int i = 0; i < side; ++i)
        image.setPixelColor(i, (i * 37) % side, QColor(i % 256, 255 - i % 256, 9));
    return encoded(image, format);
}

QByteArray ok(const QByteArray& body = picture(), const QByteArray& headers = {})
{
    return LoopbackServer::answer("200 OK", body, headers);
}

QByteArray okWithoutLength(const QByteArray& body)
{
    return "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body;
}

/// A source with a loopback server and a clock that moves only when told.
struct Map
{
    explicit Map(const QString& directory = QString())
    {
        answer(ok());
        source.setClock([this] { return now; });
        source.setUserAgent("KOLT/9.9 (+https://kolt.example)");
        source.setDirectory(directory.isEmpty() ? folder.path() : directory);
        source.setServer(server.address());
    }

    /// The server's reply to every request; empty: it keeps the connection open.
    void answer(const QByteArray& bytes)
    {
        server.handler = [bytes](const LoopbackServer::Request&) { return bytes; };
    }

    /// Wants the tiles for long enough that they are asked for; returns the requests in flight.
    int show(const std::vector<TileId>& tiles)
    {
        source.setWanted(tiles);
        now += 120;
        return ask(tiles);
    }

    int ask(const std::vector<TileId>& tiles)
    {
        source.setWanted(tiles);
        return source.inFlightCount();
    }

    bool waitForReplies()
    {
        return QTest::qWaitFor([this] { return source.inFlightCount() == 0; });
    }

    std::vector<TileId> takeAll()
    {
        std::vector<TileId> tiles;
        while (const auto tile = source.takeNext())
            tiles.push_back(tile->id);
        return tiles;
    }

    /// Wants the tiles, waits until the server has answered and takes what is available.
    std::vector<TileId> load(const std::vector<TileId>& tiles)
    {
        show(tiles);
        waitForReplies();
        auto taken = takeAll();
        source.work(); // confirms what takeAll() found expired
        waitForReplies();
        return taken;
    }

    QTemporaryDir folder;
    LoopbackServer server;
    qint64 now = 1'700'000'000'000;
    TileSource source;
};

} // namespace

class TestTileSource : public QObject
{
    Q_OBJECT

private slots:
    void outcomes_data();
    void outcomes();
    void failuresAreRepeatedEverLessOften();
    void slowServers();
    void endlessBodyIsNotTakenIn();
    void timeoutsInARowCountAsUnreachable();
    void unreachableServerIsProbed();
    void sixRequestsByPriority();
    void sameViewAsksNothing();
    void expiredTileIsConfirmed();
    void changedTileIsTakenAgain();
    void newZoomLevelRests();
    void unwantedRequestsAreGivenUp();
    void damagedTilesOnDiskAreFetched();
    void anotherServerStartsAfresh();
    void folderIsRead();
    void folderKeepsToItself_data();
    void folderKeepsToItself();
    void checkTellsWhatIsThere_data();
    void checkTellsWhatIsThere();
};

void TestTileSource::outcomes_data()
{
    // The tile is asked for again between these times; others may have to wait too.
    const KOLT::Test::Rows<QByteArray, bool, qint64, qint64, bool, int> row(
        "answer", "isPicture", "restAtLeast", "restAtMost", "isForAll", "messages");
    const auto good = [&](const char* name, const QByteArray& answer) {
        row(name, answer, true, 0, 0, false, 0);
    };
    good("png", ok());
    good("png of 512 pixels", ok(picture("png", 512)));
    good("jpeg", ok(picture("jpg")));
    good("without a length", okWithoutLength(picture()));

    const auto status = [&](const char* name, qint64 rest, bool isForAll, int messages = 0,
                            const char* headers = "") {
        row(name, LoopbackServer::answer(name, "no", headers), false, rest, rest, isForAll,
            messages);
    };
    status("404 Not Found", day, false);
    status("410 Gone", day, false);
    status("204 No Content", day, false);
    status("403 Forbidden", 600 * second, true, 1);
    status("418 Teapot", 600 * second, true, 1);
    status("401 Unauthorized", 600 * second, true, 1);
    status("429 Too Many Requests", 60 * second, true);
    status("503 Unavailable", 60 * second, true);
    status("429 With seconds", 95 * second, true, 0, "Retry-After: 95\r\n");
    status("503 With a date", 240 * second, true, 0,
           "Date: Tue, 14 Nov 2023 22:10:00 GMT\r\n"
           "Retry-After: Tue, 14 Nov 2023 22:14:00 GMT\r\n");

    const auto failed = [&](const char* name, const QByteArray& answer) {
        row(name, answer, false, 1600, 2400, false, 0);
    };
    failed("500", LoopbackServer::answer("500 Oops", "no"));
    failed("unasked 304", LoopbackServer::answer("304 Not Modified"));
    failed("no http", "hello\r\n\r\n");
    failed("no picture", ok("<html>log in</html>"));
    failed("packed", ok(qCompress(picture()).mid(4), "Content-Encoding: deflate\r\n"));
    failed("empty", ok(""));
    failed("other size", ok(picture("png", 300)));
    QImage huge(20000, 20000, QImage::Format_Mono);
    huge.fill(0);
    failed("20000 pixels", ok(encoded(huge)));
    failed("longer than 2 MiB", ok(QByteArray((2 << 20) + 1, 'x')));
    failed("longer without a length", okWithoutLength(QByteArray(3 << 20, 'x')));
    failed("cut short with a length", ok().chopped(300));
    failed("png cut short", okWithoutLength(picture().chopped(300)));
    failed("jpeg cut short", okWithoutLength(picture("jpg").chopped(300)));
    failed("redirected for ever",
           LoopbackServer::answer("302 Found", "", "Location: /5/3/4.png\r\n"));
}

void TestTileSource::outcomes()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, isPicture);
    QFETCH(qint64, restAtLeast);
    QFETCH(qint64, restAtMost);
    QFETCH(bool, isForAll);
    QFETCH(int, messages);

    Map map;
    QSignalSpy messageSpy(&map.source, &TileSource::message);
    map.server.handler = [&](const LoopbackServer::Request& request) {
        return request.path == "/5/3/4.png" ? answer : ok();
    };
    const auto taken = map.load({first});
    QVERIFY(!map.source.isOffline());
    QVERIFY(map.server.requests.size() <= 6); // five redirects at most
    QCOMPARE(messageSpy.size(), messages);
    QCOMPARE(map.source.loadingCount(), 0);
    QCOMPARE(map.source.diskCache().contains(first), isPicture);
    if (isPicture) {
        QCOMPARE(taken, std::vector{first});
        return;
    }
    QVERIFY(taken.empty());
    const qint64 failedAt = map.now;

    // It is not asked for again before the delay is over.
    for (const qint64 moment : {failedAt + 200, failedAt + restAtLeast - 1}) {
        map.now = moment - 120;
        QCOMPARE(map.show({first}), 0);
        QCOMPARE(map.source.loadingCount(), 0);
    }
    map.now -= 120;
    QCOMPARE(map.show({first, other}), isForAll ? 0 : 1);
    map.waitForReplies();
    map.now = failedAt + restAtMost;
    QCOMPARE(map.show({first}), 1);
    QCOMPARE(map.source.loadingCount(), 1);
    map.waitForReplies();
    QCOMPARE(messageSpy.size(), messages); // not repeated
}

void TestTileSource::failuresAreRepeatedEverLessOften()
{
    Map map;
    map.answer(LoopbackServer::answer("500 Oops", "no"));
    map.load({first});
    for (const qint64 wait : {2, 4, 8, 16, 300, 2, 4}) {
        const qint64 failedAt = map.now;
        map.now = failedAt + wait * 800 - 121;
        QCOMPARE(map.show({first}), 0);
        map.now = failedAt + wait * 1200;
        QCOMPARE(map.show({first}), 1);
        QVERIFY(map.waitForReplies());
    }
    // A success resets the count of failures.
    map.answer(ok());
    map.now += 300 * second;
    QCOMPARE(map.load({first}), std::vector{first});
}

void TestTileSource::slowServers()
{
    Map map;
    map.answer({});
    map.source.setTransferTimeout(100);
    map.load({first}); // ends with the transfer timeout
    QVERIFY(!map.source.isOffline());
    QCOMPARE(map.source.loadingCount(), 0);

    // A body that drips in keeps the connection alive, but ends at the deadline.
    map.source.setTransferTimeout(15000);
    map.now += 3 * second;
    QCOMPARE(map.show({first}), 1);
    map.now += 29 * second;
    QCOMPARE(map.ask({first}), 1);
    map.now += second;
    QCOMPARE(map.ask({first}), 0);
    QCOMPARE(map.source.loadingCount(), 0);
}

void TestTileSource::endlessBodyIsNotTakenIn()
{
    std::promise<QString> address;
    std::atomic<bool> isAsked = false;
    qint64 sent = 0;
    std::jthread server([&] {
        QTcpServer endless;
        endless.listen(QHostAddress::LocalHost);
        address.set_value(QStringLiteral("http://127.0.0.1:%1").arg(endless.serverPort()));
        endless.waitForNewConnection(20000);
        QTcpSocket* const socket = endless.nextPendingConnection();
        isAsked = socket != nullptr && socket->waitForReadyRead(20000);
        if (!isAsked)
            return;
        socket->write("HTTP/1.1 200 OK\r\n\r\n");
        const QByteArray part(1 << 20, 'x');
        while (sent < 100 * part.size() && socket->write(part) > 0 &&
               socket->waitForBytesWritten(500))
            sent += part.size();
    });
    Map map;
    map.source.setServer(address.get_future().get());
    map.show({first});
    QTRY_VERIFY(isAsked);
    server.join(); // meanwhile this thread reads nothing
    QVERIFY2(sent > 0 && sent < (40 << 20), qPrintable(QString::number(sent)));
    QVERIFY(map.waitForReplies());
    QVERIFY(map.takeAll().empty());
}

void TestTileSource::timeoutsInARowCountAsUnreachable()
{
    // Different tiles, so that none has to wait. The pause is before the sixth.
    const auto isOfflineAfterSix = [](qint64 pause, bool isAnswered) {
        Map map;
        for (int i = 0; i < 6; ++i) {
            map.answer({});
            map.now += i == 5 ? pause : 0;
            if (i == 5 && isAnswered) {
                map.answer(ok());
                map.load({{5, 9, 9}});
                map.answer({});
            }
            map.show({{5, i, 4}});
            map.now += 30 * second;
            map.ask({{5, i, 4}});
        }
        return map.source.isOffline();
    };
    QVERIFY(isOfflineAfterSix(0, false));
    QVERIFY(isOfflineAfterSix(500 * second, false)); // longer than a single tile's longest delay
    QVERIFY(!isOfflineAfterSix(0, true));
    QVERIFY(!isOfflineAfterSix(day / 6, false));
}

void TestTileSource::unreachableServerIsProbed()
{
    Map map;
    const quint16 port = map.server.serverPort();
    map.server.close();
    QSignalSpy changed(&map.source, &TileSource::changed);
    map.load({first, other});
    QVERIFY(map.source.isOffline());
    QVERIFY(!changed.isEmpty());
    QCOMPARE(map.source.loadingCount(), 0);

    // A single tile is tried.
    map.now += 29 * second;
    QCOMPARE(map.show({first, other}), 0);
    map.now += second;
    QCOMPARE(map.show({first, other}), 1);
    QVERIFY(map.waitForReplies());
    QVERIFY(map.source.isOffline());

    QVERIFY(map.server.listen(QHostAddress::LocalHost, port));
    map.now += 30 * second;
    QCOMPARE(map.show({first, other}), 1);
    QTRY_VERIFY(!map.source.isOffline());
    map.waitForReplies();
    QCOMPARE(map.takeAll().size(), 2u);
}

void TestTileSource::sixRequestsByPriority()
{
    Map map;
    std::vector<TileId> tiles;
    for (int i = 0; i < 40; ++i)
        tiles.push_back({6, 60 - i, 9});
    map.answer({});
    QCOMPARE(map.show(tiles), 6);
    QTRY_COMPARE(map.server.requests.size(), 6);
    QCOMPARE(map.source.loadingCount(), 40);
    for (const auto& request : map.server.requests)
        QVERIFY(request.path >= "/6/55/9.png" && request.path <= "/6/60/9.png");
    const auto headers = map.server.requests[0].headers;
    QCOMPARE(headers["user-agent"], QByteArray("KOLT/9.9 (+https://kolt.example)"));
    for (const char* unwanted : {"cache-control", "pragma", "cookie", "referer", "if-none-match"})
        QVERIFY2(!headers.contains(unwanted), unwanted);
    map.now += 400;
    QCOMPARE(map.show(tiles), 6);
    QVERIFY(!map.source.isOffline());
    map.now += 30 * second; // no request has been answered
    map.ask(tiles);
    QVERIFY(map.source.isOffline());
}

void TestTileSource::sameViewAsksNothing()
{
    Map map;
    QCOMPARE(map.load({first, other}).size(), 2u);
    QCOMPARE(map.server.requests.size(), 2);
    map.now += day;
    QCOMPARE(map.load({first, other}).size(), 2u);

    Map next(map.folder.path()); // as after a restart, with another port
    next.source.setServer(map.server.address());
    next.now = map.now;
    QCOMPARE(next.load({first, other}).size(), 2u);
    QCOMPARE(map.server.requests.size(), 2);
    QVERIFY(next.server.requests.isEmpty());

    next.source.setNetworkEnabled(false);
    QCOMPARE(next.load({first, {6, 1, 1}}), std::vector{first});
    QCOMPARE(next.source.loadingCount(), 0);
    QCOMPARE(map.server.requests.size(), 2);
}

void TestTileSource::expiredTileIsConfirmed()
{
    Map map;
    map.server.handler = [](const LoopbackServer::Request& request) {
        const QByteArray life = "Cache-Control: max-age=3600\r\n";
        return request.headers.contains("if-none-match")
                   ? LoopbackServer::answer("304 Not Modified", "", life)
                   : ok(picture(), life + "ETag: \"v1\"\r\nLast-Modified: yesterday\r\n");
    };
    map.load({first});
    map.now += 3599 * second;
    QCOMPARE(map.load({first}).size(), 1u);
    QCOMPARE(map.server.requests.size(), 1);

    map.now += second;
    map.show({first});
    QCOMPARE(map.takeAll(), std::vector{first}); // at once, before any reply
    QCOMPARE(map.source.loadingCount(), 0);
    QTRY_COMPARE(map.server.requests.size(), 2);
    const auto headers = map.server.requests.last().headers;
    QCOMPARE(headers["if-none-match"], QByteArray("\"v1\""));
    QCOMPARE(headers["if-modified-since"], QByteArray("yesterday"));
    QVERIFY(!headers.contains("cache-control") && !headers.contains("pragma"));
    QVERIFY(map.waitForReplies());
    QVERIFY(map.takeAll().empty());

    // It is fresh for another hour and keeps its other notes.
    map.now += 3500 * second;
    map.load({first});
    QCOMPARE(map.server.requests.size(), 2);
    map.now += 3600 * second;
    map.load({first});
    QTRY_COMPARE(map.server.requests.size(), 3);
    QCOMPARE(map.server.requests.last().headers["if-none-match"], QByteArray("\"v1\""));
}

void TestTileSource::changedTileIsTakenAgain()
{
    Map map;
    map.load({first});
    map.answer(LoopbackServer::answer("500 Oops", "no"));
    map.now += 8 * day;
    QCOMPARE(map.load({first}), std::vector{first});
    QTRY_COMPARE(map.server.requests.size(), 2);
    QVERIFY(map.waitForReplies());
    QVERIFY(map.source.diskCache().contains(first));
    // Not confirmed at first, it is asked for again; the new one is different.
    map.answer(ok(picture("png", 256, Qt::blue)));
    map.now += 3 * second;
    map.source.setVisible({}); // but not while it is out of view
    map.source.work();
    QCOMPARE(map.source.inFlightCount(), 0);
    map.source.setVisible(std::vector{first});
    map.source.work();
    QTRY_COMPARE(map.server.requests.size(), 3);
    map.source.setWanted({}); // the caller has it now
    QVERIFY(map.waitForReplies());
    const auto tile = map.source.takeNext();
    QVERIFY(tile && tile->id == first);
    QCOMPARE(tile->image.format(), QImage::Format_RGBA8888);
    QCOMPARE(tile->image.pixelColor(200, 200), QColor(Qt::blue));
}

void TestTileSource::newZoomLevelRests()
{
    Map map;
    map.ask({first});
    map.now += 119;
    QCOMPARE(map.ask({first}), 0);
    QCOMPARE(map.source.loadingCount(), 1);
    map.now += 1;
    QCOMPARE(map.ask({first}), 1);
    // A tile of a zoom level already in use is asked for at once, one of a new level is not.
    QCOMPARE(map.ask({first, other, TileId{6, 1, 1}}), 2);
    // The timer does so even when nothing is drawn.
    map.now += 120;
    QTRY_COMPARE(map.server.requests.size(), 3);
}

void TestTileSource::unwantedRequestsAreGivenUp()
{
    Map map;
    map.answer({});
    QCOMPARE(map.show({first, other}), 2);
    QCOMPARE(map.ask({first}), 2);
    map.now += 499;
    QCOMPARE(map.ask({first}), 2);
    map.now += 1;
    QCOMPARE(map.ask({first}), 1);
    // This does not count as a failure: once wanted again, it is asked for again.
    QCOMPARE(map.ask({other, first}), 2);
}

void TestTileSource::damagedTilesOnDiskAreFetched()
{
    Map map;
    map.answer(ok(picture(), "Cache-Control: no-store\r\n"));
    // Of the noted length, but no picture.
    map.source.diskCache().write(first, "damaged", {"\"v1\"", "", map.now + day});
    QCOMPARE(map.show({first}), 0);
    QVERIFY(map.takeAll().empty());
    QCOMPARE(map.load({first}), std::vector{first});
    QVERIFY(!map.server.requests.value(0).headers.contains("if-none-match"));
    QVERIFY(!map.source.diskCache().contains(first)); // removed
}

void TestTileSource::anotherServerStartsAfresh()
{
    Map map;
    map.answer(LoopbackServer::answer("403 Forbidden"));
    map.load({first});
    LoopbackServer better;
    better.handler = [](const auto&) { return ok(); };
    map.source.setServer(better.address() + "/tiles/{z}/{x}/{y}");
    QCOMPARE(map.load({first}), std::vector{first});
    QCOMPARE(better.requests.value(0).path, QByteArray("/tiles/5/3/4"));

    QSignalSpy message(&map.source, &TileSource::message);
    map.source.setServer(QStringLiteral("ftp://tiles.example/{z}/{x}/{y}"));
    QCOMPARE(message.size(), 1);
    map.show({other});
    QCOMPARE(map.source.inFlightCount() + map.source.loadingCount(), 0);
}

namespace {

bool put(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}

/// A folder "tiles" with some tiles beside a folder "secret".
struct Folder
{
    Folder()
    {
        put(path("tiles/5/3/4.png"), picture());
        put(path("tiles/5/3/5.jpg"), picture("jpg"));
        put(path("tiles/5/3/6.png"), "no picture");
        put(path("damaged/2/1/1.png"), "no picture");
        put(path("secret/5/3/4.png"), picture());
    }

    QString path(const char* name = "") const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
};

} // namespace

/// Nothing is asked from anyone, nothing is written, and what lacks is known to be missing.
void TestTileSource::folderIsRead()
{
    const Folder folder;
    Map map;
    for (const QString& address :
         {folder.path("tiles"), folder.path("tiles/"), "file://" + folder.path("tiles"),
          folder.path("tiles/{z}/{x}/{y}.png")}) {
        map.source.setServer({});
        map.source.setServer(address);
        const TileId damaged{5, 3, 6};
        const TileId none{5, 3, 7};
        QCOMPARE(map.show({first, other, damaged, none}), 0);
        QCOMPARE(map.takeAll(), (std::vector{first, other}));
        QVERIFY(map.source.isMissing(damaged) && map.source.isMissing(none));
        QCOMPARE(map.source.loadingCount(), 0);
        QVERIFY(!map.source.isOffline());
    }
    QCOMPARE(map.source.server().attribution(), "tiles");
    QVERIFY(map.server.requests.isEmpty());
    QVERIFY(!map.source.diskCache().contains(first));
    QCOMPARE(QDir(folder.path("tiles/5/3")).count(), 5U); // with "." and ".."
}

void TestTileSource::folderKeepsToItself_data()
{
    const KOLT::Test::Rows<QString, QString> row("address", "link"); // "link": made to "secret"
    row("out by the template", "tiles/{z}/../../secret/{z}/{x}/{y}.png", {});
    row("out by placeholders", "tiles/{z}{x}/../../secret/{z}/{x}/{y}.png", {});
    row("link to a file", "tiles", "tiles/5/3/4.png");
    row("link to a folder", "tiles", "tiles/5/3");
    row("pipe", "tiles", "|");
    row("too large", "tiles", "+");
    row("not all placeholders", "tiles/{z}/{x}.png", {});
    row("no folder", "nowhere", {});
}

void TestTileSource::folderKeepsToItself()
{
    QFETCH(QString, address);
    QFETCH(QString, link);
    const Folder folder;
    const QString file = folder.path("tiles/5/3/4.png");
    if (link == "|" || link == "+") {
        QFile::remove(file);
        QVERIFY(link == "|" ? ::mkfifo(qPrintable(file), 0600) == 0
                            : put(file, picture() + QByteArray(3 << 20, 'x')));
    } else if (!link.isEmpty()) {
        const QString path = folder.path(qPrintable(link));
        QVERIFY(QFileInfo(path).isDir() ? QDir(path).removeRecursively() : QFile::remove(path));
        QVERIFY(
            QFile::link(folder.path("secret/5/3") + (link.endsWith("png") ? "/4.png" : ""), path));
    }
    Map map;
    map.source.setServer(folder.path(qPrintable(address)));
    map.show({first});
    QVERIFY(map.takeAll().empty());
    QVERIFY(map.server.requests.isEmpty());
}

void TestTileSource::checkTellsWhatIsThere_data()
{
    // The address is a folder, or the loopback server with this answer.
    const KOLT::Test::Rows<QString, QByteArray, bool, QString> row("address", "answer", "isGood",
                                                                   "text");
    row("picture", "server", ok(picture("png", 512)), true, "tiles of 512 pixels");
    row("no picture", "server", ok("<html>"), false, "not with a PNG");
    row("404", "server", LoopbackServer::answer("404 Not Found"), false, "no tile of the whole");
    row("403", "server", LoopbackServer::answer("403 Forbidden"), false, "refuses");
    row("429", "server", LoopbackServer::answer("429 Too Many Requests"), false, "busy");
    row("500", "server", LoopbackServer::answer("500 Oops"), false, "error (500)");
    row("nobody", "http://127.0.0.1:1", {}, false, "cannot be reached");
    row("no address", "http://{z}", {}, false, "neither an address");
    row("folder", "tiles", {}, true, "zoom 5.");
    row("no picture in the folder", "damaged", {}, false, "no PNG or JPEG");
    row("other folder", "secret/5", {}, false, "no tiles in the folder");
    row("no folder", "nowhere", {}, false, "no such folder");
}

void TestTileSource::checkTellsWhatIsThere()
{
    QFETCH(QString, address);
    QFETCH(QByteArray, answer);
    QFETCH(bool, isGood);
    QFETCH(QString, text);
    const Folder folder;
    LoopbackServer server;
    server.handler = [&](const LoopbackServer::Request&) { return answer; };
    TileCheck check;
    check.setUserAgent("KOLT/9.9");
    QSignalSpy finished(&check, &TileCheck::finished);
    check.start(address == "server"       ? server.address()
                : address.contains("://") ? address
                                          : folder.path(qPrintable(address)),
                true);
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(finished[0][0].toBool(), isGood);
    QVERIFY2(finished[0][1].toString().contains(text), qPrintable(finished[0][1].toString()));
    QVERIFY(server.requests.size() <= 1);
    if (address == "server") { // off the network nothing is asked
        check.start(server.address(), false);
        QCOMPARE(finished.size(), 2);
        QVERIFY(!finished[1][0].toBool());
        QCOMPARE(server.requests.size(), 1);
    }
}

QTEST_GUILESS_MAIN(TestTileSource)
#include "tst_tilesource.moc"
