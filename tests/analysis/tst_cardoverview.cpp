#include "analysis/CardOverview.h"
#include "analysis/EventDetails.h"
#include "analysis/OverviewTable.h"
#include "record/CardContainer.h"
#include "record/FuelUse.h"
#include "tests/support/RecordingFixture.h"

#include <QTest>

#include <cmath>
#include <random>

using namespace KOLT;
using namespace KOLT::Test;

class TestCardOverview : public QObject
{
    Q_OBJECT

private slots:

    void sampleCardAsLoaded();
    void randomCardsAsLoaded();
    void rowsFillByDay();

private:
    const DiagnosticsCapture m_output;
};

namespace {

bool isSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool isSame(const Flight& a, const Flight& b)
{
    for (const auto member :
         {&Flight::startSeconds, &Flight::endSeconds, &Flight::takeOffSeconds,
          &Flight::landingSeconds, &Flight::minAltitude, &Flight::maxAltitude,
          &Flight::altitudeGain, &Flight::climbRate, &Flight::descentRate, &Flight::maxGroundSpeed,
          &Flight::fuelA, &Flight::fuelB, &Flight::fuel, &Flight::timePer100m, &Flight::fuelPer100m,
          &Flight::takeOffDistance, &Flight::takeOffDistance15m}) {
        if (!isSame(a.*member, b.*member))
            return false;
    }
    return a.dateTime == b.dateTime && a.statisticsValid == b.statisticsValid;
}

/// The worst of some events, with the peaks that the lists of exceedances show.
std::optional<Exceedance> worstOf(const Profile& profile, const DataSet& dataSet,
                                  const std::vector<Event>& events, double start, double end)
{
    std::optional<Exceedance> worst;
    for (const Event& event : events) {
        if (event.seconds < start || event.seconds > end)
            continue;
        Exceedance one{event.parameter, event.grade.state, event.seconds,
                       detailsOf(profile, dataSet, event).peak};
        if (!worst || one.state > worst->state)
            worst = one;
    }
    return worst;
}

/// Compares each row with the cycle loaded as a whole; what differs, or nothing.
QString difference(const Profile& profile, CardContainer& card)
{
    CardOverview overview(profile, card, CardOverview::Trust::Wanted);
    while (overview.step()) {
    }
    for (const auto& [number, cycle] : card.cycles()) {
        const CycleOverview& row = *overview.cycle(number);
        if (!card.loadCycle(number))
            return "load";
        const DataSet& dataSet = *card.dataSet();
        const FlightLog log = flightLog(profile, dataSet);
        const std::vector<Event> events = findEvents(profile, dataSet, EventScope::AllParameters);
        std::size_t outside = 0;
        for (const Event& event : events) {
            outside += std::ranges::none_of(dataSet.flights, [&](const Flight& flight) {
                return event.seconds >= flight.startSeconds && event.seconds <= flight.endSeconds;
            });
        }
        if (row.flights.size() != dataSet.flights.size() || row.unreadFiles != dataSet.unreadFiles)
            return "flights";
        for (std::size_t i = 0; i < row.flights.size(); ++i) {
            const FlightOverview& flight = row.flights[i];
            if (!isSame(flight.flight, dataSet.flights[i]) ||
                flight.line.exceedances != log.lines[i].exceedances)
                return QStringLiteral("flight %1").arg(i);
            const auto worst = worstOf(profile, dataSet, events, flight.flight.startSeconds,
                                       flight.flight.endSeconds);
            if (worst.has_value() != flight.worst.has_value() ||
                (worst && worst->state != flight.worst->state))
                return QStringLiteral("worst of flight %1").arg(i);
        }
        if (row.crossings != log.exceedances || row.outsideCrossings != outside)
            return "crossings";
        if (row.lamps != findEvents(profile, dataSet, EventScope::WarningLamps).size())
            return "lamps";
        const double fuel = fuelUsed(RoleSeries(profile, dataSet.messages, Role::FuelA)) +
                            fuelUsed(RoleSeries(profile, dataSet.messages, Role::FuelB));
        if (!isSame(row.fuel, fuel))
            return "fuel";
        const auto worst = worstOf(profile, dataSet, events, -INFINITY, INFINITY);
        if (worst.has_value() != row.worst.has_value())
            return "worst";
        if (!worst)
            continue;
        const auto same = std::ranges::find_if(events, [&](const Event& event) {
            return event.parameter == row.worst->parameter && event.seconds == row.worst->seconds &&
                   event.grade.state == row.worst->state;
        });
        if (row.worst->state != worst->state || same == events.end() ||
            !isSame(detailsOf(profile, dataSet, *same).peak, row.worst->peak))
            return QStringLiteral("worst %1 of %2")
                .arg(row.worst->peak)
                .arg(row.worst->parameter->name);
    }
    return {};
}

const QByteArray randomProfile =
    threshold("T",
              {"val='-1000' color='red' state='LIMIT'", "val='-100' color='green' state='OK'",
               "val='100' color='yellow' state='WARNING'", "val='200' color='red' state='LIMIT'"}) +
    threshold("On", {"val='1' color='red' state='WARNING'"}) +
    threshold("Far", {"val='50' color='yellow' state='WARNING'"}) +
    device({"name='speed' id='1' dataType='FLOAT' koltDataType='GroundSpeed'",
            "name='alt' id='1' startByte='4' dataType='FLOAT' koltDataType='Altitude' "
            "thresholdId='T'",
            "name='thr' id='2' dataType='FLOAT' koltDataType='ThrottleA'",
            "name='fuel a' id='2' startByte='4' dataType='FLOAT' koltDataType='FuelA'",
            "name='fuel b' id='3' dataType='FLOAT' koltDataType='FuelB'",
            "name='lat' id='4' dataType='FLOAT' koltDataType='Latitude' thresholdId='Far'",
            "name='lon' id='4' startByte='4' dataType='FLOAT' koltDataType='Longitude' "
            "thresholdId='Far'",
            "name='p' id='5' dataType='FLOAT' thresholdId='T'",
            "name='q' id='5' startByte='4' dataType='FLOAT' thresholdId='T'",
            "name='lamp' id='6' dataType='BSHORT' startBit='3' endBit='3' thresholdId='On' "
            "koltDataType='WarningLamp'",
            "name='word' id='6' startByte='2' dataType='USHORT' thresholdId='T'",
            "name='kind' id='2147483647' dataType='FLOAT' thresholdId='T'"});

/// Flights, crossings, repeated bytes, values that are no numbers, and times that step back.
QByteArray randomFile(std::mt19937& random, double& seconds, bool hasDate)
{
    const auto any = [&](unsigned count) { return static_cast<int>(random() % count); };
    const auto real = [&](unsigned count) { return static_cast<float>(any(count)); };
    const float values[] = {0, 120, 150, 250, 300, -150, -2000, NAN, INFINITY, 99.5F};
    RecordBytes bytes(any(2) == 0);
    if (hasDate)
        bytes.date(2026, 7, 1 + any(3), any(24), any(60), any(60));
    for (int part = any(8); part >= 0; --part) {
        const bool isFast = any(2) == 0;
        const auto at = [&] {
            return any(40) == 0 ? seconds * 0.5 : seconds += 0.001 + 0.2 * any(3);
        };
        for (int i = any(40); i >= 0; --i) {
            bytes.sample(1, at(), floats(isFast ? 80.0F + real(40) : real(45), 100.0F * real(4)));
            bytes.sample(2, at(), floats(real(120), values[any(9)]));
            bytes.sample(3, at(), floats(values[any(5)]));
            bytes.sample(4, at(), floats(4700.0F + real(900), 4900.0F + real(200)));
            bytes.sample(5, at(), floats(values[any(10)], values[any(4)]), any(3));
            MessageData bits{};
            bits[0] = static_cast<unsigned char>(any(16));
            bits[2] = static_cast<unsigned char>(any(250));
            bytes.sample(any(5) == 0 ? 0x7FFFFFFFU : 6U, at(), bits, any(2));
            bytes.sample(1000U + any(2000), at());
        }
    }
    return bytes.bytes();
}

} // namespace

void TestCardOverview::sampleCardAsLoaded()
{
    Profile profile;
    QVERIFY(profile.loadProfil(KOLT_PROFILE, "915"));
    CardContainer card(profile);
    QVERIFY(card.readContainer(KOLT_SAMPLE_CARD) && card.cycles().size() >= 6);
    QCOMPARE(difference(profile, card), QString());
}

void TestCardOverview::randomCardsAsLoaded()
{
    Profile profile;
    QVERIFY(loadProfile(profile, randomProfile));
    std::size_t flights = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        const QTemporaryDir folder;
        double seconds = 0.0;
        for (int file = 0; file < 5; ++file) {
            if (random() % 3 == 0)
                seconds = 3.0 + static_cast<double>(random() % 9973) * 1.7e-5; // no time twice
            QByteArray bytes = randomFile(random, seconds, random() % 3 != 0);
            if (random() % 4 == 0)
                bytes.chop(static_cast<qsizetype>(random() % 200));
            QVERIFY(writeFile(folder.filePath(QStringLiteral("%1.CAN").arg(file)), bytes));
        }
        CardContainer card(profile);
        QVERIFY(card.readContainer(folder.path()));
        if (seed % 5 == 0) // the card changed after it was listed
            QVERIFY(QFile::remove(folder.filePath("2.CAN")));
        const QString found = difference(profile, card);
        QVERIFY2(found.isEmpty(), qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(found)));
        for (const auto& [number, cycle] : card.cycles())
            flights += card.flightsOf(number).size();
    }
    QVERIFY(flights > 50);
}

void TestCardOverview::rowsFillByDay()
{
    Profile profile;
    QVERIFY(loadProfile(profile, randomProfile));
    const QTemporaryDir folder;
    // Cycles of two files; the second one's date dates both. The last has no date at all.
    const int days[] = {4, 5, 5};
    for (int cycle = 0; cycle < 4; ++cycle) {
        RecordBytes first;
        first.sample(2, 0.0, floats(0.0F, 36.0F)).sample(2, 100.0, floats(0.0F, 36.0F));
        first.sample(5, 10.0, {}, 7).sample(5, 20.0, floats(230.0F), 7).sample(5, 21.0);
        QVERIFY(writeFile(folder.filePath(QStringLiteral("%1a.CAN").arg(cycle)), first.bytes()));
        RecordBytes second;
        second.date(2026, 7, cycle < 3 ? days[cycle] : 40, 10 + cycle).sample(2, 150.0);
        QVERIFY(writeFile(folder.filePath(QStringLiteral("%1b.CAN").arg(cycle)), second.bytes()));
    }
    CardContainer card(profile);
    QVERIFY(card.readContainer(folder.path()));
    CardOverview overview(profile, card, CardOverview::Trust::Wanted);
    const auto numbers = [&] {
        QList<int> list;
        for (const CycleOverview& cycle : overview.cycles())
            list << cycle.number;
        return list;
    };
    QCOMPARE(numbers(), (QList<int>{2, 3, 1, 4, 5})); // the file with the bad date is a fifth
    QCOMPARE(overview.cycles()[0].runSeconds, 150.0); // known at once
    int percent = overview.percent();
    QList<std::size_t> filled{0};
    while (overview.step()) {
        QVERIFY(overview.percent() >= percent);
        percent = overview.percent();
        if (overview.completedCount() != filled.back())
            filled << overview.completedCount();
        QCOMPARE(overview.days()[0].isComplete, overview.completedCount() >= 2);
    }
    QCOMPARE(filled, (QList<std::size_t>{0, 1, 2, 3, 4, 5}));
    QCOMPARE(overview.percent(), 100);

    const std::vector<DayOverview> sums = overview.days();
    QCOMPARE(sums.size(), 3U);
    QCOMPARE(sums[0].date, QDate(2026, 7, 5));
    QCOMPARE(sums[0].fuel, 2.0); // 36 l/h for 100 s, twice
    QCOMPARE(sums[0].totals.exceedances, 2U);
    QVERIFY(!sums[2].date.isValid());
    const OverviewTable table(profile, overview);
    QStringList names;
    for (const OverviewTable::Row& row : table.rows())
        names << row.cells[OverviewTable::Name];
    QCOMPARE(names.mid(0, 5), (QStringList{"05.07.2026", "Cycle 2", "Outside flights", "Cycle 3",
                                           "Outside flights"}));
    QCOMPARE(table.rows()[1].cells[OverviewTable::Worst], "p 230.000000");
    QCOMPARE(table.rows()[2].cells[OverviewTable::Fuel], "1.00");
    QCOMPARE(table.total().cells[OverviewTable::Exceeded], "4 episodes (4 crossings)");
}

QTEST_GUILESS_MAIN(TestCardOverview)
#include "tst_cardoverview.moc"
