#include "libs/tessamap/tiles/TilePicture.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <utility>

namespace Tessa {

namespace {

const QByteArray pngMagic = QByteArray::fromHex("89504e470d0a1a0a");
const QByteArray jpegMagic = QByteArray::fromHex("ffd8ff");

quint32 number(const QByteArray& body, qsizetype place)
{
    return qFromBigEndian<quint32>(body.constData() + place);
}

quint16 shortNumber(const QByteArray& body, qsizetype place)
{
    return qFromBigEndian<quint16>(body.constData() + place);
}

bool isTileSide(quint32 pixels)
{
    return pixels == 256 || pixels == 512;
}

/// The file with only the chunks that the picture needs; empty when it is damaged, truncated or not
/// of a tile's size. Texts and profiles are compressed, and could unpack to a thousand times their
/// length.
QByteArray neededOfPng(const QByteArray& body)
{
    constexpr qsizetype frame = 12; // a chunk's length, name and checksum
    constexpr qsizetype headerEnd = 8 + 8 + 13 + 4;
    if (body.size() < headerEnd || number(body, 8) != 13 || body.mid(12, 4) != "IHDR" ||
        !isTileSide(number(body, 16)) || number(body, 20) != number(body, 16))
        return QByteArray();
    QByteArray result;
    result.reserve(body.size());
    result.append(body.constData(), headerEnd);
    bool hasPalette = false;
    bool hasTransparency = false;
    for (qsizetype at = headerEnd; at + frame <= body.size();) {
        const qsizetype length = number(body, at);
        if (length > body.size() - at - frame)
            break;
        const QByteArrayView name(body.constData() + at + 4, 4);
        bool isNeeded = name == "IDAT" || name == "IEND";
        if (name == "PLTE")
            isNeeded = !std::exchange(hasPalette, true);
        else if (name == "tRNS")
            isNeeded = !std::exchange(hasTransparency, true);
        if (isNeeded && (length > 0 || name == "IEND"))
            result.append(body.constData() + at, length + frame);
        if (name == "IEND")
            return result;
        at += length + frame;
    }
    return QByteArray();
}

/// The end of a scan's data: the next marker that is not part of the data.
qsizetype scanEnd(const QByteArray& body, qsizetype at)
{
    while (at + 1 < body.size()) {
        at = body.indexOf('\xff', at);
        if (at < 0 || at + 1 >= body.size())
            break;
        const auto code = static_cast<uchar>(body[at + 1]);
        const bool isRestart = code >= 0xd0 && code <= 0xd7;
        if (code != 0 && code != 0xff && !isRestart)
            return at;
        at += code == 0xff ? 1 : 2;
    }
    return body.size();
}

enum class JpegPart { Needed, Extra, Frame, Scan, Unknown };

JpegPart jpegPart(uchar code)
{
    switch (code) {
    case 0xc0: // baseline, extended sequential, progressive
    case 0xc1:
    case 0xc2:
        return JpegPart::Frame;
    case 0xda:
        return JpegPart::Scan;
    case 0xc4: // tables, restart interval
    case 0xdb:
    case 0xdd:
    case 0xe0: // colour coding
    case 0xee:
        return JpegPart::Needed;
    default:
        return (code >= 0xe0 && code <= 0xef) || code == 0xfe ? JpegPart::Extra : JpegPart::Unknown;
    }
}

/// Checks the precision and, after it, the height and width.
bool isFrameOfTile(const QByteArray& body, qsizetype at)
{
    return at + 9 <= body.size() && body[at + 4] == 8 && isTileSide(shortNumber(body, at + 5)) &&
           shortNumber(body, at + 7) == shortNumber(body, at + 5);
}

/// The file without comments and application data; empty when it is damaged, truncated (it would
/// decode to a picture that is partly grey), not of a tile's size, has too many scans, or contains
/// parts whose treatment by the decoder is not known.
QByteArray neededOfJpeg(const QByteArray& body)
{
    QByteArray result = body.left(2);
    result.reserve(body.size());
    int frames = 0;
    int scans = 0;
    for (qsizetype at = 2; at + 1 < body.size() && body[at] == '\xff';) {
        const auto code = static_cast<uchar>(body[at + 1]);
        if (code == 0xff) { // padding
            ++at;
            continue;
        }
        if (code == 0xd9)
            return scans > 0 ? result + body.mid(at, 2) : QByteArray();
        const JpegPart part = jpegPart(code);
        if (part == JpegPart::Unknown || at + 4 > body.size())
            break;
        if (part == JpegPart::Frame && (++frames > 1 || !isFrameOfTile(body, at)))
            break;
        if (part == JpegPart::Scan && (frames == 0 || ++scans > maxJpegScans))
            break;
        const qsizetype length = shortNumber(body, at + 2);
        qsizetype end = at + 2 + length;
        if (part == JpegPart::Scan)
            end = scanEnd(body, end);
        if (length < 2 || end > body.size())
            break;
        if (part != JpegPart::Extra)
            result.append(body.constData() + at, end - at);
        at = end;
    }
    return QByteArray();
}

} // namespace

QImage decodeTile(const QByteArray& body)
{
    const bool isPng = body.startsWith(pngMagic);
    if (!isPng && !body.startsWith(jpegMagic))
        return QImage();
    QByteArray picture = isPng ? neededOfPng(body) : neededOfJpeg(body);
    QBuffer buffer(&picture);
    if (picture.isEmpty() || !buffer.open(QIODevice::ReadOnly))
        return QImage();
    QImageReader reader(&buffer, isPng ? "png" : "jpeg");
    reader.setAutoDetectImageFormat(false);
    QImage image;
    if (!reader.read(&image))
        return QImage();
    image.setDevicePixelRatio(1.0);
    return std::move(image).convertToFormat(QImage::Format_RGBA8888);
}

} // namespace Tessa
