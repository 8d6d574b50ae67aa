#include "record/FlightFinder.h"
#include "record/Track.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"

#include <QTest>

#include <cmath>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

constexpr std::uint32_t speedId = 1;    // ground speed, track
constexpr std::uint32_t positionId = 2; // latitude, longitude
constexpr std::uint32_t altitudeId = 3; // altitude
constexpr std::uint32_t throttleId = 4;
constexpr std::uint32_t fuelId = 5; // lane A, lane B

const QDateTime noon(QDate(2026, 7, 28), QTime(12, 0), Qt::UTC);

/// A recording that is told second by second.
class Story
{
public:
    Story()
    {
        loadProfile(profile,
                    device({
                        "name='v' id='1' dataType='FLOAT' koltDataType='GroundSpeed'",
                        "name='w' id='9' dataType='FLOAT' koltDataType='GroundSpeed'",
                        "name='t' id='1' startByte='4' dataType='FLOAT' koltDataType='Track'",
                        "name='lat' id='2' dataType='FLOAT' koltDataType='Latitude'",
                        "name='lon' id='2' startByte='4' dataType='FLOAT' koltDataType='Longitude'",
                        "name='h' id='3' dataType='FLOAT' koltDataType='Altitude'",
                        "name='thr' id='4' dataType='FLOAT' koltDataType='ThrottleA'",
                        "name='fa' id='5' dataType='FLOAT' koltDataType='FuelA'",
                        "name='fb' id='5' startByte='4' dataType='FLOAT' koltDataType='FuelB'",
                    }));
    }

    /// Samples of that ground speed, one a second.
    Story& speed(int samples, float value)
    {
        for (int i = 0; i < samples; ++i)
            add(messages, speedId, now++, floats(value));
        return *this;
    }

    std::vector<Flight> flights() const { return findFlights(profile, messages, noon); }

    Profile profile;
    MessageMap messages;
    double now = 0.0;
};

} // namespace

class TestFlights : public QObject
{
    Q_OBJECT

private slots:

    void init();

    void detectorConfirmsBothEnds_data();
    void detectorConfirmsBothEnds();
    void exactlyFortyCountsWhileAirborne();
    void flightTimes();
    void figuresOfATow();
    void figuresWithoutSamples();
    void fuelCountsTheTimeSinceTheLastSample();
    void onlySamplesOfTheFlightCount();
    void strayTimesDoNoHarm();
    void thousandsOfFlightsAtOneTime();
    void trackIsInterpolated();
    void trackFiltersJumps();
    void trackEndsWithinTheGrid();

private:
    std::unique_ptr<DiagnosticsCapture> m_output;
};

void TestFlights::init()
{
    m_output.reset(); // gives the sink back before the next takes it
    m_output = std::make_unique<DiagnosticsCapture>();
}

void TestFlights::detectorConfirmsBothEnds_data()
{
    QTest::addColumn<QList<double>>("run"); // count, speed, count, speed ...
    QTest::addColumn<QList<double>>("takeOffs");
    QTest::addColumn<QList<double>>("landings");

    using L = QList<double>;
    QTest::newRow("twelve above, eleven below") << L{5, 0, 12, 51, 11, 39} << L{16} << L{27};
    QTest::newRow("eleven above are too few") << L{5, 0, 11, 51, 20, 39} << L{} << L{};
    QTest::newRow("ten below are too few") << L{12, 51, 10, 39} << L{} << L{};
    QTest::newRow("exactly 50 does not start") << L{20, 50, 20, 39} << L{} << L{};
    QTest::newRow("exactly 50 holds") << L{1, 51, 11, 50, 11, 39} << L{11} << L{22};
    QTest::newRow("one slow sample ends the run")
        << L{11, 51, 1, 49, 12, 51, 11, 39} << L{23} << L{34};
    QTest::newRow("a hop between ends no flight")
        << L{12, 51, 8, 39, 1, 41, 8, 39, 5, 90, 11, 0} << L{11} << L{44};
    QTest::newRow("two flights") << L{12, 51, 11, 39, 12, 60, 11, 5} << L{11, 34} << L{22, 45};
    QTest::newRow("no landing") << L{12, 51, 500, 120} << L{} << L{};
}

void TestFlights::detectorConfirmsBothEnds()
{
    QFETCH(QList<double>, run);
    Story story;
    for (qsizetype i = 0; i < run.size(); i += 2)
        story.speed(static_cast<int>(run[i]), static_cast<float>(run[i + 1]));
    QList<double> takeOffs;
    QList<double> landings;
    for (const Flight& flight : story.flights()) {
        takeOffs << flight.takeOffSeconds;
        landings << flight.landingSeconds;
    }
    QTEST(takeOffs, "takeOffs");
    QTEST(landings, "landings");
}

void TestFlights::exactlyFortyCountsWhileAirborne()
{
    // At 40 the state stays airborne and the counter goes on from where the last faster sample put
    // it.
    QCOMPARE(Story().speed(12, 51).speed(1, 41).speed(9, 40).speed(50, 41).flights().size(), 0U);
    QCOMPARE(Story().speed(12, 51).speed(1, 41).speed(10, 40).flights().size(), 1U);
    // Straight after the take-off the counter still stands above its limit.
    const std::vector<Flight> flights = Story().speed(12, 51).speed(1, 40).flights();
    QCOMPARE(flights.size(), 1U);
    QCOMPARE(flights[0].landingSeconds, 12.0);
    // Below 40 the landing run starts counting anew.
    QCOMPARE(Story().speed(12, 51).speed(1, 41).speed(9, 40).speed(10, 39).flights().size(), 0U);
}

void TestFlights::flightTimes()
{
    Story story;
    story.now = 3.25;
    story.speed(12, 60).speed(100, 90).speed(11, 10);
    const std::vector<Flight> flights = story.flights();
    QCOMPARE(flights.size(), 1U);
    QCOMPARE(flights[0].takeOffSeconds, 14.25);
    QCOMPARE(flights[0].startSeconds, 0.0);
    QCOMPARE(flights[0].landingSeconds, 125.25);
    QCOMPARE(flights[0].endSeconds, 155.25);
    QCOMPARE(flights[0].dateTime, noon.addSecs(14));
    QVERIFY(flights[0].statisticsValid);
    QVERIFY(m_output->text().endsWith("\nFlight 0.000000 -> 155.250000 <12:00:14>\n"));
    QVERIFY(!findFlights(story.profile, story.messages, {})[0].dateTime.isValid());
}

void TestFlights::figuresOfATow()
{
    // Full throttle at 100 s; 60 km/h from 105 s; above 80 from 120 s; landed at 411 s.
    Story story;
    story.speed(105, 0).speed(15, 60).speed(280, 120).speed(11, 30);
    for (int t = 0; t < 450; ++t) {
        add(story.messages, throttleId, t, floats(t < 100 ? 30.0F : 95.0F));
        // North along the meridian, one thousandth of a minute (1.852 m) a second.
        add(story.messages, positionId, t,
            floats(4800.0F + static_cast<float>(t) / 1000.0F, 1100.0F));
        const float climbing = 450.0F + 2.5F * static_cast<float>(std::min(t, 330) - 130);
        add(story.messages, altitudeId, t, floats(t < 130 ? 450.0F : t <= 330 ? climbing : 500.0F));
        add(story.messages, fuelId, t + 0.5, floats(18.0F, 9.0F));
    }
    add(story.messages, altitudeId, 450.0, floats(0.05F)); // no fix: skipped
    const std::vector<Flight> flights = story.flights();
    QCOMPARE(flights.size(), 1U);
    const Flight& flight = flights[0];
    QCOMPARE(flight.takeOffSeconds, 116.0);
    QCOMPARE(flight.landingSeconds, 410.0);
    QCOMPARE(flight.minAltitude, 450.0);
    QCOMPARE(flight.maxAltitude, 950.0);
    QCOMPARE(flight.altitudeGain, 500.0);
    QCOMPARE(flight.climbRate, 500.0 / (330.0 - 116.0));
    QCOMPARE(flight.descentRate, 500.0 / (410.0 - 330.0));
    QCOMPARE(flight.maxGroundSpeed, 120.0);
    // From 86.5 s to 439.5 s.
    QCOMPARE(flight.fuelA, 18.0 * 353.0 / 3600.0);
    QCOMPARE(flight.fuelB, 9.0 * 353.0 / 3600.0);
    QCOMPARE(flight.fuel, flight.fuelA + flight.fuelB);
    QCOMPARE(flight.timePer100m, 294.0 / 500.0 * 100.0);
    QCOMPARE(flight.fuelPer100m, flight.fuel / 5.0);
    // Heights above 450 m: 1 m is passed at 131 s, 15 m at 137 s (15 m itself at 136 s is not
    // above). Single-precision minutes step by 0.0005, about a metre.
    QVERIFY2(std::abs(flight.takeOffDistance - 31 * 1.852) < 1.5,
             qPrintable(QString::number(flight.takeOffDistance)));
    QVERIFY2(std::abs(flight.takeOffDistance15m - 37 * 1.852) < 1.5,
             qPrintable(QString::number(flight.takeOffDistance15m)));
}

void TestFlights::figuresWithoutSamples()
{
    const std::vector<Flight> flights = Story().speed(12, 60).speed(50, 70).speed(11, 10).flights();
    QCOMPARE(flights.size(), 1U);
    QCOMPARE(flights[0].maxAltitude, 0.0);
    QCOMPARE(flights[0].fuel, 0.0);
    QCOMPARE(flights[0].takeOffDistance, 0.0);
    QVERIFY(std::isnan(flights[0].fuelPer100m)); // 0 / 0
    QVERIFY(std::isinf(flights[0].timePer100m));

    // Without full throttle the run starts at (0, 0): a quarter of the globe from 90 degrees east.
    Story story;
    story.speed(12, 60).speed(50, 90).speed(11, 10);
    add(story.messages, altitudeId, 12.0, floats(100.0F));
    add(story.messages, altitudeId, 20.0, floats(110.0F));
    add(story.messages, positionId, 20.0, floats(0.0F, 9000.0F));
    QCOMPARE(story.flights()[0].takeOffDistance, 90.0 * 60.0 * 1852.0);
}

void TestFlights::fuelCountsTheTimeSinceTheLastSample()
{
    Story story;
    story.speed(12, 60).speed(50, 90).speed(11, 10);
    add(story.messages, fuelId, 10.0, floats(100.0F)); // only starts the clock
    add(story.messages, fuelId, 20.0, floats(36.0F));
    add(story.messages, fuelId, 50.0, floats(72.0F));
    QCOMPARE(story.flights()[0].fuelA, (36.0 * 10.0 + 72.0 * 30.0) / 3600.0);
}

void TestFlights::onlySamplesOfTheFlightCount()
{
    Story story;
    story.speed(100, 0).speed(12, 60).speed(50, 90).speed(11, 10).speed(100, 0);
    add(story.messages, altitudeId, 10.0, floats(5000.0F)); // long before
    add(story.messages, altitudeId, 150.0, floats(600.0F));
    add(story.messages, altitudeId, 160.0, floats(500.0F));
    add(story.messages, altitudeId, 270.0, floats(1.0F)); // long after
    const Flight ascending = story.flights()[0];
    QCOMPARE(ascending.maxAltitude, 600.0);
    QCOMPARE(ascending.minAltitude, 500.0);
    add(story.messages, altitudeId, 155.0, floats(550.0F)); // out of order: the other way to search
    const Flight unordered = story.flights()[0];
    QCOMPARE(unordered.maxAltitude, 600.0);
    QCOMPARE(unordered.minAltitude, 500.0);
}

void TestFlights::strayTimesDoNoHarm()
{
    Story story;
    story.speed(20, 60);
    add(story.messages, speedId, 5.7e11, floats(90.0F));
    story.speed(50, 90).speed(11, 10);
    add(story.messages, positionId, 10.0, floats(4800.0F, 1100.0F));
    add(story.messages, positionId, 5.7e11, floats(4800.0F, 1100.0F));
    add(story.messages, positionId, 60.0, floats(4800.0F, 1100.0F));
    QCOMPARE(story.flights().size(), 1U);
    QCOMPARE(buildTrack(story.profile, story.messages).size(), 121U);

    // A stray stamp within the grid must not hold up what comes behind it.
    Story moving;
    for (int t = 0; t <= 100; ++t)
        add(moving.messages, positionId, t == 50 ? 1e5 : t,
            floats(4800.0F + static_cast<float>(t) / 8.0F, t == 60 ? HUGE_VALF : 1100.0F));
    const std::vector<TrackPoint> track = buildTrack(moving.profile, moving.messages);
    QCOMPARE(track.size(), 201U);
    for (const TrackPoint& point : track) {
        QVERIFY(std::abs(point.latitude - 48.0 - point.seconds() / 480.0) < 1e-5);
        QCOMPARE(point.longitude, 11.0);
    }
}

void TestFlights::thousandsOfFlightsAtOneTime()
{
    // Every flight's window holds the whole recording: the work must not grow with its square.
    Story story;
    for (int i = 0; i < 20'000; ++i) {
        for (int k = 0; k < 24; ++k)
            add(story.messages, speedId, 1.0, floats(k < 12 ? 60.0F : 0.0F));
    }
    const std::vector<Flight> flights = story.flights();
    QCOMPARE(flights.size(), 20'000U);
    QVERIFY(flights.front().statisticsValid);
    QVERIFY(!flights.back().statisticsValid);
    QVERIFY(m_output->text().contains(" of 20000 flights overlap too much for figures\n"));
}

void TestFlights::trackIsInterpolated()
{
    Story story;
    for (int i = 0; i < 6; ++i)
        add(story.messages, positionId, 0.1 * i, floats(0.0F, 0.0F)); // no fix yet
    add(story.messages, positionId, 2.0, floats(4800.0F, -1100.0F));
    add(story.messages, positionId, 4.0, floats(4802.4F, -1102.4F));
    add(story.messages, speedId, 1.0, floats(100.0F, 90.0F));
    add(story.messages, speedId, 3.0, floats(200.0F, 180.0F));
    add(story.messages, altitudeId, 3.0, floats(500.0F));
    const std::vector<TrackPoint> track = buildTrack(story.profile, story.messages);
    QCOMPARE(track.size(), 9U);             // 0 s to 4 s
    QCOMPARE(track.front().latitude, 48.0); // held backwards from the first fix
    QCOMPARE(track[8].halfSecond, 8);
    QVERIFY(std::abs(track[5].latitude - 48.01) < 1e-6);
    QVERIFY(std::abs(track[6].longitude + 11.02) < 1e-6);
    QCOMPARE(track[4].groundSpeed, 150.0);
    QCOMPARE(track[3].track, 112.5);
    QCOMPARE(track[8].groundSpeed, 200.0);
    QCOMPARE(track[0].altitude, 500.0);
}

void TestFlights::trackFiltersJumps()
{
    Story story;
    for (int t = 0; t < 20; ++t)
        add(story.messages, positionId, t,
            t == 10 ? floats(4900.0F, 1200.0F) : floats(4800.0F, 1100.0F));
    for (const TrackPoint& point : buildTrack(story.profile, story.messages)) {
        QCOMPARE(point.latitude, 48.0);
        QCOMPARE(point.longitude, 11.0);
    }
    QVERIFY(buildTrack(story.profile, MessageMap()).empty());
}

void TestFlights::trackEndsWithinTheGrid()
{
    Story story;
    add(story.messages, positionId, 0.0, floats(4800.0F, 1100.0F));
    add(story.messages, positionId, 2'499'999.5, floats(4800.0F, 1100.0F));
    add(story.messages, positionId, 2'500'000.0, floats(4800.0F, 1100.0F));
    QCOMPARE(buildTrack(story.profile, story.messages).size(), 5'000'000U);
}

QTEST_GUILESS_MAIN(TestFlights)
#include "tst_flights.moc"
