#include "analysis/DaySheet.h"
#include "analysis/EventDetails.h"
#include "analysis/Findings.h"
#include "base/Csv.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

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
    void sheetMarksDoubtfulFigures();
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
    // Of episodes each counts once, also where flights overlap, and the rest is outside.
    QCOMPARE(log.lines.at(1).counts, (EpisodeCounts{{1, 1}, {1, 1}, {}}));
    QCOMPARE(log.outside, EpisodeCounts());
    m_dataSet->flights = {early, late, late};
    m_dataSet->flights[1].endSeconds = 45.0;
    m_dataSet->flights[2].startSeconds = 46.0;
    m_dataSet->flights[2].endSeconds = 49.0;
    const FlightLog apart = flightLog(m_profile, *m_dataSet);
    QCOMPARE(apart.lines.at(1).counts, (EpisodeCounts{{}, {1, 1}, {}}));
    QCOMPARE(apart.outside, (EpisodeCounts{{1, 1}, {}, {}}));
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

FlightLine line(const QDateTime& takeOff, double seconds, double fuel, EpisodeCounts counts)
{
    FlightLine result;
    result.number = 1;
    result.takeOff = takeOff;
    result.landing = takeOff.isValid() ? takeOff.addSecs(static_cast<qint64>(seconds)) : takeOff;
    result.landingSeconds = result.endSeconds = seconds;
    result.fuel = fuel;
    result.counts = counts;
    result.takeOffDistance = std::nan("");
    return result;
}

/// A cycle with a litre and a lamp outside of its flights.
SheetCycle cycle(int number, const std::vector<FlightLine>& lines)
{
    SheetCycle result;
    result.number = number;
    result.dateTime = lines.front().takeOff;
    result.log.lines = lines;
    result.log.fuel = 1.0;
    result.log.outside = {{}, {}, {1, 3}};
    for (const FlightLine& flight : lines)
        result.log.fuel += flight.fuel;
    return result;
}

const QDateTime day1(QDate(2026, 7, 28), QTime(10, 0), Qt::UTC);

} // namespace

void TestFlightLog::sheetSumsDays()
{
    // The last flight of the second cycle starts behind midnight: it belongs to its cycle's day.
    const DaySheet sheet({cycle(0, {line({}, 60.9, 1, {})}),
                          cycle(3, {line(day1.addDays(1), 600, 4, {{}, {2, 5}, {}})}),
                          cycle(2, {line(day1.addSecs(60), 3599, 2.5, {{1, 8}, {}, {}}),
                                    line(day1.addSecs(50'400), 1, 0, {})}),
                          cycle(1, {line(day1, 3601, 2, {})})});
    QStringList texts;
    for (const DaySheet::Row& row : sheet.rows())
        texts << QStringList{row.cells[DaySheet::Date],         row.cells[DaySheet::Cycle],
                             row.cells[DaySheet::FlightNumber], row.cells[DaySheet::TakeOff],
                             row.cells[DaySheet::FlightTime],   row.cells[DaySheet::Fuel],
                             row.cells[DaySheet::Limits],       row.cells[DaySheet::Warnings],
                             row.cells[DaySheet::Lamps]}
                     .join('|');
    QCOMPARE(texts, (QStringList{"28.07.2026|1|1|10:00:00|01:00:01|2.00|0|0|0",
                                 "28.07.2026|1|Outside flights|||1.00|0|0|1",
                                 "28.07.2026|2|1|10:01:00|00:59:59|2.50|1|0|0",
                                 "29.07.2026|2|1|00:00:00|00:00:01|0.00|0|0|0",
                                 "28.07.2026|2|Outside flights|||1.00|0|0|1",
                                 "Sum 28.07.2026|||3 flight(s)|02:00:01|6.50|1|0|2",
                                 "29.07.2026|3|1|10:00:00|00:10:00|4.00|0|2|0",
                                 "29.07.2026|3|Outside flights|||1.00|0|0|1",
                                 "Sum 29.07.2026|||1 flight(s)|00:10:00|5.00|0|2|1",
                                 "Unknown Date|0|1|00:00:00|00:01:00|1.00|0|0|0",
                                 "Unknown Date|0|Outside flights|||1.00|0|0|1",
                                 "Sum Unknown Date|||1 flight(s)|00:01:00|2.00|0|0|1",
                                 "Total|||5 flight(s)|02:11:01|13.50|1|2|4"}));
    QCOMPARE(sheet.rows().at(0).cells.at(DaySheet::TakeOffDistance), "-"); // was not found
    QCOMPARE(sheet.isoDates(), "2026-07-28_2026-07-29");
    QCOMPARE(sheet.rows().at(2).text(DaySheet::Limits), "1 (8)"); // episodes and crossings
    QVERIFY(DaySheet().isEmpty());
    const DaySheet single({cycle(1, {line(day1, 60, 1, {})})});
    QCOMPARE(single.rows().size(), 3U);                            // no total below a single sum
    QCOMPARE(single.columns().size(), sheet.columns().size() - 1); // and no column for the cycle
    QCOMPARE(single.isoDates(), "2026-07-28");
}

void TestFlightLog::sheetMarksDoubtfulFigures()
{
    SheetCycle marked = cycle(1, {line(day1, 600, 2, {}), line(day1.addSecs(900), 60, 1, {})});
    const auto find = [&](TrustKind kind, double from, double to, Figures figures) {
        marked.findings.push_back({kind, from, to, {}, "Text", {}});
        if (figures != 0)
            marked.findings.back().marks = {{0, figures}};
    };
    find(TrustKind::Hole, 10, 70, Figure::Fuel | Figure::MaxAltitude); // within the flight
    find(TrustKind::NeverRecorded, 0, 0, 0);                           // touches no figure
    find(TrustKind::MissingFile, 590, 700, Figure::Fuel | Figure::End);
    find(TrustKind::LateClock, 0, 0, Figure::DateTime);
    find(TrustKind::OtherEngine, 0, 0, 0);
    const DaySheet sheet({marked});
    QStringList rows;
    for (const DaySheet::Row& row : sheet.rows()) {
        QStringList marks;
        for (int i = 0; i < DaySheet::columnCount; ++i)
            marks << row.text(static_cast<DaySheet::Column>(i)).section(QLatin1String(" ["), 1);
        rows << marks.join(' ').remove(']').simplified();
    }
    QCOMPARE(rows.at(0), "3 3 3 1 1,2 2,4 2,4 2,4"); // date, times, altitude, fuel, episodes
    QCOMPARE(rows.at(1), "4 4 4");
    QCOMPARE(rows.at(2), "2 2,4 2,4 2,4"); // outside: what goes beyond the flight
    QCOMPARE(rows.at(3), "1,2 2,4 2,4 2,4");
    QCOMPARE(sheet.notes().size(), 4);
    QCOMPARE(sheet.notes().at(0), "Cycle 1, Hole (10:00:10 to 10:01:10): Text");
    const DaySheet::Head head{"A & B", "Profile: <P>", {}, {}};
    QVERIFY(sheet.toHtml(head).contains(">2.00 [1,2]</td>"));
    QVERIFY(sheet.toHtml(head).contains(">[4] Cycle 1, Other engine"));
    const QStringList lines = sheet.toCsv(head, {".", '|', true}).split("\r\n");
    QVERIFY2(lines[1].contains("|2,00|"), qPrintable(lines[1])); // a number without a mark
    QVERIFY2(lines[1].contains("Max. alt. [m], Fuel [l]: Cycle 1, Hole (10:00:10 to"),
             qPrintable(lines[1]));
}

void TestFlightLog::sheetAsText()
{
    SheetCycle two = cycle(1, {line(day1, 60, 1, {}), line(day1, 60, 1, {})});
    two.engines = QStringList{"4711.5 (915)"};
    two.units = QStringList{"42"};
    const DaySheet sheet({two});
    const DaySheet::Head head{"A & B", "Profile: P", "UTC", "lacks <h1>"};
    const QStringList lines = sheet.toCsv(head, {".", '|', true}).split("\r\n");
    QCOMPARE(lines.size(), 5); // headings, two flights, what is outside, empty end
    for (int i = 0; i < 4; ++i)
        QCOMPARE(lines[i].count('|'), lines[0].count('|'));
    QCOMPARE(lines[1].left(11), "28.07.2026|"); // a date is not a number
    QVERIFY2(lines[1].contains("|1,00|") &&
                 lines[1].contains("|0,0|60,0|4711.5 (915)|42|Profile: P|UTC|"),
             qPrintable(lines[1]));
    QVERIFY2(lines[3].contains("|Outside flights|") && lines[3].contains("|||4711.5"),
             qPrintable(lines[3]));
    const QString html = sheet.toHtml(head);
    for (const char* text :
         {"A &amp; B", "lacks &lt;h1&gt;", "4711.5 (915); Unit serial number: 42", "Profile: P",
          ">UTC Flight time", "colspan=\"3\"", ">Outside flights</td>"})
        QVERIFY2(html.contains(text), text);
    QCOMPARE(html.count("<tr"), 5); // with the sum
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
