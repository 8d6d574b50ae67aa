#include "libs/tessamap/basemap/BaseMap.h"
#include "libs/tessamap/globe/Mercator.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

using namespace Tessa;

class TestBaseMap : public QObject
{
    Q_OBJECT

private slots:
    void places_data();
    void places();
    void noBarsAcrossTheWorld();
    void neighboursMeet();
    void clipping();
    void otherTiles();
    void damagedData();

private:
    QImage tile(const TileId& id) { return m_map.paint(id.wrapped()); }

    BaseMap m_map;
};

namespace {

bool isWater(QColor color)
{
    const QColor water = BaseMap::waterColor();
    return std::abs(color.red() - water.red()) < 30 && color.blue() > color.red() + 20;
}

bool isIce(QColor color)
{
    return color == BaseMap::iceColor();
}

} // namespace

void TestBaseMap::places_data()
{
    // Each place from the zoom on where it is large enough to be seen.
    const KOLT::Test::Rows<double, double, QString, int> row("latitude", "longitude", "ground",
                                                             "fromZoom");
    row("Bavaria", 48.5, 11.8, "land", 0);
    row("Greenland", 73.3, -42.4, "land", 0);
    row("Chukotka, west of 180 degrees", 67.8, 178.8, "land", 1);
    row("Chukotka, on 180 degrees", 68.0, 180.0, "land", 1);
    row("Chukotka, east of 180 degrees", 66.8, -178.2, "land", 2);
    row("Wrangel Island", 71.2, -179.6, "land", 4);
    row("Viti Levu", -17.8, 178.0, "land", 4);
    row("Taveuni, on 180 degrees", -16.85, 179.98, "land", 7);
    row("Queen Maud Land", -75.0, 15.4, "ice", 0);
    row("South of the tiles but for a hair", -84.9, 60.0, "ice", 0);
    row("Marie Byrd Land", -79.0, -120.4, "ice", 0);
    row("Atlantic", 31.7, -42.3, "water", 0);
    row("Pacific, on 180 degrees", 3.3, 180.0, "water", 0);
    row("Pacific, off Fiji", -19.3, 176.4, "water", 0);
    row("Black Sea", 43.4, 34.2, "water", 1);
    row("Caspian Sea", 42.2, 50.6, "water", 2);
    row("Weddell Sea", -71.5, -43.4, "water", 1);
    row("Ross Sea, on 180 degrees", -75.5, 180.0, "water", 2);
    row("Arctic Ocean", 84.3, 155.4, "water", 0);
}

void TestBaseMap::places()
{
    QFETCH(double, latitude);
    QFETCH(double, longitude);
    QFETCH(QString, ground);
    QFETCH(int, fromZoom);
    for (int zoom = fromZoom; zoom <= BaseMap::maxZoom; ++zoom) {
        const double pixels = 256.0 * TileId::count(zoom);
        const int x = std::min(int(Mercator::x(longitude) * pixels), int(pixels) - 1);
        const int y = int(Mercator::y(latitude) * pixels);
        const QColor color = tile({zoom, x / 256, y / 256}).pixelColor(x % 256, y % 256);
        const QString found = isWater(color) ? "water" : isIce(color) ? "ice" : "land";
        QVERIFY2(found == ground, qPrintable(QString("zoom %1: %2").arg(zoom).arg(color.name())));
    }
}

void TestBaseMap::noBarsAcrossTheWorld()
{
    // Along these parallels there is almost only sea.
    for (const double latitude : {-60.5, -57.3, 84.2}) {
        for (int zoom = 0; zoom <= 4; ++zoom) {
            const double pixels = 256.0 * TileId::count(zoom);
            const int y = int(Mercator::y(latitude) * pixels);
            int dry = 0;
            for (int x = 0; x < TileId::count(zoom); ++x) {
                const QImage image = tile({zoom, x, y / 256});
                for (int i = 0; i < 256; ++i)
                    dry += isWater(image.pixelColor(i, y % 256)) ? 0 : 1;
            }
            QVERIFY2(dry < 0.02 * pixels, qPrintable(QString("%1 at %2").arg(dry).arg(latitude)));
        }
    }
}

void TestBaseMap::neighboursMeet()
{
    // The columns on both sides of a seam look alike; with a missing or shifted outline they would
    // differ in many pixels. The last pair of each zoom meets at 180 degrees.
    for (int zoom = 2; zoom <= 5; ++zoom) {
        for (int y = 0; y < TileId::count(zoom); ++y) {
            for (const int x : {TileId::count(zoom) / 2 - 1, TileId::count(zoom) - 1}) {
                const QImage west = tile({zoom, x, y});
                const QImage east = tile({zoom, x + 1, y});
                int across = 0;
                int within = 0;
                for (int i = 0; i < 256; ++i) {
                    const auto differ = [](QColor a, QColor b) {
                        return isWater(a) != isWater(b) ? 1 : 0;
                    };
                    across += differ(west.pixelColor(255, i), east.pixelColor(0, i));
                    within += differ(west.pixelColor(254, i), west.pixelColor(255, i)) +
                              differ(east.pixelColor(0, i), east.pixelColor(1, i));
                }
                QVERIFY2(across <= within + 12,
                         qPrintable(QString("%1/%2/%3: %4").arg(zoom).arg(x).arg(y).arg(across)));
            }
        }
    }
}

void TestBaseMap::clipping()
{
    const auto areaOf = [](const std::vector<QPointF>& ring) {
        double area = 0.0;
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const QPointF& a = ring[i];
            const QPointF& b = ring[(i + 1) % ring.size()];
            area += (a.x() * b.y() - b.x() * a.y()) / 2.0;
        }
        return std::abs(area);
    };
    const QRectF to(0.0, 0.0, 10.0, 10.0);
    QCOMPARE(areaOf(clippedRing({{-5, -5}, {5, -5}, {5, 5}, {-5, 5}}, to)), 25.0);
    QCOMPARE(areaOf(clippedRing({{-50, -50}, {50, -50}, {50, 50}, {-50, 50}}, to)), 100.0);
    QCOMPARE(areaOf(clippedRing({{5, -5}, {15, 5}, {5, 15}, {-5, 5}}, to)), 100.0);
    QCOMPARE(areaOf(clippedRing({{2, 2}, {4, 2}, {4, 4}}, to)), 2.0);
    QVERIFY(clippedRing({{11, 0}, {12, 0}, {12, 9}}, to).empty());
    QVERIFY(clippedRing({}, to).empty());
}

void TestBaseMap::otherTiles()
{
    QCOMPARE(BaseMap::covering({5, 3, 4}), (TileId{5, 3, 4}));
    QCOMPARE(BaseMap::covering({9, 270, 181}), (TileId{7, 67, 45}));
    for (const TileId& id : {TileId{8, 0, 0}, TileId{2, 9, 0}, TileId{-1, 0, 0}}) {
        const QImage image = m_map.paint(id);
        QCOMPARE(image.size(), QSize(256, 256));
        QCOMPARE(image.pixelColor(100, 100), BaseMap::waterColor());
    }
    QCOMPARE(tile({3, 4, 2}).format(), QImage::Format_RGBA8888);
}

void TestBaseMap::damagedData()
{
    m_map.paint({0, 0, 0}); // registers the resource
    const QByteArray good = KOLT::Test::readFile(QStringLiteral(":/tessamap/world.bin"));
    QVERIFY(BaseMapData::read(good));
    const QByteArray raw = qUncompress(good);
    for (const qsizetype length : {0, 3, 4, 6, 8, 9, 13, 40, 5000, int(raw.size()) - 1})
        QVERIFY(!BaseMapData::read(qCompress(raw.left(length))));
    for (const qsizetype length : {0, 3, 4, 100})
        QVERIFY(!BaseMapData::read(good.left(length)));
    QVERIFY(!BaseMapData::read(QByteArray("\xff\xff\xff\xff", 4) + good.mid(4)));
    // Counts of lines and points that exceed the data.
    QVERIFY(!BaseMapData::read(qCompress("TWM1" + QByteArray(40, '\x7f'))));
    QVERIFY(!BaseMapData::read(qCompress("TWM1" + QByteArray::fromHex("0000000100000f4240ffff"))));
}

QTEST_GUILESS_MAIN(TestBaseMap)
#include "tst_basemap.moc"
