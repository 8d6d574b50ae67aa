#include "libs/tessamap/basemap/BaseMap.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/MapWindow.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

#include <QElapsedTimer>

#include <algorithm>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

using Tessa::Test::LoopbackServer;

/// Serves each tile in a colour that identifies it.
class ColorServer : public LoopbackServer
{
public:
    ColorServer()
    {
        handler = [](const Request& request) {
            const QStringList parts = QString(request.path).split('/');
            QImage image(256, 256, QImage::Format_RGB32);
            image.fill(colorOf({parts.value(1).toInt(), parts.value(2).toInt(),
                                parts.value(3).section('.', 0, 0).toInt()}));
            return answer("200 OK", Tessa::Test::encoded(image));
        };
    }
};

/// Where the track crosses the `length` pixels from `start`; NaN where it does not.
double lineAt(const QImage& picture, QPoint start, QPoint step, int length)
{
    double weights = 0.0;
    double sum = 0.0;
    for (int i = 0; i < length; ++i) {
        const QRgb color = picture.pixel(start + i * step);
        const double weight = std::max(0, qRed(color) - qGreen(color) - 30);
        weights += weight;
        sum += weight * (i + 0.5);
    }
    return sum / weights;
}

} // namespace

/// What the map draws.
class TestMapDrawing : public QObject
{
    Q_OBJECT

private slots:

    void init();

    void cleanup() { m_window.reset(); }

    void tilesLieWhereTheyBelong_data();
    void tilesLieWhereTheyBelong();
    void noHoles_data();
    void noHoles();
    void trackDoesNotJitter_data();
    void trackDoesNotJitter();
    void coarserTilesWhereFineOnesAreMissing();
    void deadServerLeavesTheBaseMap();
    void missingTilesStayWanted();
    void shadesSlopes();
    void idleMapRests();
    void earlyTrackIsDrawn();
    void drawsAgainInAnotherContext();

private:
    void useServer(const LoopbackServer& server);

    QTemporaryDir m_directory;
    std::unique_ptr<MapWindow> m_window;
};

void TestMapDrawing::init()
{
    m_window = std::make_unique<MapWindow>();
    QVERIFY(m_window->show());
}

void TestMapDrawing::useServer(const LoopbackServer& server)
{
    MapSettings settings;
    settings.tileServer = server.address();
    settings.userAgent = "KOLT/2.1";
    m_window->map.setSettings(settings);
}

void TestMapDrawing::tilesLieWhereTheyBelong_data()
{
    const Rows<Place, double> row("place", "width");
    for (const double width : {50.0, 3000.0, 2e5, 6e6, 3e7}) {
        const auto named = [width](const char* name) {
            return QStringLiteral("%1, %2 m").arg(name).arg(width);
        };
        row(qPrintable(named("middle latitude")), {48.1, 11.5}, width);
        row(qPrintable(named("south, at 180 degrees")), {-17.3, 180.0}, width);
        row(qPrintable(named("far north")), {79.0, -45.0}, width);
    }
}

void TestMapDrawing::tilesLieWhereTheyBelong()
{
    QFETCH(Place, place);
    QFETCH(double, width);
    ColorServer server;
    useServer(server);
    QCOMPARE(m_window->map.map().attribution(), QStringLiteral("127.0.0.1"));
    m_window->lookAt(place, width);
    const QImage picture = m_window->settled();
    QVERIFY(!picture.isNull());
    int probes = 0;
    for (int y = 12; y < picture.height() - 60; y += 7) {
        for (int x = 10; x < picture.width(); x += 7) {
            const auto here = m_window->view().placeAt(x + 0.5, y + 0.5);
            if (!here || std::abs(here->latitude) > 84.0)
                continue;
            const QColor color = picture.pixelColor(x, y);
            const int zoom = zoomOf(color);
            const auto tile = tileAt(*here, zoom);
            // Within two pixels of another tile the pictures may blend.
            bool isInside = tile.has_value();
            for (const QPointF& way : {QPointF(2, 2), QPointF(-2, 2), {2, -2}, {-2, -2}}) {
                const auto near = m_window->view().placeAt(x + 0.5 + way.x(), y + 0.5 + way.y());
                isInside = isInside && near && tileAt(*near, zoom) == tile;
            }
            if (!isInside)
                continue;
            ++probes;
            QVERIFY2(isNear(color, colorOf(*tile)), qPrintable(QStringLiteral("%1 %2: %3, zoom %4")
                                                                   .arg(x)
                                                                   .arg(y)
                                                                   .arg(color.name())
                                                                   .arg(zoom)));
            // Sharp, but not finer than needed. The factor 2 is because the tile's edge nearest to
            // the equator decides, where texels are larger than here.
            const double texel = 2.0 * std::numbers::pi * earthRadius *
                                 std::cos(here->latitude * degree) / std::exp2(zoom) / 256.0 /
                                 m_window->view().metresPerPixel;
            QVERIFY(texel < 1.42 || zoom == 19);
            QVERIFY(texel > 0.7 / 2.0 || zoom < 4);
        }
    }
    QVERIFY2(probes > 300, qPrintable(QString::number(probes)));
}

void TestMapDrawing::noHoles_data()
{
    const Rows<Place> row("place");
    row("north pole", {90.0, 0.0});
    row("beside the north pole", {86.5, -120.0});
    row("edge of the north cap", {85.0, 180.0});
    row("edge of the south cap", {-84.8, 45.0});
    row("south pole", {-90.0, 0.0});
    row("180 degrees", {0.0, 180.0});
    row("south, at 180 degrees", {-60.0, -179.99});
    row("middle latitude", {48.0, 11.0});
}

void TestMapDrawing::noHoles()
{
    QFETCH(Place, place);
    for (const double width : {50.0, 1e3, 3e4, 7e5, 4e6, 1.3e7, 7e7}) {
        m_window->lookAt(place, width);
        const QImage picture = m_window->settled();
        QVERIFY(!picture.isNull());
        const int holes = countHoles(picture, m_window->view().metresPerPixel);
        QVERIFY2(holes == 0, qPrintable(QStringLiteral("%1 at %2 m").arg(holes).arg(width)));
        if (width == 7e7) { // half of the window is space
            QVERIFY(isBlack(picture.pixel(100, 30)));
            QVERIFY(isBlack(picture.pixel(350, 200)));
        }
    }
}

void TestMapDrawing::trackDoesNotJitter_data()
{
    const Rows<Place> row("corner");
    row("middle latitude", {48.1234567, 11.2345678});
    row("far south", {-71.7654321, 133.3333333});
    row("180 degrees", {12.3456789, 180.0});
}

void TestMapDrawing::trackDoesNotJitter()
{
    QFETCH(Place, corner);
    const auto [latitude, longitude] = corner;
    // A corner in the centre with legs longer than the window.
    const double leg = 60.0 / 1852.0 / 60.0;
    const auto track = trackThrough({{latitude + leg, longitude},
                                     corner,
                                     {latitude, longitude + leg / std::cos(latitude * degree) -
                                                    (longitude == 180.0 ? 360.0 : 0.0)}});
    m_window->map.setTrack(&track, {});
    m_window->lookAt(corner, 50.0);
    QVERIFY(!m_window->settled().isNull());
    const double quarter = 0.25 * m_window->view().metresPerPixel / 1852.0 / 60.0;
    for (int i = -30; i < 30; ++i) {
        m_window->state.latitude = latitude + i * quarter;
        m_window->state.longitude = longitude - i * quarter / std::cos(latitude * degree);
        const QImage picture = m_window->map.grabFramebuffer();
        const double x = 200 + lineAt(picture, {200, 100}, {1, 0}, 100);
        const double y = 150 + lineAt(picture, {400, 150}, {0, 1}, 100);
        const double off = m_window->view().distance({x, y}, corner);
        QVERIFY2(off <= 1.0, qPrintable(QStringLiteral("pan %1: %2 px").arg(i).arg(off)));
    }
}

void TestMapDrawing::coarserTilesWhereFineOnesAreMissing()
{
    constexpr int deepest = 9;
    ColorServer server;
    QByteArray userAgent;
    server.handler = [&, pictures = server.handler](const auto& request) {
        userAgent = request.headers.value("user-agent");
        const int zoom = request.path.split('/').value(1).toInt();
        return zoom > deepest ? LoopbackServer::answer("404 Not Found") : pictures(request);
    };
    useServer(server);
    m_window->lookAt(home, 3000.0);
    QTRY_COMPARE_WITH_TIMEOUT(zoomOf(m_window->map.grabFramebuffer().pixelColor(200, 150)), deepest,
                              20000);
    QVERIFY2(userAgent == QByteArray("KOLT/2.1"), userAgent.constData());
}

void TestMapDrawing::deadServerLeavesTheBaseMap()
{
    LoopbackServer server;
    m_window->map.map().setTileServer(server.address());
    server.close();
    m_window->lookAt({10.0, 0.0}, 3e7);
    const QImage online = m_window->settled(); // nothing has been asked for yet
    m_window->map.map().tiles().setNetworkEnabled(true);
    QTRY_VERIFY(m_window->map.map().isOffline());
    const int frames = m_window->map.frameCount();
    QTRY_VERIFY(m_window->map.frameCount() > frames + 1);

    const QImage picture = m_window->settled();
    const auto colorAt = [&](Place place) {
        return picture.pixelColor(m_window->view().pixelOf(place).toPoint());
    };
    const QColor water = Tessa::BaseMap::waterColor();
    for (const Place& sea : {Place{31.0, -42.5}, {-22.0, -12.5}, {-12.0, 74.0}})
        QVERIFY2(isNear(colorAt(sea), water, 8), qPrintable(QString::number(sea.latitude)));
    for (const Place& land : {Place{22.0, 11.0}, {48.5, 2.5}, {-8.0, -62.0}, {-24.0, 22.5}})
        QVERIFY2(colorAt(land).red() > colorAt(land).blue(),
                 qPrintable(QString::number(land.latitude)));
    // Only the note has appeared.
    int changed = 0;
    const QRect notes(MapWindow::size.width() / 2, MapWindow::size.height() - 60,
                      MapWindow::size.width() / 2, 60);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == online.pixel(x, y))
                continue;
            ++changed;
            QVERIFY2(notes.contains(x, y), qPrintable(QStringLiteral("%1 %2").arg(x).arg(y)));
        }
    }
    QVERIFY(changed > 100);
}

void TestMapDrawing::missingTilesStayWanted()
{
    LoopbackServer server;
    server.handler = [](const auto&) { return QByteArray(); }; // never answers
    useServer(server);
    m_window->lookAt(home, 3000.0);
    QTRY_VERIFY(m_window->map.map().tiles().loadingCount() > 0);

    struct BetweenFrames : QObject
    {
        explicit BetweenFrames(Tessa::TileSource& source)
            : tiles(source)
        {
        }

        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::UpdateRequest) {
                ++count;
                fewest = std::min(fewest, tiles.loadingCount());
            }
            return false;
        }

        Tessa::TileSource& tiles;
        int count = 0;
        int fewest = 1;
    } between(m_window->map.map().tiles());

    m_window->map.installEventFilter(&between);
    QTRY_VERIFY(between.count > 10);
    QCOMPARE(between.fewest, 1);
}

void TestMapDrawing::shadesSlopes()
{
    // Rising eastwards by 4 m per sample.
    QByteArray heights;
    for (int row = 0; row < 1201; ++row) {
        for (int column = 0; column < 1201; ++column) {
            heights += static_cast<char>(column * 4 / 256);
            heights += static_cast<char>(column * 4 % 256);
        }
    }
    QVERIFY(writeFile(m_directory.filePath("N48E011.hgt"), heights));
    MapSettings settings = offlineSettings();
    settings.shadingFactor = 5.0;
    settings.terrainDirectory = m_directory.path();
    m_window->map.setSettings(settings);
    m_window->lookAt({48.5, 11.5}, 20000.0);
    m_window->state.isShaded = false;
    const QColor flat = m_window->settled().pixelColor(250, 200);
    QTest::keyClick(&m_window->map, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(m_window->state.isShaded);
    const double east =
        5.0 * 4.0 * 1200.0 / (60.0 * 1852.0 * std::cos(48.5 * degree)); // slope, exaggerated
    const double light = (1.0 + east) / std::sqrt(3.0) / std::hypot(1.0, east);
    const double shade = 1.0 + light - 1.0 / std::sqrt(3.0);
    QVERIFY(shade < 0.95 || shade > 1.05);
    const auto lit = [shade](int value) { return std::min(255, qRound(value * shade)); };
    const QColor expected(lit(flat.red()), lit(flat.green()), lit(flat.blue()));
    QTRY_VERIFY2(isNear(m_window->settled().pixelColor(250, 200), expected, 4),
                 qPrintable(expected.name()));
}

void TestMapDrawing::idleMapRests()
{
    QVERIFY(!m_window->settled().isNull());
    const int settledFrames = m_window->map.frameCount();
    QTRY_VERIFY(m_window->map.frameCount() > settledFrames);
    // One frame a second: three more frames may be late, but not early.
    const int frames = m_window->map.frameCount();
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY_WITH_TIMEOUT(m_window->map.frameCount() >= frames + 3, 10'000);
    QVERIFY2(timer.elapsed() > 1800, qPrintable(QString::number(timer.elapsed())));
}

void TestMapDrawing::earlyTrackIsDrawn()
{
    const auto track = straightTrack();
    m_window = std::make_unique<MapWindow>();
    m_window->map.setTrack(&track, {});
    m_window->map.fitTrack();
    QVERIFY(m_window->show());
    const QImage picture = m_window->settled();
    QCOMPARE(m_window->map.track().pointCount(), track.size());
    for (const std::size_t i : {5u, 30u, 55u}) {
        const QPointF pixel = m_window->view().pixelOf(placeOf(track[i]));
        QVERIFY(picture.rect().contains(pixel.toPoint()));
        QVERIFY(isTrackColored(picture.pixel(int(pixel.x()), int(pixel.y()))));
    }
    m_window->map.setTrack(nullptr, {});
    const QImage empty = m_window->map.grabFramebuffer();
    QVERIFY(!isTrackColored(empty.pixel(m_window->view().pixelOf(home).toPoint())));
}

void TestMapDrawing::drawsAgainInAnotherContext()
{
    const auto track = straightTrack();
    m_window->map.setTrack(&track, {});
    m_window->lookAt(home, 100e3);
    const QImage before = m_window->settled();
    m_window->map.makeCurrent();
    m_window->map.map().releaseGl();
    m_window->map.doneCurrent();
    QVERIFY(!m_window->map.map().render()); // without a current context
    QCOMPARE(m_window->settled(), before);

    QWidget other;
    other.resize(MapWindow::size * 1.5);
    m_window->map.setParent(&other);
    m_window->map.move(0, 0);
    m_window->map.show();
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    const int frames = m_window->map.frameCount();
    QTRY_VERIFY(m_window->map.frameCount() > frames + 1);
    const QImage after = m_window->settled();
    QCOMPARE(countHoles(after, m_window->view().metresPerPixel), 0);
    const QPoint middle = m_window->view().pixelOf(home).toPoint();
    QVERIFY(isTrackColored(after.pixel(middle)));
    QVERIFY(isNear(after.pixelColor(100, 300), before.pixelColor(100, 300), 4));
    m_window->map.setParent(nullptr);
}

QTEST_MAIN(TestMapDrawing)
#include "tst_mapdrawing.moc"
