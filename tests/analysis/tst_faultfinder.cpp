#include "analysis/FaultFinder.h"
#include "analysis/TimeStrip.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

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
    const Rows<QByteArray, QList<double>> row; // bit once a second from 10 s on, expected ends
    row("never", "000", {});
    row("once", "01100", {11, 13});
    row("one sample", "010", {11, 12});
    row("from the first sample", "110", {10, 12});
    row("never cleared", "011", {11, 60});
    row("twice", "0101", {11, 12, 13, 60});
    row("no samples", {}, {});
}

void TestFaultFinder::intervals()
{
    const auto [values, expected] = fetchRow<QByteArray, QList<double>>();
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
    QCOMPARE(ends, expected);
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
    for (const auto& [seconds, x] :
         {std::pair(100.0, 0), {200.0, 200}, {300.0, 400}, {-5.0, 0}, {1e9, 400}})
        QCOMPARE(strip.xOf(seconds), x);
    for (int x = 0; x < strip.width; ++x)
        QCOMPARE(strip.xOf(strip.timeAt(x)), x);
    QCOMPARE(strip.timeAt(-3), 100.0);
    QCOMPARE(strip.timeAt(1000), 300.0);
    const TimeStrip moved{100.0, 300.0, 401, 30};
    QCOMPARE(moved.xOf(200.0), 230);
    QCOMPARE(moved.timeAt(230), 200.0);
    const TimeStrip empty{100.0, 100.0, 401};
    QCOMPARE(empty.xOf(100.0), 0);
    QCOMPARE(empty.timeAt(200), 100.0);
    QCOMPARE((TimeStrip{0.0, 10.0, 0}).timeAt(0), 0.0);
}

void TestFaultFinder::stripRuns_data()
{
    const Rows<QList<double>, QList<int>> row; // ends of intervals, expected ends of runs
    row("none", {}, {});
    row("apart", {10, 20, 50, 60}, {10, 20, 50, 60});
    row("too short for a pixel", {10.1, 10.2}, {10, 10});
    row("neighbours join", {10, 20, 21, 30}, {10, 30});
    row("several in a pixel, the last goes on", {10.0, 10.1, 10.2, 10.3, 10.4, 40}, {10, 40});
    row("beyond the end", {90, 500}, {90, 100});
    row("last pixel", {100, 100}, {100, 100});
}

void TestFaultFinder::stripRuns()
{
    const auto [ends, expected] = fetchRow<QList<double>, QList<int>>();
    std::vector<FaultInterval> intervals;
    for (qsizetype i = 0; i < ends.size(); i += 2)
        intervals.push_back({ends[i], ends[i + 1], false});
    const auto pixels = [&](int least) {
        QList<int> sides;
        for (const PixelRun& run : pixelRuns({0.0, 100.0, 101}, intervals, least))
            sides << run.left << run.right;
        return sides;
    };
    QCOMPARE(pixels(1), expected);
    const QList<int> wide = pixels(3); // each has room for its least width
    for (qsizetype i = 0; i < wide.size(); i += 2)
        QVERIFY(wide[i] <= expected[i] && wide[i + 1] >= expected[i + 1] && wide[i + 1] <= 100 &&
                wide[i + 1] - wide[i] >= 2);
}

QTEST_GUILESS_MAIN(TestFaultFinder)
#include "tst_faultfinder.moc"
