#include "libs/tessamap/ElevationSource.h"
#include "libs/tessamap/HillShade.h"
#include "libs/tessamap/Mercator.h"
#include "libs/tessamap/ShadeSource.h"
#include "tests/support/TestFiles.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <functional>
#include <zlib.h>

using namespace Tessa;
using KOLT::Test::writeFile;

namespace {

using Terrain = std::function<double(double latitude, double longitude)>;

/// What an elevation file holds for the degree with this south-west corner.
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

/// Of row or column `i` of a tile's samples.
double latitudeOf(const TileId& tile, int i)
{
    return Mercator::latitude((tile.y * 256.0 + i - 0.5) / (256.0 * TileId::count(tile.zoom)));
}

double longitudeOf(const TileId& tile, int i)
{
    return Mercator::longitude((tile.x * 256.0 + i - 0.5) / (256.0 * TileId::count(tile.zoom)));
}

std::optional<std::vector<float>> heightsOf(ElevationSource& source, const TileId& tile)
{
    std::vector<float> heights;
    auto state = source.sample(tile, heights);
    if (!QTest::qWaitFor([&] {
            return (state = source.sample(tile, heights)) != ElevationSource::State::Loading;
        }) ||
        state == ElevationSource::State::None)
        return std::nullopt;
    return heights;
}

float at(const std::vector<float>& heights, int row, int column)
{
    return heights[static_cast<std::size_t>(row * ElevationSource::gridSize + column)];
}

double tilted(double latitude, double longitude)
{
    return 3000.0 * (latitude - 46.0) + 1000.0 * (longitude - 10.0);
}

constexpr int last = ElevationSource::gridSize - 1;

} // namespace

class TestTerrain : public QObject
{
    Q_OBJECT

private slots:
    void fileNames_data();
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
    void shadeOfAPlane_data();
    void shadeOfAPlane();
    void shadeOfFlatAndMissingGround();
    void bakedTiles();
};

void TestTerrain::fileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isCell");
    QTest::addColumn<int>("latitude");
    QTest::addColumn<int>("longitude");
    QTest::newRow("north-east") << "N47E011.hgt" << true << 47 << 11;
    QTest::newRow("lower case") << "s01w072.hgt.gz" << true << -1 << -72;
    QTest::newRow("upper case") << "N00W001.HGT.GZ" << true << 0 << -1;
    QTest::newRow("as downloaded") << "N47E011.SRTMGL1.hgt" << true << 47 << 11;
    QTest::newRow("beyond the pole") << "N90E011.hgt" << false << 0 << 0;
    QTest::newRow("beyond 180 degrees") << "N10E180.hgt" << false << 0 << 0;
    QTest::newRow("archive") << "N47E011.hgt.zip" << false << 0 << 0;
    QTest::newRow("copy") << "Copy of N47E011.hgt" << false << 0 << 0;
}

void TestTerrain::fileNames()
{
    QFETCH(QString, name);
    QFETCH(int, latitude);
    QFETCH(int, longitude);
    const auto cell = ElevationCell::ofFile(name);
    QTEST(cell.has_value(), "isCell");
    if (cell)
        QVERIFY((*cell == ElevationCell{latitude, longitude}));
}

void TestTerrain::unusableFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    const QByteArray good = elevationBytes(47, 11, tilted);
    const QByteArray packed = gzipped(good);
    QTest::newRow("empty") << "N47E011.hgt" << QByteArray();
    QTest::newRow("a byte short") << "N47E011.hgt" << good.chopped(1);
    QTest::newRow("a row long") << "N47E011.hgt" << good + QByteArray(2402, '\0');
    QTest::newRow("no gzip") << "N47E011.hgt.gz" << good;
    QTest::newRow("gzip of little") << "N47E011.hgt.gz" << gzipped("little");
    QTest::newRow("gzip cut short") << "N47E011.hgt.gz" << packed.left(packed.size() / 2);
    // The length noted is right, but the data are not.
    QByteArray broken = packed;
    broken.replace(broken.size() / 2, 40, QByteArray(40, 'x'));
    QTest::newRow("gzip damaged") << "N47E011.hgt.gz" << broken;
    broken = packed;
    broken[broken.size() - 6] = static_cast<char>(~broken[broken.size() - 6]);
    QTest::newRow("gzip with a wrong checksum") << "N47E011.hgt.gz" << broken;
    QTest::newRow("gzip empty") << "N47E011.hgt.gz" << QByteArray("ab");
}

void TestTerrain::unusableFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath(name), content));
    ElevationSource source;
    QSignalSpy messages(&source, &ElevationSource::message);
    source.setPath(folder.path());
    const TileId tile = tileAt(11, 47.5, 11.5);
    QVERIFY(!heightsOf(source, tile));
    QVERIFY(!heightsOf(source, tile));
    QCOMPARE(source.dataZoom(tile), 0);
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages[0][0].toString().contains(name));
}

void TestTerrain::heightsFollowThePlane_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("dataZoom");
    for (const int zoom : {8, 9, 10, 11, 14}) {
        QTest::addRow("3 seconds, zoom %d", zoom) << "n47e011.HGT" << 1201 << zoom << 11;
        QTest::addRow("compressed, zoom %d", zoom) << "N47E011.hgt.gz" << 1201 << zoom << 11;
    }
    for (const int zoom : {9, 13})
        QTest::addRow("1 second, zoom %d", zoom) << "N47E011.hgt" << 3601 << zoom << 13;
}

void TestTerrain::heightsFollowThePlane()
{
    QFETCH(QString, name);
    QFETCH(int, side);
    QFETCH(int, zoom);
    QTemporaryDir folder;
    QByteArray bytes = elevationBytes(47, 11, tilted, side);
    if (name.endsWith("gz"))
        bytes = gzipped(bytes);
    QVERIFY(writeFile(folder.filePath(name), bytes));
    ElevationSource source;
    source.setPath(folder.path());
    const TileId tile = tileAt(zoom, 47.5, 11.5);
    QTEST(source.dataZoom(tile), "dataZoom");
    const auto heights = heightsOf(source, tile);
    QVERIFY(heights);
    int inside = 0;
    for (int row = 0; row <= last; row += 7) {
        for (int column = 0; column <= last; column += 7) {
            const double latitude = latitudeOf(tile, row);
            const double longitude = longitudeOf(tile, column);
            const float height = at(*heights, row, column);
            if (latitude < 47.0 || latitude > 48.0 || longitude < 11.0 || longitude > 12.0) {
                QVERIFY(std::isnan(height)); // no file there
                continue;
            }
            ++inside;
            // Heights are whole metres.
            QVERIFY(std::abs(height - tilted(latitude, longitude)) < 1.1);
        }
    }
    QVERIFY(inside > 100);
}

void TestTerrain::neighboursShareTheirHeights()
{
    // Two degrees side by side, one finer than the other.
    QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("N47E011.hgt"), elevationBytes(47, 11, tilted)));
    QVERIFY(writeFile(folder.filePath("N47E012.hgt"), elevationBytes(47, 12, tilted, 3601)));
    ElevationSource source;
    source.setPath(folder.path());
    for (const int zoom : {7, 8, 10, 12}) {
        const TileId west = tileAt(zoom, 47.5, zoom == 7 ? 11.2 : 12.0);
        const TileId east{zoom, west.x + 1, west.y};
        const TileId south{zoom, west.x, west.y + 1};
        const auto a = heightsOf(source, west);
        const auto b = heightsOf(source, east);
        const auto c = heightsOf(source, south);
        QVERIFY(a && b && c);
        for (int i = 0; i <= last; ++i) {
            for (const int overlap : {0, 1}) {
                QVERIFY(at(*a, i, last - 1 + overlap) == at(*b, i, overlap) ||
                        std::isnan(at(*b, i, overlap)));
                QVERIFY(at(*a, last - 1 + overlap, i) == at(*c, overlap, i) ||
                        std::isnan(at(*c, overlap, i)));
            }
        }
        // No step where one file ends and the other begins.
        for (int column = 1; column <= last; ++column) {
            const float step = at(*a, 128, column) - at(*a, 128, column - 1);
            const double expected = 1000.0 * 360.0 / 256.0 / TileId::count(zoom);
            QVERIFY(std::isnan(step) || std::abs(step - expected) < 2.0 + 0.1 * expected);
        }
    }
}

void TestTerrain::voidsAreMissing()
{
    QTemporaryDir folder;
    QVERIFY(
        writeFile(folder.filePath("N47E011.hgt"), elevationBytes(47, 11, [](double la, double lo) {
                      const bool isHole = std::hypot(la - 47.5, lo - 11.5) < 0.05;
                      return isHole ? -32768.0 : 700.0;
                  })));
    ElevationSource source;
    source.setPath(folder.path());
    for (const int zoom : {7, 9, 11}) {
        const TileId tile = tileAt(zoom, 47.5, 11.5);
        const auto heights = heightsOf(source, tile);
        QVERIFY(heights);
        int missing = 0;
        for (int row = 0; row <= last; ++row) {
            for (int column = 0; column <= last; ++column) {
                const double distance =
                    std::hypot(latitudeOf(tile, row) - 47.5, longitudeOf(tile, column) - 11.5);
                const float height = at(*heights, row, column);
                // A hole never bleeds into what is around it.
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
    QCOMPARE(int(coarse.at(1, 1)), 1469); // 280 and a 25th of what sticks out, rounded
    QCOMPARE(int(coarse.at(0, 0)), int(HeightGrid::missing));
    QCOMPARE(int(coarse.at(0, 1)), -120); // along the edge alone
    QCOMPARE(int(coarse.at(1, 2)), 400 - 240);
    QCOMPARE(int(coarse.at(2, 2)), 800 - 240);
}

void TestTerrain::littleMemoryIsEnough()
{
    QTemporaryDir folder;
    for (int latitude = 46; latitude < 48; ++latitude) {
        for (int longitude = 10; longitude < 12; ++longitude)
            QVERIFY(writeFile(
                folder.filePath(
                    QString("N%1E%2.hgt").arg(latitude).arg(longitude, 3, 10, QChar('0'))),
                elevationBytes(latitude, longitude, tilted)));
    }
    ElevationSource source;
    source.setMemoryLimit(std::size_t(13) << 20); // four files have 11.5 MiB
    source.setPath(folder.path());
    for (int round = 0; round < 2; ++round) {
        for (const auto& [latitude, longitude] :
             {std::pair(47.0, 11.0), std::pair(46.5, 10.5), std::pair(47.5, 11.5)})
            QVERIFY(heightsOf(source, tileAt(11, latitude, longitude)));
    }
}

void TestTerrain::filesThatComeLater()
{
    QTemporaryDir folder;
    ElevationSource source;
    ShadeSource shades(source);
    source.setPath(folder.filePath("missing"));
    source.setPath(folder.path());
    QVERIFY(source.isEmpty());
    const TileId tile = tileAt(12, 47.5, 11.5);
    QVERIFY(!shades.shadeTile(tile));
    const int revision = shades.revision();
    QVERIFY(writeFile(folder.filePath("N47E011.hgt"), elevationBytes(47, 11, tilted)));
    source.refresh();
    QVERIFY(shades.revision() != revision);
    QVERIFY(shades.shadeTile(tile));
    // Gone before it is read: as good as never there.
    QFile::remove(folder.filePath("N47E011.hgt"));
    QVERIFY(!heightsOf(source, tile));
    QVERIFY(!shades.shadeTile(tile));
}

void TestTerrain::shadeOfAPlane_data()
{
    QTest::addColumn<double>("east"); ///< metres of height per metre
    QTest::addColumn<double>("north");
    QTest::addColumn<double>("contrast");
    QTest::addColumn<double>("brightness");
    QTest::addColumn<double>("factor");
    QTest::newRow("towards the light") << -0.3 << 0.2 << 1.0 << 1.0 << 1.0;
    QTest::newRow("away from it") << 0.3 << -0.2 << 1.0 << 1.0 << 1.0;
    QTest::newRow("in full shadow") << 5.0 << -5.0 << 1.0 << 1.0 << 1.0;
    QTest::newRow("settings") << 0.1 << 0.7 << 1.6 << 0.8 << 0.5;
    QTest::newRow("beyond white") << -1.0 << -1.0 << 9.0 << 1.5 << 1.0;
}

void TestTerrain::shadeOfAPlane()
{
    QFETCH(double, east);
    QFETCH(double, north);
    QFETCH(double, contrast);
    QFETCH(double, brightness);
    QFETCH(double, factor);
    constexpr int side = 64;
    const std::vector<double> metres(side, 20.0);
    std::vector<float> heights;
    for (int row = 0; row < side + 2; ++row) {
        for (int column = 0; column < side + 2; ++column)
            heights.push_back(static_cast<float>(20.0 * (east * column - north * row)));
    }
    const Shading shading{{1.0f, 2.0f, -2.0f}, contrast, brightness, factor};
    const QImage image = hillShade(heights, metres, shading);
    QCOMPARE(image.size(), QSize(side, side));

    // The light comes from (-1, -2, 2)/3; the plane's normal is (-p, -q, 1).
    const double p = factor * east;
    const double q = factor * north;
    const double lit = (p / 3 + q * 2 / 3 + 2.0 / 3) / std::sqrt(1 + p * p + q * q);
    const double shade =
        std::clamp(brightness + contrast * (std::max(0.0, lit) - 2.0 / 3), 0.0, 2.0);
    const int expected = std::min(255, int(std::lround(128 * shade)));
    for (int i = 0; i < side; ++i)
        QVERIFY(std::abs(qGray(image.pixel(i, (i * 7) % side)) - expected) <= 1);
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
    QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("N47E011.hgt"), elevationBytes(47, 11, tilted)));
    ElevationSource source;
    source.setPath(folder.path());
    ShadeSource shades(source);
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
    const double latitude = latitudeOf(tile, 129);
    const double cosine = std::cos(latitude * std::numbers::pi / 180.0);
    const double p = 4.0 * 1000.0 / (metresPerDegree * cosine);
    const double q = 4.0 * 3000.0 / metresPerDegree;
    const double l = 1.0 / std::sqrt(3.0);
    const double lit = (p * l - q * l + l) / std::sqrt(1 + p * p + q * q);
    const double expected = 128 * (1.0 + 2.0 * (lit - l));
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
