#include "libs/tessamap/globe/Mercator.h"
#include "libs/tessamap/terrain/ElevationSource.h"
#include "libs/tessamap/terrain/HillShade.h"
#include "libs/tessamap/terrain/ShadeSource.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

#include <QSignalSpy>
#include <QThread>

#include <cmath>
#include <functional>
#include <sys/stat.h>
#include <zlib.h>

using namespace Tessa;
using KOLT::Test::Rows;

namespace {

using Terrain = std::function<double(double latitude, double longitude)>;

/// The content of an elevation file for the degree with this south-west corner.
QByteArray elevationBytes(int south, int west, const Terrain& terrain, int side = 1201)
{
    QByteArray bytes;
    bytes.reserve(side * side * 2);
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const auto height = static_cast<int>(std::lround(
                terrain(south + 1.0 - row / (side - 1.0), west + column / (side - 1.0))));
            bytes.append(static_cast<char>(height >> 8)).append(static_cast<char>(height));
        }
    }
    return bytes;
}

QByteArray gzipped(const QByteArray& bytes)
{
    QByteArray result(static_cast<qsizetype>(compressBound(uLong(bytes.size()))) + 64, '\0');
    z_stream stream{};
    deflateInit2(&stream, 1, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.constData()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return result;
}

TileId tileAt(int zoom, double latitude, double longitude)
{
    return {zoom, int(Mercator::x(longitude) * TileId::count(zoom)),
            int(Mercator::y(latitude) * TileId::count(zoom))};
}

/// The angle of row or column `i` of a tile's samples.
double latitudeOf(const TileId& tile, int i)
{
    return Mercator::latitude((tile.y * 256.0 + i - 0.5) / (256.0 * TileId::count(tile.zoom)));
}

double longitudeOf(const TileId& tile, int i)
{
    return Mercator::longitude((tile.x * 256.0 + i - 0.5) / (256.0 * TileId::count(tile.zoom)));
}

/// A folder of elevation files and a source that reads them.
struct Ground
{
    explicit Ground(const QString& name = {}, const QByteArray& content = {})
    {
        source.setPath(folder.path());
        if (!name.isEmpty())
            add(name, content);
    }

    void add(const QString& name, const QByteArray& content)
    {
        QVERIFY(KOLT::Test::writeFile(folder.filePath(name), content));
        source.refresh();
    }

    std::optional<std::vector<float>> heights(const TileId& tile)
    {
        using State = ElevationSource::State;
        std::vector<float> found;
        State state = State::Loading;
        const bool isDone =
            QTest::qWaitFor([&] { return (state = source.sample(tile, found)) != State::Loading; });
        return isDone && state != State::None ? std::optional(found) : std::nullopt;
    }

    QTemporaryDir folder;
    ElevationSource source;
};

float at(const std::vector<float>& heights, int row, int column)
{
    return heights[static_cast<std::size_t>(row * ElevationSource::gridSize + column)];
}

double tilted(double latitude, double longitude)
{
    return 3000.0 * (latitude - 46.0) + 1000.0 * (longitude - 10.0);
}

/// The grey value of ground with these slopes to the east and to the north.
double grayOf(double east, double north, const Shading& shading)
{
    const auto& [x, y, z] = shading.light;
    const double length = std::hypot(x, y, z);
    const double p = shading.factor * east;
    const double q = shading.factor * north;
    const double lit = (p * x + q * y - z) / length / std::sqrt(1 + p * p + q * q);
    const double shade = shading.brightness + shading.contrast * (std::max(0.0, lit) + z / length);
    return std::min(255.0, 128.0 * std::clamp(shade, 0.0, 2.0));
}

constexpr int last = ElevationSource::gridSize - 1;

} // namespace

class TestTerrain : public QObject
{
    Q_OBJECT

private slots:
    void fileNames();
    void unusableFiles_data();
    void unusableFiles();
    void heightsFollowThePlane_data();
    void heightsFollowThePlane();
    void neighboursShareTheirHeights();
    void voidsAreMissing();
    void averages();
    void littleMemoryIsEnough();
    void filesThatComeLater();
    void replacedFilesAreReadAgain();
    void pipesAreNotOpened();
    void shadeOfAPlane_data();
    void shadeOfAPlane();
    void shadeOfFlatAndMissingGround();
    void bakedTiles();
};

void TestTerrain::fileNames()
{
    const auto cell = [](const char* name) {
        const auto found = ElevationCell::ofFile(name);
        return found ? QString("%1 %2").arg(found->latitude).arg(found->longitude) : "none";
    };
    QCOMPARE(cell("N47E011.hgt"), "47 11");
    QCOMPARE(cell("s01w072.hgt.gz"), "-1 -72");
    QCOMPARE(cell("N00W001.HGT.GZ"), "0 -1");
    QCOMPARE(cell("N47E011.SRTMGL1.hgt"), "47 11"); // as downloaded
    for (const char* bad : {"N90E011.hgt", "N10E180.hgt", "N47E011.hgt.zip", "Copy of N47E011.hgt"})
        QCOMPARE(cell(bad), "none");
}

void TestTerrain::unusableFiles_data()
{
    const Rows<QString, QByteArray> row("name", "content");
    const QByteArray good = elevationBytes(47, 11, tilted);
    const QByteArray packed = gzipped(good);
    row("empty", "N47E011.hgt", "");
    row("a byte short", "N47E011.hgt", good.chopped(1));
    row("a row long", "N47E011.hgt", good + QByteArray(2402, '\0'));
    row("no gzip", "N47E011.hgt.gz", good);
    row("gzip of little", "N47E011.hgt.gz", gzipped("little"));
    row("gzip cut short", "N47E011.hgt.gz", packed.left(packed.size() / 2));
    // The noted length is right, but the data are damaged.
    QByteArray broken = packed;
    broken.replace(broken.size() / 2, 40, QByteArray(40, 'x'));
    row("gzip damaged", "N47E011.hgt.gz", broken);
    broken = packed;
    broken[broken.size() - 6] = static_cast<char>(~broken[broken.size() - 6]);
    row("gzip with a wrong checksum", "N47E011.hgt.gz", broken);
    row("gzip empty", "N47E011.hgt.gz", "ab");
}

void TestTerrain::unusableFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    Ground ground;
    QSignalSpy messages(&ground.source, &ElevationSource::message);
    ground.add(name, content);
    const TileId tile = tileAt(11, 47.5, 11.5);
    QVERIFY(!ground.heights(tile));
    QVERIFY(!ground.heights(tile));
    QCOMPARE(ground.source.dataZoom(tile), 0);
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages[0][0].toString().contains(name));
    ground.source.refresh(); // the same file is reported once
    QVERIFY(!ground.heights(tile));
    QCOMPARE(messages.size(), 1);
    const QByteArray good = elevationBytes(47, 11, tilted);
    ground.add(name, name.endsWith(".gz") ? gzipped(good) : good);
    QVERIFY(ground.heights(tile));
}

void TestTerrain::heightsFollowThePlane_data()
{
    const Rows<QString, int, int, int> row("name", "side", "zoom", "dataZoom");
    for (const int zoom : {8, 9, 10, 11, 14}) {
        row(qPrintable(QString("3 seconds, zoom %1").arg(zoom)), "n47e011.HGT", 1201, zoom, 11);
        row(qPrintable(QString("compressed, zoom %1").arg(zoom)), "N47E011.hgt.gz", 1201, zoom, 11);
    }
    for (const int zoom : {9, 13})
        row(qPrintable(QString("1 second, zoom %1").arg(zoom)), "N47E011.hgt", 3601, zoom, 13);
}

void TestTerrain::heightsFollowThePlane()
{
    QFETCH(QString, name);
    QFETCH(int, side);
    QFETCH(int, zoom);
    const QByteArray bytes = elevationBytes(47, 11, tilted, side);
    Ground ground(name, name.endsWith("gz") ? gzipped(bytes) : bytes);
    const TileId tile = tileAt(zoom, 47.5, 11.5);
    QTEST(ground.source.dataZoom(tile), "dataZoom");
    const auto heights = ground.heights(tile);
    QVERIFY(heights);
    int inside = 0;
    for (int row = 0; row <= last; row += 7) {
        for (int column = 0; column <= last; column += 7) {
            const double latitude = latitudeOf(tile, row);
            const double longitude = longitudeOf(tile, column);
            const float height = at(*heights, row, column);
            const bool isInside =
                latitude >= 47.0 && latitude <= 48.0 && longitude >= 11.0 && longitude <= 12.0;
            inside += isInside ? 1 : 0;
            // Heights are whole metres; there are no files around.
            QVERIFY(isInside ? std::abs(height - tilted(latitude, longitude)) < 1.1
                             : std::isnan(height));
        }
    }
    QVERIFY(inside > 100);
}

void TestTerrain::neighboursShareTheirHeights()
{
    // Two neighbouring files, one finer than the other.
    Ground ground("N47E011.hgt", elevationBytes(47, 11, tilted));
    ground.add("N47E012.hgt", elevationBytes(47, 12, tilted, 3601));
    for (const int zoom : {7, 8, 10, 12}) {
        const TileId west = tileAt(zoom, 47.5, zoom == 7 ? 11.2 : 12.0);
        const auto a = ground.heights(west);
        const auto b = ground.heights({zoom, west.x + 1, west.y});
        const auto c = ground.heights({zoom, west.x, west.y + 1});
        QVERIFY(a && b && c);
        for (int i = 0; i <= last; ++i) {
            for (const int overlap : {0, 1}) {
                QVERIFY(at(*a, i, last - 1 + overlap) == at(*b, i, overlap) ||
                        std::isnan(at(*b, i, overlap)));
                QVERIFY(at(*a, last - 1 + overlap, i) == at(*c, overlap, i) ||
                        std::isnan(at(*c, overlap, i)));
            }
        }
        // No step between the files.
        for (int column = 1; column <= last; ++column) {
            const float step = at(*a, 128, column) - at(*a, 128, column - 1);
            const double expected = 1000.0 * 360.0 / 256.0 / TileId::count(zoom);
            QVERIFY(std::isnan(step) || std::abs(step - expected) < 2.0 + 0.1 * expected);
        }
    }
}

void TestTerrain::voidsAreMissing()
{
    Ground ground("N47E011.hgt", elevationBytes(47, 11, [](double latitude, double longitude) {
                      const bool isHole = std::hypot(latitude - 47.5, longitude - 11.5) < 0.05;
                      return isHole ? -32768.0 : 700.0;
                  }));
    for (const int zoom : {7, 9, 11}) {
        const TileId tile = tileAt(zoom, 47.5, 11.5);
        const auto heights = ground.heights(tile);
        QVERIFY(heights);
        int missing = 0;
        for (int row = 0; row <= last; ++row) {
            for (int column = 0; column <= last; ++column) {
                const double distance =
                    std::hypot(latitudeOf(tile, row) - 47.5, longitudeOf(tile, column) - 11.5);
                const float height = at(*heights, row, column);
                // Heights around a hole are not affected.
                QVERIFY(std::isnan(height) || height == 700.0f);
                if (distance < 0.03)
                    QVERIFY(std::isnan(height));
                missing += distance < 0.03 ? 1 : 0;
            }
        }
        QVERIFY(missing > 10);
    }
}

void TestTerrain::averages()
{
    HeightGrid grid{9, {}};
    for (int row = 0; row < 9; ++row) {
        for (int column = 0; column < 9; ++column)
            grid.heights.push_back(static_cast<std::int16_t>(100 * row - 30 * column));
    }
    grid.heights[4 * 9 + 4] = 30000; // one spike
    grid.heights[0] = HeightGrid::missing;
    const HeightGrid coarse = averaged(grid, 4);
    QCOMPARE(coarse.side, 3);
    QCOMPARE(int(coarse.at(1, 1)), 1469); // 280 and a 25th of the spike's excess, rounded
    QCOMPARE(int(coarse.at(0, 0)), int(HeightGrid::missing));
    QCOMPARE(int(coarse.at(0, 1)), -120); // mean along the edge only
    QCOMPARE(int(coarse.at(1, 2)), 400 - 240);
    QCOMPARE(int(coarse.at(2, 2)), 800 - 240);
}

void TestTerrain::littleMemoryIsEnough()
{
    Ground ground;
    ground.source.setMemoryLimit(qsizetype(13) << 20); // four files have 11.5 MiB
    for (const int latitude : {46, 47}) {
        for (const int longitude : {10, 11})
            ground.add(QString("N%1E0%2.hgt").arg(latitude).arg(longitude),
                       elevationBytes(latitude, longitude, tilted));
    }
    for (int round = 0; round < 2; ++round) {
        for (const auto& [latitude, longitude] :
             {std::pair(47.0, 11.0), std::pair(46.5, 10.5), std::pair(47.5, 11.5)})
            QVERIFY(ground.heights(tileAt(11, latitude, longitude)));
    }
}

void TestTerrain::filesThatComeLater()
{
    Ground ground;
    ElevationSource& source = ground.source;
    ShadeSource shades(source);
    source.setPath(ground.folder.filePath("missing"));
    source.setPath(ground.folder.path());
    QVERIFY(source.isEmpty());
    const TileId tile = tileAt(12, 47.5, 11.5);
    QVERIFY(!shades.shadeTile(tile));
    const int revision = shades.revision();
    ground.add("N47E011.hgt", elevationBytes(47, 11, tilted));
    QVERIFY(shades.revision() != revision);
    QVERIFY(shades.shadeTile(tile));
    // Removed before it is read: the same as no file.
    QFile::remove(ground.folder.filePath("N47E011.hgt"));
    QVERIFY(!ground.heights(tile));
    QVERIFY(!shades.shadeTile(tile));
}

void TestTerrain::replacedFilesAreReadAgain()
{
    const auto flat = [](int metres) {
        return elevationBytes(47, 11, [metres](double, double) { return metres; });
    };
    Ground ground("N47E011.hgt", flat(100));
    ground.add("N47E012.hgt", flat(7));
    const auto height = [&](double longitude) {
        const auto heights = ground.heights(tileAt(11, 47.5, longitude));
        return heights ? at(*heights, 100, 100) : -1.0F;
    };
    QCOMPARE(height(11.5), 100.0F);
    QCOMPARE(height(12.5), 7.0F);
    ground.add("N47E011.hgt", flat(200));
    std::vector<float> heights;
    // The other file is kept.
    QCOMPARE(ground.source.sample(tileAt(11, 47.5, 12.5), heights), ElevationSource::State::Ready);
    QCOMPARE(height(11.5), 200.0F);

    // Replaced while it is read: what was read is outdated.
    ground.add("N47E011.hgt", flat(300));
    QCOMPARE(ground.source.sample(tileAt(11, 47.5, 11.5), heights),
             ElevationSource::State::Loading);
    QThread::msleep(100); // long enough for reading; the result is still queued
    ground.add("N47E011.hgt", flat(400));
    QCOMPARE(height(11.5), 400.0F);
}

void TestTerrain::pipesAreNotOpened()
{
    Ground ground("N47E011.hgt", elevationBytes(47, 11, tilted));
    const TileId tile = tileAt(11, 47.5, 11.5);
    QCOMPARE(ground.source.dataZoom(tile), 11);
    const QString path = ground.folder.filePath("N47E011.hgt");
    QFile::remove(path); // after it was found
    QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
    QVERIFY(!ground.heights(tile));
    for (const char* name : {"N47E011.hgt.gz", "N47E011.SRTMGL1.hgt"})
        QVERIFY(QFile::link(path, ground.folder.filePath(name)));
    ground.source.refresh();
    QVERIFY(!ground.heights(tile));
}

void TestTerrain::shadeOfAPlane_data()
{
    // Slopes.
    const Rows<double, double, Shading> row("east", "north", "shading");
    const std::array light{1.0f, 2.0f, -2.0f};
    row("towards the light", -0.3, 0.2, {light, 1.0, 1.0, 1.0});
    row("away from it", 0.3, -0.2, {light, 1.0, 1.0, 1.0});
    row("in full shadow", 5.0, -5.0, {light, 1.0, 1.0, 1.0});
    row("settings", 0.1, 0.7, {light, 1.6, 0.8, 0.5});
    row("beyond white", -1.0, -1.0, {light, 9.0, 1.5, 1.0});
}

void TestTerrain::shadeOfAPlane()
{
    QFETCH(double, east);
    QFETCH(double, north);
    QFETCH(Shading, shading);
    constexpr int side = 64;
    const std::vector<double> metres(side, 20.0);
    std::vector<float> heights;
    for (int row = 0; row < side + 2; ++row) {
        for (int column = 0; column < side + 2; ++column)
            heights.push_back(static_cast<float>(20.0 * (east * column - north * row)));
    }
    const QImage image = hillShade(heights, metres, shading);
    QCOMPARE(image.size(), QSize(side, side));

    const double expected = grayOf(east, north, shading);
    for (int i = 0; i < side; ++i)
        QVERIFY(std::abs(qGray(image.pixel(i, (i * 7) % side)) - expected) <= 1.5);
}

void TestTerrain::shadeOfFlatAndMissingGround()
{
    const std::vector<double> metres(8, 10.0);
    std::vector<float> heights(100, 500.0f);
    const Shading shading{{1.0f, -1.0f, -1.0f}, 3.0, 0.75, 2.0};
    QCOMPARE(qGray(hillShade(heights, metres, shading).pixel(3, 3)), 96);
    heights[5 * 10 + 5] = std::nanf("");
    const QImage image = hillShade(heights, metres, shading);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool isBeside = std::abs(x - 4) <= 1 && std::abs(y - 4) <= 1;
            QCOMPARE(qGray(image.pixel(x, y)), isBeside ? 128 : 96);
        }
    }
    QVERIFY(hillShade(heights, std::vector<double>(9, 10.0), shading).isNull());
    QVERIFY(hillShade({}, {}, shading).isNull());

    const auto down = towardsLight({0.0f, 0.0f, 0.0f});
    QCOMPARE(down[2], 1.0);
    QCOMPARE(towardsLight({0.0f, std::nanf(""), 1.0f})[2], 1.0);
    const Shading odd{{1.0f, -1.0f, -1.0f}, std::nan(""), 1.0, std::nan("")};
    QCOMPARE(qGray(hillShade(heights, metres, odd).pixel(0, 0)), 128);
}

void TestTerrain::bakedTiles()
{
    Ground ground("N47E011.hgt", elevationBytes(47, 11, tilted));
    ShadeSource shades(ground.source);
    const Shading shading{{1.0f, -1.0f, -1.0f}, 2.0, 1.0, 4.0};
    shades.setShading(shading);

    const TileId deep = tileAt(15, 47.5, 11.5);
    const TileId tile = tileAt(11, 47.5, 11.5);
    QCOMPARE(shades.shadeTile(deep), std::optional(tile));
    QCOMPARE(shades.shadeTile(tile.parent()), std::optional(tile.parent()));
    QVERIFY(!shades.shadeTile(tileAt(11, 52.5, 11.5)));
    QVERIFY(!shades.shadeTile(TileId{3, 4, 2}));

    shades.setWanted(std::vector{tile, tileAt(11, 52.5, 11.5)});
    std::optional<ShadeSource::Shade> shade;
    QVERIFY(QTest::qWaitFor([&] { return (shade = shades.takeNext()).has_value(); }));
    QCOMPARE(shade->id, tile);
    QCOMPARE(shade->image.size(), QSize(256, 256));
    QVERIFY(!shades.takeNext());
    QCOMPARE(shades.loadingCount(), 0);

    // The plane rises 3000 m per degree northwards and 1000 m eastwards.
    const double metresPerDegree = Mercator::circumference / 360.0;
    const double eastwards =
        metresPerDegree * std::cos(latitudeOf(tile, 129) * std::numbers::pi / 180.0);
    const double expected = grayOf(1000.0 / eastwards, 3000.0 / metresPerDegree, shading);
    double mean = 0.0;
    for (int y = 96; y < 160; ++y) {
        for (int x = 96; x < 160; ++x)
            mean += qGray(shade->image.pixel(x, y)) / 4096.0;
    }
    QVERIFY2(std::abs(mean - expected) < 1.0, qPrintable(QString("%1 %2").arg(mean).arg(expected)));

    const int revision = shades.revision();
    shades.setShading(shading);
    QCOMPARE(shades.revision(), revision);
    shades.setShading(Shading{{-1.0f, 1.0f, -1.0f}, 2.0, 1.0, 4.0});
    QVERIFY(shades.revision() != revision);
    shades.setWanted(std::vector{tile});
    const auto other = shades.takeNext();
    QVERIFY(other && other->image != shade->image);
}

QTEST_GUILESS_MAIN(TestTerrain)
#include "tst_terrain.moc"
