#include "libs/tessamap/Globe.h"
#include "libs/tessamap/TileSelection.h"

#include <QTest>

#include <cmath>
#include <random>

using namespace Tessa;

class TestGlobe : public QObject
{
    Q_OBJECT

private slots:
    void roundTrips_data();
    void roundTrips();
    void placesLieWhereTheyShould();
    void longitudesWrap();
    void tilesCoverTheWindow_data();
    void tilesCoverTheWindow();
    void tilesComeFromTheCentre();
};

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double radius = 60.0 * 1852.0 * 180.0 / pi;

/// Some like to be looked at more than others.
std::vector<LatLong> centres()
{
    return {{0.0, 0.0},   {48.1, 11.6}, {90.0, 30.0},    {-90.0, -120.0}, {89.97, 180.0},
            {0.0, 180.0}, {0.0, 89.9},  {-33.0, -180.0}, {84.9, 179.999}, {-85.05, 60.0}};
}

double radians(double degrees)
{
    return degrees * pi / 180.0;
}

bool isWithin(const TileId& inner, const TileId& outer)
{
    return inner.zoom >= outer.zoom && inner.ancestor(inner.zoom - outer.zoom) == outer;
}

/// Pixels of the window that a pixel of the tile takes where it is largest.
double magnification(const TileId& tile, double metresPerPixel)
{
    const TileEdges edges = edgesOf(tile);
    const double latitude = edges.north * edges.south <= 0.0
                                ? 0.0
                                : std::min(std::abs(edges.north), std::abs(edges.south));
    return 2.0 * pi * radius * std::cos(radians(latitude)) / std::exp2(tile.zoom + 8) /
           metresPerPixel;
}

} // namespace

void TestGlobe::roundTrips_data()
{
    QTest::addColumn<double>("range"); // metres across the window
    for (const double range : {50.0, 8'000.0, 600'000.0, 1.2e7, 7e7})
        QTest::addRow("%.0f m", range) << range;
}

void TestGlobe::roundTrips()
{
    QFETCH(double, range);
    constexpr double width = 1280.0;
    constexpr double height = 801.0;
    const double metresPerPixel = range / width;
    int hits = 0;
    int misses = 0;
    for (const LatLong& centre : centres()) {
        const Globe globe(centre, metresPerPixel, width, height);
        for (double x = 0.0; x <= width; x += 16.0) {
            for (double y = 0.0; y <= height; y += 13.35) {
                const double away =
                    std::hypot(x - width / 2.0, y - height / 2.0) * metresPerPixel / radius;
                const auto place = globe.window2LatLong({x, y});
                QCOMPARE(place.has_value(), away <= 1.0);
                ++(place ? hits : misses);
                if (!place || away > 1.0 - 1e-9) // on the limb itself rounding decides
                    continue;
                QVERIFY(std::abs(place->latitude) <= 90.0 && std::abs(place->longitude) <= 180.0);
                const auto back = globe.latLong2Window(*place);
                QVERIFY(back);
                QVERIFY(std::hypot(back->x - x, back->y - y) < 0.01);
            }
        }
    }
    QVERIFY(hits > 0);
    QCOMPARE(misses > 0, range > 1e7);
}

void TestGlobe::placesLieWhereTheyShould()
{
    constexpr double metresPerPixel = 20'000.0;
    for (const LatLong& centre : centres()) {
        const Globe globe(centre, metresPerPixel, 800.0, 600.0);
        const double phi0 = radians(centre.latitude);
        for (double latitude = -90.0; latitude <= 90.0; latitude += 7.5) {
            for (double longitude = -180.0; longitude <= 180.0; longitude += 7.5) {
                const double phi = radians(latitude);
                const double delta = radians(longitude - centre.longitude);
                const double towards = std::sin(phi0) * std::sin(phi) +
                                       std::cos(phi0) * std::cos(phi) * std::cos(delta);
                if (std::abs(towards) < 1e-9)
                    continue;
                const auto point = globe.latLong2Window({latitude, longitude});
                QCOMPARE(point.has_value(), towards > 0.0);
                if (!point)
                    continue;
                const double x = radius * std::cos(phi) * std::sin(delta) / metresPerPixel;
                const double y = radius *
                                 (std::cos(phi0) * std::sin(phi) -
                                  std::sin(phi0) * std::cos(phi) * std::cos(delta)) /
                                 metresPerPixel;
                QVERIFY(std::hypot(point->x - 400.0 - x, point->y - 300.0 - y) < 0.01);
            }
        }
    }
}

void TestGlobe::longitudesWrap()
{
    const std::pair<double, double> rows[] = {{0.0, 0.0},      {180.0, -180.0}, {-180.0, -180.0},
                                              {179.5, 179.5},  {181.0, -179.0}, {-541.0, 179.0},
                                              {900.0, -180.0}, {-359.0, 1.0}};
    for (const auto& [longitude, wrapped] : rows)
        QCOMPARE(wrappedLongitude(longitude), wrapped);
}

void TestGlobe::tilesCoverTheWindow_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    QTest::addColumn<std::size_t>("most");
    QTest::newRow("1024 x 768") << 1024.0 << 768.0 << std::size_t{80};
    QTest::newRow("1920 x 1080") << 1920.0 << 1080.0 << std::size_t{104};
    QTest::newRow("3840 x 2160") << 3840.0 << 2160.0 << std::size_t{340};
}

void TestGlobe::tilesCoverTheWindow()
{
    QFETCH(double, width);
    QFETCH(double, height);
    QFETCH(std::size_t, most);
    std::vector<LatLong> views = centres();
    std::mt19937 random(7);
    for (int i = 0; i < 30; ++i) {
        views.push_back({std::uniform_real_distribution(-90.0, 90.0)(random),
                         std::uniform_real_distribution(-180.0, 180.0)(random)});
    }
    for (const LatLong& centre : views) {
        for (double range = 50.0; range < 7.1e7; range *= 2.57) {
            const Globe globe(centre, range / width, width, height);
            const std::vector<SelectedTile> tiles = selectTiles(globe);
            QVERIFY2(tiles.size() <= most, qPrintable(QString::number(tiles.size())));
            for (const SelectedTile& tile : tiles) {
                QVERIFY(tile.id.isValid() && tile.id.zoom <= 19);
                QVERIFY(tile.id.zoom == 19 ||
                        magnification(tile.id, range / width) <= std::sqrt(2.0));
                QVERIFY(tile.id.zoom == 0 ||
                        magnification(tile.id.parent(), range / width) > std::sqrt(2.0));
            }
            for (double x = 0.0; x <= width; x += width / 37.0) {
                for (double y = 0.0; y <= height; y += height / 23.0) {
                    const auto place = globe.window2LatLong({x, y});
                    if (!place || std::abs(place->latitude) > 85.05)
                        continue;
                    const double east = place->longitude / 360.0 + 0.5;
                    const double south =
                        0.5 - std::log(std::tan(radians(45.0 + place->latitude / 2.0))) / 2.0 / pi;
                    constexpr int deep = 24;
                    const TileId spot = TileId{deep, static_cast<int>(east * TileId::count(deep)),
                                               static_cast<int>(south * TileId::count(deep))}
                                            .wrapped();
                    const auto count = std::ranges::count_if(
                        tiles, [&](const SelectedTile& tile) { return isWithin(spot, tile.id); });
                    QVERIFY2(count == 1, qPrintable(QStringLiteral("%1 tiles at %2 %3, %4 m")
                                                        .arg(count)
                                                        .arg(place->latitude)
                                                        .arg(place->longitude)
                                                        .arg(range)));
                }
            }
        }
    }
}

void TestGlobe::tilesComeFromTheCentre()
{
    const Globe globe({48.0, 179.9}, 30.0, 1280.0, 800.0);
    const std::vector<SelectedTile> tiles = selectTiles(globe);
    QVERIFY(tiles.size() > 10);
    double before = 0.0;
    int easternmost = 0;
    int westernmost = 0;
    for (const SelectedTile& tile : tiles) {
        const auto middle = globe.windowOf(globe.toView(placeInTile(tile.id, 0.5, 0.5)));
        const double distance = std::hypot(middle.x - 640.0, middle.y - 400.0);
        QVERIFY(std::abs(tile.distance - distance) < 1e-6 && distance >= before);
        before = distance;
        easternmost += tile.id.x == TileId::count(tile.id.zoom) - 1;
        westernmost += tile.id.x == 0;
    }
    QVERIFY(easternmost > 0 && westernmost > 0);
}

QTEST_APPLESS_MAIN(TestGlobe)
#include "tst_globe.moc"
