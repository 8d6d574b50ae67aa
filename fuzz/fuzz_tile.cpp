// Decodes arbitrary bytes as a map tile. The mutator repairs the checksums of PNG chunks, without
// which nearly every mutation would end at the first of them.

#include "fuzz/FuzzFile.h"
#include "libs/tessamap/tiles/TilePicture.h"

#include <QtEndian>

#include <zlib.h>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

constexpr std::size_t signatureSize = 8;
constexpr std::size_t chunkFrame = 12; ///< length, type and checksum of a chunk

void repairChecksums(std::uint8_t* data, std::size_t size)
{
    for (std::size_t at = signatureSize; at + chunkFrame <= size;) {
        const std::size_t length = qFromBigEndian<quint32>(data + at);
        if (length > size - at - chunkFrame)
            return;
        const uLong sum = crc32(0, data + at + 4, static_cast<uInt>(length + 4));
        qToBigEndian(static_cast<quint32>(sum), data + at + 8 + length);
        at += length + chunkFrame;
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed)
{
    size = LLVMFuzzerMutate(data, size, maxSize);
    if (seed % 8 != 0 && size > signatureSize && data[1] == 'P')
        repairChecksums(data, size);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray body(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QImage image = Tessa::decodeTile(body);
    if (!image.isNull() && (image.width() != image.height() || image.width() > 512 ||
                            image.format() != QImage::Format_RGBA8888))
        std::abort();
    return 0;
}
