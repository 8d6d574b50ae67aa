#include "analysis/EventFinder.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <cmath>

using namespace KOLT;
using namespace KOLT::Test;

class TestEventFinder : public QObject
{
    Q_OBJECT

private slots:
    void statesWalk_data();
    void statesWalk();
    void textIsInTheChosenUnits();
    void equalTimesKeepProfileOrder();
    void lampsAreSelectedByRole();
    void firstHundredThousandAreKept();
};

namespace {

const QByteArray thresholds = unit("unitMetric='C' unitImperial='F' factor='1.8' offset='32'") +
                              threshold("T", {"val='100' color='yellow' state='WARNING'",
                                              "val='200' color='red' state='LIMIT'"}) +
                              threshold("Lamp", {"val='1' color='red' state='LIMIT'"});

} // namespace

void TestEventFinder::statesWalk_data()
{
    const Rows<QList<float>, QList<double>> row; // one value a second, expected times
    const float nan = std::nanf("");
    row("0 1 2 1 2 0 2", {0, 100, 200, 150, 250, 0, 300}, {1, 2, 4, 6});
    row("beyond from the start", {300, 300, 150, 120}, {});
    row("limit at the start, then warning, then limit", {300, 150, 200}, {2});
    row("warning at the start, then limit", {150, 200}, {1});
    row("stays above: once", {0, 150, 151, 152}, {1});
    row("straight to the limit", {0, 250, 0, 250}, {1, 3});
    row("NaN is normal", {150, nan, 150, nan}, {2});
    row("no samples", {}, {});
}

void TestEventFinder::statesWalk()
{
    Profile profile;
    QVERIFY(loadProfile(profile,
                        thresholds + device({"name='p' id='1' dataType='FLOAT' thresholdId='T'",
                                             "name='q' id='1' dataType='FLOAT'"})));
    DataSet dataSet;
    const auto [values, expected] = fetchRow<QList<float>, QList<double>>();
    for (qsizetype i = 0; i < values.size(); ++i)
        add(dataSet.messages, 1, static_cast<double>(i), floats(values[i]));
    QList<double> times;
    for (const Event& event : findEvents(profile, dataSet, EventScope::AllParameters))
        times << event.seconds;
    QCOMPARE(times, expected);
}

void TestEventFinder::textIsInTheChosenUnits()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        thresholds + device({"name='Oil %1' id='1' dataType='FLOAT' precision='1' thresholdId='T' "
                             "unitMetric='C' unitImperial='F'"})));
    DataSet dataSet;
    add(dataSet.messages, 1, 1.0, floats(0.0F));
    add(dataSet.messages, 1, 2.0, floats(210.0F));
    const auto textIn = [&](UnitSystem system) {
        profile.setUnitSystem(system);
        return findEvents(profile, dataSet, EventScope::AllParameters).at(0).text;
    };
    QCOMPARE(textIn(UnitSystem::Metric), "D Oil %1 210.0 C");
    QCOMPARE(textIn(UnitSystem::Imperial), "D Oil %1 410.0 F");
    const Event event = findEvents(profile, dataSet, EventScope::AllParameters).at(0);
    QCOMPARE(event.group, "D");
    QVERIFY(event.grade.state == ThresholdState::Limit && event.grade.color == qRgb(255, 0, 0));
}

void TestEventFinder::equalTimesKeepProfileOrder()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        thresholds +
            "<Device name='Z'><Parameter name='b' id='1' dataType='FLOAT' thresholdId='T'/>"
            "<Parameter name='a' id='2' dataType='FLOAT' thresholdId='T'/></Device>"
            "<Device name='A'><Parameter name='c' id='3' dataType='FLOAT' "
            "thresholdId='T'/></Device>"));
    DataSet dataSet;
    for (const std::uint32_t id : {3U, 1U, 2U}) {
        add(dataSet.messages, id, 0.0, floats(0.0F));
        add(dataSet.messages, id, 5.0, floats(150.0F));
        add(dataSet.messages, id, 6.0, floats(0.0F));
    }
    add(dataSet.messages, 3, 7.0, floats(150.0F));
    add(dataSet.messages, 3, 3.0, floats(0.0F)); // times that step back are sorted
    add(dataSet.messages, 3, 4.0, floats(150.0F));
    QStringList order;
    for (const Event& event : findEvents(profile, dataSet, EventScope::AllParameters))
        order << event.group + event.parameter->name + QString::number(event.seconds);
    QCOMPARE(order, (QStringList{"Ac4", "Za5", "Zb5", "Ac5", "Ac7"}));
}

void TestEventFinder::lampsAreSelectedByRole()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        thresholds +
            device(
                {"name='lamp' id='1' dataType='BSHORT' startBit='3' endBit='3' thresholdId='Lamp' "
                 "koltDataType='WarningLamp'",
                 "name='other' id='1' dataType='BSHORT' startBit='3' endBit='3' thresholdId='Lamp' "
                 "koltDataType='warningLamp'"})));
    DataSet dataSet;
    add(dataSet.messages, 1, 1.0, {0xF7, 0xFF});
    add(dataSet.messages, 1, 2.0, {0x08, 0x00});
    QCOMPARE(findEvents(profile, dataSet, EventScope::AllParameters).size(), 2U);
    const std::vector<Event> lamps = findEvents(profile, dataSet, EventScope::WarningLamps);
    QCOMPARE(lamps.size(), 1U);
    QCOMPARE(lamps[0].text, "D lamp 1: Invalid ENUM Type ");
}

/// The first parameter of the profile exceeds its threshold in the later part of the time only.
void TestEventFinder::firstHundredThousandAreKept()
{
    Profile profile;
    QVERIFY(loadProfile(profile,
                        thresholds + device({"name='a' id='1' dataType='FLOAT' thresholdId='T'",
                                             "name='b' id='2' dataType='FLOAT' thresholdId='T'"})));
    DataSet dataSet;
    const auto exceed = [&](std::uint32_t id, int from, int to) {
        for (int i = from; i < to; ++i) {
            add(dataSet.messages, id, i, floats(0.0F));
            add(dataSet.messages, id, i + 0.5, floats(150.0F));
        }
    };
    exceed(1, 99'990, 310'000);
    exceed(2, 0, 99'989);
    const DiagnosticsCapture output;
    std::vector<double> leftOut;
    const std::vector<Event> events =
        findEvents(profile, dataSet, EventScope::AllParameters, &leftOut);
    QCOMPARE(events.size(), maxEvents);
    QCOMPARE(leftOut.size(), 210'010U + 99'989U - maxEvents);
    QVERIFY(std::ranges::is_sorted(leftOut));
    QCOMPARE(leftOut.front(), 100'001.5);
    QCOMPARE(leftOut.back(), 309'999.5);
    QCOMPARE(events[99'988].text, "D b 150.000000 ");
    QCOMPARE(events[99'989].text, "D a 150.000000 ");
    QCOMPARE(events.back().seconds, 100'000.5);
    QVERIFY(output.text().contains("209999 of 309999 exceedances are left out"));
}

QTEST_GUILESS_MAIN(TestEventFinder)
#include "tst_eventfinder.moc"
