#include "graph/TraceFeeder.h"
#include "tests/graph/GraphSupport.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"

#include <QTest>

#include <cmath>
#include <cstring>
#include <map>
#include <random>

using namespace KOLT;
using namespace KOLT::Test;

/// Samples, their columns, and how they get into traces.
class TestGraphTrace : public QObject
{
    Q_OBJECT

private slots:
    void samplesMergeIntoColumns_data();
    void samplesMergeIntoColumns();
    void rebuiltColumnsAreTheMergedOnes_data();
    void rebuiltColumnsAreTheMergedOnes();
    void windowTakesTheSampleBefore();
    void valueIsHeld_data();
    void valueIsHeld();
    void statisticOfARange();
    void feedingMarksGaps();
    void tracesOfAMessageShareTheirTimes();
    void feederKeepsWhatIsStillRight();
};

namespace {

/// All fields at once; equal bits count, so that NaN equals NaN.
QString describe(const GraphColumn& column)
{
    return QString::asprintf("%d t%.17g f%.17g l%.17g h%.17g z%.17g m%d [%.17g %.17g] e%.17g",
                             column.fill, column.time, column.first, column.low, column.high,
                             column.last, column.mark, column.lowest, column.highest, column.end);
}

QStringList describe(const std::vector<GraphColumn>& columns)
{
    QStringList texts;
    for (const GraphColumn& column : columns)
        texts << describe(column);
    return texts;
}

} // namespace

void TestGraphTrace::samplesMergeIntoColumns_data()
{
    QTest::addColumn<QList<double>>("values"); // a second apart, ten to a pixel
    QTest::addColumn<int>("gapAt");
    QTest::addColumn<QString>("column");

    QTest::newRow("one") << QList<double>{5} << -1 << "2 t0 f5 l5 h5 z5 m1 [5 5] e5";
    QTest::newRow("two: the second is the high value")
        << QList<double>{5, -100} << -1 << "3 t0 f5 l5 h-100 z5 m1 [-100 5] e-100";
    QTest::newRow("three: a downward spike in second place")
        << QList<double>{5, -100, 6} << -1 << "4 t0 f5 l5 h6 z6 m1 [-100 6] e6";
    QTest::newRow("many") << QList<double>{5, 7, 1, 9, 3} << -1 << "4 t0 f5 l1 h9 z3 m1 [1 9] e3";
    QTest::newRow("a gap within") << QList<double>{5, 7, 1} << 2 << "4 t0 f5 l1 h7 z1 m0 [1 7] e1";
    QTest::newRow("a gap before") << QList<double>{5, 7} << 0 << "3 t0 f5 l5 h7 z5 m0 [5 7] e7";
}

void TestGraphTrace::samplesMergeIntoColumns()
{
    QFETCH(QList<double>, values);
    QFETCH(int, gapAt);
    std::vector<GraphColumn> columns;
    for (int i = 0; i < values.size(); ++i)
        mergeSample(columns, 10.0, i, values[i], i == gapAt ? 0 : 1);
    QCOMPARE(columns.size(), 1U);
    QTEST(describe(columns.front()), "column");
    mergeSample(columns, 10.0, 10.0, 1.0, 1); // exactly one pixel behind still belongs to it
    QCOMPARE(columns.size(), 1U);
    mergeSample(columns, 10.0, 10.1, 2.0, 1);
    QCOMPARE(columns.size(), 2U);
}

void TestGraphTrace::rebuiltColumnsAreTheMergedOnes_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<bool>("isOrdered");
    for (int seed = 1; seed <= 30; ++seed)
        QTest::addRow("%d", seed) << seed << (seed % 10 != 0);
}

void TestGraphTrace::rebuiltColumnsAreTheMergedOnes()
{
    QFETCH(int, seed);
    QFETCH(bool, isOrdered);
    std::mt19937 random(static_cast<unsigned>(seed));
    std::uniform_real_distribution<double> chance(0.0, 1.0);
    GraphTrace trace;

    struct Sample
    {
        double time, value;
        int mark;
    };

    std::vector<Sample> samples;
    double time = 100.0;
    const int count = seed * seed * 17 + 3;
    for (int i = 0; i < count; ++i) {
        const bool isGap = chance(random) < 0.01;
        time += isGap ? 50.0 : chance(random) < 0.2 ? 0.0 : chance(random) * 0.2;
        if (!isOrdered && chance(random) < 0.01)
            time -= 5.0;
        const double value = chance(random) < 0.02 ? std::nan("") : chance(random) * 100.0 - 50.0;
        samples.push_back({time, value, isGap ? 0 : 1});
        trace.append(time, value, samples.back().mark);
        if (i == count / 2)
            trace.rebuild(100.0, time, 1.0); // the pyramid grows with the samples
    }
    const double last = samples.back().time;
    for (const double pixel : {1e-9, 0.05, 0.7, 13.0, 1e6}) {
        const double start = 100.0 + (last - 100.0) * chance(random) * 0.5;
        const double end = start + (last - start) * chance(random);
        trace.rebuild(start, end, pixel);
        std::vector<GraphColumn> expected;
        std::size_t first = 0;
        while (first < samples.size() && samples[first].time < start)
            ++first;
        for (std::size_t i = first >= 2 ? first - 1 : first; i < samples.size(); ++i) {
            mergeSample(expected, pixel, samples[i].time, samples[i].value, samples[i].mark);
            if (samples[i].time >= end)
                break;
        }
        QCOMPARE(describe(trace.columns()), describe(expected));
    }
}

void TestGraphTrace::windowTakesTheSampleBefore()
{
    GraphTrace trace = traceOf({{0, 0, 1}, {10, 1, 1}, {20, 2, 1}, {30, 3, 1}, {40, 4, 1}});
    const auto times = [&](double start, double end) {
        trace.rebuild(start, end, 0.1);
        QList<double> result;
        for (const GraphColumn& column : trace.columns())
            result << column.time;
        return result;
    };
    QCOMPARE(times(25, 28), (QList<double>{20, 30})); // enters from the left, leaves to the right
    QCOMPARE(times(20, 30), (QList<double>{10, 20, 30}));
    QCOMPARE(times(5, 6), (QList<double>{10})); // too near the front for a step back
    QCOMPARE(times(100, 110), (QList<double>{40}));
    QCOMPARE(times(-20, -10), (QList<double>{0}));
}

void TestGraphTrace::valueIsHeld_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<double>("value"); // -1: none

    QTest::newRow("before") << 9.9 << -1.0;
    QTest::newRow("at the first") << 10.0 << 1.0;
    QTest::newRow("between") << 15.0 << 1.0;
    QTest::newRow("at the second: not yet used") << 20.0 << 1.0;
    QTest::newRow("behind the second") << 20.1 << 2.0;
    QTest::newRow("at the last") << 30.0 << 2.0;
    QTest::newRow("behind the last") << 30.1 << -1.0;
}

void TestGraphTrace::valueIsHeld()
{
    QFETCH(double, time);
    const GraphTrace trace = traceOf({{10, 1, 1}, {20, 2, 1}, {30, 3, 1}});
    QTEST(trace.valueAt(time).value_or(-1.0), "value");
    QVERIFY(!GraphTrace().valueAt(time));
}

void TestGraphTrace::statisticOfARange()
{
    GraphTrace trace;
    double sum = 0.0;
    for (int i = 0; i < 20'000; ++i) {
        const double value = i == 7000 ? std::nan("") : std::sin(i * 0.01) * 10.0;
        trace.append(i, value, 1);
        if (i >= 100 && i <= 15'000 && i != 7000)
            sum += value;
    }
    const auto statistic = trace.statistic(100.0, 15'000.0);
    QVERIFY(statistic);
    QVERIFY(std::abs(statistic->mean - sum / 14'900.0) < 1e-9);
    QVERIFY(std::abs(statistic->maximum - 10.0) < 1e-3);
    QVERIFY(!trace.statistic(100.2, 100.8));   // no sample between
    QVERIFY(!trace.statistic(7000.0, 7000.0)); // no number
}

void TestGraphTrace::feedingMarksGaps()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile, "<UnitConversions><Unit unitMetric='m' unitImperial='ft' factor='2' offset='1'/>"
                 "</UnitConversions>" +
                     device({"name='a' id='1' dataType='FLOAT' precision='5' unitMetric='m' "
                             "unitImperial='ft'"})));
    DataSet dataSet;
    for (const double seconds : {0.0, 0.5, 1.0, 1.5, 2.0, 3.4, 5.0, 5.5})
        add(dataSet.messages, 1, seconds, floats(static_cast<float>(seconds)));
    Graph graph;
    profile.setUnitSystem(UnitSystem::Imperial);
    feedTrace(graph, 0, profile, profile.parameters().front(), dataSet);
    GraphTrace& trace = graph.trace(0);
    QCOMPARE(trace.unit, "ft");
    QCOMPARE(trace.decimals, 3);
    QCOMPARE(trace.valueAt(1.7).value_or(-1), 4.0); // 1.5 in feet
    trace.rebuild(0.0, 10.0, 0.01);
    QList<int> marks;
    for (const GraphColumn& column : trace.columns())
        marks << column.mark;
    QCOMPARE(marks, (QList<int>{1, 1, 1, 1, 1, 1, 0, 1})); // 1.4 s is not three times 0.5 s
    feedTrace(graph, 99, profile, profile.parameters().front(), dataSet); // ignored
    DataSet dense; // a second is the shortest gap
    for (const double seconds : {0.0, 0.1, 0.2, 0.3, 1.25, 2.25, 2.35})
        add(dense.messages, 1, seconds, floats(0.0F));
    feedTrace(graph, 0, profile, profile.parameters().front(), dense);
    trace.rebuild(0.0, 10.0, 0.01);
    marks.clear();
    for (const GraphColumn& column : trace.columns())
        marks << column.mark;
    QCOMPARE(marks, (QList<int>{1, 1, 1, 1, 1, 0, 1}));
    add(dense.messages, 1, 2.45, floats(std::numeric_limits<float>::infinity()));
    feedTrace(graph, 0, profile, profile.parameters().front(), dense);
    trace.rebuild(0.0, 10.0, 0.01);
    QCOMPARE(trace.visibleRange(), std::optional(std::pair(1.0, 1.0))); // 0 in feet
}

/// The second trace takes over what the first found out about the times of their message.
void TestGraphTrace::tracesOfAMessageShareTheirTimes()
{
    Profile profile;
    QVERIFY(loadProfile(profile, device({"name='a' id='1' dataType='FLOAT'",
                                         "name='b' id='1' startByte='4' dataType='FLOAT'",
                                         "name='c' id='2' dataType='FLOAT'"})));
    DataSet dataSet;
    for (int i = 0; i < 3000; ++i) {
        const double seconds = i * 0.1 + (i > 2000 ? 7.0 : 0.0);
        const auto value = static_cast<float>(i * 37 % 101);
        add(dataSet.messages, 1, seconds, floats(value, -value));
        add(dataSet.messages, 2, seconds + 0.05, floats(value));
    }
    Graph graph;
    graph.setTraceCount(3);
    for (int i = 0; i < 3; ++i)
        feedTrace(graph, i, profile, profile.parameters()[static_cast<std::size_t>(i)], dataSet);
    QCOMPARE(graph.trace(0).times(), graph.trace(1).times());
    QVERIFY(graph.trace(0).times() != graph.trace(2).times());
    // Each window is looked up by the one and answered from memory for the other.
    for (const double start : {0.0, 50.0, 150.0}) {
        for (const double pixel : {0.7, 0.01}) {
            std::vector<GraphColumn> expected;
            for (int i = 0; i < 2; ++i)
                graph.trace(i).rebuild(start, start + 100.0, pixel);
            for (GraphColumn column : graph.trace(1).columns()) {
                for (double* value : {&column.first, &column.low, &column.high, &column.last,
                                      &column.lowest, &column.highest, &column.end})
                    *value = -*value;
                std::swap(column.lowest, column.highest);
                expected.push_back(column);
            }
            QCOMPARE(graph.trace(0).columns().size(), expected.size());
            for (std::size_t i = 0; i < expected.size(); ++i) {
                const GraphColumn& column = graph.trace(0).columns()[i];
                QCOMPARE(column.time, expected[i].time);
                QCOMPARE(column.mark, expected[i].mark);
                QCOMPARE(column.lowest, expected[i].lowest);
                QCOMPARE(column.highest, expected[i].highest);
                QCOMPARE(column.end, expected[i].end);
            }
        }
    }
}

void TestGraphTrace::feederKeepsWhatIsStillRight()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile, "<UnitConversions><Unit unitMetric='m' unitImperial='ft' factor='2' offset='1'/>"
                 "</UnitConversions>" +
                     device({"name='a' id='1' dataType='FLOAT'",
                             "name='b' id='2' dataType='FLOAT' unitMetric='m' unitImperial='ft'",
                             "name='c' id='2' dataType='FLOAT'"})));
    DataSet dataSet;
    for (int i = 0; i < 100; ++i) {
        add(dataSet.messages, 1, i, floats(1.0F));
        add(dataSet.messages, 2, i, floats(2.0F));
    }
    const ProfileParameter* const a = &profile.parameters()[0];
    const ProfileParameter* const b = &profile.parameters()[1];
    const ProfileParameter* const c = &profile.parameters()[2];
    Graph graph;
    TraceFeeder feeder(graph);
    const auto values = [&] {
        QList<double> result;
        for (int i = 0; i < graph.traceCount(); ++i)
            result << graph.trace(i).valueAt(50.0).value_or(-1.0);
        return result;
    };
    feeder.begin(profile, {a, b, c}, dataSet);
    QCOMPARE(graph.trace(2).name, "c"); // named, and empty
    QCOMPARE(values(), (QList<double>{-1, -1, -1}));
    QVERIFY(!feeder.feed({})); // one at least, and no more than the time allows
    QCOMPARE(values(), (QList<double>{1, -1, -1}));
    graph.selectedTrace = 0;
    feeder.begin(profile, {b, a}, dataSet); // before the others had their turn
    QCOMPARE(values(), (QList<double>{-1, 1}));
    QCOMPARE(graph.selectedTrace, 1); // a still
    QVERIFY(feeder.feed({}));
    QCOMPARE(values(), (QList<double>{2, 1}));
    profile.setUnitSystem(UnitSystem::Imperial);
    feeder.begin(profile, {a, b}, dataSet);
    QCOMPARE(feeder.total(), std::size_t{1});
    QCOMPARE(values(), (QList<double>{1, -1}));
    QVERIFY(feeder.feed({}));
    QCOMPARE(values(), (QList<double>{1, 5}));
    add(dataSet.messages, 1, 100.0, floats(9.0F)); // the series went on
    feeder.begin(profile, {a, b}, dataSet);
    QCOMPARE(values(), (QList<double>{-1, 5}));
}

QTEST_GUILESS_MAIN(TestGraphTrace)
#include "tst_graphtrace.moc"
