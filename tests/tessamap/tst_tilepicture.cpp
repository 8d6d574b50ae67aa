#include "libs/tessamap/tiles/TilePicture.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/Rows.h"

#include <QImageWriter>
#include <QTest>
#include <QtEndian>

using namespace Tessa;
using Tessa::Test::encoded;

namespace {

QImage drawing(QImage::Format format, int side = 256)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::darkCyan);
    for (int i = 0; i < side; ++i)
        image.setPixelColor(i, (i * 37) % side, QColor(i % 256, 255 - i % 256, 9, i % 200));
    return image.convertToFormat(format);
}

QByteArray progressive()
{
    QByteArray body;
    QBuffer buffer(&body);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    writer.write(drawing(QImage::Format_RGB32));
    return body;
}

/// `body` with another part inserted after the one at `place`, or before the end.
QByteArray with(QByteArray body, qsizetype place, const QByteArray& part)
{
    return body.insert(place, part);
}

constexpr qsizetype behindPngHeader = 33;
const QByteArray jpegScan = QByteArray::fromHex("ffda");
const QByteArray jpegEnd = QByteArray::fromHex("ffd9");

/// A text of 4 MB, compressed to some kB. Decoders unpack it before checking its checksum.
QByteArray packedText()
{
    const QByteArray data =
        QByteArray("Comment\0\0", 9) + qCompress(QByteArray(4 << 20, 'x')).mid(4);
    QByteArray chunk(4, '\0');
    qToBigEndian(static_cast<quint32>(data.size()), chunk.data());
    const QByteArray named = "zTXt" + data;
    quint32 crc = 0xffffffff;
    for (const char byte : named) {
        crc ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xedb88320 : 0);
    }
    QByteArray sum(4, '\0');
    qToBigEndian(~crc, sum.data());
    return chunk + named + sum;
}

QByteArray commented(const QByteArray& jpeg)
{
    return with(jpeg, 2, QByteArray::fromHex("fffe0006") + "Text");
}

/// A progressive JPEG whose last scan is repeated until there are `count`.
QByteArray withScans(int count)
{
    const QByteArray body = progressive();
    const QByteArray scan = body.mid(body.lastIndexOf(jpegScan)).chopped(2);
    const auto scans = static_cast<int>(body.count(jpegScan));
    return with(body, body.size() - 2, scan.repeated(count - scans));
}

} // namespace

/// Decoding of tiles from a server that is not trusted.
class TestTilePicture : public QObject
{
    Q_OBJECT

private slots:
    void picturesComeAsTheyAre_data();
    void picturesComeAsTheyAre();
    void othersAreRefused_data();
    void othersAreRefused();
    void noneIsMadeOfABeginning();
};

void TestTilePicture::picturesComeAsTheyAre_data()
{
    const KOLT::Test::Rows<QByteArray> row("body");
    row("png", encoded(drawing(QImage::Format_RGB32)));
    row("png of 512 pixels", encoded(drawing(QImage::Format_RGB32, 512)));
    row("translucent", encoded(drawing(QImage::Format_ARGB32)));
    row("grey", encoded(drawing(QImage::Format_Grayscale8)));
    row("deep", encoded(drawing(QImage::Format_RGBA64)));
    row("palette with transparency", encoded(drawing(QImage::Format_Indexed8)));
    row("bits", encoded(drawing(QImage::Format_Mono)));
    row("jpeg", encoded(drawing(QImage::Format_RGB32), "jpg"));
    row("grey jpeg", encoded(drawing(QImage::Format_Grayscale8), "jpg"));
    row("progressive", progressive());
    row("many scans", withScans(maxJpegScans));
    row("jpeg with a comment", commented(encoded(drawing(QImage::Format_RGB32), "jpg")));
    row("png with packed texts",
        with(encoded(drawing(QImage::Format_RGB32)), behindPngHeader, packedText().repeated(5)));
}

void TestTilePicture::picturesComeAsTheyAre()
{
    QFETCH(QByteArray, body);
    const QImage whole = QImage::fromData(body);
    QVERIFY(!whole.isNull());
    const QImage tile = decodeTile(body);
    QCOMPARE(tile, whole.convertToFormat(QImage::Format_RGBA8888));
    QCOMPARE(tile.textKeys(), QStringList()); // texts never reach the decoder
}

void TestTilePicture::othersAreRefused_data()
{
    const KOLT::Test::Rows<QByteArray> row("body");
    const QImage image = drawing(QImage::Format_RGB32);
    row("svg", "<svg xmlns='http://www.w3.org/2000/svg' width='256' height='256'/>");
    for (const char* format : {"bmp", "ppm", "xpm", "ico"})
        row(format, encoded(image, format));
    for (const char* format : {"png", "jpg"}) {
        row(format, encoded(drawing(QImage::Format_RGB32, 300), format));
        row(format, encoded(image.copy(0, 0, 256, 512), format));
    }
    row("one scan too many", withScans(maxJpegScans + 1));
    // A decoder skips only this marker itself, and finds a scan in what looks like its data.
    const QByteArray body = progressive();
    const auto hidden = static_cast<char16_t>(body.size() - body.lastIndexOf(jpegScan));
    row("hidden scan", with(body, body.lastIndexOf(jpegScan),
                            QByteArray::fromHex("ff01") + char(hidden >> 8) + char(hidden)));
    row("jpeg without scans", body.left(body.indexOf(jpegScan)) + jpegEnd);
    row("png without data", encoded(image).left(behindPngHeader) + encoded(image).last(12));
}

void TestTilePicture::othersAreRefused()
{
    QFETCH(QByteArray, body);
    QVERIFY(decodeTile(body).isNull());
}

void TestTilePicture::noneIsMadeOfABeginning()
{
    for (const QByteArray& body :
         {encoded(drawing(QImage::Format_Indexed8)),
          encoded(drawing(QImage::Format_Grayscale8), "jpg"), progressive()}) {
        QVERIFY(!decodeTile(body).isNull());
        for (qsizetype size = 0; size < body.size(); size += size < 1000 ? 1 : 97)
            QVERIFY2(decodeTile(body.left(size)).isNull(), qPrintable(QString::number(size)));
        QVERIFY(decodeTile(body.chopped(1)).isNull());
    }
}

QTEST_GUILESS_MAIN(TestTilePicture)
#include "tst_tilepicture.moc"
