#include "analysis/CardOverview.h"
#include "analysis/EpisodeFinder.h"
#include "analysis/FaultSnapshot.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <random>

using namespace KOLT;
using namespace KOLT::Test;

/// A quantity over time; values 100 and 200 are its warning and limit, 20 is its low limit.
using Curve = std::function<double(double)>;

class TestEpisodes : public QObject
{
    Q_OBJECT

private slots:
    void shapes_data();
    void shapes();
    void noiseBelowTheHysteresis_data();
    void noiseBelowTheHysteresis();
    void counts_data();
    void counts();
    void sides_data();
    void sides();
    void lanesAndLampsAreOne();
    void cuts_data();
    void cuts();
    void eachCrossingIsInOneEpisode();
    void phases();
    void faults();

private:
    Profile m_profile;
};

Q_DECLARE_METATYPE(Curve)

namespace {

constexpr double rate = 20.0; ///< samples per second

const QByteArray lists =
    "<ThresholdList><Threshold name='T' hysteresis='5'><Value val='-1000' state='LIMIT'/>"
    "<Value val='20' state='OK'/><Value val='100' state='WARNING'/>"
    "<Value val='200' state='LIMIT'/></Threshold>"
    "<Threshold name='Lamp'><Value val='1' state='LIMIT'/></Threshold></ThresholdList>";

QByteArray profileOf(const QByteArray& attributes = {})
{
    return lists + device({"name='p' id='1' dataType='FLOAT' thresholdId='T' " + attributes});
}

void record(DataSet& dataSet, std::uint32_t id, double seconds, const Curve& curve,
            double shift = 0.0)
{
    for (int i = 0; i < seconds * rate; ++i)
        add(dataSet.messages, id, i / rate + shift, floats(static_cast<float>(curve(i / rate))));
    dataSet.stopSeconds = std::max(dataSet.stopSeconds, seconds);
}

/// "value*seconds ...", twice a second.
void recordSteps(DataSet& dataSet, const QByteArray& text)
{
    double seconds = 0.0;
    for (const QByteArray& part : text.split(' ')) {
        const QList<QByteArray> pair = part.split('*');
        for (const double end = seconds + pair[1].toDouble(); seconds < end; seconds += 0.5)
            add(dataSet.messages, 1, seconds, floats(pair[0].toFloat()));
    }
}

/// From 50 up to the top and back, with ramps of ten seconds.
Curve trapezoid(double from, double topSeconds, double top)
{
    return [=](double t) {
        const double part =
            std::clamp(std::min(t - from, from + 20.0 + topSeconds - t) / 10.0, 0.0, 1.0);
        return 50.0 + (top - 50.0) * part;
    };
}

Curve sine(double period, double middle, double height)
{
    return
        [=](double t) { return middle - height * std::cos(2.0 * std::numbers::pi * t / period); };
}

} // namespace

void TestEpisodes::shapes_data()
{
    // Of one episode: begin, end, peak, its first time, seconds beyond warning and limit, area
    const Rows<Curve, QList<double>> row;
    // 20 a second up and down; back at 95.
    row("trapezoid", trapezoid(10, 30, 250), {12.5, 57.75, 250, 20, 45, 35, 30 * 150 + 7.5 * 150});
    // To 10, below 20: -4 a second; back at 25. Limit and nothing else.
    row("trapezoid down", trapezoid(10, 30, 10), {17.5, 56.25 - 2.5, 10, 20, 35, 35, 300 + 25});
    // 120 - 90 cos(x), with a period of a minute
    const auto angle = [](double value) { return std::acos((120.0 - value) / 90.0); };
    const double second = std::numbers::pi / 30.0;
    const double area =
        20.0 * (60.0 - 2.0 * angle(100) / second) + 180.0 * std::sin(angle(100)) / second;
    row("sine", sine(60, 120, 90),
        {angle(100) / second, 60 - angle(95) / second, 210, 30, 60 - 2 * angle(100) / second,
         60 - 2 * angle(200) / second, area});
}

void TestEpisodes::shapes()
{
    const auto [curve, expected] = fetchRow<Curve, QList<double>>();
    QVERIFY(loadProfile(m_profile, profileOf()));
    DataSet dataSet;
    record(dataSet, 1, expected[1] + 15,
           [&curve = curve](double t) { return t < 1 ? 50.0 : curve(t); });
    const EpisodeFindings found = findEpisodes(m_profile, dataSet);
    QCOMPARE(found.episodes.size(), 1U);
    const Episode& episode = found.episodes[0];
    double above = 0.0;
    const double height = std::abs(episode.peak->number - episode.warningStep.value_or(0));
    for (const EpisodeLevel& level : episode.levels)
        above += level.seconds * height / Episode::levelCount;
    // The levels are the lower ends of ten stripes: the area lies between this and a stripe less.
    const double stripe = episode.levels.at(0).seconds * height / Episode::levelCount;
    QVERIFY2(expected[6] <= above * 1.01 && expected[6] >= (above - stripe) * 0.99,
             qPrintable(QString("%1 for %2").arg(above).arg(expected[6])));
    QCOMPARE(episode.levels.at(0).seconds, episode.secondsBeyondWarning);
    const QList<double> measured{episode.begin,
                                 episode.end,
                                 episode.peak->number,
                                 episode.peak->seconds,
                                 episode.secondsBeyondWarning,
                                 episode.secondsBeyondLimit};
    for (qsizetype i = 0; i < measured.size(); ++i)
        QVERIFY2(std::abs(measured[i] - expected[i]) < 2.1 / rate,
                 qPrintable(QString("%1: %2 for %3").arg(i).arg(measured[i]).arg(expected[i])));
    QVERIFY(!episode.isCut && episode.state == ThresholdState::Limit);
    QCOMPARE(episode.isHigh, expected[2] > 100);
}

void TestEpisodes::noiseBelowTheHysteresis_data()
{
    const Rows<Curve, int> row;
    row("trapezoid", trapezoid(10, 30, 150), 1);
    row("trapezoid just above", trapezoid(10, 30, 104.9), 1);
    row("slow sine", sine(100, 90, 55), 2);
    row("fast sine", sine(10, 90, 55), 20);
}

void TestEpisodes::noiseBelowTheHysteresis()
{
    const auto [curve, expected] = fetchRow<Curve, int>();
    QVERIFY(loadProfile(m_profile, profileOf()));
    int crossings = 0;
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> noise(-4.9, 4.9);
        DataSet dataSet;
        record(dataSet, 1, 200,
               [&, &curve = curve](double t) { return curve(t) + (seed > 0 ? noise(random) : 0); });
        const std::vector<Episode> episodes = findEpisodes(m_profile, dataSet).episodes;
        QCOMPARE(static_cast<int>(episodes.size()), expected);
        for (const Episode& episode : episodes)
            crossings += static_cast<int>(episode.crossings);
    }
    QVERIFY(crossings > 20 * expected); // the noise did cross
}

void TestEpisodes::counts_data()
{
    // "value*seconds" at one sample each half second, then "episodes:crossings of each"
    const Rows<QByteArray, QByteArray, QByteArray> row;
    row("never", "", "50*9", "");
    row("beyond from the start", "", "150*9 50*9", "");
    row("again after the start", "", "150*9 50*1 150*1 50*9", "1");
    row("within the hold time", "", "50*1 150*2 50*2 150*2 50*9", "2");
    row("after the hold time", "", "50*1 150*2 50*3 150*2 50*9", "1 1");
    row("not back in between", "", "50*1 150*2 97*9 150*2 50*9", "2");
    row("warning, limit, warning, limit", "", "50*1 150*1 250*1 150*1 250*1 50*4", "3");
    row("both sides", "", "50*1 150*1 50*1 10*1 50*4", "2");
    row("no hold time", "holdSeconds='0'", "50*1 150*1 50*1 150*1 50*4", "1 1");
    row("a longer one", "holdSeconds='60'", "50*1 150*1 50*50 150*1 50*4", "2");
    row("no hysteresis", "hysteresis='0'", "50*1 150*2 99.9*9 150*2 50*9", "1 1");
    row("a hysteresis wider than the range", "hysteresis='1000'",
        "50*1 150*2 60*9 150*2 80*9 150*2 50*9", "1 2");
    row("bad attributes", "holdSeconds='-1' hysteresis='a'", "50*1 150*2 99.5*9 150*2 50*9", "2");
}

void TestEpisodes::counts()
{
    const auto [attributes, text, expected] = fetchRow<QByteArray, QByteArray, QByteArray>();
    const DiagnosticsCapture output;
    QByteArray xml = profileOf();
    if (!attributes.isEmpty())
        xml.replace("hysteresis='5'", attributes);
    QVERIFY(loadProfile(m_profile, xml));
    DataSet dataSet;
    recordSteps(dataSet, text);
    QByteArrayList found;
    for (const Episode& episode : findEpisodes(m_profile, dataSet).episodes)
        found << QByteArray::number(static_cast<int>(episode.crossings));
    QCOMPARE(found.join(' '), expected);
    QCOMPARE(output.text().count("is no number from 0 on"),
             attributes.startsWith("holdSeconds='-") ? 2 : 0);
}

void TestEpisodes::sides_data()
{
    // Of one episode: whether it is high, peak, seconds beyond warning, limit and the last level
    const Rows<QByteArray, QList<double>> row;
    row("no number first", "nan*1 150*1 120*2 50*9", {1, 150, 3, 0, 1});
    row("no number first, low", "nan*1 10*1 15*2 50*9", {0, 10, 3, 3, 1});
    row("no number in between", "150*1 nan*1 250*2 150*1 50*9", {1, 250, 3, 2, 2});
    row("at the warning", "50*1 100*2 50*9", {1, 100, 2, 0, 2});
    row("at the limit", "50*1 200*2 50*9", {1, 200, 2, 2, 2});
    row("both sides", "50*1 150*2 10*1 50*9", {0, 10, 3, 1, 1});
    row("both limits", "50*1 250*1 150*1 10*1 50*9", {1, 250, 3, 2, 1});
    row("infinite", "50*1 150*1 inf*1 50*9", {1, 150, 2, 1, 2});
    row("the last sample", "50*1 150*0.5", {1, 150, 0, 0, 0});
}

void TestEpisodes::sides()
{
    const auto [text, expected] = fetchRow<QByteArray, QList<double>>();
    QVERIFY(loadProfile(m_profile, profileOf()));
    DataSet dataSet;
    recordSteps(dataSet, text);
    const std::vector<Episode> episodes = findEpisodes(m_profile, dataSet).episodes;
    QCOMPARE(episodes.size(), 1U);
    const Episode& one = episodes[0];
    const QList<double> found{one.isHigh ? 1.0 : 0.0, one.peak->number, one.secondsBeyondWarning,
                              one.secondsBeyondLimit, one.levels.back().seconds};
    QCOMPARE(found, expected);
}

void TestEpisodes::lanesAndLampsAreOne()
{
    QVERIFY(loadProfile(
        m_profile,
        lists + device({"name='p' id='1' dataType='FLOAT' thresholdId='T' quantity='Q'",
                        "name='q' id='2' dataType='FLOAT' thresholdId='T' quantity='Q'",
                        "name='other' id='4' dataType='FLOAT' thresholdId='T'",
                        "name='lamp' id='3' dataType='BSHORT' thresholdId='Lamp' quantity='Q' "
                        "koltDataType='WarningLamp'"})));
    DataSet dataSet;
    record(dataSet, 1, 60, trapezoid(10, 20, 150));
    record(dataSet, 2, 60, trapezoid(11, 20, 152), 0.01);
    record(dataSet, 4, 60, [](double) { return 70.0; });
    for (int i = 0; i < 60; ++i)
        add(dataSet.messages, 3, i, {static_cast<unsigned char>(i == 20 || i == 55 ? 1 : 0)});
    const std::vector<Episode> episodes = findEpisodes(m_profile, dataSet).episodes;
    QCOMPARE(episodes.size(), 2U);
    const Episode& all = episodes[0];
    QCOMPARE(all.quantity, "Q");
    QCOMPARE(all.crossings, 3U);
    QCOMPARE(all.parameters.size(), 3U);
    QVERIFY(all.state == ThresholdState::Warning); // by values; a lamp only announces
    QCOMPARE(all.peak->parameter->fullName, "D/q");
    QCOMPARE(all.peak->number, 152.0);
    // Beyond while either lane is, from 15 s to 45.9 s; back when both are below 95.
    QVERIFY(std::abs(all.secondsBeyondWarning - 31.1) < 0.2);
    QVERIFY(std::abs(all.end - 46.6) < 0.2);
    QCOMPARE(all.group.size(), 2U);
    QCOMPARE(all.group[0].parameter->name, "other");
    const Episode& lamp = episodes[1];
    QVERIFY(lamp.isLampOnly && !lamp.peak && lamp.state == ThresholdState::Limit);
    QCOMPARE(lamp.quantity, "lamp");
    QCOMPARE(lamp.secondsBeyondLimit, 1.0);
}

void TestEpisodes::cuts_data()
{
    // Samples left out from..to; begin, end, beyond warning of the trapezoid from 12.5 to 57.5
    const Rows<double, double, bool, QList<double>> row;
    row("none", 0, 0, false, {15, 55.5, 40});
    row("in it", 20, 30, true, {15, 55.5, 30});
    row("from it on", 30, 40, true, {15, 55.5, 30});
    row("its end", 50, 70, true, {15, 50, 35});
    row("its begin", 8, 20, true, {20, 55.5, 35});
    row("to the end", 50, 100, true, {15, 50, 35});
    row("before", 2, 9, false, {15, 55.5, 40});
    row("short", 30, 31.9, false, {15, 55.5, 40});
}

void TestEpisodes::cuts()
{
    const auto [from, to, isCut, expected] = fetchRow<double, double, bool, QList<double>>();
    QVERIFY(loadProfile(m_profile, profileOf()));
    DataSet dataSet;
    const Curve curve = trapezoid(10, 30, 150);
    for (int i = 0; i < 90 * rate; ++i) {
        const double t = i / rate;
        if (!(t > from && t < to))
            add(dataSet.messages, 1, t, floats(static_cast<float>(curve(t))));
    }
    const std::vector<Episode> episodes = findEpisodes(m_profile, dataSet).episodes;
    QCOMPARE(episodes.size(), 1U);
    const Episode& episode = episodes[0];
    QCOMPARE(episode.isCut, isCut);
    const QList<double> found{episode.begin, episode.end, episode.secondsBeyondWarning};
    for (qsizetype i = 0; i < found.size(); ++i)
        QVERIFY2(std::abs(found[i] - expected[i]) < 2.1 / rate,
                 qPrintable(QString::number(found[i])));
}

/// Random values, some of them no numbers, whose times also step back; odd lists of steps.
void TestEpisodes::eachCrossingIsInOneEpisode()
{
    QVERIFY(loadProfile(
        m_profile, lists +
                       "<ThresholdList><Threshold name='Odd'><Value val='90' state='WARNING'/>"
                       "<Value val='90' state='LIMIT'/><Value val='80' state='OK'/>"
                       "<Value val='100' state='WARNING'/></Threshold></ThresholdList>" +
                       device({"name='p' id='1' dataType='FLOAT' thresholdId='T' quantity='Q'",
                               "name='q' id='2' startByte='4' dataType='FLOAT' thresholdId='Odd'",
                               "name='r' id='2' dataType='FLOAT' thresholdId='T' quantity='Q'"})));
    const auto isInProfileOrder = [](const std::vector<StateAtStart>& states) {
        return std::ranges::is_sorted(states, {},
                                      [](const auto& one) { return one.parameter->name; });
    };
    for (unsigned seed = 1; seed <= 30; ++seed) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> value(0.0F, seed % 2 == 0 ? 130.0F : 104.0F);
        DataSet dataSet;
        double seconds = 0.0;
        for (int i = 0; i < 2000; ++i) {
            seconds += static_cast<double>(random() % 100) / 100.0;
            if (seed % 3 == 0 && random() % 200 == 0)
                seconds = std::max(0.0, seconds - 50.0);
            const float first = random() % 50 == 0 ? std::nanf("") : value(random);
            add(dataSet.messages, 1 + random() % 2, seconds, floats(first, value(random)));
        }
        const EpisodeFindings found = findEpisodes(m_profile, dataSet);
        QVERIFY(isInProfileOrder(found.atStart));
        std::map<const Episode*, std::size_t> counted;
        for (const ThresholdCrossing& crossing : findCrossings(m_profile, dataSet)) {
            const Episode* const episode = found.episodeOf(*crossing.parameter, crossing.seconds);
            QVERIFY(episode != nullptr);
            ++counted[episode];
        }
        std::size_t crossings = 0;
        for (const Episode& episode : found.episodes) {
            crossings += episode.crossings;
            QVERIFY(counted.contains(&episode));
            // Where times step back, those of one quantity may overlap.
            QVERIFY(seed % 3 == 0 || counted[&episode] == episode.crossings);
        }
        QCOMPARE(crossings, findCrossings(m_profile, dataSet).size());
    }
}

void TestEpisodes::phases()
{
    QVERIFY(loadProfile(m_profile,
                        device({"name='g' id='1' dataType='FLOAT' koltDataType='GroundSpeed'",
                                "name='a' id='2' dataType='FLOAT' koltDataType='Altitude'",
                                "name='n' id='3' dataType='FLOAT' koltDataType='EngineSpeed'"})));
    DataSet dataSet;
    const auto between = [](double t, double from, double to) { return t >= from && t < to; };
    record(dataSet, 1, 1000, [&](double t) { return between(t, 300, 800) ? 120.0 : 0.0; });
    record(dataSet, 2, 1000, [&](double t) {
        return 500.0 + 3.0 * std::clamp(std::min(t - 310.0, 790.0 - t), 0.0, 150.0);
    });
    record(dataSet, 3, 1000, [&](double t) { return between(t, 50, 950) ? 2000.0 : 0.0; });
    const FlightPhases phases(m_profile, dataSet);
    const std::vector<std::pair<double, QString>> expected{
        {10, "start"},     {60, "start"},   {200, "ground"},   {299, "ground"},
        {305, "take-off"}, {340, "climb"},  {550, "cruise"},   {700, "descent"},
        {785, "landing"},  {850, "ground"}, {945, "shutdown"}, {990, "shutdown"}};
    for (const auto& [seconds, name] : expected)
        QCOMPARE(phaseName(phases.at(seconds)), name);
    QCOMPARE(phaseName(FlightPhases(m_profile, DataSet()).at(5)), "unknown");
}

void TestEpisodes::faults()
{
    QVERIFY(loadProfile(
        m_profile,
        "<Device name='D'><ErrorMatrix id='7' name='M'/>"
        "<Parameter name='f' id='7' dataType='BSHORT'/>"
        "<Parameter name='steady' id='1' dataType='FLOAT' precision='1'/>"
        "<Parameter name='falls' id='1' startByte='4' dataType='FLOAT' precision='1'/></Device>"));
    DataSet dataSet;
    for (int i = 0; i < 200; ++i) {
        const bool isSet = (i >= 50 && i < 60) || i >= 150;
        if (i < 100 || i > 120)
            add(dataSet.messages, 7, i, {static_cast<unsigned char>(isSet ? 1 : 0)});
        add(dataSet.messages, 1, i,
            floats(80.0F + static_cast<float>(i % 2), i < 55 ? 20.0F : 9.0F));
    }
    dataSet.stopSeconds = 250.0;
    const std::vector<FaultOccurrence> found = findFaultOccurrences(m_profile, dataSet);
    QCOMPARE(found.size(), 2U);
    QCOMPARE(found[0].begin, 50.0);
    QCOMPARE(found[0].end, 60.0);
    QVERIFY(!found[0].isCut);
    QCOMPARE(found[1].begin, 150.0);
    QCOMPARE(found[1].end, 199.0); // its last sample
    QVERIFY(found[1].isCut);
    const FaultSnapshot snapshot = faultSnapshot(m_profile, dataSet, found[0]);
    QCOMPARE(snapshot.changes.size(), 1U);
    QCOMPARE(snapshot.changes[0].parameter->name, "falls");
    QCOMPARE(snapshot.changes[0].at + " > " + snapshot.changes[0].farthest, "20.0 > 9.0");
    QCOMPARE(snapshot.switches.size(), 2U);
    QVERIFY(snapshotText(snapshot, dataSet).contains("D/falls\t20.0\t20.0\t9.0 (+5.0 s)\t9.0"));
    QVERIFY(snapshotHtml(snapshot, dataSet).contains("<td align=\"left\">D/falls</td>"));
}

QTEST_GUILESS_MAIN(TestEpisodes)
#include "tst_episodes.moc"
