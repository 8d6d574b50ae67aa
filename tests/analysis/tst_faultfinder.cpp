#include "analysis/FaultFinder.h"
#include "analysis/TimeStrip.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"

#include <QTest>

using namespace KOLT;
using namespace KOLT::Test;

using State = FaultHistory::State;

class TestFaultFinder : public QObject
{
    Q_OBJECT

private slots:
    void intervals_data();
    void intervals();
    void membersStandInBitOrder();
    void stateAndNeighbours();
    void stripPlaces();
    void stripRuns_data();
    void stripRuns();

private:
    static MessageData bits(unsigned char first) { return {first}; }
};

void TestFaultFinder::intervals_data()
{
    QTest::addColumn<QByteArray>("values"); // of the bit, one sample a second from 10 s on
    QTest::addColumn<QList<double>>("ends");

    QTest::newRow("never") << QByteArray("000") << QList<double>{};
    QTest::newRow("once") << QByteArray("01100") << QList<double>{11, 13};
    QTest::newRow("one sample") << QByteArray("010") << QList<double>{11, 12};
    QTest::newRow("from the first sample") << QByteArray("110") << QList<double>{10, 12};
    QTest::newRow("never cleared") << QByteArray("011") << QList<double>{11, 60};
    QTest::newRow("twice") << QByteArray("0101") << QList<double>{11, 12, 13, 60};
    QTest::newRow("no samples") << QByteArray() << QList<double>{};
}

void TestFaultFinder::intervals()
{
    QFETCH(QByteArray, values);
    Profile profile;
    QVERIFY(loadProfile(profile, "<Device name='D'><ErrorMatrix id='7' name='M'/>"
                                 "<Parameter name='f' id='7' dataType='BLONG' startBit='2' "
                                 "endBit='2' errorType='Fault'/></Device>"));
    DataSet dataSet;
    dataSet.stopSeconds = 60.0;
    double seconds = 10.0;
    for (const char value : values)
        add(dataSet.messages, 7, seconds++, bits(value == '1' ? 0xFF : 0xFB));
    const std::vector<FaultMatrix> matrices = findFaults(profile, dataSet);
    QCOMPARE(matrices.size(), 1U);
    const FaultHistory& history = matrices.front().members.at(0);
    QList<double> ends;
    for (const FaultInterval& interval : history.intervals)
        ends << interval.start << interval.end;
    QTEST(ends, "ends");
    QCOMPARE(history.stateAt(9.9), State::Unknown);
    QCOMPARE(history.hasSamples, !values.isEmpty());
}

void TestFaultFinder::membersStandInBitOrder()
{
    Profile profile;
    QVERIFY(loadProfile(profile, "<Device name='D'><ErrorMatrix id='7' name='M'/>"
                                 "<Parameter name='c' id='7' dataType='BSHORT' startByte='2'/>"
                                 "<Parameter name='b' id='7' dataType='BLONG' startBit='5'/>"
                                 "<Parameter name='a' id='7' dataType='BLONG' startBit='1'/>"
                                 "<Parameter name='other' id='8' dataType='BLONG'/></Device>"));
    const DataSet dataSet;
    QStringList names;
    const std::vector<FaultMatrix> matrices = findFaults(profile, dataSet);
    for (const FaultHistory& member : matrices.at(0).members)
        names << member.parameter->name;
    QCOMPARE(names, (QStringList{"a", "b", "c"}));
}

void TestFaultFinder::stateAndNeighbours()
{
    FaultHistory history;
    history.hasSamples = true;
    history.firstSeconds = 1.0;
    history.intervals = {{5.0, 6.0, false}, {8.0, 20.0, true}};
    const std::pair<double, State> states[] = {
        {0.5, State::Unknown}, {1.0, State::Clear}, {5.0, State::Set},  {5.9, State::Set},
        {6.0, State::Clear},   {8.0, State::Set},   {20.0, State::Set}, {30.0, State::Set}};
    for (const auto& [seconds, state] : states)
        QCOMPARE(history.stateAt(seconds), state);
    QCOMPARE(history.intervalAfter(5.0)->start, 8.0);
    QCOMPARE(history.intervalAfter(8.0), nullptr);
    QCOMPARE(history.intervalBefore(8.0)->start, 5.0);
    QCOMPARE(history.intervalBefore(5.0), nullptr);
}

void TestFaultFinder::stripPlaces()
{
    const TimeStrip strip{100.0, 300.0, 401};
    QCOMPARE(strip.xOf(100.0), 0);
    QCOMPARE(strip.xOf(200.0), 200);
    QCOMPARE(strip.xOf(300.0), 400);
    QCOMPARE(strip.xOf(-5.0), 0);
    QCOMPARE(strip.xOf(1e9), 400);
    for (int x = 0; x < strip.width; ++x)
        QCOMPARE(strip.xOf(strip.timeAt(x)), x);
    QCOMPARE(strip.timeAt(-3), 100.0);
    QCOMPARE(strip.timeAt(1000), 300.0);
    const TimeStrip empty{100.0, 100.0, 401};
    QCOMPARE(empty.xOf(100.0), 0);
    QCOMPARE(empty.timeAt(200), 100.0);
    QCOMPARE((TimeStrip{0.0, 10.0, 0}).timeAt(0), 0.0);
}

void TestFaultFinder::stripRuns_data()
{
    using Ends = QList<double>;
    QTest::addColumn<Ends>("ends");
    QTest::addColumn<QList<int>>("pixels");

    QTest::newRow("none") << Ends{} << QList<int>{};
    QTest::newRow("apart") << Ends{10, 20, 50, 60} << QList<int>{10, 20, 50, 60};
    QTest::newRow("too short for a pixel") << Ends{10.1, 10.2} << QList<int>{10, 10};
    QTest::newRow("neighbours join") << Ends{10, 20, 21, 30} << QList<int>{10, 30};
    QTest::newRow("several in a pixel, the last goes on")
        << Ends{10.0, 10.1, 10.2, 10.3, 10.4, 40} << QList<int>{10, 40};
    QTest::newRow("beyond the end") << Ends{90, 500} << QList<int>{90, 100};
}

void TestFaultFinder::stripRuns()
{
    QFETCH(QList<double>, ends);
    std::vector<FaultInterval> intervals;
    for (qsizetype i = 0; i < ends.size(); i += 2)
        intervals.push_back({ends[i], ends[i + 1], false});
    QList<int> pixels;
    for (const PixelRun& run : pixelRuns({0.0, 100.0, 101}, intervals))
        pixels << run.left << run.right;
    QTEST(pixels, "pixels");
}

QTEST_GUILESS_MAIN(TestFaultFinder)
#include "tst_faultfinder.moc"
