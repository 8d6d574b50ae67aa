#include "analysis/Replay.h"

#include <QTest>

using namespace KOLT;

class TestReplay : public QObject
{
    Q_OBJECT

private slots:
    void runsByTheWallClock();
    void pauseLosesNoTime();
    void endRewinds();
    void sliderPositions();
    void spanWithoutExtent();
    void speedStaysInItsRange();
};

void TestReplay::runsByTheWallClock()
{
    // The time does not depend on the number of steps.
    for (const int steps : {1, 7, 500}) {
        Replay replay;
        replay.setSpan(100.0, 1000.0);
        replay.setSpeed(2.5);
        replay.toggle(50.0);
        for (int i = 1; i <= steps; ++i)
            replay.step(50.0 + 20.0 * i / steps);
        QCOMPARE(replay.time(), 150.0);
    }
}

void TestReplay::pauseLosesNoTime()
{
    Replay replay;
    replay.setSpan(0.0, 1000.0);
    replay.step(5.0);
    QCOMPARE(replay.time(), 0.0); // not started
    replay.toggle(10.0);
    replay.step(11.0);
    replay.toggle(12.0);
    QVERIFY(replay.state() == Replay::State::Paused);
    replay.step(500.0);
    QCOMPARE(replay.time(), 1.0);
    replay.setTime(30.0); // the user goes elsewhere during the pause
    replay.toggle(600.0);
    replay.step(602.0);
    QCOMPARE(replay.time(), 32.0);
}

void TestReplay::endRewinds()
{
    Replay replay;
    replay.setSpan(10.0, 20.0);
    replay.toggle(0.0);
    replay.step(10.0);
    QCOMPARE(replay.time(), 20.0); // the last sample is still shown
    QVERIFY(replay.state() == Replay::State::Running);
    replay.step(10.1);
    QCOMPARE(replay.time(), 10.0);
    QVERIFY(replay.state() == Replay::State::Stopped);
    replay.setTime(15.0);
    replay.stop();
    QCOMPARE(replay.time(), 10.0);
}

void TestReplay::sliderPositions()
{
    Replay replay;
    replay.setSpan(100.0, 300.0);
    for (const auto& [time, position] : {std::pair(100.0, 0),
                                         {300.0, 10'000},
                                         {100.0399, 1}, // truncated
                                         {0.0, 0},
                                         {5.7e11, 10'000}}) {
        replay.setTime(time);
        QCOMPARE(replay.position(), position);
    }
    QCOMPARE(replay.timeAt(2500), 150.0);
}

void TestReplay::spanWithoutExtent()
{
    for (const double last : {5.0, 4.0}) { // a single sample; a counter that steps back
        Replay replay;
        replay.setSpan(5.0, last);
        QCOMPARE(replay.position(), 0);
        replay.toggle(0.0);
        replay.step(1.0);
        QVERIFY(replay.state() == Replay::State::Stopped);
        QCOMPARE(replay.time(), 5.0);
    }
}

void TestReplay::speedStaysInItsRange()
{
    Replay replay;
    for (const auto& [set, is] : {std::pair{12.34, 12.34}, {0.2, 1.0}, {1000.0, 100.0}}) {
        replay.setSpeed(set);
        QCOMPARE(replay.speed(), is);
    }
}

QTEST_GUILESS_MAIN(TestReplay)
#include "tst_replay.moc"
