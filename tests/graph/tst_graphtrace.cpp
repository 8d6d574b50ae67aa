#include "graph/TraceFeeder.h"
#include "tests/graph/GraphSupport.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <cmath>
#include <random>

using namespace KOLT;
using namespace KOLT::Test;

/// Samples, their pixel columns, and filling traces.
class TestGraphTrace : public QObject
{
    Q_OBJECT

private slots:
    void samplesMergeIntoColumns_data();
    void samplesMergeIntoColumns();
    void rebuiltColumnsAreTheMergedOnes();
    void windowTakesTheSampleBefore();
    void valueIsHeld();
    void statisticOfARange();
    void feedingMarksGaps();
    void tracesOfAMessageShareTheirTimes();
    void feederKeepsWhatIsStillRight();
};

namespace {

/// All fields as text with all digits; NaN equals NaN.
QString describe(const GraphColumn& column)
{
    return QString::asprintf("%d t%.17g f%.17g l%.17g h%.17g z%.17g m%d [%.17g %.17g] e%.17g",
                             static_cast<int>(column.fill), column.time, column.first, column.low,
                             column.high, column.last, static_cast<int>(column.mark), column.lowest,
                             column.highest, column.end);
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
    // values (one per second, ten per pixel), index of the sample after a gap, column
    const Rows<QList<double>, int, QString> row;
    row("one", {5}, -1, "2 t0 f5 l5 h5 z5 m1 [5 5] e5");
    row("two: the second is the high value", {5, -100}, -1,
        "3 t0 f5 l5 h-100 z5 m1 [-100 5] e-100");
    row("three: a downward spike in second place", {5, -100, 6}, -1,
        "4 t0 f5 l5 h6 z6 m1 [-100 6] e6");
    row("many", {5, 7, 1, 9, 3}, -1, "4 t0 f5 l1 h9 z3 m1 [1 9] e3");
    row("a gap within", {5, 7, 1}, 2, "4 t0 f5 l1 h7 z1 m0 [1 7] e1");
    row("a gap before", {5, 7}, 0, "3 t0 f5 l5 h7 z5 m0 [5 7] e7");
}

void TestGraphTrace::samplesMergeIntoColumns()
{
    const auto [values, gapAt, column] = fetchRow<QList<double>, int, QString>();
    std::vector<GraphColumn> columns;
    for (int i = 0; i < values.size(); ++i)
        mergeSample(columns, 10.0, i, values[i], SampleMark(i != gapAt));
    QCOMPARE(columns.size(), 1U);
    QCOMPARE(describe(columns.front()), column);
    mergeSample(columns, 10.0, 10.0, 1.0); // exactly one pixel later still belongs to the column
    QCOMPARE(columns.size(), 1U);
    mergeSample(columns, 10.0, 10.1, 2.0);
    QCOMPARE(columns.size(), 2U);
}

void TestGraphTrace::rebuiltColumnsAreTheMergedOnes()
{
    for (int seed = 1; seed <= 30; ++seed) {
        const bool isOrdered = seed % 10 != 0;
        std::mt19937 random(static_cast<unsigned>(seed));
        std::uniform_real_distribution<double> chance(0.0, 1.0);
        GraphTrace trace;

        std::vector<std::tuple<double, double, int>> samples; // time, value, mark
        double time = 100.0;
        const int count = seed * seed * 17 + 3;
        for (int i = 0; i < count; ++i) {
            const bool isGap = chance(random) < 0.01;
            time += isGap ? 50.0 : chance(random) < 0.2 ? 0.0 : chance(random) * 0.2;
            if (!isOrdered && chance(random) < 0.01)
                time -= 5.0;
            const double value =
                chance(random) < 0.02 ? std::nan("") : chance(random) * 100.0 - 50.0;
            samples.emplace_back(time, value, isGap ? 0 : 1);
            trace.append(time, value, SampleMark(!isGap));
            if (i == count / 2)
                trace.rebuild(100.0, time, 1.0); // the pyramid grows with the samples
        }
        const double last = time;
        for (const double pixel : {1e-9, 0.05, 0.7, 13.0, 1e6}) {
            const double start = 100.0 + (last - 100.0) * chance(random) * 0.5;
            const double end = start + (last - start) * chance(random);
            trace.rebuild(start, end, pixel);
            std::vector<GraphColumn> expected;
            std::size_t first = 0;
            while (first < samples.size() && std::get<0>(samples[first]) < start)
                ++first;
            for (std::size_t i = first >= 2 ? first - 1 : first; i < samples.size(); ++i) {
                const auto [at, value, mark] = samples[i];
                mergeSample(expected, pixel, at, value, SampleMark(mark));
                if (at >= end)
                    break;
            }
            QCOMPARE(describe(trace.columns()), describe(expected));
        }
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
    QCOMPARE(times(25, 28), (QList<double>{20, 30})); // one sample on each side
    QCOMPARE(times(20, 30), (QList<double>{10, 20, 30}));
    QCOMPARE(times(5, 6), (QList<double>{10})); // the second sample: no step back
    QCOMPARE(times(100, 110), (QList<double>{40}));
    QCOMPARE(times(-20, -10), (QList<double>{0}));
}

void TestGraphTrace::valueIsHeld()
{
    const GraphTrace trace = traceOf({{10, 1, 1}, {20, 2, 1}, {30, 3, 1}});
    for (const auto& [time, value] : {std::pair(9.9, -1.0), // none
                                      {10.0, 1.0},
                                      {15.0, 1.0},
                                      {20.0, 1.0}, // the sample at this very time is not used yet
                                      {20.1, 2.0},
                                      {30.0, 2.0},
                                      {30.1, -1.0}})
        QCOMPARE(trace.valueAt(time).value_or(-1.0), value);
    QVERIFY(!GraphTrace().valueAt(15.0));
}

void TestGraphTrace::statisticOfARange()
{
    GraphTrace trace;
    double sum = 0.0;
    for (int i = 0; i < 20'000; ++i) {
        const double value = i == 7000 ? std::nan("") : std::sin(i * 0.01) * 10.0;
        trace.append(i, value);
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
    QVERIFY(loadProfile(profile, unit("unitMetric='m' unitImperial='ft' factor='2' offset='1'") +
                                     device({"name='a' id='1' dataType='FLOAT' precision='5' "
                                             "unitMetric='m' unitImperial='ft'"})));
    profile.setUnitSystem(UnitSystem::Imperial);
    Graph graph;
    GraphTrace& trace = graph.trace(0);
    const auto feed = [&](int index, const DataSet& dataSet) {
        feedTrace(graph, index, profile, profile.parameters().front(), dataSet);
        trace.rebuild(0.0, 10.0, 0.01);
        QList<int> marks;
        for (const GraphColumn& column : trace.columns())
            marks << static_cast<int>(column.mark);
        return marks;
    };
    DataSet dataSet;
    for (const double seconds : {0.0, 0.5, 1.0, 1.5, 2.0, 3.4, 5.0, 5.5})
        add(dataSet.messages, 1, seconds, floats(static_cast<float>(seconds)));
    const QList<int> marks{1, 1, 1, 1, 1, 1, 0, 1}; // 1.4 s is less than three times 0.5 s
    QCOMPARE(feed(0, dataSet), marks);
    QCOMPARE(trace.unit, "ft");
    QCOMPARE(trace.decimals, 3);
    QCOMPARE(trace.valueAt(1.7).value_or(-1), 4.0); // 1.5 in feet
    DataSet dense;                                  // gaps are at least 1 s
    for (const double seconds : {0.0, 0.1, 0.2, 0.3, 1.25, 2.25, 2.35})
        add(dense.messages, 1, seconds, floats(0.0F));
    QCOMPARE(feed(99, dense), marks); // no such trace: unchanged
    QCOMPARE(feed(0, dense), (QList<int>{1, 1, 1, 1, 1, 0, 1}));
    // A stray time stamp must not hide the samples after it.
    DataSet stray;
    for (const double seconds : {0.0, 1.0, 2.0, 900.0, 3.0, 4.0, 5.0})
        add(stray.messages, 1, seconds, floats(static_cast<float>(seconds)));
    QCOMPARE(feed(0, stray), (QList<int>{1, 1, 1, 1, 1, 1, 0}));
    QCOMPARE(trace.valueAt(4.5).value_or(-1), 9.0); // 4 in feet
    QCOMPARE(trace.statistic(2.0, 5.0).value_or(RangeStatistic()).maximum, 11.0);
    add(dense.messages, 1, 2.45, floats(std::numeric_limits<float>::infinity()));
    feed(0, dense);
    QCOMPARE(trace.visibleRange(), std::optional(std::pair(1.0, 1.0))); // 0 in feet
}

/// The second trace reuses the times that the first one found for their message.
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
    for (std::size_t i = 0; i < 3; ++i)
        feedTrace(graph, static_cast<int>(i), profile, profile.parameters()[i], dataSet);
    QCOMPARE(graph.trace(0).times(), graph.trace(1).times());
    QVERIFY(graph.trace(0).times() != graph.trace(2).times());
    // For each window, the first trace searches and the second gets the stored result.
    Graph alone;
    feedTrace(alone, 0, profile, profile.parameters()[1], dataSet);
    for (const double start : {0.0, 50.0, 150.0}) {
        for (const double pixel : {0.7, 0.01}) {
            for (GraphTrace* trace : {&graph.trace(0), &graph.trace(1), &alone.trace(0)})
                trace->rebuild(start, start + 100.0, pixel);
            QVERIFY(!alone.trace(0).columns().empty());
            QCOMPARE(describe(graph.trace(1).columns()), describe(alone.trace(0).columns()));
        }
    }
}

void TestGraphTrace::feederKeepsWhatIsStillRight()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile, unit("unitMetric='m' unitImperial='ft' factor='2' offset='1'") +
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
    QCOMPARE(graph.trace(2).name, "c"); // named, but empty
    QCOMPARE(values(), (QList<double>{-1, -1, -1}));
    QVERIFY(!feeder.feed({})); // no time: exactly one trace
    QCOMPARE(values(), (QList<double>{1, -1, -1}));
    graph.selectTrace(0);
    feeder.begin(profile, {b, a}, dataSet); // before the others were filled
    QCOMPARE(values(), (QList<double>{-1, 1}));
    QCOMPARE(graph.cursor().trace, 1); // still a
    QVERIFY(feeder.feed({}));
    QCOMPARE(values(), (QList<double>{2, 1}));
    profile.setUnitSystem(UnitSystem::Imperial);
    feeder.begin(profile, {a, b}, dataSet);
    QCOMPARE(feeder.total(), std::size_t{1});
    QCOMPARE(values(), (QList<double>{1, -1}));
    QVERIFY(feeder.feed({}));
    QCOMPARE(values(), (QList<double>{1, 5}));
    add(dataSet.messages, 1, 100.0, floats(9.0F)); // the series has grown
    feeder.begin(profile, {a, b}, dataSet);
    QCOMPARE(values(), (QList<double>{-1, 5}));
}

QTEST_GUILESS_MAIN(TestGraphTrace)
#include "tst_graphtrace.moc"
