#include "map/AircraftTrack.h"
#include "map/MapMarks.h"
#include "map/ScaleBar.h"
#include "map/TrackColors.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <cmath>

using namespace KOLT;
using namespace KOLT::Test;

/// Colours of the track, marks, the aircraft's position and the scale bar.
class TestMapMarks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void colorsTakeTheirValues_data();
    void colorsTakeTheirValues();
    void unknownAltitudesHaveNoColor();
    void rampIsLegible();
    void flightsWithinTheSpanAreMarked();
    void exceedancesLieOnTheTrack();
    void onePixelShowsOneMark();
    void nearestMarkIsHit();
    void aircraftIsLookedUpByHalfSeconds();
    void scaleBarIsRound();

private:
    Profile m_profile;
    DataSet m_dataSet; ///< 3 s of track from 10 s on, pressure from 10.6 s to 11.4 s
};

void TestMapMarks::initTestCase()
{
    QVERIFY(loadProfile(
        m_profile,
        "<UnitConversions><Unit unitMetric='m' unitImperial='ft' factor='3.28' offset='0'/>"
        "</UnitConversions><ThresholdList><Threshold name='T' holdSeconds='0'>"
        "<Value val='5' color='#ffff00' state='WARNING'/>"
        "<Value val='8' color='#ff0000' state='LIMIT'/></Threshold></ThresholdList>" +
            device({"name='Height' id='9' dataType='FLOAT' precision='0' unitMetric='m' "
                    "unitImperial='ft' koltDataType='Altitude'",
                    "name='Speed' id='9' dataType='FLOAT' koltDataType='GroundSpeed'",
                    "name='Oil' id='1' dataType='FLOAT' precision='2' unitMetric='bar' "
                    "thresholdId='T'",
                    "name='Never' id='2' dataType='FLOAT'"})));
    for (int i = 0; i <= 6; ++i)
        m_dataSet.track.push_back({20 + i, 48.0 + i, 11.0, 500.0 + i, 100.0 - i, 90.0});
    add(m_dataSet.messages, 1, 11.4, floats(6.0F));
    add(m_dataSet.messages, 1, 10.6, floats(2.0F)); // stored out of order
    add(m_dataSet.messages, 1, 11.4, floats(3.5F));
    m_dataSet.startSeconds = 10.0;
    m_dataSet.stopSeconds = 13.0;
}

void TestMapMarks::colorsTakeTheirValues_data()
{
    using Kind = TrackColorChoice::Kind;
    const Rows<TrackColorChoice, UnitSystem, QList<float>, QString> row("choice", "system",
                                                                        "values", "legend");
    const float none = -1.0F;
    row("altitude", {Kind::Altitude, {}}, UnitSystem::Metric, {500, 501, 502, 503, 504, 505, 506},
        "Height 500 m 506 m");
    row("feet", {Kind::Altitude, {}}, UnitSystem::Imperial,
        {1640.0F, 1643.28F, 1646.56F, 1649.84F, 1653.12F, 1656.4F, 1659.68F},
        "Height 1640 ft 1660 ft");
    row("ground speed", {Kind::GroundSpeed, {}}, UnitSystem::Metric, {100, 99, 98, 97, 96, 95, 94},
        "Speed 94.000 100.000");
    row("parameter", {Kind::Parameter, QStringLiteral("D/Oil")}, UnitSystem::Imperial,
        {none, none, 2, 3.5, 3.5, 3.5, 3.5}, "Oil 2.00 bar 3.50 bar");
    row("no choice", {}, UnitSystem::Metric, {}, "  ");
    row("no samples", {Kind::Parameter, QStringLiteral("D/Never")}, UnitSystem::Metric, {}, "  ");
    row("no such parameter", {Kind::Parameter, QStringLiteral("D/No")}, UnitSystem::Metric, {},
        "  ");
}

void TestMapMarks::colorsTakeTheirValues()
{
    QFETCH(TrackColorChoice, choice);
    QFETCH(UnitSystem, system);
    m_profile.setUnitSystem(system);
    const TrackColors colors = trackColors(choice, m_profile, m_dataSet);
    QList<float> values;
    for (const float value : colors.values)
        values << (std::isnan(value) ? -1.0F : value);
    QTEST(values, "values");
    const QString legend =
        QStringList{colors.name, colors.lowText, colors.highText}.join(QLatin1Char(' '));
    QTEST(legend, "legend");
    m_profile.setUnitSystem(UnitSystem::Metric);
}

/// Before the first fix the unit sends 0, which would be the legend's lower end.
void TestMapMarks::unknownAltitudesHaveNoColor()
{
    DataSet dataSet;
    dataSet.track = m_dataSet.track;
    for (std::size_t i = 0; i < 3; ++i) {
        dataSet.track[i].altitude = dataSet.track[i].groundSpeed = 0.0;
        dataSet.track[i].hasAltitude = false;
        dataSet.track[i].hasFix = i == 2; // the altitude is known later
    }
    using Kind = TrackColorChoice::Kind;
    const TrackColors height = trackColors({Kind::Altitude, {}}, m_profile, dataSet);
    QVERIFY(std::isnan(height.values[2]));
    QCOMPARE(height.lowText, "503 m");
    const TrackColors speed = trackColors({Kind::GroundSpeed, {}}, m_profile, dataSet);
    QVERIFY(std::isnan(speed.values[1]));
    QCOMPARE(speed.values[2], 0.0F);
}

void TestMapMarks::rampIsLegible()
{
    const ValueScale scale{10.0, 26.0};
    for (const auto& [value, color] :
         {std::pair{9.0, 0}, {10.9, 0}, {11.0, 1}, {25.9, 15}, {99.0, 15}})
        QCOMPARE(int(scale.stepOf(value)), color);
    QCOMPARE(int(ValueScale{5.0, 5.0}.stepOf(7.0)), 0);

    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) { return std::pow(part, 2.2); };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    double before = 0.0;
    for (const QColor& color : trackColorRamp()) {
        QVERIFY(luminance(color) > before * 1.05);
        before = luminance(color);
    }
    // The last is the lightest; even that stands out from a map.
    QVERIFY((luminance(QColor(242, 239, 233)) + 0.05) / (before + 0.05) > 2.0);
}

void TestMapMarks::flightsWithinTheSpanAreMarked()
{
    DataSet dataSet;
    dataSet.track = m_dataSet.track;
    dataSet.startSeconds = 9.0;
    dataSet.stopSeconds = 13.0;
    for (const auto& [takeOff, landing] : {std::pair{9.5, 10.0}, {11.2, 13.0}, {12.0, 13.5}}) {
        Flight flight;
        flight.takeOffSeconds = takeOff; // the first is before the track
        flight.landingSeconds = landing;
        dataSet.flights.push_back(flight);
    }
    QStringList texts;
    for (const MapMark& mark : flightMarks(dataSet)) {
        texts << QStringLiteral("%1 at %2").arg(mark.text).arg(mark.place.latitude);
        QCOMPARE(mark.kind == MapMark::Kind::TakeOff, mark.text.startsWith(u"Take-off"));
    }
    QCOMPARE(texts, (QStringList{"Landing of flight 1 at 48", "Take-off of flight 2 at 50",
                                 "Take-off of flight 3 at 52", "Landing of flight 2 at 54"}));
}

void TestMapMarks::exceedancesLieOnTheTrack()
{
    DataSet dataSet;
    dataSet.track = m_dataSet.track;
    for (const auto& [seconds, value] : {std::pair(9.0, 2.0F),
                                         {9.9, 6.0F},
                                         {10.0, 2.0F},
                                         {10.6, 9.0F},
                                         {11.0, 2.0F},
                                         {11.9, 6.0F},
                                         {20.0, 2.0F},
                                         {30.0, 6.0F}})
        add(dataSet.messages, 1, seconds, floats(value));
    const std::vector<MapMark> marks = exceedanceMarks(m_profile, dataSet);
    QCOMPARE(marks.size(), std::size_t{3}); // the track starts after 9.9 s
    QCOMPARE(marks[0].text,
             QStringLiteral("Oil 6.00 bar, for at least 0.0 s: 1 episode (1 crossing)"));
    QCOMPARE(marks[0].color, QColor(255, 255, 0));
    QCOMPARE(marks[0].place.latitude, 51.0);
    QCOMPARE(marks[0].seconds, 11.9); // of the crossing, not of the track's point
    QCOMPARE(marks[1].place.latitude, 54.0);
    QCOMPARE(marks[2].color, QColor(255, 0, 0)); // a limit, drawn on top though earlier
    dataSet.track.clear();
    QVERIFY(exceedanceMarks(m_profile, dataSet).empty());
}

namespace {

/// A window of 100 by 100 pixels at 1 km per pixel.
const Tessa::Globe globe({0.0, 0.0}, 1000.0, 100.0, 100.0);

MapMark markAtPixel(double x, double y, double seconds,
                    MapMark::Kind kind = MapMark::Kind::Exceedance)
{
    return {kind, seconds, globe.window2LatLong({x, y}).value_or(Tessa::LatLong{}), {}, {}};
}

} // namespace

void TestMapMarks::onePixelShowsOneMark()
{
    std::vector<MapMark> marks{markAtPixel(20.5, 20.5, -1.0, MapMark::Kind::TakeOff)};
    for (int i = 0; i < 1000; ++i) // on four pixels, two of which are just below the window
        marks.push_back(markAtPixel(i % 2 == 0 ? 20.5 : 21.5, i % 4 < 2 ? -5.5 : 99.5, i));
    for (const Tessa::LatLong far : {Tessa::LatLong{0.0, 180.0}, {40.0, 0.0}})
        marks.push_back({MapMark::Kind::Exceedance, 0.0, far, {}, {}});
    QStringList seconds;
    for (const PlacedMark& placed : marksInWindow(marks, globe)) {
        seconds << QString::number(placed.mark->seconds);
        QVERIFY(std::abs(placed.place.x - 21.0) < 0.6);
    }
    QCOMPARE(seconds.join(' '), "-1 996 997 998 999");
}

void TestMapMarks::nearestMarkIsHit()
{
    const std::vector<MapMark> marks{markAtPixel(50, 50, 1), markAtPixel(54, 50, 2),
                                     markAtPixel(54, 50, 3), markAtPixel(60, 50, 4)};
    const auto secondsAt = [&](double x, double y) {
        const MapMark* const mark = markAt(marks, globe, {x, y});
        return mark != nullptr ? mark->seconds : 0.0;
    };
    QCOMPARE(secondsAt(48, 50), 1.0);
    QCOMPARE(secondsAt(51, 52), 1.0);
    QCOMPARE(secondsAt(55, 49), 3.0);
    QCOMPARE(secondsAt(67, 50), 4.0);
    QCOMPARE(secondsAt(60, 59), 0.0);
}

void TestMapMarks::aircraftIsLookedUpByHalfSeconds()
{
    using Record = AircraftTrack::Record;
    std::vector<TrackPoint> track = m_dataSet.track;
    track.erase(track.begin() + 2); // no point at 11.0 s
    AircraftTrack aircraft(track);
    const Record first{48.0, 11.0, 500.0, 100.0, 90.0, 10.0};
    QCOMPARE(aircraft.at(10.0), first);
    QCOMPARE(aircraft.at(10.99), (Record{49.0, 11.0, 501.0, 99.0, 90.0, 10.5}));
    QCOMPARE(aircraft.size(), std::size_t{6});
    QCOMPARE(aircraft.at(11.2), first);
    QCOMPARE(aircraft.at(11.3), first);
    QCOMPARE(aircraft.size(), std::size_t{7});
    for (const double seconds : {-5.0, 1e300, double(NAN)})
        QCOMPARE(aircraft.at(seconds), first);
    QCOMPARE(AircraftTrack().at(10.0), Record{});
    const std::vector<TrackPoint> nothing;
    QCOMPARE(AircraftTrack(nothing).at(10.0), Record{});
}

void TestMapMarks::scaleBarIsRound()
{
    const auto bar = [](double metresPerPixel, UnitSystem system) {
        const ScaleBar found = ScaleBar::choose(metresPerPixel, 150.0, system);
        const bool isTrue = std::abs(found.pixels * metresPerPixel - found.metres) < 1e-6;
        return isTrue && found.pixels <= 150.0001
                   ? QStringLiteral("%1 = %2").arg(found.text).arg(found.metres)
                   : QStringLiteral("%1 pixels").arg(found.pixels);
    };
    const auto metric = UnitSystem::Metric;
    const auto imperial = UnitSystem::Imperial;
    QCOMPARE(bar(0.04, metric), "5 m = 5");
    QCOMPARE(bar(10.0 / 150.0, metric), "10 m = 10");
    QCOMPARE(bar(6.66, metric), "500 m = 500");
    QCOMPARE(bar(1000.0 / 150.0, metric), "1 km = 1000");
    QCOMPARE(bar(54'687.5, metric), "5000 km = 5e+06");
    QCOMPARE(bar(0.004, metric), "0.5 m = 0.5");
    QCOMPARE(bar(0.04, imperial), "10 ft = 3.048");
    QCOMPARE(bar(12.3, imperial), "5000 ft = 1524");
    QCOMPARE(bar(12.4, imperial), "1 NM = 1852");
    QCOMPARE(bar(5000.0, imperial), "200 NM = 370400");
    QCOMPARE(bar(0.0, metric), " = 0");
}

QTEST_APPLESS_MAIN(TestMapMarks)
#include "tst_mapmarks.moc"
