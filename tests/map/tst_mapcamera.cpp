#include "libs/tusk/math/Geodetic.h"
#include "map/MapCamera.h"
#include "tests/support/Rows.h"

#include <cmath>
#include <limits>

using namespace KOLT;
using KOLT::Test::Rows;
using Tessa::LatLong;
using Tessa::WindowPoint;

class TestMapCamera : public QObject
{
    Q_OBJECT

private slots:
    void stateFollowsTheWindow();
    void keysStep_data();
    void keysStep();
    void nothingLeavesItsLimits();
    void placeStaysUnderThePointer_data();
    void placeStaysUnderThePointer();
    void wheelGoesOnFromARunningZoom();
    void doubleClickGlides();
    void glideTakesTheShortWay();
    void followedAircraftStaysInTheCentre();
    void dragsOverThePoleStayNorthUp();
    void dragBesideTheGlobeTurnsIt();
    void shiftDragZooms();
    void fitShowsTheWholeTrack_data();
    void fitShowsTheWholeTrack();
    void fitLeavesPanelsFree_data();
    void fitLeavesPanelsFree();
};

namespace {

constexpr double width = 1280.0;
constexpr double height = 800.0;

struct Map
{
    MapViewState state;
    MapCamera camera{state};

    explicit Map(LatLong centre = {48.0, 11.0}, double range = 6e6)
    {
        state.follow = 0;
        camera.setWindowSize(width, height);
        camera.setRange(range);
        camera.setCentre(centre);
    }

    /// The difference of the centre to a place in latitude or longitude, whichever is larger.
    double awayFrom(LatLong place) const
    {
        return std::max(std::abs(state.latitude - place.latitude),
                        std::abs(state.longitude - place.longitude));
    }

    /// The distance in pixels of a place from the point where it should be.
    double missOf(LatLong place, WindowPoint point) const
    {
        const auto found = camera.globe().latLong2Window(place);
        return found ? std::hypot(found->x - point.x, found->y - point.y)
                     : std::numeric_limits<double>::infinity();
    }
};

bool isAlmost(double a, double b, double tolerance = 1e-9)
{
    return std::abs(a - b) <= tolerance;
}

TrackBounds boundsOf(std::initializer_list<LatLong> places)
{
    std::vector<TrackPoint> track;
    for (const LatLong& place : places)
        track.push_back({static_cast<int>(track.size()), place.latitude, place.longitude});
    return TrackBounds::of(track);
}

} // namespace

void TestMapCamera::stateFollowsTheWindow()
{
    MapViewState state;
    MapCamera camera(state);
    camera.setWindowSize(1000.0, 500.0);
    QCOMPARE(state.width, 6e6);
    QCOMPARE(state.height, 3e6);
    QCOMPARE(state.metresPerPixel, 6000.0);
    QCOMPARE(state.widgetWidth, 1000.0);
    QVERIFY(isAlmost(state.halfDiagonal, 3354101.966, 0.001));
    camera.setWindowSize(500.0, 500.0);
    QCOMPARE(state.width, 6e6);
    QCOMPARE(state.height, 6e6);
}

void TestMapCamera::keysStep_data()
{
    const Rows<MapKeys, LatLong, double, LatLong, double> row("keys", "from", "range", "to",
                                                              "rangeAfter");
    const LatLong home{60.0, 11.0};
    const double range = 111'120.0;
    const double step = 0.015;
    const MapKeys right{.right = true};
    row("plus at the end", {.zoomIn = true}, home, 50.5, home, 50.0);
    row("minus at the end", {.zoomOut = true}, home, 6.9e7, home, 7e7);
    row("right", right, home, range, {60.0, 11.0 + 2.0 * step}, range);
    row("all", {true, true, true, true, true, true}, home, range, home, range);
    row("near the pole", right, {89.0, 0.0}, range,
        {89.0, step / std::cos(89.0 * TUSK::Geodetic::radiansPerDegree)}, range);
    row("on the pole", {.up = true, .right = true}, {90.0, 0.0}, range, {90.0, 90.0}, range);
    row("over 180 degrees", right, {0.0, 179.99}, range, {0.0, step - 180.01}, range);
}

void TestMapCamera::keysStep()
{
    QFETCH(MapKeys, keys);
    QFETCH(LatLong, from);
    QFETCH(double, range);
    QFETCH(LatLong, to);
    QFETCH(double, rangeAfter);
    Map map(from, range);
    map.camera.stepKeys(keys);
    QVERIFY(map.awayFrom(to) < 1e-9);
    QVERIFY(isAlmost(map.state.width, rangeAfter, 1e-6));
    QVERIFY(isAlmost(map.state.metresPerPixel, rangeAfter / width));
}

void TestMapCamera::nothingLeavesItsLimits()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    Map map;
    for (const auto& [asked, range] : {std::pair(1.0, 50.0), {infinity, 7e7}, {nan, 7e7}}) {
        map.camera.setRange(asked);
        QCOMPARE(map.state.width, range);
    }
    map.camera.setCentre({nan, 0.0});
    map.camera.setCentre({0.0, infinity});
    QCOMPARE(map.state.latitude, 48.0);
    map.camera.setCentre({-91.0, 540.0});
    QCOMPARE(map.awayFrom({-90.0, -180.0}), 0.0);
    for (int i = 0; i < 200; ++i)
        map.camera.wheel({900.0, 500.0}, 120.0);
    QCOMPARE(map.state.width, 50.0);
    map.camera.doubleClick({10.0, 10.0});
    QCOMPARE(map.state.targetWidth, 50.0);
    for (int i = 0; i < 200; ++i)
        map.camera.wheel({100.0, 500.0}, -120.0);
    QCOMPARE(map.state.width, 7e7);
}

void TestMapCamera::placeStaysUnderThePointer_data()
{
    const Rows<LatLong, double> row("centre", "range");
    for (const double range : {60.0, 5'000.0, 1e6}) {
        const QByteArray name = QByteArray::number(range) + " m";
        row(name + ", 48 11", {48.0, 11.0}, range);
        row(name + ", 180 degrees", {0.0, 179.9}, range);
        row(name + ", south", {-72.0, -180.0}, range);
        row(name + ", north", {86.0, 30.0}, range);
    }
    row("whole globe", {20.0, 175.0}, 1.8e7);
}

void TestMapCamera::placeStaysUnderThePointer()
{
    QFETCH(LatLong, centre);
    QFETCH(double, range);
    constexpr double close = 0.01; // pixels
    for (const WindowPoint point : {WindowPoint{640.0, 400.0}, {900.0, 610.0}, {420.0, 130.0}}) {
        Map map(centre, range);
        const auto place = map.camera.globe().window2LatLong(point);
        QVERIFY(place);
        map.camera.wheel(point, 120.0);
        QVERIFY(isAlmost(map.state.width, std::max(50.0, range / 1.100000023841858), 1e-6));
        QVERIFY(map.missOf(*place, point) < close);
        map.camera.wheel(point, -120.0);
        map.camera.wheel(point, 0.0);
        QVERIFY(map.missOf(*place, point) < close);
        map.camera.pinch(point, 1.7);
        QVERIFY(map.missOf(*place, point) < close);
        map.camera.press(point);
        const WindowPoint moved{point.x + 40.0, point.y - 30.0};
        map.camera.dragTo({point.x - 11.0, point.y + 5.0});
        QVERIFY(!map.camera.hasMoved());
        map.camera.dragTo(moved);
        QVERIFY(map.camera.hasMoved());
        QVERIFY(map.missOf(*place, moved) < close);
        map.camera.wheel(moved, 120.0); // with the button down
        map.camera.dragTo(point);
        QVERIFY(map.missOf(*place, point) < close);
        const LatLong middle = map.camera.centre();
        map.camera.pan(25.0, -17.0);
        QVERIFY(map.missOf(middle, {665.0, 383.0}) < close);
    }
}

void TestMapCamera::wheelGoesOnFromARunningZoom()
{
    Map map({48.0, 11.0}, 80'000.0);
    map.camera.doubleClick({300.0, 300.0});
    map.camera.stepAnimations();
    map.camera.wheel({300.0, 300.0}, -1.0);
    QVERIFY(isAlmost(map.state.width, 20'000.0 * 1.100000023841858, 1e-6));
    QVERIFY(!map.state.isRangeAnimated && !map.state.isPositionAnimated);

    Map beside({48.0, 11.0}, 6e7);
    beside.camera.wheel({2.0, 2.0}, 120.0);
    QVERIFY(beside.state.width < 6e7);
    QCOMPARE(beside.awayFrom({48.0, 11.0}), 0.0);
}

void TestMapCamera::doubleClickGlides()
{
    Map map({48.0, 11.0}, 80'000.0);
    const WindowPoint point{1000.0, 250.0};
    map.camera.doubleClick(point);
    QCOMPARE(map.state.width, 80'000.0);
    QCOMPARE(map.state.latitude, 48.0);
    QCOMPARE(map.state.targetWidth, 20'000.0);
    QVERIFY(map.camera.stepAnimations());
    // A frame of 0.02 s with a time constant of 0.2 s.
    QVERIFY(isAlmost(map.state.width, 80'000.0 - 60'000.0 * 0.02 / 0.22, 1e-6));
    map.camera.doubleClick(point); // again while animated
    QVERIFY(isAlmost(map.state.targetWidth, map.state.width / 4.0, 1e-6));
    const auto place = map.camera.globe().window2LatLong(point);
    int frames = 1;
    for (; map.camera.stepAnimations(); ++frames)
        QVERIFY(frames < 500);
    QCOMPARE(map.state.width, map.state.targetWidth);
    QVERIFY(map.missOf(*place, point) < 0.01);
    QVERIFY(frames > 50); // about 1.5 s

    map.camera.doubleClick(point);
    map.camera.press(point);
    map.camera.dragTo(point);
    QVERIFY(!map.camera.stepAnimations());
}

void TestMapCamera::glideTakesTheShortWay()
{
    Map map({10.0, 179.0}, 1e6);
    map.state.targetLatitude = 12.0;
    map.state.targetLongitude = -178.0;
    map.state.isPositionAnimated = true;
    for (int i = 0; i < 200 && map.camera.stepAnimations(); ++i) {
        const double away = std::abs(map.state.longitude);
        QVERIFY(away >= 178.0 && away <= 180.0);
    }
    QVERIFY(!map.state.isPositionAnimated);
    QCOMPARE(map.state.longitude, -178.0);
}

void TestMapCamera::followedAircraftStaysInTheCentre()
{
    Map map;
    map.camera.follow({1.0, 2.0});
    QCOMPARE(map.state.latitude, 48.0);
    map.state.follow = 2;
    map.camera.follow({0.0, 0.0}); // no position
    QCOMPARE(map.state.latitude, 48.0);
    map.camera.doubleClick({200.0, 200.0});
    for (int i = 0; i < 500 && map.camera.stepAnimations(); ++i)
        map.camera.follow({1.0, 2.0});
    QVERIFY(!map.state.isRangeAnimated && !map.state.isPositionAnimated);
    QCOMPARE(map.state.width, 1.5e6);
    QCOMPARE(map.state.longitude, 2.0);
    // A drag or a pan ends follow mode and reports it once.
    map.camera.press({200.0, 200.0});
    QVERIFY(map.camera.dragTo({201.0, 200.0}));
    QVERIFY(!map.camera.dragTo({202.0, 200.0}));
    QCOMPARE(map.state.follow, 0);
    map.state.follow = 2;
    QVERIFY(map.camera.pan(1.0, 0.0));
    QVERIFY(!map.camera.pan(1.0, 0.0));
}

void TestMapCamera::dragsOverThePoleStayNorthUp()
{
    Map map({80.0, 20.0}, 4e6);
    map.camera.press({640.0, 700.0});
    map.camera.dragTo({640.0, 0.0});
    QCOMPARE(map.state.latitude, 90.0);
    QVERIFY(isAlmost(map.state.longitude, 20.0));
    map.camera.dragTo({640.0, 700.0});
    QVERIFY(isAlmost(map.state.latitude, 80.0));
    // A place beyond the pole stays beyond it.
    map.camera.setCentre({85.0, 20.0});
    const WindowPoint across{660.0, 700.0};
    const auto place = map.camera.globe().window2LatLong(across);
    QVERIFY(place && std::abs(Tessa::wrappedLongitude(place->longitude - 20.0)) > 90.0);
    map.camera.press(across);
    map.camera.dragTo({690.0, 690.0});
    QVERIFY(map.missOf(*place, {690.0, 690.0}) < 0.01);
    // Without a solution near the pole the result is still finite.
    map.camera.dragTo({-5000.0, 400.0});
    QVERIFY(std::abs(map.state.latitude) <= 90.0 && std::abs(map.state.longitude) <= 180.0);
}

void TestMapCamera::dragBesideTheGlobeTurnsIt()
{
    Map map({0.0, 0.0}, 6e7);
    map.camera.press({10.0, 400.0});
    map.camera.dragTo({110.0, 400.0});
    QVERIFY(isAlmost(map.state.longitude, -100.0 * 6e7 / width / 111'120.0));
    map.camera.dragTo({10.0, 400.0});
    QVERIFY(isAlmost(map.state.longitude, 0.0));
}

void TestMapCamera::shiftDragZooms()
{
    Map map({48.0, 11.0}, 80'000.0);
    map.camera.press({500.0, 300.0});
    for (const auto& [y, range] : {std::pair(500.0, 4e4), {100.0, 1.6e5}, {-9000.0, 7e7}}) {
        map.camera.dragZoomTo({700.0, y});
        QCOMPARE(map.state.width, range);
    }
    QCOMPARE(map.state.latitude, 48.0);
}

void TestMapCamera::fitLeavesPanelsFree_data()
{
    // From the top left corner; `free`: the area in which the track has to be.
    const Rows<QList<QRectF>, QRectF> row("covered", "free");
    row("a panel at the right", {{970, 10, 300, 500}}, {0, 0, 970, height});
    row("a panel above", {{0, 0, width, 400}}, {0, 400, width, 400});
    row("commands and a high panel", {{10, 10, 300, 40}, {970, 10, 300, 780}}, {0, 50, 970, 750});
    row("hardly anything is free", {{0, 0, width, 700}}, {0, 0, width, height});
}

void TestMapCamera::fitLeavesPanelsFree()
{
    QFETCH(QList<QRectF>, covered);
    QFETCH(QRectF, free);
    Map map;
    const LatLong corners[] = {{48.0, 11.0}, {48.2, 11.3}};
    map.camera.fit(boundsOf({corners[0], corners[1]}), covered);
    QList<QPointF> points;
    for (const LatLong& corner : corners) {
        const auto point = map.camera.globe().latLong2Window(corner);
        points << QPointF(point->x, height - point->y);
        QVERIFY(free.contains(points.back()));
    }
    const QPointF size = points[1] - points[0];
    QVERIFY(std::max(size.x() / free.width(), -size.y() / free.height()) > 0.8);
}

void TestMapCamera::fitShowsTheWholeTrack_data()
{
    const Rows<TrackBounds, LatLong, double> row("bounds", "centre", "range");
    constexpr double degree = 111'120.0;
    row("wide", boundsOf({{0.1, 10.0}, {-0.1, 11.0}}), {0.0, 10.5}, 1.2 * degree);
    row("high", boundsOf({{-1.0, 10.0}, {1.0, 10.1}}), {0.0, 10.05},
        1.2 * 2.0 * degree * width / height);
    row("over 180 degrees", boundsOf({{0.0, 179.0}, {0.0, -179.5}, {0.0, -179.0}}), {0.0, -180.0},
        1.2 * 2.0 * degree);
    row("one place", boundsOf({{48.0, 11.0}}), {48.0, 11.0}, 1000.0);
    row("around the world",
        boundsOf({{0.0, 0.0}, {0.0, 100.0}, {0.0, -160.0}, {0.0, -60.0}, {0.0, 0.0}}),
        {0.0, -180.0}, 1.2 * 2.0 * TUSK::Geodetic::radius * width / height);
}

void TestMapCamera::fitShowsTheWholeTrack()
{
    QFETCH(TrackBounds, bounds);
    QFETCH(LatLong, centre);
    QFETCH(double, range);
    Map map;
    map.camera.doubleClick({1.0, 1.0});
    map.camera.fit(bounds);
    QVERIFY(!map.camera.stepAnimations());
    QVERIFY(map.awayFrom(centre) < 1e-9);
    QVERIFY2(std::abs(map.state.width / range - 1.0) < 0.001,
             qPrintable(QString::number(map.state.width)));
}

QTEST_APPLESS_MAIN(TestMapCamera)
#include "tst_mapcamera.moc"
