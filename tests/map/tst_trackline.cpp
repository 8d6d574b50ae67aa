#include "map/TrackLine.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"

#include <QTest>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

using namespace KOLT;
using namespace KOLT::Test;
using Tessa::LatLong;
using Vector = Tessa::Globe::Vector;

class TestTrackLine : public QObject
{
    Q_OBJECT

private slots:
    void lineKeepsToTheTrack();
    void chunksHangTogether();
    void longWaysFollowTheGreatCircle();
    void gapsPartTheLine();
    void colorsChangeWhereTheValuesDo();
    void spikesStayVisible();
    void clickHitsTheNearestPoint();
    void boundsGoOverTheDateLine();
};

namespace {

using Track = std::vector<TrackPoint>;

Track along(std::size_t count, const std::function<LatLong(double)>& place)
{
    Track track;
    for (std::size_t i = 0; i < count; ++i) {
        const auto [latitude, longitude] = place(static_cast<double>(i));
        track.push_back({static_cast<int>(i), latitude, Tessa::wrappedLongitude(longitude)});
    }
    return track;
}

/// Northwards, a point every ten metres.
Track straight(std::size_t count)
{
    return along(count, [](double i) { return LatLong{48.0 + i * 10.0 / 111'120.0, 11.0}; });
}

Track wandering(LatLong start, std::size_t count)
{
    std::mt19937 random(5);
    std::normal_distribution<double> turn(0.0, 0.05);
    double heading = 1.0;
    return along(count, [&](double) {
        heading += turn(random);
        start.latitude += 25.0 * std::cos(heading) / 111'120.0;
        start.longitude +=
            25.0 * std::sin(heading) / 111'120.0 / std::cos(start.latitude * 0.01745);
        return start;
    });
}

Vector placeOf(const TrackPoint& point)
{
    return TUSK::Geodetic::latLong2Cartesian(point.latitude, point.longitude);
}

Vector placeOf(const TrackLine::Chunk& chunk, const TrackLine::Vertex& vertex)
{
    return {chunk.origin.x + static_cast<double>(vertex.x),
            chunk.origin.y + static_cast<double>(vertex.y),
            chunk.origin.z + static_cast<double>(vertex.z)};
}

/// Calls `handle` for each line of the chunk.
void forLines(const TrackLine::Chunk& chunk,
              const std::function<void(Vector from, Vector to, std::size_t color)>& handle)
{
    for (std::size_t i = 1; i < chunk.vertices.size(); ++i) {
        const TrackLine::Vertex& end = chunk.vertices[i];
        if (!end.isStart)
            handle(placeOf(chunk, chunk.vertices[i - 1]), placeOf(chunk, end), end.color);
    }
}

double distanceTo(const std::vector<TrackLine::Chunk>& chunks, const Vector& place)
{
    double nearest = std::numeric_limits<double>::infinity();
    for (const TrackLine::Chunk& chunk : chunks) {
        if (length(place - chunk.origin) > chunk.radius + 1000.0)
            continue;
        forLines(chunk, [&](Vector from, Vector to, std::size_t) {
            const Vector line = to - from;
            const Vector way = place - from;
            const double square = dot(line, line);
            const double part = square > 0.0 ? std::clamp(dot(way, line) / square, 0.0, 1.0) : 0.0;
            nearest = std::min(nearest, length(way - part * line));
        });
    }
    return nearest;
}

std::size_t vertexCount(const std::vector<TrackLine::Chunk>& chunks)
{
    std::size_t count = 0;
    for (const TrackLine::Chunk& chunk : chunks)
        count += chunk.vertices.size();
    return count;
}

/// Metres drawn in each class, and last of lines without a class.
std::vector<double> lengthsOf(const std::vector<TrackLine::Chunk>& chunks)
{
    std::vector<double> lengths(17, 0.0);
    for (const TrackLine::Chunk& chunk : chunks)
        forLines(chunk, [&](Vector from, Vector to, std::size_t color) {
            lengths[std::min<std::size_t>(color, 16)] += length(to - from);
        });
    return lengths;
}

} // namespace

void TestTrackLine::lineKeepsToTheTrack()
{
    // Also across 180 degrees and near the pole.
    for (const LatLong start : {LatLong{48.0, 11.0}, {-17.0, 179.99}, {89.0, 0.0}}) {
        const Track track = wandering(start, 4000);
        const TrackLine line(track);
        std::size_t before = track.size() + 100;
        for (const double scale : {0.3, 3.0, 40.0, 700.0}) {
            const auto& chunks = line.chunks(scale);
            for (std::size_t i = 0; i < track.size(); i += 7)
                QVERIFY(distanceTo(chunks, placeOf(track[i])) <= scale / 2.0 + 0.01);
            QVERIFY(vertexCount(chunks) < before);
            before = vertexCount(chunks);
            // Scales are rounded down to a power of two.
            QCOMPARE(&line.chunks(std::exp2(std::floor(std::log2(scale)))), &chunks);
        }
        QVERIFY(before < 60);
        for (const double scale : {0.0, -1.0, 1e-9, 1e12, std::nan("")})
            QVERIFY(!line.chunks(scale).empty());
    }
}

void TestTrackLine::chunksHangTogether()
{
    const TrackLine line(wandering({48.0, 11.0}, 40'000));
    for (const double scale : {0.1, 5.0, 100.0, 5000.0}) {
        const auto& chunks = line.chunks(scale);
        QVERIFY(chunks.size() > 1);
        for (std::size_t i = 0; i < chunks.size(); ++i) {
            const TrackLine::Chunk& chunk = chunks[i];
            QVERIFY(chunk.vertices.size() >= 2 && chunk.vertices.size() <= 512);
            QVERIFY(chunk.radius <= 40'000.0);
            for (const TrackLine::Vertex& vertex : chunk.vertices) {
                QVERIFY(length(placeOf(chunk, vertex) - chunk.origin) <= chunk.radius + 0.01);
                QCOMPARE(vertex.color, TrackLine::noColor);
            }
            if (i > 0) {
                const auto joint = placeOf(chunks[i - 1], chunks[i - 1].vertices.back()) -
                                   placeOf(chunk, chunk.vertices.front());
                QVERIFY(length(joint) < 0.01);
            }
        }
    }
    // Only few chunks are in view.
    const Tessa::Globe globe({48.0, 11.0}, 1.0, 1280.0, 800.0);
    const auto& chunks = line.chunks(1.0);
    const auto inView = [&](const TrackLine::Chunk& chunk) { return isInView(globe, chunk); };
    QVERIFY(inView(chunks.front()));
    QVERIFY(static_cast<std::size_t>(std::ranges::count_if(chunks, inView)) < chunks.size() / 4);
    const Tessa::Globe behind({-48.0, -169.0}, 20'000.0, 1280.0, 800.0);
    QVERIFY(!isInView(behind, chunks.front()));
}

void TestTrackLine::longWaysFollowTheGreatCircle()
{
    // Positions jump by 10 degrees, then to the antipodes, to which no line is drawn.
    const TrackLine line(Track{{0, 60.0, 175.0}, {1, 60.0, -175.0}, {2, -60.0, 5.0}});
    const auto& chunks = line.chunks(20.0);
    QVERIFY(chunks.size() > 8);
    for (const TrackLine::Chunk& chunk : chunks) {
        QVERIFY(chunk.radius <= 40'000.0);
        for (const TrackLine::Vertex& vertex : chunk.vertices) {
            const Vector place = placeOf(chunk, vertex);
            QVERIFY(std::abs(length(place) - TUSK::Geodetic::radius) < 0.1);
            QVERIFY(place.y > 0.0);
        }
    }
}

void TestTrackLine::gapsPartTheLine()
{
    // More than 10 s without positions.
    for (const auto& [halfSeconds, length] : {std::pair(20, 1980.0), {19, 1990.0}}) {
        Track track = straight(200);
        for (std::size_t i = 100; i < track.size(); ++i)
            track[i].halfSecond += halfSeconds;
        QVERIFY(std::abs(lengthsOf(TrackLine(track).chunks(1.0))[16] - length) < 0.1);
    }

    // Missing positions are interpolated in the track: gaps are found in the samples.
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        device({"name='y' id='1' dataType='FLOAT' koltDataType='Latitude'",
                "name='x' id='1' dataType='FLOAT' startByte='4' koltDataType='Longitude'"})));
    MessageMap messages;
    const auto hasNoLatitude = [](double seconds) { return seconds > 31.5 && seconds < 100.0; };
    for (const double seconds : {0.0, 10.0, 20.0, 31.0, 31.5, 40.0, 55.0, 90.0, 100.0})
        add(messages, 1, seconds, floats(hasNoLatitude(seconds) ? 0.0F : 4800.0F, 1100.0F));
    const std::vector<TrackGap> gaps = trackGaps(profile, messages);
    QCOMPARE(gaps.size(), std::size_t{2});
    QCOMPARE(gaps[0].from, 20.0);
    QCOMPARE(gaps[0].to, 31.0);
    QCOMPARE(gaps[1].from, 31.5);
    QCOMPARE(gaps[1].to, 100.0); // the longitude's gaps lie within, up to 90 s
    // Of 100 s, the first 20 s and half a second are drawn.
    const TrackLine line(straight(201), gaps);
    QVERIFY(std::abs(lengthsOf(line.chunks(1.0))[16] - 410.0) < 0.1);
}

void TestTrackLine::colorsChangeWhereTheValuesDo()
{
    TrackLine line(straight(1000));
    std::vector<float> values(1000, 0.0F);
    std::fill(values.begin() + 300, values.begin() + 600, 10.0F);
    std::fill(values.begin() + 900, values.end(), std::nanf(""));
    line.setValues(values, {0.0, 10.0});
    for (const double scale : {0.5, 16.0}) {
        const auto lengths = lengthsOf(line.chunks(scale));
        QVERIFY(std::abs(lengths[15] - 3000.0) < 0.1);
        QVERIFY(std::abs(lengths[16] - 1000.0) < 0.1);
        QVERIFY(std::abs(lengths[0] - 5990.0) < 0.1);
        QVERIFY(vertexCount(line.chunks(scale)) < 40);
    }
    line.setValues({1.0F}, {0.0, 10.0}); // too few values
    QVERIFY(std::abs(lengthsOf(line.chunks(16.0))[16] - 9990.0) < 0.1);
}

void TestTrackLine::spikesStayVisible()
{
    TrackLine line(straight(1000));
    for (const std::size_t place : {0u, 1u, 523u, 998u, 999u}) {
        std::vector<float> values(1000, 52.0F);
        for (std::size_t i = 0; i < values.size(); i += 2)
            values[i] = 47.0F; // another class
        for (const float spike : {0.0F, 100.0F}) {
            values[place] = spike;
            line.setValues(values, {0.0, 100.0});
            for (const double scale : {1.0, 32.0, 512.0}) {
                const double length = lengthsOf(line.chunks(scale))[spike > 50.0F ? 15 : 0];
                QVERIFY2(length >= std::min(2.0 * scale, 9990.0) && length < 2.0 * scale + 20.0,
                         qPrintable(QString("%1 of the spike at %2").arg(length).arg(place)));
            }
        }
    }
}

void TestTrackLine::clickHitsTheNearestPoint()
{
    const TrackLine line(straight(1000)); // 11 degrees east, 48 to 48.09 north
    const Tessa::Globe globe({48.045, 11.0}, 1.0, 1280.0, 800.0);
    const auto middle = globe.latLong2Window({48.045, 11.0});
    const std::size_t point = 500; // 0.6 m north of the middle
    QCOMPARE(line.nearestPoint(globe, *middle, 10.0), std::optional(point));
    QCOMPARE(line.nearestPoint(globe, {middle->x + 9.9, middle->y + 10.0}, 10.0),
             std::optional(point + 1));
    QVERIFY(!line.nearestPoint(globe, {middle->x + 10.1, middle->y}, 10.0));
    // Between two points far apart in the window.
    const Tessa::Globe close({48.045, 11.0}, 0.05, 1280.0, 800.0);
    QCOMPARE(line.nearestPoint(close, {644.0, 470.0}, 10.0), std::optional(point));
    // Not on the far side of the globe.
    const Tessa::Globe behind({-48.045, -169.0}, 20'000.0, 1280.0, 800.0);
    QVERIFY(!line.nearestPoint(behind, {640.0, 400.0}, 1000.0));
    QVERIFY(!TrackLine().nearestPoint(globe, *middle, 1e9));
    // Not in a gap.
    const TrackLine parted(straight(1000), {{200.0, 300.0}});
    QVERIFY(!parted.nearestPoint(globe, *middle, 10.0));
}

void TestTrackLine::boundsGoOverTheDateLine()
{
    const auto [south, north, lowest, highest, west, east] = TrackBounds::of(
        Track{{0, -17.0, 179.0}, {1, -16.0, -179.0}, {2, -18.0, -178.0}, {3, -17.0, 178.0}});
    QCOMPARE((std::vector{south, north, lowest, highest, west, east}),
             (std::vector{-18.0, -16.0, -179.0, 179.0, 178.0, 182.0}));
}

QTEST_APPLESS_MAIN(TestTrackLine)
#include "tst_trackline.moc"
