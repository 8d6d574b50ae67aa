#include "record/MessageMap.h"
#include "tests/support/RecordingFixture.h"

#include <QTest>

#include <cmath>

using namespace KOLT;
using namespace KOLT::Test;

class TestMessageMap : public QObject
{
    Q_OBJECT

private slots:
    void kindsAreListedInRecordingOrder();
    void lookUpFindsTheFirstAtOrAfter();
    void lookUpFollowsChanges();
    void aroundHoldsTheWindow();
    void windowAndTruncation();
    void longSeriesStayInOrder();
    void identifiersAreBounded();
};

void TestMessageMap::kindsAreListedInRecordingOrder()
{
    MessageMap messages;
    add(messages, 5, 1.0, {}, 0);
    add(messages, 3, 2.0, {}, 1);
    add(messages, 4, 3.0, {}, 2);
    add(messages, RecordFormat::kind0Series, 3.5, {}, 2); // its own identifier
    add(messages, 3, 4.0, {}, 0);
    const auto times = [&](std::uint32_t id) {
        QList<double> result;
        for (const StoredSample& sample : messages.series(id))
            result << sample.seconds();
        return result;
    };
    QCOMPARE(times(RecordFormat::kind0Series), (QList<double>{1.0, 3.5, 4.0}));
    QCOMPARE(times(RecordFormat::kind1Series), (QList<double>{2.0}));
    // Later samples are included; one that has both the identifier and the kind appears twice.
    add(messages, 4, 5.0, {}, 1);
    add(messages, RecordFormat::kind0Series, 6.0, {}, 0);
    QCOMPARE(times(RecordFormat::kind0Series), (QList<double>{1.0, 3.5, 4.0, 6.0, 6.0}));
    QCOMPARE(times(RecordFormat::kind1Series), (QList<double>{2.0, 5.0}));
    QCOMPARE(messages.sampleCount(), 7U);
    messages.clear();
    QVERIFY(messages.series(RecordFormat::kind0Series).empty());
}

void TestMessageMap::lookUpFindsTheFirstAtOrAfter()
{
    MessageMap messages;
    for (const double seconds : {1.25, 1.75, 9.0, 50.0, 10.0, 51.0, 3e6, 52.0, 6e6})
        add(messages, 1, seconds);
    for (const auto& [seconds, expected] : {std::pair(-5.0, 1.25),
                                            {0.0, 1.25},
                                            {1.25, 1.25},
                                            {1.26, 1.75},
                                            {2.0, 9.0},    // across a gap
                                            {9.1, 50.0},   // first in stored order, not in time
                                            {50.5, 51.0},  // after a step back
                                            {60.0, 3e6},   // a stray time
                                            {3.5e6, -1.0}, // none: 6e6 is beyond maxTimeSlots
                                            {5.5e6, -1.0},
                                            {std::nan(""), -1.0}}) {
        const StoredSample* const found = messages.series(1).firstAtOrAfter(seconds);
        QCOMPARE(found != nullptr ? found->seconds() : -1.0, expected);
        QVERIFY(messages.series(2).firstAtOrAfter(seconds) == nullptr);
    }
}

void TestMessageMap::lookUpFollowsChanges()
{
    MessageMap messages;
    add(messages, 1, 1.0);
    add(messages, 1, 2.0);
    QVERIFY(messages.series(1).firstAtOrAfter(3.0) == nullptr);
    add(messages, 1, 3.0);
    QVERIFY(messages.series(1).firstAtOrAfter(3.0) != nullptr);
    messages.keepWindow(2.5, 9.0);
    add(messages, 1, 4.0);
    add(messages, 1, 5.0);
    QCOMPARE(messages.series(1).firstAtOrAfter(0.0)->seconds(), 3.0);
}

void TestMessageMap::aroundHoldsTheWindow()
{
    MessageMap messages;
    for (int i = 0; i < 100; ++i)
        add(messages, 1, i);
    const auto count = [&](double start, double end) {
        const auto range = messages.series(1).around(start, end);
        return std::distance(range.begin(), range.end());
    };
    QCOMPARE(messages.series(1).around(9.5, 20.5).begin()->seconds(), 10.0);
    QCOMPARE(count(9.5, 20.5), 11);
    QCOMPARE(count(200.0, 300.0), 0);
    QCOMPARE(count(20.0, 10.0), 0);
    add(messages, 1, 15.0); // a step back: the whole series is returned
    QCOMPARE(count(9.5, 20.5), 101);
}

void TestMessageMap::windowAndTruncation()
{
    MessageMap messages;
    for (int i = 0; i < 10; ++i)
        add(messages, static_cast<std::uint32_t>(i % 2), i, {}, 0);
    messages.truncate(6);
    QCOMPARE(messages.sampleCount(), 6U);
    QCOMPARE(messages.nextSequence(), 6U);
    add(messages, 0, 20.0, {}, 0);
    QCOMPARE(messages.series(RecordFormat::kind0Series).last().seconds(), 20.0);
    messages.keepWindow(1.0, 3.0);
    QCOMPARE(messages.sampleCount(), 3U);
    QCOMPARE(messages.series(1).size(), 2U);
    messages.keepWindow(3.0, 3.0);
    QVERIFY(!messages.all().contains(0));
    add(messages, 0, 4.0);
    QCOMPARE(messages.series(0).size(), 1U);
}

void TestMessageMap::longSeriesStayInOrder()
{
    // Several chunks: removing most of them and appending again must lose no sample.
    MessageMap messages;
    constexpr int count = 200'000;
    for (int i = 0; i < count; ++i)
        add(messages, 1, i * 0.5);
    const auto isInOrder = [&](std::size_t size, double step) {
        std::size_t i = 0;
        double first = messages.series(1)[0].seconds();
        for (const StoredSample& sample : messages.series(1)) {
            if (std::abs(sample.seconds() - first - static_cast<double>(i) * step) > 1e-6 ||
                &sample != &messages.series(1)[i])
                return false;
            ++i;
        }
        return i == size && messages.series(1).size() == size;
    };
    QVERIFY(isInOrder(count, 0.5));
    QCOMPARE(messages.series(1).firstAtOrAfter(70'000.1)->seconds(), 70'000.5);
    messages.keepWindow(30'000.25, 69'999.75);
    QVERIFY(isInOrder(79'999, 0.5));
    for (int i = 0; i < count; ++i)
        add(messages, 1, 70'000 + i * 0.5);
    QVERIFY(isInOrder(79'999 + count, 0.5));
    messages.truncate(count); // sequence numbers continue after keepWindow()
    QVERIFY(isInOrder(79'999, 0.5));
    messages.keepWindow(30'000.25, 30'000.75);
    add(messages, 1, 30'001.0);
    QVERIFY(isInOrder(2, 0.5));
}

void TestMessageMap::identifiersAreBounded()
{
    MessageMap messages;
    for (std::uint32_t id = 0; id < MessageMap::maxIdentifiers + 10; ++id)
        add(messages, id, 1.0);
    QCOMPARE(messages.all().size(), MessageMap::maxIdentifiers);
    QCOMPARE(messages.droppedCount(), 10U);
    add(messages, 5, 2.0);
    QCOMPARE(messages.series(5).size(), 2U);
}

QTEST_GUILESS_MAIN(TestMessageMap)
#include "tst_messagemap.moc"
