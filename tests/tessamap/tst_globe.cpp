#include "libs/tessamap/globe/Globe.h"
#include "libs/tessamap/globe/TileSelection.h"
#include "tests/support/MapProbes.h"
#include "tests/support/Rows.h"

#include <random>

using namespace Tessa;
using namespace KOLT::Test;

class TestGlobe : public QObject
{
    Q_OBJECT

private slots:
    void roundTrips();
    void longitudesWrap();
    void tilesCoverTheWindow_data();
    void tilesCoverTheWindow();
};

namespace {

std::vector<LatLong> centres()
{
    return {{0.0, 0.0},   {48.1, 11.6}, {90.0, 30.0},    {-90.0, -120.0}, {89.97, 180.0},
            {0.0, 180.0}, {0.0, 89.9},  {-33.0, -180.0}, {84.9, 179.999}, {-85.05, 60.0}};
}

bool isWithin(const TileId& inner, const TileId& outer)
{
    return inner.zoom >= outer.zoom && inner.ancestor(inner.zoom - outer.zoom) == outer;
}

/// The size of the tile's largest pixel in pixels of the window.
double magnification(const TileId& tile, double metresPerPixel)
{
    const TileEdges edges = edgesOf(tile);
    const double latitude = edges.north * edges.south <= 0.0
                                ? 0.0
                                : std::min(std::abs(edges.north), std::abs(edges.south));
    return 2.0 * std::numbers::pi * earthRadius * std::cos(latitude * degree) /
           std::exp2(tile.zoom + 8) / metresPerPixel;
}

} // namespace

void TestGlobe::roundTrips()
{
    constexpr QSizeF size(1280.0, 801.0);
    for (const double range : {50.0, 8'000.0, 600'000.0, 1.2e7, 7e7}) {
        const double metresPerPixel = range / size.width();
        int hits = 0;
        int misses = 0;
        for (const LatLong& centre : centres()) {
            const Globe globe(centre, metresPerPixel, size.width(), size.height());
            const View view{{centre.latitude, centre.longitude}, metresPerPixel, size};
            for (double x = 0.0; x <= size.width(); x += 16.0) {
                for (double y = 0.0; y <= size.height(); y += 13.35) {
                    const auto place = globe.window2LatLong({x, y});
                    const auto expected = view.placeAt(x, size.height() - y);
                    QCOMPARE(place.has_value(), expected.has_value());
                    ++(place ? hits : misses);
                    const QPointF fromMiddle(x - size.width() / 2.0, y - size.height() / 2.0);
                    const double away = std::hypot(fromMiddle.x(), fromMiddle.y()) * metresPerPixel;
                    if (!place || away > earthRadius * (1.0 - 1e-9)) // on the limb rounding decides
                        continue;
                    QVERIFY(std::abs(place->latitude) <= 90.0 &&
                            std::abs(place->longitude) <= 180.0);
                    const auto back = globe.latLong2Window(*place);
                    QVERIFY(back && std::hypot(back->x - x, back->y - y) < 0.01);
                    const Place found{place->latitude, place->longitude};
                    QVERIFY(view.distance({x, size.height() - y}, found) < 0.01);
                    QVERIFY(!globe.latLong2Window({-place->latitude, place->longitude + 180.0}));
                }
            }
        }
        QVERIFY(hits > 0);
        QCOMPARE(misses > 0, range > 1e7);
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
    const Rows<double, double, std::size_t> row("width", "height", "most");
    row("1024 x 768", 1024.0, 768.0, 80);
    row("1920 x 1080", 1920.0, 1080.0, 104);
    row("3840 x 2160", 3840.0, 2160.0, 340);
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
            double before = 0.0;
            for (const SelectedTile& tile : tiles) {
                const auto middle = globe.windowOf(globe.toView(placeInTile(tile.id, 0.5, 0.5)));
                const double away = std::hypot(middle.x - width / 2.0, middle.y - height / 2.0);
                QVERIFY(std::abs(tile.distance - away) < 1e-6 && tile.distance >= before);
                before = tile.distance;
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
                    const auto spot = tileAt({place->latitude, place->longitude}, 24);
                    QVERIFY(spot);
                    const auto count = std::ranges::count_if(tiles, [&](const SelectedTile& tile) {
                        return isWithin({24, spot->x, spot->y}, tile.id);
                    });
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

QTEST_APPLESS_MAIN(TestGlobe)
#include "tst_globe.moc"
