#include "analysis/DaySheet.h"
#include "analysis/EventDetails.h"
#include "analysis/Findings.h"
#include "base/Csv.h"
#include "tests/support/RecordingFixture.h"

#include <QTest>

#include <cmath>

using namespace KOLT;
using namespace KOLT::Test;

class TestFlightLog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void exceedancesBelongToTheirFlight();
    void eventDetails();
    void findingsAreFoundOnce();
    void sheetSumsDays();
    void sheetAsText();
    void csvFields();
    void durations();

private:
    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
};

/// "p" is 150 from 20 s to 40 s, with a peak of 250 at 30 s, and 0 otherwise.
void TestFlightLog::init()
{
    QVERIFY(loadProfile(
        m_profile, unit("unitMetric='C' unitImperial='F' factor='2' offset='1'") +
                       threshold("T", {"val='100' color='yellow' state='WARNING'"}) +
                       threshold("Low", {"val='-1000' color='red' state='LIMIT'",
                                         "val='-100' color='white' state='OK'"}) +
                       device({"name='p' id='1' dataType='FLOAT' precision='0' thresholdId='T' "
                               "unitMetric='C' unitImperial='F'",
                               "name='low' id='3' dataType='FLOAT' precision='0' thresholdId='Low'",
                               "name='rpm' id='2' dataType='FLOAT' koltDataType='EngineSpeed'"})));
    m_dataSet = std::make_unique<DataSet>();
    for (int i = 0; i < 60; ++i) {
        const bool isHigh = i >= 20 && i < 40;
        const float value = i == 30 ? 250.0F : isHigh ? 150.0F : 0.0F;
        add(m_dataSet->messages, 1, i, floats(value));
        add(m_dataSet->messages, 3, i, floats(i == 50 ? -300.0F : i > 50 ? -200.0F : 0.0F));
        add(m_dataSet->messages, 2, i + 0.5, floats(1000.0F + static_cast<float>(i)));
    }
    m_dataSet->stopSeconds = 59.0;
    m_dataSet->dateTime = QDateTime(QDate(2026, 7, 28), QTime(23, 59, 0), Qt::UTC);
}

void TestFlightLog::exceedancesBelongToTheirFlight()
{
    Flight early;
    early.startSeconds = 0.0;
    early.takeOffSeconds = 5.0;
    early.landingSeconds = 15.5;
    early.endSeconds = 19.9;
    Flight late = early;
    late.startSeconds = 20.0;
    late.endSeconds = 50.0;
    m_dataSet->flights = {early, late};
    const FlightLog log = flightLog(m_profile, *m_dataSet);
    QCOMPARE(log.exceedances, 2U);
    QCOMPARE(log.lines.at(0).exceedances, 0U);
    QCOMPARE(log.lines.at(1).exceedances, 2U); // one at each end
    QCOMPARE(log.lines.at(0).takeOff.time(), QTime(23, 59, 5));
    QCOMPARE(log.lines.at(0).flightSeconds(), 10.0); // difference of the shown times
}

void TestFlightLog::eventDetails()
{
    const std::vector<Event> events = findEvents(m_profile, *m_dataSet, EventScope::AllParameters);
    QCOMPARE(events.size(), 2U);
    const EventDetails high = detailsOf(m_profile, *m_dataSet, events[0]);
    QCOMPARE(high.peak, 250.0);
    QCOMPARE(high.peakText + high.unit, "250C");
    QCOMPARE(high.duration.value_or(-1), 20.0);
    QCOMPARE(high.engineSpeed.value_or(-1), 1019.0); // the last value before 20 s
    m_profile.setUnitSystem(UnitSystem::Imperial);
    const EventDetails imperial = detailsOf(m_profile, *m_dataSet, events[0]);
    QCOMPARE(imperial.peakText + imperial.unit, "501F");
    m_profile.setUnitSystem(UnitSystem::Metric);
    const EventDetails low = detailsOf(m_profile, *m_dataSet, events[1]);
    QCOMPARE(low.peak, -300.0); // farthest from normal, below
    QVERIFY(!low.duration);     // never returned to normal
}

void TestFlightLog::findingsAreFoundOnce()
{
    const EventList events = eventsOf(m_profile, *m_dataSet);
    const FaultList faults = faultsOf(m_profile, *m_dataSet);
    const EventList lamps = eventsOf(m_profile, *m_dataSet, EventScope::WarningLamps);
    QCOMPARE(events->size(), 2U);
    QCOMPARE(lamps->size(), 0U);
    m_profile.select([](const ProfileParameter&) { return true; });
    QCOMPARE(eventsOf(m_profile, *m_dataSet), events);
    m_profile.setUnitSystem(UnitSystem::Imperial);
    QVERIFY(eventsOf(m_profile, *m_dataSet)->front().text.endsWith("301 F"));
    QCOMPARE(faultsOf(m_profile, *m_dataSet), faults); // they have no units
    m_profile.setUnitSystem(UnitSystem::Metric);
    add(m_dataSet->messages, 1, 60.0, floats(150.0F)); // other samples, then another profile
    QCOMPARE(eventsOf(m_profile, *m_dataSet)->size(), 3U);
    QVERIFY(loadProfile(m_profile, device({"name='p' id='1' dataType='FLOAT'"})));
    QCOMPARE(eventsOf(m_profile, *m_dataSet)->size(), 0U);
}

namespace {

FlightLine line(const QDateTime& takeOff, double seconds, double fuel, std::size_t exceedances)
{
    FlightLine result;
    result.takeOff = takeOff;
    result.landing = takeOff.isValid() ? takeOff.addSecs(static_cast<qint64>(seconds)) : takeOff;
    result.landingSeconds = seconds;
    result.fuel = fuel;
    result.exceedances = exceedances;
    result.takeOffDistance = std::nan("");
    return result;
}

} // namespace

void TestFlightLog::sheetSumsDays()
{
    const QDateTime day1(QDate(2026, 7, 28), QTime(10, 0), Qt::UTC);
    const DaySheet sheet({line({}, 60.9, 1, 0), line(day1.addDays(1), 600, 4, 2),
                          line(day1.addSecs(60), 3599, 2.5, 1), line(day1, 3601, 2, 0)});
    QStringList texts;
    for (const DaySheet::Row& row : sheet.rows())
        texts << QStringList{row.cells[0], row.cells[1], row.cells[3], row.cells[6], row.cells[8]}
                     .join(' ');
    QCOMPARE(
        texts,
        (QStringList{
            "28.07.2026 10:00:00 01:00:01 2.00 0", "28.07.2026 10:01:00 00:59:59 2.50 1",
            "Sum 28.07.2026 2 flight(s) 02:00:00 4.50 1", "29.07.2026 10:00:00 00:10:00 4.00 2",
            "Sum 29.07.2026 1 flight(s) 00:10:00 4.00 2", "Unknown Date 00:00:00 00:01:00 1.00 0",
            "Sum Unknown Date 1 flight(s) 00:01:00 1.00 0", "Total 4 flight(s) 02:11:00 9.50 3"}));
    QCOMPARE(sheet.rows().at(0).cells.at(7), "-"); // was not found
    QVERIFY(DaySheet({}).isEmpty());
    QCOMPARE(DaySheet({line(day1, 60, 1, 0)}).rows().size(), 2U); // no total below a single sum
}

void TestFlightLog::sheetAsText()
{
    const QDateTime day(QDate(2026, 7, 28), QTime(10, 0), Qt::UTC);
    const DaySheet sheet({line(day, 60, 1, 0), line(day, 60, 1, 0)});
    const QStringList lines = sheet.toCsv({".", '|', true}).split("\r\n");
    QCOMPARE(lines.size(), 4); // headings, two flights, empty end
    QCOMPARE(lines[1].count('|'), DaySheet::headings().size() + 1);
    QCOMPARE(lines[1].left(11), "28.07.2026|"); // a date is not a number
    QVERIFY2(lines[1].contains("|1,00|") && lines[1].endsWith("|0,0|60,0"), qPrintable(lines[1]));
    const QString html = sheet.toHtml("A & B");
    QVERIFY(html.contains("A &amp; B"));
    QCOMPARE(html.count("<tr"), 4);
    QVERIFY(sheet.toHtml("A", "lacks <h1>").contains("lacks &lt;h1&gt;"));
}

void TestFlightLog::csvFields()
{
    QCOMPARE(csvLine({"a", "b;c", "say \"x\"", "two\nlines", ""}, ';'),
             "a;\"b;c\";\"say \"\"x\"\"\";\"two\nlines\";\r\n");
    QCOMPARE(csvLine({"b;c", "1,5"}, ','), "b;c,\"1,5\"\r\n");
}

void TestFlightLog::durations()
{
    for (const auto& [seconds, text] : {std::pair(3725.9, "01:02:05"),
                                        {100 * 3600.0, "100:00:00"},
                                        {-1.0, "00:00:00"},
                                        {std::nan(""), "00:00:00"}})
        QCOMPARE(durationText(seconds), text);
    QCOMPARE(figureText(1.26, 1, "l"), "1.3 l");
    QCOMPARE(figureText(INFINITY, 1, "l"), "-");
}

QTEST_GUILESS_MAIN(TestFlightLog)
#include "tst_flightlog.moc"
