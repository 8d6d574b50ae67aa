#include "libs/tessamap/terrain/ElevationFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtEndian>

#include <algorithm>
#include <utility>
#include <zlib.h>

namespace Tessa {

namespace {

constexpr std::array<int, 2> knownSides{1201, 3601};

constexpr qint64 bytesOf(int side)
{
    return qint64(side) * side * 2;
}

std::optional<int> sideOf(qint64 bytes)
{
    const auto side = std::ranges::find(knownSides, bytes, bytesOf);
    return side == knownSides.end() ? std::nullopt : std::optional(*side);
}

bool isCompressed(const QString& path)
{
    return path.endsWith(QLatin1String(".gz"), Qt::CaseInsensitive);
}

/// Opening anything but a regular file, such as a pipe, might block for ever.
bool isPlain(const QString& path)
{
    return QFileInfo(path).isFile();
}

/// Empty when the data are damaged or larger than the largest known file.
QByteArray inflated(const QByteArray& compressed)
{
    QByteArray result(bytesOf(knownSides.back()) + 1, Qt::Uninitialized);
    z_stream stream{};
    constexpr int gzipFormat = 16 + MAX_WBITS;
    if (inflateInit2(&stream, gzipFormat) != Z_OK)
        return QByteArray();
    stream.next_in =
        reinterpret_cast<Bytef*>(const_cast<char*>(compressed.constData())); // zlib only reads it
    stream.avail_in = static_cast<uInt>(compressed.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    const int status = inflate(&stream, Z_FINISH);
    const auto length = static_cast<qsizetype>(stream.total_out);
    inflateEnd(&stream);
    if (status != Z_STREAM_END)
        return QByteArray();
    result.truncate(length);
    return result;
}

} // namespace

HeightGrid averaged(const HeightGrid& grid, int step)
{
    HeightGrid result;
    result.side = (grid.side - 1) / step + 1;
    result.heights.reserve(static_cast<std::size_t>(result.side) *
                           static_cast<std::size_t>(result.side));
    const int reach = step / 2;
    const auto range = [&](int index) {
        const int middle = index * step;
        const bool isEdge = index == 0 || index == result.side - 1;
        return isEdge ? std::pair(middle, middle) : std::pair(middle - reach, middle + reach);
    };
    for (int row = 0; row < result.side; ++row) {
        const auto [top, bottom] = range(row);
        for (int column = 0; column < result.side; ++column) {
            const auto [left, right] = range(column);
            int sum = 0;
            int count = 0;
            for (int y = top; y <= bottom; ++y) {
                for (int x = left; x <= right; ++x) {
                    const int height = grid.at(y, x);
                    const bool isThere = height != HeightGrid::missing;
                    sum += isThere ? height : 0;
                    count += isThere ? 1 : 0;
                }
            }
            const int half = sum < 0 ? -count / 2 : count / 2;
            result.heights.push_back(count == 0 ? HeightGrid::missing
                                                : static_cast<std::int16_t>((sum + half) / count));
        }
    }
    return result;
}

std::optional<ElevationCell> ElevationCell::ofFile(const QString& name)
{
    static const QRegularExpression form(
        QStringLiteral("^([NS])(\\d\\d)([EW])(\\d\\d\\d)(\\.\\w+)?\\.hgt(\\.gz)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(name);
    if (!match.hasMatch())
        return std::nullopt;
    const auto isNegative = [&](int group, char letter) {
        return match.captured(group).compare(QLatin1Char(letter), Qt::CaseInsensitive) == 0;
    };
    ElevationCell cell{match.captured(2).toInt(), match.captured(4).toInt()};
    if (isNegative(1, 'S'))
        cell.latitude = -cell.latitude;
    if (isNegative(3, 'W'))
        cell.longitude = -cell.longitude;
    const bool isOnEarth = cell.latitude >= -90 && cell.latitude <= 89 && cell.longitude >= -180 &&
                           cell.longitude <= 179;
    return isOnEarth ? std::optional(cell) : std::nullopt;
}

std::optional<int> elevationSide(const QString& path)
{
    if (!isPlain(path))
        return std::nullopt;
    QFile file(path);
    if (!isCompressed(path))
        return sideOf(file.size());
    // The last four bytes are the uncompressed length.
    if (!file.open(QIODevice::ReadOnly) || !file.seek(file.size() - 4))
        return std::nullopt;
    const QByteArray length = file.read(4);
    return length.size() == 4 ? sideOf(qFromLittleEndian<quint32>(length.constData()))
                              : std::nullopt;
}

std::optional<HeightGrid> readElevation(const QString& path)
{
    QFile file(path);
    // A usable compressed file is never much longer than the largest plain one.
    constexpr qint64 maxBytes = bytesOf(knownSides.back()) + (qint64(1) << 20);
    if (!isPlain(path) || !file.open(QIODevice::ReadOnly) || file.size() > maxBytes)
        return std::nullopt;
    QByteArray bytes = file.readAll();
    if (isCompressed(path))
        bytes = inflated(bytes);
    const auto side = sideOf(bytes.size());
    if (!side)
        return std::nullopt;
    HeightGrid grid;
    grid.side = *side;
    grid.heights.resize(static_cast<std::size_t>(*side) * static_cast<std::size_t>(*side));
    qFromBigEndian<qint16>(bytes.constData(), bytes.size() / 2, grid.heights.data());
    return grid;
}

std::optional<ElevationLevels> ElevationLevels::read(const QString& path)
{
    auto full = readElevation(path);
    if (!full)
        return std::nullopt;
    ElevationLevels levels;
    levels.grids[0] = std::make_shared<const HeightGrid>(std::move(*full));
    for (std::size_t i = 1; i < levels.grids.size(); ++i)
        levels.grids[i] = std::make_shared<const HeightGrid>(
            averaged(*levels.grids[i - 1], steps[i] / steps[i - 1]));
    return levels;
}

} // namespace Tessa
