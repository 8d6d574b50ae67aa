#include "base/ZipFile.h"

#include <cstdint>
#include <limits>
#include <zlib.h>

namespace KOLT {

namespace {

constexpr int entryMark = 0x04034b50;
constexpr int directoryMark = 0x02014b50;
constexpr int endMark = 0x06054b50;
constexpr int version = 20;
constexpr int utf8Names = 1 << 11;
constexpr int deflated = 8;
constexpr int firstDay = 1 << 5 | 1; // 1 January 1980
constexpr qint64 largest = std::numeric_limits<std::uint32_t>::max();

void put(QByteArray& bytes, int width, qint64 value)
{
    for (int i = 0; i < width; ++i)
        bytes.append(static_cast<char>((value >> (8 * i)) & 0xFF));
}

/// As in a ZIP file: without the length before it, and the head and checksum of a zlib stream.
QByteArray deflate(const QByteArray& content)
{
    constexpr int headBytes = 4 + 2;
    constexpr int checksumBytes = 4;
    return content.isEmpty() ? QByteArray()
                             : qCompress(content).mid(headBytes).chopped(checksumBytes);
}

qint64 checksumOf(const QByteArray& content)
{
    const auto* const bytes = reinterpret_cast<const Bytef*>(content.constData());
    return static_cast<qint64>(crc32_z(0, bytes, static_cast<z_size_t>(content.size())));
}

} // namespace

QByteArray zipOf(const std::map<QString, QByteArray>& files)
{
    QByteArray zip;
    QByteArray directory;
    for (const auto& [name, content] : files) {
        const QByteArray title = name.toUtf8();
        const QByteArray packed = deflate(content);
        const qint64 start = zip.size();
        QByteArray fields; // stand before the content and in the directory
        for (const int number : {version, utf8Names, content.isEmpty() ? 0 : deflated, 0, firstDay})
            put(fields, 2, number);
        for (const qint64 number :
             {checksumOf(content), qint64{packed.size()}, qint64{content.size()}})
            put(fields, 4, number);
        put(fields, 2, title.size());
        put(fields, 2, 0);
        if (content.size() > largest || start + packed.size() > largest)
            return {};
        put(zip, 4, entryMark);
        zip += fields + title + packed;
        put(directory, 4, directoryMark);
        put(directory, 2, version);
        directory += fields;
        for (const int width : {2, 2, 2, 4}) // comment, disk and attributes
            put(directory, width, 0);
        put(directory, 4, start);
        directory += title;
    }
    const qint64 start = zip.size();
    if (start > largest)
        return {};
    zip += directory;
    put(zip, 4, endMark);
    put(zip, 4, 0); // disks
    put(zip, 2, static_cast<qint64>(files.size()));
    put(zip, 2, static_cast<qint64>(files.size()));
    put(zip, 4, directory.size());
    put(zip, 4, start);
    put(zip, 2, 0);
    return zip;
}

} // namespace KOLT
