#include "record/FlightFinder.h"
#include "record/Track.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

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

/// Builds a recording second by second.
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

    /// Adds samples of a ground speed, one per second.
    Story& speed(int samples, float value)
    {
        for (int i = 0; i < samples; ++i)
            add(messages, speedId, now++, floats(value));
        return *this;
    }

    std::vector<Flight> flights() const { return findFlights(profile, messages, noon); }

    /// The only flight; an empty one if there is not exactly one.
    Flight flight() const
    {
        const std::vector<Flight> all = flights();
        return all.size() == 1 ? all[0] : Flight();
    }

    Story& at(std::uint32_t id, double seconds, float first, float second = 0.0F)
    {
        add(messages, id, seconds, floats(first, second));
        return *this;
    }

    std::vector<TrackPoint> track() const { return buildTrack(profile, messages); }

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
    void flightTimes();
    void figuresOfATow();
    void figuresWithoutSamples();
    void onlySamplesOfTheFlightCount();
    void nanAndInfinityAreIgnored();
    void headingTurnsTheShorterWay_data();
    void headingTurnsTheShorterWay();
    void strayTimesDoNoHarm();
    void thousandsOfFlightsAtOneTime();
    void trackIsInterpolated();
    void trackFiltersJumps();

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
    // run (count, speed, count, speed ...), take-offs, landings
    const Rows<QList<double>, QList<double>, QList<double>> row;
    row("twelve above, eleven below", {5, 0, 12, 51, 11, 39}, {16}, {27});
    row("eleven above are too few", {5, 0, 11, 51, 20, 39}, {}, {});
    row("ten below are too few", {12, 51, 10, 39}, {}, {});
    row("exactly 50 does not start", {20, 50, 20, 39}, {}, {});
    row("exactly 50 holds", {1, 51, 11, 50, 11, 39}, {11}, {22});
    row("one slow sample ends the run", {11, 51, 1, 49, 12, 51, 11, 39}, {23}, {34});
    row("a hop between ends no flight", {12, 51, 8, 39, 1, 41, 8, 39, 5, 90, 11, 0}, {11}, {44});
    row("two flights", {12, 51, 11, 39, 12, 60, 11, 5}, {11, 34}, {22, 45});
    row("no landing", {12, 51, 500, 120}, {}, {});
    // Exactly 40 stays airborne and continues from the counter that the last faster sample set.
    row("40 is not counted anew", {12, 51, 1, 41, 9, 40, 50, 41}, {}, {});
    row("exactly 40 counts", {12, 51, 1, 41, 10, 40}, {11}, {22});
    row("40 straight after the take-off", {12, 51, 1, 40}, {11}, {12});
    row("below 40 counts anew", {12, 51, 1, 41, 9, 40, 10, 39}, {}, {});
}

void TestFlights::detectorConfirmsBothEnds()
{
    const auto [run, takeOffs, landings] = fetchRow<QList<double>, QList<double>, QList<double>>();
    Story story;
    for (qsizetype i = 0; i < run.size(); i += 2)
        story.speed(static_cast<int>(run[i]), static_cast<float>(run[i + 1]));
    QList<double> foundTakeOffs;
    QList<double> foundLandings;
    for (const Flight& flight : story.flights()) {
        foundTakeOffs << flight.takeOffSeconds;
        foundLandings << flight.landingSeconds;
    }
    QCOMPARE(foundTakeOffs, takeOffs);
    QCOMPARE(foundLandings, landings);
}

void TestFlights::flightTimes()
{
    Story story;
    story.now = 3.25;
    const Flight flight = story.speed(12, 60).speed(100, 90).speed(11, 10).flight();
    QCOMPARE(flight.takeOffSeconds, 14.25);
    QCOMPARE(flight.startSeconds, 0.0);
    QCOMPARE(flight.landingSeconds, 125.25);
    QCOMPARE(flight.endSeconds, 155.25);
    QCOMPARE(flight.dateTime, noon.addSecs(14));
    QVERIFY(flight.statisticsValid);
    QVERIFY(m_output->text().endsWith("\nFlight 0.000000 -> 155.250000 <12:00:14>\n"));
    QVERIFY(!findFlights(story.profile, story.messages, {})[0].dateTime.isValid());
}

void TestFlights::figuresOfATow()
{
    // Full throttle at 100 s; 60 km/h from 105 s; above 80 from 120 s; landed at 411 s.
    Story story;
    story.speed(105, 0).speed(15, 60).speed(280, 120).speed(11, 30);
    for (int t = 0; t < 450; ++t) {
        story.at(throttleId, t, t < 100 ? 30.0F : 95.0F).at(fuelId, t + 0.5, 18.0F, 9.0F);
        // North along the meridian, one thousandth of a minute (1.852 m) a second.
        story.at(positionId, t, 4800.0F + static_cast<float>(t) / 1000.0F, 1100.0F);
        const float climbing = 450.0F + 2.5F * static_cast<float>(std::min(t, 330) - 130);
        story.at(altitudeId, t, t < 130 ? 450.0F : t <= 330 ? climbing : 500.0F);
    }
    story.at(altitudeId, 450.0, 0.05F); // below 0.1 m: ignored
    const Flight flight = story.flight();
    QCOMPARE(flight.takeOffSeconds, 116.0);
    QCOMPARE(flight.landingSeconds, 410.0);
    QCOMPARE(flight.minAltitude, 450.0);
    QCOMPARE(flight.maxAltitude, 950.0);
    QCOMPARE(flight.altitudeGain, 500.0);
    QCOMPARE(flight.climbRate, 500.0 / (330.0 - 116.0));
    QCOMPARE(flight.descentRate, 500.0 / (410.0 - 330.0));
    QCOMPARE(flight.maxGroundSpeed, 120.0);
    // Fuel samples from 86.5 s to 439.5 s count.
    QCOMPARE(flight.fuelA, 18.0 * 353.0 / 3600.0);
    QCOMPARE(flight.fuelB, 9.0 * 353.0 / 3600.0);
    QCOMPARE(flight.fuel, flight.fuelA + flight.fuelB);
    QCOMPARE(flight.timePer100m, 294.0 / 500.0 * 100.0);
    QCOMPARE(flight.fuelPer100m, flight.fuel / 5.0);
    // Height above 450 m exceeds 1 m at 131 s, and 15 m at 137 s (it is exactly 15 m at 136 s).
    // Tolerance: single-precision minutes have steps of 0.0005, about a metre.
    QVERIFY2(std::abs(flight.takeOffDistance - 31 * 1.852) < 1.5,
             qPrintable(QString::number(flight.takeOffDistance)));
    QVERIFY2(std::abs(flight.takeOffDistance15m - 37 * 1.852) < 1.5,
             qPrintable(QString::number(flight.takeOffDistance15m)));
}

void TestFlights::figuresWithoutSamples()
{
    const Flight flight = Story().speed(12, 60).speed(50, 70).speed(11, 10).flight();
    QCOMPARE(flight.takeOffSeconds, 11.0);
    QCOMPARE(flight.maxAltitude, 0.0);
    QCOMPARE(flight.fuel, 0.0);
    QCOMPARE(flight.takeOffDistance, 0.0);
    QVERIFY(std::isnan(flight.fuelPer100m)); // 0 / 0
    QVERIFY(std::isinf(flight.timePer100m));

    // Without full throttle brake release is (0, 0), a quarter of the globe from 90 degrees east.
    Story story;
    story.speed(12, 60).speed(50, 90).speed(11, 10).at(altitudeId, 12.0, 100.0F);
    story.at(altitudeId, 20.0, 110.0F).at(positionId, 20.0, 0.0F, 9000.0F);
    // The first fuel sample only gives the start time.
    story.at(fuelId, 10.0, 100.0F).at(fuelId, 20.0, 36.0F).at(fuelId, 50.0, 72.0F);
    QCOMPARE(story.flight().takeOffDistance, 90.0 * 60.0 * 1852.0);
    QCOMPARE(story.flight().fuelA, (36.0 * 10.0 + 72.0 * 30.0) / 3600.0);
}

void TestFlights::onlySamplesOfTheFlightCount()
{
    Story story;
    story.speed(100, 0).speed(12, 60).speed(50, 90).speed(11, 10).speed(100, 0);
    story.at(altitudeId, 10.0, 5000.0F); // long before
    story.at(altitudeId, 150.0, 600.0F).at(altitudeId, 160.0, 500.0F);
    story.at(altitudeId, 270.0, 1.0F); // long after
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(story.flight().maxAltitude, 600.0);
        QCOMPARE(story.flight().minAltitude, 500.0);
        story.at(altitudeId, 155.0, 550.0F); // times no longer ascend: the linear search
    }
}

/// The same flight with and without NaN and infinity in all series.
void TestFlights::nanAndInfinityAreIgnored()
{
    const auto fly = [](bool isDamaged) {
        Story story;
        for (int t = 0; t < 200; ++t) {
            const float speed = t < 50 || t > 150 ? 10.0F : 100.0F;
            story.at(speedId, t, speed);
            story.at(throttleId, t, t < 50 ? 30.0F : 95.0F).at(fuelId, t, 18.0F, 9.0F);
            for (int i = 1; isDamaged && i <= 12; ++i) {
                const float none = i % 2 == 0 ? std::nanf("") : HUGE_VALF;
                const double between = t + 0.99 * i / 12.0;
                for (const std::uint32_t id : {speedId, throttleId, fuelId, altitudeId, positionId})
                    story.at(id, between, none, none);
            }
            // Later than the NaNs, so that look-ups of a value at a time find these first.
            story.at(altitudeId, t + 0.995, 450.0F + static_cast<float>(t > 60 ? t - 60 : 0));
            story.at(positionId, t + 0.995, 4800.0F + static_cast<float>(t) / 100.0F, 1100.0F);
        }
        return story.flight();
    };
    const Flight sound = fly(false);
    const Flight damaged = fly(true);
    QVERIFY(sound.takeOffDistance > 100.0 && sound.fuel > 0.5);
    QCOMPARE(damaged.takeOffSeconds, sound.takeOffSeconds);
    QCOMPARE(damaged.landingSeconds, sound.landingSeconds);
    QCOMPARE(damaged.fuel, sound.fuel);
    QCOMPARE(damaged.maxGroundSpeed, sound.maxGroundSpeed);
    QCOMPARE(damaged.maxAltitude, sound.maxAltitude);
    QCOMPARE(damaged.takeOffDistance, sound.takeOffDistance);
    QCOMPARE(damaged.takeOffDistance15m, sound.takeOffDistance15m);
}

void TestFlights::headingTurnsTheShorterWay_data()
{
    const Rows<float, float, double> row; // from, to, a quarter of the way
    row("over north to the right", 359.0F, 1.0F, 359.5);
    row("over north to the left", 1.0F, 357.0F, 0.0);
    row("past north", 350.0F, 70.0F, 10.0);
    row("elsewhere", 90.0F, 180.0F, 112.5);
    row("half a turn", 10.0F, 190.0F, 55.0);
    row("signed headings", -10.0F, 30.0F, 0.0);
    row("signed headings, west", -90.0F, -90.0F, 270.0);
}

void TestFlights::headingTurnsTheShorterWay()
{
    const auto [from, to, quarter] = fetchRow<float, float, double>();
    Story story;
    story.at(positionId, 0.0, 4800.0F, 1100.0F).at(positionId, 2.0, 4800.0F, 1100.0F);
    const std::vector<TrackPoint> track =
        story.at(speedId, 0.0, 100.0F, from).at(speedId, 2.0, 100.0F, to).track();
    QCOMPARE(track.size(), 5U);
    QCOMPARE(track[1].heading, quarter);
}

void TestFlights::strayTimesDoNoHarm()
{
    Story story;
    story.speed(20, 60).at(speedId, 5.7e11, 90.0F).speed(50, 90).speed(11, 10);
    for (const double seconds : {10.0, 5.7e11, 60.0})
        story.at(positionId, seconds, 4800.0F, 1100.0F);
    QCOMPARE(story.flights().size(), 1U);
    QCOMPARE(story.track().size(), 121U);

    // A stray time within the grid must not affect the samples after it.
    Story moving;
    for (int t = 0; t <= 100; ++t)
        moving.at(positionId, t == 50 ? 1e5 : t, 4800.0F + static_cast<float>(t) / 8.0F,
                  t == 60 ? HUGE_VALF : 1100.0F);
    QCOMPARE(moving.track().size(), 201U);
    for (const TrackPoint& point : moving.track()) {
        QVERIFY(std::abs(point.latitude - 48.0 - point.seconds() / 480.0) < 1e-5);
        QCOMPARE(point.longitude, 11.0);
    }
}

void TestFlights::thousandsOfFlightsAtOneTime()
{
    // The window of each flight holds the whole recording: the work must not become quadratic.
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
        story.at(positionId, 0.1 * i, 0.0F); // no fix yet
    story.at(positionId, 2.0, 4800.0F, -1100.0F).at(positionId, 4.0, 4802.4F, -1102.4F);
    story.at(speedId, 1.0, 100.0F, 90.0F).at(speedId, 3.0, 200.0F, 180.0F);
    const std::vector<TrackPoint> track = story.at(altitudeId, 3.0, 500.0F).track();
    QCOMPARE(track.size(), 9U);             // 0 s to 4 s
    QCOMPARE(track.front().latitude, 48.0); // the first fix, repeated backwards
    QCOMPARE(track[8].halfSecond, 8);
    QVERIFY(std::abs(track[5].latitude - 48.01) < 1e-6);
    QVERIFY(std::abs(track[6].longitude + 11.02) < 1e-6);
    QCOMPARE(track[4].groundSpeed, 150.0);
    QCOMPARE(track[3].heading, 112.5);
    QCOMPARE(track[8].groundSpeed, 200.0);
    QCOMPARE(track[0].altitude, 500.0);
}

void TestFlights::trackFiltersJumps()
{
    QVERIFY(Story().track().empty());
    Story story;
    for (int t = 0; t < 20; ++t)
        story.at(positionId, t, t == 10 ? 4900.0F : 4800.0F, t == 10 ? 1200.0F : 1100.0F);
    for (const TrackPoint& point : story.track()) {
        QCOMPARE(point.latitude, 48.0);
        QCOMPARE(point.longitude, 11.0);
    }
    // The track ends at the last slot of the grid.
    for (const double seconds : {2'499'999.5, 2'500'000.0})
        story.at(positionId, seconds, 4800.0F, 1100.0F);
    QCOMPARE(story.track().size(), 5'000'000U);
}

QTEST_GUILESS_MAIN(TestFlights)
#include "tst_flights.moc"
