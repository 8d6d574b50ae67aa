#include "libs/tessamap/tiles/TileSource.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/Rows.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/socket.h>

using namespace Tessa;
using namespace Tessa::Test;

namespace {

constexpr qint64 second = 1000;
constexpr qint64 day = 24 * 3600 * second;
constexpr TileId wanted{5, 3, 4};
constexpr TileId other{5, 3, 5};
constexpr qint64 mebibyte = 1 << 20;

QByteArray newPicture(const char* format, int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, qRgb(x, y, x * y));
    }
    return encoded(image, format);
}

QByteArray picture(const char* format = "png", int side = 256)
{
    static QHash<QByteArray, QByteArray> made;
    QByteArray& picture = made[format + QByteArray::number(side)];
    if (picture.isEmpty())
        picture = newPicture(format, side);
    return picture;
}

/// What a server sends to one request, and what it does then.
struct Answer
{
    enum class End { Close, Reset, Hold, Endless };

    QByteArray bytes;
    End end = End::Close;
    QByteArray more{}; ///< sent again and again when it is endless
};

Answer ok(const QByteArray& body, const QByteArray& headers = {})
{
    return {LoopbackServer::answer("200 OK", body, headers)};
}

/// With exactly these headers.
Answer raw(const QByteArray& headers, const QByteArray& body = {},
           Answer::End end = Answer::End::Close, const QByteArray& more = {})
{
    return {"HTTP/1.1 200 OK\r\n" + headers + "\r\n" + body, end, more};
}

/// A server that keeps to no rule. Answers by path; others get a picture.
class HostileServer : public QTcpServer
{
public:
    HostileServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* const socket = nextPendingConnection())
                serve(socket);
        });
    }

    QByteArray address(const QByteArray& path = {}) const
    {
        return "http://127.0.0.1:" + QByteArray::number(serverPort()) + path;
    }

    QHash<QByteArray, Answer> answers;
    int requests = 0;
    qint64 sent = 0; ///< taken by the system or the client

private:
    void serve(QTcpSocket* socket)
    {
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::bytesWritten, this, [this](qint64 bytes) { sent += bytes; });
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
            const QByteArray head = socket->peek(65536);
            if (!head.contains("\r\n\r\n"))
                return;
            socket->readAll();
            ++requests;
            play(socket, answers.value(head.split(' ').value(1), ok(picture())));
        });
    }

    void play(QTcpSocket* socket, const Answer& answer)
    {
        socket->write(answer.bytes);
        if (answer.end == Answer::End::Endless) {
            const auto go = [socket, more = answer.more] {
                if (socket->bytesToWrite() < 65536)
                    socket->write(more);
            };
            connect(socket, &QTcpSocket::bytesWritten, socket, go);
            go();
        } else if (answer.end == Answer::End::Reset) {
            socket->flush();
            const linger atOnce{1, 0};
            ::setsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER,
                         &atOnce, sizeof atOnce);
            socket->abort();
        } else if (answer.end == Answer::End::Close) {
            socket->disconnectFromHost();
        }
    }
};

/// A map with a clock that moves only when told.
struct Map
{
    Map()
    {
        source.setClock([this] { return now; });
        source.setDirectory(folder.path());
        source.setServer(QString::fromLatin1(server.address()));
    }

    bool ask(const Answer& answer)
    {
        server.answers["/5/3/4.png"] = answer;
        // Longer than what is waited for here, unless it is what ends the request.
        source.setTransferTimeout(answer.end == Answer::End::Hold ? 300 : 600'000);
        source.setWanted(std::vector{wanted});
        now += 120;
        source.setWanted(std::vector{wanted});
        return source.inFlightCount() == 1;
    }

    /// Asks for the tile and waits for what comes of it. False while a request is not over.
    bool load(const Answer& answer)
    {
        if (!ask(answer) || !QTest::qWaitFor([this] { return source.inFlightCount() == 0; }, 20000))
            return false;
        while (const auto tile = source.takeNext())
            pixels = std::max<qint64>(pixels, tile->image.width() * qint64(tile->image.height()));
        return true;
    }

    /// How long the tile is left alone.
    qint64 rest()
    {
        const qint64 start = now;
        qint64 low = 0;
        qint64 high = 400 * day;
        while (low < high) {
            const qint64 middle = (low + high) / 2;
            now = start + middle;
            (source.loadingCount() > 0 ? high : low) = middle + (source.loadingCount() > 0 ? 0 : 1);
        }
        now = start;
        return low;
    }

    /// Whether no other tile is asked for either.
    bool isAtRest()
    {
        source.setWanted(std::vector{wanted, other});
        return source.inFlightCount() == 0;
    }

    QTemporaryDir folder;
    HostileServer server;
    qint64 now = 1'700'000'000'000;
    qint64 pixels = 0; ///< of the largest picture that was taken
    TileSource source;
};

QByteArray tooLarge()
{
    return QByteArray(2 * mebibyte + 1, 'x');
}

/// One chunk of the transfer coding.
QByteArray chunk(const QByteArray& data)
{
    return QByteArray::number(data.size(), 16) + "\r\n" + data + "\r\n";
}

/// Unpacks to a thousand times its length.
QByteArray bomb()
{
    static const QByteArray packed = qCompress(QByteArray(100 * mebibyte, '\0'), 9).mid(4);
    return packed;
}

/// A picture whose header says other sides.
QByteArray sized(const char* format, qsizetype place, const char* sides)
{
    QByteArray body = picture(format);
    const QByteArray bytes = QByteArray::fromHex(sides);
    return body.replace(place, bytes.size(), bytes);
}

} // namespace

/// Every answer that a server can give: what the tile's fate is, and that nothing takes more than
/// the limits in docs/map.md.
class TestHostileServer : public QObject
{
    Q_OBJECT

private slots:
    void statuses();
    void answers_data();
    void answers();
    void endlessRedirect();
    void retryAfter_data();
    void retryAfter();
    void lifetimes_data();
    void lifetimes();
};

/// The status alone decides, whatever comes with it.
void TestHostileServer::statuses()
{
    for (int status = 200; status < 600; ++status) {
        Map map;
        const QByteArray line = QByteArray::number(status) + " Whatever";
        QVERIFY2(map.load({LoopbackServer::answer(line, status == 304 ? "" : picture())}), line);
        const bool isMissing = status == 204 || status == 404 || status == 410;
        const bool isRefused = status == 401 || status == 403 || status == 418;
        const bool isBusy = status == 429 || status == 503;
        QVERIFY2((map.pixels > 0) == (status == 200), line);
        QCOMPARE(map.source.diskCache().contains(wanted), status == 200);
        QVERIFY2(map.source.isMissing(wanted) == isMissing, line);
        if (status == 200)
            continue;
        const qint64 rest = map.rest();
        const qint64 expected = isMissing   ? day
                                : isRefused ? 600 * second
                                : isBusy    ? 60 * second
                                            : 2 * second;
        QVERIFY2(rest >= expected * 8 / 10 && rest <= expected * 12 / 10, line);
        QVERIFY2(map.isAtRest() == (isRefused || isBusy), line);
    }
}

void TestHostileServer::answers_data()
{
    const KOLT::Test::Rows<QByteArray, int, QByteArray, bool, int> row("bytes", "end", "more",
                                                                       "isShown", "requests");
    const auto add = [&](const char* name, const Answer& answer, bool isShown = false,
                         int requests = 1) {
        row(name, answer.bytes, static_cast<int>(answer.end), answer.more, isShown, requests);
    };
    using End = Answer::End;
    const QByteArray png = picture();
    const QByteArray length = "Content-Length: " + QByteArray::number(png.size()) + "\r\n";
    const auto to = [](const QByteArray& place, const QByteArray& status = "302 Found") {
        return Answer{LoopbackServer::answer(status, "", "Location: " + place + "\r\n")};
    };

    // Redirects; "/1" to "/6" lead on to the next, and "/0" has a picture.
    for (const char* status : {"301 M", "302 F", "303 S", "307 T", "308 P"})
        add(status, to("/0", status), true, 2);
    add("5 redirects", to("/4"), true, 6);
    add("6 redirects", to("/5"), false, 6);
    add("redirected to itself", to("/5/3/4.png"), false, 6);
    add("redirected to nobody", to("http://127.0.0.1:1/"));
    add("redirected without a place", {LoopbackServer::answer("302 Found")});
    add("redirected to nothing", to(""));
    add("redirected far away", to("/" + QByteArray(60000, 'x')), true, 2);
    for (const char* place : {"file:///dev/zero", "file:///etc/hostname", "ftp://127.0.0.1/t.png",
                              "qrc:/t.png", "data:image/png;base64,iVBORw0KGgo=", "javascript:0",
                              "http://", "http://[::1", "//", "http:///x"})
        add(place, to(place));
    // Bodies and their lengths.
    // Qt repeats a request up to three times when nothing that it understands was answered.
    add("closed at once", {""}, false, 4);
    add("reset at once", {"", End::Reset}, false, 4);
    add("silence", {"", End::Hold});
    add("half a status", {"HTTP/1.", End::Hold});
    add("half a header", {"HTTP/1.1 200 OK\r\nConte", End::Hold});
    add("half a body", raw(length, png.left(png.size() / 2), End::Hold));
    add("reset in the body", raw(length, png.left(png.size() / 2), End::Reset));
    add("longer than it says", raw("Content-Length: 100\r\n", png));
    add("shorter than it says", raw("Content-Length: 1000000\r\n", png));
    add("negative length", raw("Content-Length: -1\r\nConnection: close\r\n", png), true);
    add("no number as length", raw("Content-Length: x\r\nConnection: close\r\n", png), true);
    add("announced too long", raw("Content-Length: 2097153\r\n", "x", End::Hold));
    add("announced endless", raw("Content-Length: 9223372036854775807\r\n", "x", End::Hold));
    add("length that overflows",
        raw("Content-Length: 99999999999999999999\r\n", tooLarge(), End::Hold));
    add("too long", ok(tooLarge()));
    add("endless", raw("", "", End::Endless, QByteArray(65536, 'x')));
    add("endless picture", raw("", png, End::Endless, png));
    add("endless error", {"HTTP/1.1 500 No\r\n\r\n", End::Endless, QByteArray(65536, 'x')});

    // Chunks.
    const QByteArray chunked = "Transfer-Encoding: chunked\r\n";
    add("chunked", raw(chunked, chunk(png.left(700)) + chunk(png.mid(700)) + "0\r\n\r\n"), true);
    add("chunks without an end", raw(chunked, chunk(png)));
    add("chunk of no number", raw(chunked, "xyz\r\n" + png));
    add("negative chunk", raw(chunked, "-1\r\n" + png));
    add("huge chunk", raw(chunked, "7fffffffffffffff\r\n", End::Endless, QByteArray(65536, 'x')));
    add("chunk that overflows", raw(chunked, "fffffffffffffffffff\r\n" + png));
    add("endless chunks",
        raw(chunked, "", End::Endless, chunk(QByteArray(1000, 'x')).repeated(50)));

    // Packed bodies, which are not unpacked.
    for (const char* coding : {"deflate", "gzip", "br", "zstd", "gzip, gzip, gzip"})
        add(coding, ok(bomb(), QByteArray("Content-Encoding: ") + coding + "\r\n"));

    add("packed picture", ok(qCompress(png).mid(4), "Content-Encoding: deflate\r\n"));

    // Pictures that are larger than they look, or of other formats.
    add("png of 60000 x 60000", ok(sized("png", 16, "0000ea600000ea60")));
    add("png of 300 x 300", ok(picture("png", 300)));
    add("png of 2^31 x 1", ok(sized("png", 16, "8000000000000001")));
    const QByteArray jpeg = picture("jpg");
    const qsizetype frame = jpeg.indexOf(QByteArray::fromHex("ffc0"));
    add("jpeg of 65535 x 65535", ok(sized("jpg", frame + 5, "ffffffff")));
    add("jpeg of 300 x 300", ok(picture("jpg", 300)));
    add("gif of 65535 x 65535", ok("GIF89a\xff\xff\xff\xff" + QByteArray(1000, '\0')));
    add("webp of 16384 x 16384", ok("RIFF\x24\0\0\0WEBPVP8L" + QByteArray(1000, '\xff')));
    add("bmp", ok(picture("bmp")));
    add("svg", ok("<svg xmlns='http://www.w3.org/2000/svg' width='256' height='256'>"
                  "<image href='file:///etc/passwd'/></svg>"));
    add("text", ok("<html>Log in!</html>", "Content-Type: image/png\r\n"));
    add("picture called text", ok(png, "Content-Type: text/html\r\n"), true);

    // Heads.
    add("no http", {"220 ftp ready\r\n\r\n" + png}, false, 4);
    add("old http", {"HTTP/1.0 200 OK\r\n\r\n" + png}, true);
    add("status of no number", {"HTTP/1.1 abc OK\r\n\r\n" + png}, false, 4);
    add("header of 64 KiB", ok(png, "X: " + QByteArray(65536, 'x') + "\r\n"), true);
    add("10000 headers", ok(png, QByteArray("X-Y: z\r\n").repeated(10000)), true);
    add("zero in a header", ok(png, QByteArray("X: a\0b\r\n", 8)), true);
    add("asked to go on", {"HTTP/1.1 100 Continue\r\n\r\n" + ok(png).bytes}, true);
    add("cookies and other wishes",
        ok(png, "Set-Cookie: a=b\r\nRefresh: 0; url=/x\r\nLink: </x>; rel=preload\r\n"
                "Strict-Transport-Security: max-age=99\r\nAlt-Svc: h3=\":443\"\r\n"),
        true);
}

void TestHostileServer::answers()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, end);
    QFETCH(QByteArray, more);
    QFETCH(bool, isShown);
    QFETCH(int, requests);
    Map map;
    for (int i = 1; i <= 6; ++i)
        map.server.answers["/" + QByteArray::number(i)] = {LoopbackServer::answer(
            "302 Found", "", "Location: /" + QByteArray::number(i - 1) + "\r\n")};
    QVERIFY(map.load({bytes, static_cast<Answer::End>(end), more}));
    QCOMPARE(map.pixels, isShown ? 256 * 256 : 0);
    QCOMPARE(map.source.diskCache().contains(wanted), isShown);
    QVERIFY2(map.server.requests <= requests, qPrintable(QString::number(map.server.requests)));
    // 4 MiB in Qt's buffers, the rest in those of the system.
    QVERIFY2(map.server.sent < 24 * mebibyte, qPrintable(QString::number(map.server.sent)));
    if (!isShown && !map.source.isOffline()) {
        const qint64 rest = map.rest();
        QVERIFY2(rest >= 1600 && rest <= 2400, qPrintable(QString::number(rest)));
        QVERIFY(!map.isAtRest());
    }
}

/// Qt reads the body of a redirect to its end before it follows.
void TestHostileServer::endlessRedirect()
{
    Map map;
    QVERIFY(map.ask({"HTTP/1.1 302 Found\r\nLocation: /0\r\n\r\n", Answer::End::Endless,
                     QByteArray(65536, 'x')}));
    QTRY_VERIFY(map.server.sent > 0);
    map.now += 30 * second;
    map.source.work();
    QCOMPARE(map.source.inFlightCount(), 0);
    QCOMPARE(map.server.requests, 1);
}

void TestHostileServer::retryAfter_data()
{
    const KOLT::Test::Rows<QByteArray, qint64> row("headers", "seconds");
    const auto add = [&](const char* value, qint64 seconds) {
        row(value, QByteArray("Retry-After: ") + value + "\r\n", seconds);
    };
    add("30", 30);
    add("  30  ", 30);
    add("0", 1);
    add("-30", 1);
    add("86400", 86400);
    add("86401", 86400);
    add("9223372036854775807", 86400);
    add("9223372036854775808", 60);
    add("1e3", 60);
    add("", 60);
    add("soon", 60);
    add("Tue, 14 Nov 2023 22:15:20 GMT", 120); // two minutes later than the map's clock
    add("Tue, 14 Nov 2023 22:15:20", 60);
    add("Mon, 01 Jan 0001 00:00:00 GMT", 1);
    add("Fri, 31 Dec 9999 23:59:59 GMT", 86400);
    row("none", {}, 60);
    row("another clock",
        "Date: Thu, 01 Jan 1970 00:00:00 GMT\r\nRetry-After: Thu, 01 Jan 1970 00:00:40 GMT\r\n",
        40);
    row("two", "Retry-After: 10\r\nRetry-After: 20\r\n", 60);
}

void TestHostileServer::retryAfter()
{
    QFETCH(QByteArray, headers);
    QFETCH(qint64, seconds);
    for (const char* status : {"429 Slow Down", "503 Busy"}) {
        Map map;
        QVERIFY(map.load({LoopbackServer::answer(status, "", headers)}));
        // A date has no parts of a second.
        QVERIFY2(std::abs(map.rest() - seconds * second) < second,
                 qPrintable(QString::number(map.rest())));
        QVERIFY(map.isAtRest());
    }
}

void TestHostileServer::lifetimes_data()
{
    const KOLT::Test::Rows<QByteArray, qint64, bool> row("headers", "seconds", "isKept");
    constexpr qint64 week = 7 * 24 * 3600;
    constexpr qint64 longest = 366 * 24 * 3600;
    const auto add = [&](const char* headers, qint64 seconds, bool isKept = true) {
        row(headers, QByteArray(headers).replace("; ", "\r\n") + "\r\n", seconds, isKept);
    };
    add("X: no cache header", week);
    add("Cache-Control: max-age=60", 60);
    add("cache-control: MAX-AGE=\"60\"", 60);
    add("Cache-Control: max-age=0", 0);
    add("Cache-Control: max-age=-60", 0);
    add("Cache-Control: max-age=999999999999", longest);
    add("Cache-Control: max-age=99999999999999999999", week);
    add("Cache-Control: max-age=x", week);
    add("Cache-Control: max-age", week);
    add("Cache-Control: ,,=,;Vary: *", week);
    add("Cache-Control: max-age=60; Age: 50", 10);
    add("Cache-Control: max-age=60; Age: 500", 0);
    add("Cache-Control: max-age=60; Age: -500", 60);
    add("Cache-Control: max-age=60; Age: 9223372036854775807", 0);
    add("Cache-Control: no-store", 0, false);
    add("Cache-Control: no-store, max-age=60", 0, false);
    add("Cache-Control: max-age=60; Cache-Control: no-store", 0, false);
    add("Cache-Control: no-cache; Expires: Fri, 31 Dec 9999 23:59:59 GMT", 0);
    add("Cache-Control: private, must-revalidate, max-age=60; Pragma: no-cache", 60);
    add("Expires: 0", 0);
    add("Expires: Fri, 31 Dec 9999 23:59:59 GMT", longest);
    add("Expires: Mon, 01 Jan 0001 00:00:00 GMT", 0);
    add("Expires: Tue, 14 Nov 2023 22:15:20 GMT; Date: Tue, 14 Nov 2023 22:14:20 GMT", 60);
    add("Expires: Tue, 14 Nov 2023 22:15:20 GMT; Cache-Control: max-age=5", 5);
}

void TestHostileServer::lifetimes()
{
    QFETCH(QByteArray, headers);
    QFETCH(qint64, seconds);
    QFETCH(bool, isKept);
    Map map;
    QVERIFY(map.load(ok(picture(), headers)));
    QCOMPARE(map.pixels, 256 * 256); // shown once in any case
    const auto entry = map.source.diskCache().read(wanted);
    QCOMPARE(entry.has_value(), isKept);
    if (entry)
        QCOMPARE((entry->meta.expires - map.now) / second, seconds);
}

QTEST_GUILESS_MAIN(TestHostileServer)
#include "tst_hostileserver.moc"
