// Reads arbitrary bytes as elevation files: as compressed file, as the heights of a whole file
// (which a small input repeats), and as a file of a length that the input names.

#include "fuzz/FuzzFile.h"
#include "libs/tessamap/terrain/ElevationFile.h"

#include <QFileInfo>

#include <zlib.h>

using namespace Tessa;

namespace {

constexpr int side = 1201;
constexpr std::size_t fileSize = std::size_t(side) * side * 2;

void check(const QString& path)
{
    elevationSide(path);
    const std::optional<ElevationLevels> levels = ElevationLevels::read(path);
    if (!levels)
        return;
    for (int i = 0; i < ElevationLevels::count; ++i) {
        const HeightGrid& grid = *levels->grids[static_cast<std::size_t>(i)];
        if (grid.heights.size() != static_cast<std::size_t>(grid.side) * grid.side)
            std::abort();
    }
}

/// A compressed file whose heights are sound in number.
void writeHeights(const QString& path, const std::uint8_t* data, std::size_t size)
{
    std::vector<std::uint8_t> heights(fileSize);
    for (std::size_t i = 0; i < fileSize; ++i)
        heights[i] = data[i % size];
    const gzFile file = gzopen(QFile::encodeName(path).constData(), "wb0");
    if (file == nullptr ||
        gzwrite(file, heights.data(), static_cast<unsigned>(fileSize)) != int(fileSize) ||
        gzclose(file) != Z_OK)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static KOLT::Fuzz::FuzzFile compressed("N47E011.hgt.gz");
    static KOLT::Fuzz::FuzzFile plain("N47E011.hgt");
    if (size < 2)
        return 0;
    check(compressed.set(data, size));
    check(plain.set(data, size));
    // A whole file takes 100 ms, so that only a few inputs become one. By their checksum: inputs
    // that were chosen by a byte would be kept for their coverage, and all others grow from them.
    const uLong sum = crc32(0, data, static_cast<uInt>(size));
    if (sum % 256 == 0) {
        const QString path = compressed.set(data, 0);
        writeHeights(path, data, size);
        if (!readElevation(path))
            std::abort();
        check(path);
    } else if (sum % 256 == 1) {
        const QString path = plain.set(data, size);
        if (!QFile::resize(path, qint64(fileSize) - data[1] % 3))
            std::abort();
        check(path);
    }
    return 0;
}
